#!/usr/bin/env bash
# Types what the documents say, and looks up what they name. Usage: documents_test.sh SOURCE BUILD VERSION; stops at the
# first thing that is wrong.
#
# Every block of commands (```sh) runs as it stands, in a folder that looks like the repository after a build. What would
# change the machine goes to a scratch home and a scratch root instead (sudo, apt). The scripts take hours together and are
# what CI runs; stand-ins make sure that what is typed names one of them, with options that it has, and do quick work.
set -euo pipefail
trap 'echo "FAILED in line $LINENO: $BASH_COMMAND"' ERR
source=$1 build=$2 version=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export KORVO_BUILD=$build KORVO_SOURCE=$source KORVO_ROOT=$work/root HOME=$work/home
export PATH=$work/bin:$work/root/usr/bin:$build/tools/korvoqr:$PATH
mkdir -p "$work"/{bin,home,repository/build,repository/scripts}
cd "$work/repository"
for entry in "$source"/*; do
    case ${entry##*/} in build | scripts) ;; *) ln -s "$entry" . ;; esac
done
ln -s "$build" build/release
cat "$source/tests/data/full.payload" > payloads.txt

printf '#!/bin/sh\nexec "$@"\n' > "$work/bin/sudo"
cat > "$work/bin/apt" <<'END'
#!/bin/sh
[ "$1" = install ] && shift && for package; do dpkg-deb -x "$package" "$KORVO_ROOT" || exit 1; done
END
cat > "$work/bin/stand-in" <<'END'
#!/usr/bin/env bash
set -euo pipefail
script=$KORVO_SOURCE/scripts/${0##*/}
case ${0##*/} in
run) (($#)) || set -- "$(cat payloads.txt)"; exec korvoqr parse "$@" ;;
test) grep -q 'Total Tests: [1-9]' <(ctest --test-dir "$KORVO_BUILD" -N "$@") ;;
*) for word; do [[ $word != -* ]] || grep -qF -e "${word%%=*}" "$script"; done ;;
esac
END
chmod +x "$work"/bin/*
for script in "$source"/scripts/*; do
    [[ ! -x $script ]] || cp "$work/bin/stand-in" "scripts/${script##*/}"
done

documents=$(find "$source" -maxdepth 1 -name '*.md'; find "$source/docs" -name '*.md')
for document in $documents; do
    rm -f "$work"/block-*
    awk -v prefix="$work/block-" '/^```/ { inside = !inside; kind = substr($0, 4); blocks += inside; next }
        inside && (kind == "sh" || kind == "cmake") { print > (prefix kind "-" sprintf("%02d", blocks)) }' "$document"
    for block in "$work"/block-sh-*; do
        [[ -e $block ]] || continue
        bash -euo pipefail "$block" > "$work/log" 2>&1 || { cat "$work/log"; echo "FAILED: in ${document##*/}:"; cat "$block"; exit 1; }
    done
    # A block for CMake is the middle of somebody's project, beside the installation that the commands above it made.
    for block in "$work"/block-cmake-*; do
        [[ -e $block ]] || continue
        rm -rf "$work/app"
        mkdir -p "$work/app/path/to/this"
        ln -s "$source" "$work/app/path/to/this/repository"
        { printf 'cmake_minimum_required(VERSION 3.25)\nproject(app LANGUAGES CXX)\nadd_executable(app %s)\n' "$source/examples/pay.cpp"
          cat "$block"; } > "$work/app/CMakeLists.txt"
        cmake -G Ninja -S "$work/app" -B "$work/app/build" -D CMAKE_PREFIX_PATH="$HOME/korvoqrparser" > "$work/log" 2>&1 ||
            { cat "$work/log"; echo "FAILED: in ${document##*/}:"; cat "$block"; exit 1; }
    done
    # Files that a text names, by any end of their path, and the targets of links
    while read -r name; do
        [[ -n $(find "$source" -path "$source/build" -prune -o -path "*/$name" -print -quit) ]] ||
            { echo "FAILED: ${document##*/} names $name, which is not there"; exit 1; }
    done < <(sed -n '/^```/,/^```/!p' "$document" |
        { grep -oE '`([A-Za-z0-9_./-]+\.(h|cpp|md|sh|awk|map|in|txt)|(scripts|\.ci)/[a-z]+)|\]\([A-Za-z0-9_./-]+\)' || true; } |
        sed 's/^`//; s/^](//; s/)$//; s,^\./,,' | sort -u)
done

echo "every function of ICU that the library asks for"
for function in $(nm -D --undefined-only "$build/KorvoQRParser/libKorvoQRParser.so" | sed -n 's/.* \(u[a-z]*_[A-Za-z0-9]*\)_[0-9]*$/\1/p'); do
    grep -qF "\`$function\`" "$source/docs/porting.md" || { echo "FAILED: docs/porting.md lacks $function"; exit 1; }
done
echo "the arrows between the rooms"
for arrow in "Decoding/Text Decoding/(?!Text/)|Validation|Parser|Model" "Decoding Validation|Parser|Model" \
    "Model Parser|Validation|Decoding/(?!Text/)" "Validation Parser|Model"; do
    for folder in "$source/KorvoQRParser" "$source/KorvoQRParser/include/KorvoQRParser"; do
        [[ -d $folder/${arrow%% *} ]] || continue
        if grep -rnP "#include <KorvoQRParser/(${arrow#* })" "$folder/${arrow%% *}"; then
            echo "FAILED: ${arrow%% *} must not know these"
            exit 1
        fi
    done
done
echo "the version"
[[ $(grep -m 1 '^## ' "$source/CHANGELOG.md") == "## $version" ]]

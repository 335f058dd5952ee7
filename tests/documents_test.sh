#!/usr/bin/env bash
# Runs the blocks of the documents, and looks for the files that they name.
# Usage: documents_test.sh SOURCE BUILD VERSION. Stops at the first failure.
#
# Blocks run in a folder that looks like the repository after a build: ```sh has commands, ```console a command and its
# output, ```cmake a part of another project, beside the installation that earlier blocks made. HOME and the root of
# installed packages are scratch folders, and sudo and apt are not the real ones. Nor are the scripts, which would take
# hours: a stand-in checks that the script exists and has the options, and does quick work.
set -Eeuo pipefail
trap 'echo "FAILED in line $LINENO: $BASH_COMMAND"' ERR
source=$1 build=$2 version=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export KORVO_BUILD=$build KORVO_SOURCE=$source KORVO_ROOT=$work/root HOME=$work/home
export PATH=$work/bin:$work/root/usr/bin:$build/tools/korvoqr:$PATH

fail() {
    echo "FAILED: $*"
    exit 1
}

mkdir -p "$work"/{bin,home,repository/build,repository/scripts}
cd "$work/repository"
for entry in "$source"/*; do
    case ${entry##*/} in build | scripts) ;; *) ln -s "$entry" . ;; esac
done
ln -s "$build" build/release
cp "$source/tests/data/full.payload" payloads.txt

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
run)
    case ${1-} in parse | explain | codes) ;; *) set -- parse "${@:-$(< payloads.txt)}" ;; esac
    exec korvoqr "$@"
    ;;
test) grep -q 'Total Tests: [1-9]' <(ctest --test-dir "$KORVO_BUILD" -N "$@") ;;
*) for word; do [[ $word != -* ]] || grep -qF -e "${word%%=*}" "$script"; done ;;
esac
END
chmod +x "$work"/bin/*
for script in "$source"/scripts/*; do
    [[ ! -x $script ]] || cp "$work/bin/stand-in" "scripts/${script##*/}"
done

# Each of these takes a file with one block.
run_sh() {
    bash -euo pipefail "$1" > "$work/log" 2>&1
}
run_console() {
    sed 1d "$1" | diff - <(bash -c "$(sed -n '1s/^\$ //p' "$1")" 2>&1) > "$work/log"
}
run_cmake() {
    local app=$work/app
    rm -rf "$app"
    mkdir -p "$app/path/to/this"
    ln -s "$source" "$app/path/to/this/repository"
    cat - "$1" > "$app/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.25)
project(app LANGUAGES CXX)
add_executable(app $source/examples/pay.cpp)
END
    cmake -G Ninja -S "$app" -B "$app/build" -D CMAKE_PREFIX_PATH="$HOME/korvoqrparser" > "$work/log" 2>&1
}

# files_named DOCUMENT: the files that its text names, by any end of their path, and the targets of its links.
files_named() {
    local files='[A-Za-z0-9_./-]+\.(h|c|cpp|py|md|sh|awk|map|in|txt)' scripts='(scripts|\.ci)/[a-z]+' link='[A-Za-z0-9_./-]+'
    sed -n '/^```/,/^```/!p' "$1" | { grep -oE "\`($files|$scripts)|\]\($link\)" || true; } |
        sed 's/^`//; s/^](//; s/)$//' | sort -u
}

documents=$(find "$source" -maxdepth 1 -name '*.md'; find "$source/docs" -name '*.md')
for document in $documents; do
    rm -f "$work"/block-*
    awk -v prefix="$work/block-" '
        /^```/ { inside = !inside; kind = substr($0, 4); blocks += inside; next }
        inside { print > (prefix kind "-" sprintf("%02d", blocks)) }' "$document"
    for kind in sh console cmake; do
        for block in "$work/block-$kind-"*; do
            [[ -e $block ]] || continue
            "run_$kind" "$block" || { cat "$work/log"; fail "in ${document##*/}: $(< "$block")"; }
        done
    done
    for name in $(files_named "$document"); do
        [[ -n $(find "$source" \( -path "$source/build" -o -name node_modules \) -prune -o -path "*/$name" -print -quit) ]] ||
            fail "${document##*/} names $name, which does not exist"
    done
done

echo "what the example in Python says"
says() {
    export LD_LIBRARY_PATH=$HOME/korvoqrparser/lib
    [[ $(python3 "$source/examples/python/pay.py" "${@:2}" 2>&1 || echo "status $?") == "$1" ]]
}
says "Pay any amount to hi" 0g411111111111111112hi24581231M42IN53356
says $'Refused. The text is empty.\nstatus 1'

echo "the rooms know each other in one direction only"
for arrow in "Decoding/Text Decoding/(?!Text/)|Validation|Parser|Model|Explanation|C/" \
    "Decoding Validation|Parser|Model|Explanation|C/" "Model Parser|Validation|Decoding/(?!Text/)|Explanation|C/" \
    "Validation Parser|Model|Explanation|C/" "Parser Explanation|C/" "Explanation C/"; do
    for folder in "$source"/KorvoQRParser/{,include/KorvoQRParser/}"${arrow%% *}"; do
        [[ -d $folder ]] || continue
        if grep -rnP "#include <KorvoQRParser/(${arrow#* })" "$folder"; then
            fail "${arrow%% *} must not include these"
        fi
    done
done

echo "the version"
[[ $(grep -m 1 '^## ' "$source/CHANGELOG.md") == "## $version" ]]

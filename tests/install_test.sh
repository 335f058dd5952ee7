#!/usr/bin/env bash
# Installs the build, moves the installed tree, and uses it from another project.
# Usage: install_test.sh SOURCE BUILD VERSION COMPILER. Stops at the first fault.
set -Eeuo pipefail
trap 'echo "FAILED in line $LINENO: $BASH_COMMAND"' ERR
source=$1 build=$2 version=$3 compiler=$4
tests=$source/tests
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
not() {
    ! "$@"
}

cmake --install "$build" --prefix "$work/first" > "$work/log"
mkdir "$work/later"
mv "$work/first" "$work/later/place"
prefix=$work/later/place
echo "no file knows where it was built or first installed"
# For the GNU runtime, clang writes the path of the source into Objective-C objects.
not grep -rlF --exclude='libKorvoQRParserObjC.*' -e "$work/first" -e "$source/" -e "$build/" "$prefix"

# headers: lists the headers for C++
headers() {
    (cd "$prefix/include" && find KorvoQRParser -type f ! -name '*ObjC*' ! -path '*/ObjectiveC/*' ! -name '*.modulemap') | LC_ALL=C sort
}
# declarations: lists those of the header for C, each on one line: enumerators with their numbers, then functions
declarations() {
    cc -std=c99 -E -P -I "$prefix/include" -include stdbool.h -include stddef.h -D KORVOQRPARSER_KORVOQRPARSEREXPORT_H \
        -D KORVO_EXPORT= -x c "$prefix/include/KorvoQRParser/KorvoQRParserC.h" | tr -s ' \n' ' ' |
        sed 's/[;{}]/&\n/g; s/, KORVOQR/,\nKORVOQR/g; s/_Bool/bool/g' | sed -nE 's/^ *//; s/[,;} ]*$//; /KORVOQR_|korvoqr_.*\(/p'
}
# interface: lists the installed headers, the sizes of the public classes, the exported symbols and the C face
interface() {
    headers
    {
        printf '#include <%s>\n' cstdio KorvoQRParser/KorvoQRParser.h
        echo 'int main() {'
        for class in QRCode{Checksum,Data,Edit,Element,Error,Explanation,Fault,ParserResponse,Repair,Violation}; do
            printf 'std::printf("%%zu bytes: %s\\n", sizeof(korvo::%s));\n' "$class" "$class"
        done
        echo '}'
    } > "$work/sizes.cpp"
    "$compiler" -std=c++17 -I "$prefix/include" "$work/sizes.cpp" -o "$work/sizes"
    "$work/sizes"
    nm -D --defined-only "$prefix/lib/libKorvoQRParser.so" | awk '{ print $3 }' | c++filt |
        sed -E 's/std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> ?>/std::string/g
                s/std::basic_string_view<char, std::char_traits<char> ?>/std::string_view/g
                s/std::vector<std::string, std::allocator<std::string ?> ?>/std::vector<std::string>/g' |
        LC_ALL=C sort -u
    declarations
}
echo "the interface is the approved one, tests/data/interface.txt"
interface | diff "$tests/data/interface.txt" -

echo "each header compiles alone"
for header in $(headers); do
    for each in g++ clang++; do
        echo "#include <$header>" | "$each" -std=c++17 -fsyntax-only -Wall -Wextra -Wpedantic -Wconversion -Wshadow \
            -Werror -I "$prefix/include" -x c++ -
    done
done
for each in gcc clang; do
    echo "#include <KorvoQRParser/KorvoQRParserC.h>" | "$each" -std=c99 -pedantic -fsyntax-only -Wall -Wextra -Wconversion \
        -Wshadow -Werror -I "$prefix/include" -x c -
done

echo "the names of the shared library"
library=$prefix/lib/libKorvoQRParser.so
grep -q "SONAME.*\[libKorvoQRParser.so.${version%%.*}\]" <(readelf -d "$library")
[[ $(readlink -f "$library") == */libKorvoQRParser.so.$version ]]

accepted=$(cat "$tests/data/full.payload")
cat "$tests/data/full.txt" "$tests/data/full.json" > "$work/record"
# uses PROGRAM: checks its answers and its version
uses() {
    [[ $("$@" "$accepted" | head -1) == "${version%%.*} "*"PROGRAM:KorvoQRParser  PROJECT:KorvoSDK-${version%%.*}" ]]
    [[ $("$@" "${accepted/02104/02105}" | tail -1) == "1 3 48 " ]]
    "$@" "$accepted" | tail -n +3 | diff "$work/record" -
    grep -q "both forms" <("$@" "$accepted")
}
# needs PROGRAM LIBRARY
needs() {
    grep -q "NEEDED.*\[$2" <(readelf -d "$1")
}
# configure FOLDER [OPTION...]
configure() {
    local folder=$1
    shift
    cmake -G Ninja -S "$tests/consumer" -B "$folder" -D CMAKE_CXX_COMPILER="$compiler" -D CMAKE_PREFIX_PATH="$prefix" "$@"
}

for kind in static shared; do
    echo "find_package, $kind"
    configure "$work/$kind" -D WAY=package -D VERSION="${version%.*}" -D KIND=$kind > "$work/log"
    cmake --build "$work/$kind" > "$work/log"
    uses "$work/$kind/consumer"
done
needs "$work/shared/consumer" libKorvoQRParser.so
not needs "$work/static/consumer" libKorvoQRParser
# A program that only parses has nothing of the explanation in it.
not grep -q Explan <(nm -C "$work/static/consumer")
# Nothing but the C++ runtime
not grep -vE 'lib(stdc\+\+|gcc_s|c|m)\.so' <(readelf -d "$library" | grep NEEDED)

# refuses WHY OPTION...: checks that the package refuses the options and says why
refuses() {
    local why=$1
    shift
    not configure "$work/refused" -D WAY=package "$@" > "$work/log" 2>&1
    grep -q "$why" <(tr -s '\n ' ' ' < "$work/log")
    rm -rf "$work/refused"
}
echo "find_package, refused"
refuses "compatible with requested version" -D VERSION=$((${version%%.*} + 1))
refuses "one of the components static and shared" -D KIND="static;shared"

echo "pkg-config"
export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
[[ $(pkg-config --modversion korvoqrparser) == "$version" ]]
# shellcheck disable=SC2046
"$compiler" -std=c++17 "$tests/consumer/main.cpp" -o "$work/shared/program" $(pkg-config --cflags --libs korvoqrparser)
uses env LD_LIBRARY_PATH="$prefix/lib" "$work/shared/program"
# shellcheck disable=SC2046
"$compiler" -std=c++17 "$tests/consumer/main.cpp" -o "$work/static/program" $(pkg-config --cflags --libs korvoqrparser-static)
not needs "$work/static/program" libKorvoQRParser
uses "$work/static/program"

echo "a program in C, without a C++ compiler"
for kind in "" -static; do
    # shellcheck disable=SC2046
    cc -std=c99 -pedantic -Wall -Wextra -Werror "$tests/consumer/face.c" -o "$work/face$kind" \
        $(pkg-config --cflags --libs "korvoqrparser$kind")
    LD_LIBRARY_PATH=$prefix/lib bash "$tests/c_test.sh" "$prefix/bin/korvoqr" "$work/face$kind"
done
configure "$work/c" -D WAY=c -D VERSION="${version%.*}" > "$work/log" 2>&1
cmake --build "$work/c" > "$work/log"
bash "$tests/c_test.sh" "$prefix/bin/korvoqr" "$work/c/consumer"
# shellcheck disable=SC2046
printf '%s\n' '#include <KorvoQRParser/KorvoQRParserC.h>' \
    'int main(void) { korvoqr_response_free(korvoqr_parse("", 0)); return 0; }' |
    cc -std=c99 -x c - -x none -o "$work/parses" $(pkg-config --cflags --libs korvoqrparser-static)
not grep -q Explan <(nm -C "$work/parses")
needs "$work/face" libKorvoQRParser.so
not needs "$work/face" libstdc++

if [[ -e $prefix/lib/libKorvoQRParserObjC.a ]]; then
    echo "the Objective-C face"
    for kind in static shared; do
        OBJC=clang configure "$work/objc-$kind" -D WAY=objc -D KIND=$kind -D SOURCE="$source" > "$work/log"
        cmake --build "$work/objc-$kind" > "$work/log"
        "$work/objc-$kind/consumer" "$accepted" | diff "$tests/data/full.txt" -
    done
    grep -q "NSCharacterSet_KorvoQRParser" <(nm "$work/objc-static/consumer")  # the category came along
fi

echo "the tool"
[[ $("$prefix/bin/korvoqr" --version) == "korvoqr $version" ]]
"$prefix/bin/korvoqr" parse "$accepted" | diff "$tests/data/full.txt" -

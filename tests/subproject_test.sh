#!/usr/bin/env bash
# Builds the library as part of another project, without the packages that the tool and the tests need. Only the library of
# the wanted kind may be built. Usage: subproject_test.sh SOURCE FOLDER COMPILER. The build stays in the folder.
set -euo pipefail
trap 'echo "FAILED in line $LINENO: $BASH_COMMAND"' ERR
source=$1 folder=$2 compiler=$3
accepted=$(cat "$source/tests/data/full.payload")

# check WAY SHARED BUILT
check() {
    local build=$folder/$1 log=$folder/$1.log missing=() package
    for package in CLI11 GTest ICU ZXing nlohmann_json benchmark Doxygen; do
        missing+=(-D "CMAKE_DISABLE_FIND_PACKAGE_$package=ON")
    done
    mkdir -p "$folder"
    cmake -G Ninja -S "$source/tests/consumer" -B "$build" -D CMAKE_CXX_COMPILER="$compiler" -D CMAKE_CXX_FLAGS=-O0 \
        -D WAY="$1" -D SOURCE="$source" -D BUILD_SHARED_LIBS="$2" "${missing[@]}" > "$log" 2>&1 || { cat "$log"; return 1; }
    cmake --build "$build" > "$log" || { cat "$log"; return 1; }
    [[ $(find "$build" -name '*.so' -o -name '*.a' -o -type f -executable -not -path '*/CMakeFiles/*' -not -name '*.so.*' |
        sed 's,.*/,,' | LC_ALL=C sort | tr '\n' ' ') == "$3 " ]]
    "$build/consumer" "$accepted" | sed '1,2d; /^{/,$d' | diff "$source/tests/data/full.txt" -
    cmake --install "$build" --prefix "$folder/installed" > "$log"
    [[ ! -e $folder/installed ]]  # that project decides what it installs
}

check fetch OFF "consumer libKorvoQRParser.a"
check subdirectory ON "consumer libKorvoQRParser.so"

#!/usr/bin/env bash
# Makes the Debian packages and installs them into a scratch root. The root knows this machine's packages, so dependencies
# are checked. Usage: packages_test.sh SOURCE BUILD VERSION. Stops at the first fault.
set -euo pipefail
trap 'echo "FAILED in line $LINENO: $BASH_COMMAND"' ERR
data=$1/tests/data build=$2 version=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root
not() {
    ! "$@"
}

cpack --config "$build/CPackConfig.cmake" -B "$work" > "$work/log" 2>&1 || { cat "$work/log"; exit 1; }
architecture=$(dpkg --print-architecture)
runtime=$work/korvoqrparser_${version}_$architecture.deb
development=$work/korvoqrparser-dev_${version}_$architecture.deb
packages=("$runtime" "$development")
extension=$(find "$work" -maxdepth 1 -name "postgresql-*-korvoqr_${version}_$architecture.deb")
packages+=(${extension:+"$extension"})
[[ $(find "$work" -maxdepth 1 -name '*.deb' | wc -l) == "${#packages[@]}" ]]

field() {
    dpkg-deb -f "$1" "$2"
}
echo "dependencies: the libraries that the programs need"
needed=$(readelf -d "$build"/KorvoQRParser/libKorvoQRParser.so | sed -n 's/.*NEEDED.*\[\(lib.*\)\]/\1/p')
for library in $needed; do
    owner=$(dpkg-query --search "*/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/$library" | sed -n '1s/:.*//p')
    grep -qxF "$owner" <(field "$runtime" Depends | tr ',' '\n' | sed 's/(.*//; s/ //g')
done
grep -qF "korvoqrparser (= $version)" <(field "$development" Depends)

echo "what is in which"
files() {
    dpkg-deb -c "$1" | awk '$1 !~ /^d/ { print $6 }' | LC_ALL=C sort
}
[[ $(files "$runtime" | grep lib/libKorvoQRParser.so | tr '\n' ' ') == "./usr/lib/libKorvoQRParser.so.${version%%.*} ./usr/lib/libKorvoQRParser.so.$version " ]]
not grep -qvE '^\./usr/(include/|lib/(cmake|pkgconfig)/|lib/lib[A-Za-z]+\.(a|so)$)' <(files "$development")
[[ -z $(comm -12 <(files "$runtime") <(files "$development")) ]]
if [[ $extension ]]; then
    server=$(basename "${extension%-korvoqr_*}")
    grep -qx "$server" <(field "$extension" Depends | tr ',' '\n' | sed 's/(.*//; s/ //g')
    not grep -q korvoqrparser <(field "$extension" Depends)  # the library is inside
    shared=./usr/share/postgresql/${server#*-}/extension/korvoqr
    printf '%s\n' "./usr/lib/postgresql/${server#*-}/lib/korvoqr.so" "$shared--${version%.*}.sql" "$shared.control" |
        diff - <(files "$extension")
fi

echo "installation"
mkdir -p "$root"/etc "$root"/var/lib/dpkg/{info,updates,triggers}
touch "$root/etc/ld.so.conf"
cp /var/lib/dpkg/status "$root/var/lib/dpkg/"
# The package's own script runs ldconfig; this one works on the scratch root.
mkdir "$work/bin"
printf '#!/bin/sh\nexec /sbin/ldconfig -r "$DPKG_ROOT"\n' > "$work/bin/ldconfig"
chmod +x "$work/bin/ldconfig"
as_root=()
((EUID == 0)) || as_root=(fakeroot)
install() {
    PATH=$work/bin:$PATH:/sbin:/usr/sbin "${as_root[@]}" dpkg --root="$root" --force-script-chrootless "$@" > "$work/log" 2>&1
}
not install --install "$development"  # without the other
install --install "${packages[@]}" || { cat "$work/log"; exit 1; }
grep -q "libKorvoQRParser.so.${version%%.*}" <(/sbin/ldconfig -r "$root" -p)

echo "the tool, and a program that finds the library in the root"
accepted=$(cat "$data/full.payload")
"$root/usr/bin/korvoqr" parse "$accepted" | diff "$data/full.txt" -
PKG_CONFIG_PATH=$root/usr/lib/pkgconfig
export PKG_CONFIG_PATH
# shellcheck disable=SC2046
c++ -std=c++17 "$1/examples/pay.cpp" -o "$work/pay" $(pkg-config --cflags --libs korvoqrparser)
grep -q "^Pay 12. to r59" <(LD_LIBRARY_PATH=$root/usr/lib "$work/pay" "$accepted")
# shellcheck disable=SC2046
cc -std=c99 "$1/examples/c/pay.c" -o "$work/pay-c" $(pkg-config --cflags --libs korvoqrparser)
grep -q "^Pay 12. to r59" <(LD_LIBRARY_PATH=$root/usr/lib "$work/pay-c" "$accepted")

echo "removal"
install --remove korvoqrparser-dev korvoqrparser ${extension:+"$server-korvoqr"} || { cat "$work/log"; exit 1; }
[[ -z $(find "$root" -iname '*korvo*' -not -path '*/dpkg/info/*') ]]

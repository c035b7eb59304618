#!/bin/sh
# packages_test.sh: what make_packages.sh makes is the same again in another folder and time zone; it holds the files that
# it should, of which none knows where it was built; lintian has nothing to say; and the target's self-test passes with the
# plug-in beside it. It is not among the tests of a build, as it builds everything itself, into build/packages and
# build/packages-elsewhere. The exit status is 77 where a tool is missing.
set -eu
export LC_ALL=C
cd "$(dirname "$0")/../.."

root=$PWD
first=$root/build/packages
elsewhere=$root/build/packages-elsewhere/a-longer-name-than-the-first
second=$elsewhere/build/packages
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM

for tool in dpkg-buildpackage dh lintian mips-linux-gnu-g++ qemu-mips; do
    command -v "$tool" >/dev/null || {
        echo "packages_test: no $tool"
        exit 77
    }
done

fail() {
    echo "packages_test: $*" >&2
    exit 1
}

# took WHAT: how long it took since the last call.
last=$(date +%s)
took() {
    now=$(date +%s)
    echo "packages_test: $1: $((now - last)) s"
    last=$now
}

# ---- twice the same

sh scripts/make_packages.sh
took "made"
rm -rf build/packages-elsewhere
mkdir -p "$elsewhere/build"
tar -cf - -T "$first/log/files.txt" | tar -xf - -C "$elsewhere"
ln -s "$root/build/mips-sysroot" "$root/build/musl-sysroot" "$elsewhere/build/"
(
    cd "$elsewhere"
    git init -q
    git add -A -f -- ':!build'
    # Nothing from the compiler cache but what was compiled in this very folder.
    CCACHE_NAMESPACE=$elsewhere TZ=Pacific/Auckland sh scripts/make_packages.sh >"$work/elsewhere.log"
)
took "made again, elsewhere"

(cd "$first" && ls -- *.deb *.tar.gz) >"$work/made"
(cd "$second" && ls -- *.deb *.tar.gz) >"$work/made_again"
cmp "$work/made" "$work/made_again"
while read -r file; do
    cmp "$first/$file" "$second/$file" || fail "$file depends on where or when it is made"
done <"$work/made"

# ---- what there is

version=$(sed -n 's/^#define KELMORA_JSON_VERSION "\(.*\)"$/\1/p' include/kelmora_json.h)
architecture=$(dpkg --print-architecture)
libdir=/usr/lib/$(dpkg-architecture -q DEB_HOST_MULTIARCH)
plugin=libkelmora_json.so.$version

for package in kelmora-host kelmora-json kelmora-json-dev; do
    echo "${package}_${version}_$architecture.deb"
done >"$work/expected"
for machine in mips-linux-gnu mips-linux-musl; do
    echo "kelmora-json-$version-$machine.tar.gz"
done >>"$work/expected"
sort "$work/expected" | diff - "$work/made" || fail "other files were made than expected (<)"

# files_in FOLDER BELOW: the names of the files in a folder of the sources, as they are seen below another one.
files_in() { (cd "$1" && find . -type f) | sed "s|^\.|$2|"; }

# holds NAME: what is unpacked at $work/NAME are the files of which the names are on stdin, and no others. Which of them
# are compressed depends on their sizes.
holds() {
    sort >"$work/expected"
    (cd "$work/$1" && find . ! -type d) | sed 's/^\.//; s/\.gz$//' | sort >"$work/there"
    diff "$work/expected" "$work/there" || fail "$1 holds other files than expected (<)"
}

headers() {
    files_in include /usr/include/kelmora_json
    echo /usr/include/kelmora_json/kelmora_layout.h
}

for package in kelmora-host kelmora-json kelmora-json-dev; do
    deb=$first/${package}_${version}_$architecture.deb
    dpkg-deb -x "$deb" "$work/$package"
    dpkg-deb -e "$deb" "$work/$package-control"
    if dpkg-deb -c "$deb" | grep -v ' root/root '; then fail "$package has files that are not root's"; fi
    [ ! -e "$work/$package-control/postinst" ] || fail "$package runs something when it is installed"
done

holds kelmora-json <<EOT
$libdir/kelmora/$plugin
/usr/share/doc/kelmora-json/CHANGELOG.md
/usr/share/doc/kelmora-json/README.md
/usr/share/doc/kelmora-json/SECURITY.md
/usr/share/doc/kelmora-json/changelog
/usr/share/doc/kelmora-json/copyright
/usr/share/lintian/overrides/kelmora-json
EOT
{
    headers
    cat <<EOT
$libdir/cmake/kelmora_json/kelmora_json-config-version.cmake
$libdir/cmake/kelmora_json/kelmora_json-config.cmake
$libdir/pkgconfig/kelmora_json.pc
/usr/share/doc/kelmora-json-dev/changelog
/usr/share/doc/kelmora-json-dev/copyright
/usr/share/doc/kelmora-json-dev/examples/host.c
EOT
} | holds kelmora-json-dev
{
    files_in schemas /usr/share/kelmora_json/schemas
    files_in types /usr/share/kelmora_json/types
    (cd examples && ls -- *.json) | sed 's|^|/usr/share/doc/kelmora-host/examples/|'
    sed -n 's|^ *ROW([0-9]*, \([a-z0-9_]*\),.*|/usr/share/doc/kelmora-host/reference/resources/\1.html|p' \
        include/kelmora_resources.h
    for file in icon.svg index.html search.js style.css what-happens-when.html; do
        echo "/usr/share/doc/kelmora-host/reference/$file"
    done
    cat <<EOT
/usr/bin/kelmora-host
/usr/bin/kelmora-selftest
/usr/share/doc/kelmora-host/changelog
/usr/share/doc/kelmora-host/copyright
/usr/share/doc-base/kelmora-host.kelmora-json-reference
/usr/share/lintian/overrides/kelmora-host
/usr/share/man/man1/kelmora-host.1
/usr/share/man/man1/kelmora-selftest.1
EOT
} | holds kelmora-host

# The plug-in needs the C library alone, and takes the rest from the process that loads it.
depends=$(sed -n 's/^Depends: //p' "$work/kelmora-json-control/control")
echo "$depends" | grep -qx 'libc6 (>= [0-9.]*)' || fail "kelmora-json depends on: $depends"
for package in kelmora-host kelmora-json-dev; do
    grep -q "^Depends: kelmora-json (= $version)," "$work/$package-control/control" ||
        fail "$package goes with any version of the plug-in"
done
grep -q '^Static-Built-Using: .*codemirror-js (= ' "$work/kelmora-host-control/control" ||
    fail "kelmora-host does not tell whose code it has"

# ---- for the target

for machine in mips-linux-gnu mips-linux-musl; do
    name=kelmora-json-$version-$machine
    mkdir "$work/$machine"
    tar -C "$work/$machine" --strip-components=1 -xf "$first/$name.tar.gz"
    if tar --numeric-owner -tvf "$first/$name.tar.gz" | grep -v " 0/0 .* $name/"; then fail "$name: another owner or folder"; fi
    {
        headers
        cat <<EOT
/README
/usr/bin/kelmora-selftest
/usr/lib/cmake/kelmora_json/kelmora_json-config-version.cmake
/usr/lib/cmake/kelmora_json/kelmora_json-config.cmake
/usr/lib/kelmora/$plugin
/usr/lib/pkgconfig/kelmora_json.pc
EOT
    } | holds "$machine"
    diff -r "$work/$machine/usr/include" "$work/kelmora-json-dev/usr/include" || fail "$machine has other headers (<)"
    for file in "$work/$machine/usr/bin/kelmora-selftest" "$work/$machine/usr/lib/kelmora/$plugin"; do
        mips-linux-gnu-readelf -S "$file" >"$work/sections"
        grep -q ' \.dynsym ' "$work/sections" || fail "$file has no symbols at all"
        if grep -q -e ' \.symtab ' -e ' \.debug' "$work/sections"; then fail "$file is not stripped"; fi
    done
done

# selftest MACHINE OPTION...: with the plug-in of its archive, under qemu-mips with the options.
selftest() {
    machine=$1
    shift
    qemu-mips "$@" "$work/$machine/usr/bin/kelmora-selftest" "$work/$machine/usr/lib/kelmora/$plugin" >"$work/selftest" 2>"$work/told" ||
        { cat "$work/selftest" "$work/told" >&2 && fail "the self-test fails on $machine"; }
    tail -n 1 "$work/selftest" | grep -qx '[0-9][0-9][0-9][0-9]* passed, 0 failed' || fail "$machine: no last line"
}
selftest mips-linux-gnu -L /usr/mips-linux-gnu -E LD_LIBRARY_PATH="$root/build/mips-sysroot/lib"
selftest mips-linux-musl -L "$root/build/musl-sysroot"

# ---- where they were built, nobody knows

# What is compressed in there was found out by the names above.
find "$work" -name '*.gz' -exec gunzip {} +
for name in kelmora-host kelmora-json kelmora-json-dev mips-linux-gnu mips-linux-musl; do
    if grep -raoF -e "$root" -e "obj-$(dpkg-architecture -q DEB_HOST_GNU_TYPE)" "$work/$name"; then fail "$name knows where it was built"; fi
done
took "compared, and the self-test on MIPS"

# ---- lintian

lintian --fail-on error,warning --display-info --pedantic "$first"/*.changes
took "lintian"
echo "packages_test: passed"

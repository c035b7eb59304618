#!/bin/sh
# Makes what users get, in build/packages: Debian packages for this machine, and for the target an archive with glibc and
# one with musl. Made of the files that git knows, as they are in the working tree. The same files give the same bytes, in
# any folder, with the same compilers and libraries. What the tools say is in build/packages/log.
set -eu
export LC_ALL=C
umask 022
cd "$(dirname "$0")/.."

root=$PWD
out=$root/build/packages
source=$out/source
log=$out/log

fail() {
    echo "make_packages: $*" >&2
    exit 1
}

for tool in dpkg-buildpackage dh mips-linux-gnu-g++ qemu-mips; do
    command -v "$tool" >/dev/null || fail "no $tool; make packages installs it, on Debian"
done

# logged NAME COMMAND...: shows the end of what the command says when it fails.
logged() {
    file=$log/$1.log
    shift
    "$@" >>"$file" 2>&1 || {
        tail -n 30 "$file" >&2
        fail "failed; all of it is in $file"
    }
}

rm -rf "$out"
mkdir -p "$source" "$log"
git ls-files >"$log/known.txt" || fail "this is no git working tree"
git ls-files --deleted | grep -vxF -f - "$log/known.txt" >"$log/files.txt"
tar -cf - -T "$log/files.txt" | tar -xf - -C "$source"
version=$(sed -n 's/^#define KELMORA_JSON_VERSION "\(.*\)"$/\1/p' include/kelmora_json.h)
changed=$(dpkg-parsechangelog -l debian/changelog -S Timestamp)

# The compiler cache serves these builds as it does those of scripts/build.sh; debhelper hides the home folder that it is in.
if command -v ccache >/dev/null; then
    CCACHE_DIR=$(ccache --get-config cache_dir)
    CCACHE_BASEDIR=$source
    CCACHE_NOHASHDIR=true
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
    export CCACHE_DIR CCACHE_BASEDIR CCACHE_NOHASHDIR CCACHE_SLOPPINESS
fi

# ---- for this machine

cd "$source"
logged debian dpkg-buildpackage -b -us -uc
cd "$root"
native=$(echo "$source"/obj-*)

# ---- for the target

# archive MACHINE WORDS: the archive of what the toolchain file of that name builds, for what WORDS say.
archive() {
    name=kelmora-json-$version-$1
    build=$out/$1
    tree=$out/tree/$name

    CFLAGS=-ffile-prefix-map=$out=. CXXFLAGS=-ffile-prefix-map=$out=. logged "$1" cmake -S "$source" -B "$build" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$root/cmake/$1.cmake" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
        -DCMAKE_INSTALL_LIBDIR=lib -DCMAKE_SKIP_RPATH=ON -DKELMORA_BUILD_HOST=OFF -DKELMORA_BUILD_TESTS=OFF \
        -DKELMORA_SELFTEST_VECTORS="$native/selftest/vectors.inc"
    logged "$1" cmake --build "$build"
    DESTDIR=$tree logged "$1" cmake --install "$build" --strip

    # It is the same text for all machines, and cannot be made where there is no C++ library.
    cp "$native/kelmora_layout.h" "$tree/usr/include/kelmora_json/"
    plugin=$tree/usr/lib/kelmora/libkelmora_json.so.$version
    cat >"$tree/README" <<EOT
libkelmora_json $version for $2

usr/lib/kelmora/libkelmora_json.so.$version   the plug-in, without symbols for debuggers
usr/bin/kelmora-selftest                   tells on the device whether the plug-in is right there
usr/include/kelmora_json/                  headers for the host that loads it; kelmora_config.h has the values
                                           that the plug-in was built with, and kelmora_layout.h proves that
                                           host and plug-in see nodes and records alike
usr/lib/pkgconfig/, usr/lib/cmake/         how to build that host

On the device, beside jansson:

    usr/bin/kelmora-selftest usr/lib/kelmora/libkelmora_json.so.$version

What the plug-in is built for, as readelf tells it:

$(mips-linux-gnu-readelf -h -A "$plugin" | sed -n 's/^  *\(Class\|Data\|Flags\): */    \1: /p; s/^\(ISA\|FP ABI\): /    \1: /p')
EOT
    tar -C "$out/tree" --sort=name --mtime="@$changed" --owner=0 --group=0 --numeric-owner --mode=u=rwX,go=rX \
        -cf "$out/$name.tar" "$name/README" "$name/usr/bin" "$name/usr/include" "$name/usr/lib"
    gzip -9n "$out/$name.tar"
}

sh scripts/build-sysroot.sh mips-linux-gnu
archive mips-linux-gnu "32-bit big-endian MIPS Linux with glibc"
sh scripts/build-musl-sysroot.sh
archive mips-linux-musl "32-bit big-endian MIPS Linux with musl"

cd "$out"
wc -c -- *.deb *.tar.gz | awk '$2 != "total" { printf "%9d bytes  build/packages/%s\n", $1, $2 }'

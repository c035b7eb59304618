#!/bin/sh
# Builds what the MIPS build for musl links and includes besides the cross compiler's own files, at build/musl-sysroot: musl
# and the JSON library, from the source packages that install-dependencies.sh fetched.
set -eu
cd "$(dirname "$0")/.."

root=$PWD
sysroot=$root/build/musl-sysroot
[ ! -f "$sysroot/complete" ] || exit 0

for source in musl/configure jansson/CMakeLists.txt; do
    [ -f "build/${source%%/*}-source/${source#*/}" ] || {
        echo "build-musl-sysroot: no source of ${source%%/*}; run: make mips" >&2
        exit 1
    }
done

# logged FILE COMMAND...: shows the end of what the command says when it fails.
logged() {
    log=$1
    shift
    "$@" >>"$log" 2>&1 || {
        tail -n 20 "$log" >&2
        exit 1
    }
}

# Programs look for the loader in /lib, on a device as below `qemu-mips -L`.
rm -rf build/musl "$sysroot"
mkdir -p build/musl
(
    cd build/musl
    : >../musl.log
    logged ../musl.log ../musl-source/configure --target=mips-linux-musl CC=mips-linux-gnu-gcc AR=mips-linux-gnu-ar \
        RANLIB=mips-linux-gnu-ranlib --prefix="$sysroot" --syslibdir=/lib --disable-static
    logged ../musl.log make -j "$(nproc)"
    logged ../musl.log make install syslibdir="$sysroot/lib"
)

: >build/jansson-musl.log
logged build/jansson-musl.log cmake -S build/jansson-source -B build/jansson-musl -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mips-linux-musl.cmake" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$sysroot" -DJANSSON_BUILD_SHARED_LIBS=ON -DJANSSON_BUILD_DOCS=OFF \
    -DJANSSON_WITHOUT_TESTS=ON -DJANSSON_EXAMPLES=OFF -Wno-dev
logged build/jansson-musl.log cmake --build build/jansson-musl --target install
touch "$sysroot/complete"

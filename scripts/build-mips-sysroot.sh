#!/bin/sh
# Builds what the MIPS build links and includes besides the cross compiler's own files, at build/mips-sysroot:
# the JSON library, from the source package that install-dependencies.sh fetched, and a view of the libraries that are
# headers alone (the native /usr/include as a whole would not do: it holds the native libc's headers too).
set -eu
cd "$(dirname "$0")/.."

root=$PWD
sysroot=$root/build/mips-sysroot
mkdir -p "$sysroot/include"
for headers in CLI fmt rapidjson; do
    ln -sfn "/usr/include/$headers" "$sysroot/include/$headers"
done
[ ! -f "$sysroot/complete" ] || exit 0

if [ ! -f build/jansson-source/CMakeLists.txt ]; then
    echo "build-mips-sysroot: no source of the JSON library; run: make mips" >&2
    exit 1
fi

cmake -S build/jansson-source -B build/jansson-mips -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mips-linux-gnu.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$sysroot" -DJANSSON_BUILD_SHARED_LIBS=ON \
    -DJANSSON_BUILD_DOCS=OFF -DJANSSON_WITHOUT_TESTS=ON -DJANSSON_EXAMPLES=OFF -Wno-dev >build/jansson-mips.log 2>&1 ||
    { tail -n 20 build/jansson-mips.log >&2; exit 1; }
cmake --build build/jansson-mips --target install >>build/jansson-mips.log 2>&1 ||
    { tail -n 20 build/jansson-mips.log >&2; exit 1; }
touch "$sysroot/complete"

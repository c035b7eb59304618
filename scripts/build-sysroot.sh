#!/bin/sh
# build-sysroot.sh TRIPLET: builds what a build for another machine links and includes besides the cross compiler's own
# files, at build/MACHINE-sysroot (of mips-linux-gnu: build/mips-sysroot): the JSON library, from the source package that
# install-dependencies.sh fetched, and a view of the libraries that are headers alone (the native /usr/include as a whole
# would not do: it holds the native libc's headers too).
set -eu
cd "$(dirname "$0")/.."

root=$PWD
triplet=$1
machine=${triplet%%-*}
sysroot=$root/build/$machine-sysroot
mkdir -p "$sysroot/include"
for headers in CLI fmt rapidjson; do
    ln -sfn "/usr/include/$headers" "$sysroot/include/$headers"
done
[ ! -f "$sysroot/complete" ] || exit 0

if [ ! -f build/jansson-source/CMakeLists.txt ]; then
    echo "build-sysroot: no source of the JSON library; run: make mips" >&2
    exit 1
fi

log=build/jansson-$machine.log
cmake -S build/jansson-source -B "build/jansson-$machine" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/cmake/$triplet.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$sysroot" -DJANSSON_BUILD_SHARED_LIBS=ON \
    -DJANSSON_BUILD_DOCS=OFF -DJANSSON_WITHOUT_TESTS=ON -DJANSSON_EXAMPLES=OFF -Wno-dev >"$log" 2>&1 ||
    { tail -n 20 "$log" >&2; exit 1; }
cmake --build "build/jansson-$machine" --target install >>"$log" 2>&1 || { tail -n 20 "$log" >&2; exit 1; }
touch "$sysroot/complete"

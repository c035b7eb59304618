#!/bin/sh
# packaged_test.sh BUILD: builds the plug-in in BUILD as a packager would, without the presets and with other values than
# the defaults, and looks whether hosts that are built against what is installed agree with it. The environment is that
# of example_host_test.sh; CXX and CMAKE_GENERATOR are those of the build.
set -eu
export LC_ALL=C

build=$1
here=$(cd "$(dirname "$0")" && pwd)
cmake=${CMAKE:-cmake}
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
trap 'exit 1' HUP INT TERM

fail() {
    echo "packaged_test: $*" >&2
    exit 1
}

if ! {
    "$cmake" -S "$here/../.." -B "$build" -DCMAKE_BUILD_TYPE=Release -DCMAKE_C_COMPILER="$CC" \
        -DCMAKE_CXX_COMPILER="$CXX" -DCMAKE_INSTALL_LIBDIR=lib -DKELMORA_BUILD_HOST=OFF \
        -DKELMORA_HOST_PRIVATE_POINTERS=3 -DKELMORA_TR069_HOST_BLOCK_SIZE=7 -DKELMORA_RELEASE_ALL=ON &&
        "$cmake" --build "$build"
} >"$stage/build.log" 2>&1; then
    cat "$stage/build.log" >&2
    fail "cannot be built"
fi
if grep -q -e '-Werror' "$build/compile_commands.json"; then fail "the project makes errors of warnings"; fi

"$cmake" --install "$build" --prefix "$stage/usr" >"$stage/install.log"
headers=$stage/usr/include/kelmora_json

# compiles OPTION...: whether a host does that is compiled with the folder of the headers alone, and OPTION.
cat >"$stage/host.c" <<EOT
#include <kelmora_host.h>
#include <kelmora_layout.h>
#include <records/remote_mgmt.h>
typedef char pointers[sizeof((struct kelmora_resource *)0)->host_private == 3 * sizeof(void *) ? 1 : -1];
typedef char block[sizeof((struct kelmora_tr069_config *)0)->host_block == 7 ? 1 : -1];
EOT
compiles() { "$CC" -I "$headers" "$@" -c "$stage/host.c" -o "$stage/host.o" 2>"$stage/cc.log"; }
# refused OPTION WANTED: OPTION is an error, and the compiler says what is wanted.
refused() {
    if compiles "$1"; then fail "$1 compiles"; fi
    grep -q "error.*the plug-in was built with $2" "$stage/cc.log" || {
        cat "$stage/cc.log" >&2
        fail "$1 is not refused for what it is"
    }
}
compiles || { cat "$stage/cc.log" >&2 && fail "the headers do not have the values of the build"; }
compiles -DKELMORA_HOST_PRIVATE_POINTERS=3 -DKELMORA_TR069_HOST_BLOCK_SIZE=7 || fail "the right values are refused"
refused -DKELMORA_HOST_PRIVATE_POINTERS=2 KELMORA_HOST_PRIVATE_POINTERS=3
refused -DKELMORA_TR069_HOST_BLOCK_SIZE=4 KELMORA_TR069_HOST_BLOCK_SIZE=7

sh "$here/example_host_test.sh" "$build" lib none

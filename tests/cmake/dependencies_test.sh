#!/bin/sh
# dependencies_test.sh CC CXX PREFIX: with a toolchain file that names this cross compiler and no more, the build takes nothing
# from the build machine's own folders: it asks for jansson's header, and takes the one below PREFIX when it is named.
set -eu
export LC_ALL=C

cc=$1
cxx=$2
prefix=$3
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM

cat >"$work/toolchain.cmake" <<EOT
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER $cc)
set(CMAKE_CXX_COMPILER $cxx)
EOT

fail() {
    echo "dependencies_test: $*" >&2
    cat "$work/log" >&2
    exit 1
}

# configure ARGUMENT...: in a new folder.
configure() {
    rm -rf "$work/build"
    "${CMAKE:-cmake}" -S "$root" -B "$work/build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$work/toolchain.cmake" "$@" \
        >"$work/log" 2>&1
}

! configure || fail "it found a header that nobody named: $(grep JANSSON_INCLUDE_DIR "$work/build/CMakeCache.txt")"
grep -q 'JANSSON_INCLUDE_DIR=' "$work/log" || fail "it does not say how to name the header's folder"
grep -qx 'JANSSON_INCLUDE_DIR:PATH=JANSSON_INCLUDE_DIR-NOTFOUND' "$work/build/CMakeCache.txt" || fail "it failed otherwise"

for named in "-DJANSSON_INCLUDE_DIR=$prefix/include" "-DCMAKE_PREFIX_PATH=$prefix" "-DCMAKE_FIND_ROOT_PATH=$prefix"; do
    configure "$named" -DKELMORA_BUILD_HOST=OFF || fail "it does not configure with $named"
    grep -q "^JANSSON_INCLUDE_DIR:[A-Z]*=$prefix/include\$" "$work/build/CMakeCache.txt" || fail "it takes another header"
    ! grep -q 'Warning' "$work/log" || fail "it warns"
done

#!/bin/sh
# test_machines.sh TRIPLET...: builds what is tested on further machines, with their cross compilers, and runs it under
# qemu-user. Needs the release build's vectors and contracts.
set -eu
cd "$(dirname "$0")/.."

for triplet in "$@"; do
    machine=${triplet%%-*}
    sh scripts/build-sysroot.sh "$triplet"
    sh scripts/build.sh "$machine"
    ctest --preset "$machine"
done

#!/bin/sh
# soak.sh CALLS: the long form of the soak, with the default of KELMORA_RELEASE_ALL and with the other setting.
set -eu
cd "$(dirname "$0")/.."

for preset in release release-all; do
    sh scripts/build.sh "$preset" kelmora-soak
    "build/$preset/kelmora-soak" --calls "$1"
done

#!/bin/sh
# build.sh PRESET [TARGET...]: configures the preset's build folder and builds the targets, or everything.
set -eu
cd "$(dirname "$0")/.."

preset=$1
shift
mkdir -p build

# What configuring says is shown when it fails; its warnings always.
if ! cmake --preset "$preset" >"build/configure-$preset.log" 2>&1; then
    cat "build/configure-$preset.log" >&2
    exit 1
fi
grep -A 1 'CMake Warning' "build/configure-$preset.log" >&2 || true

if [ $# -eq 0 ]; then
    cmake --build --preset "$preset"
else
    cmake --build --preset "$preset" --target "$@"
fi

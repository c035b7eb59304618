#!/bin/sh
# build.sh PRESET [TARGET...]: configures the build folder of the preset and builds the targets, or everything.
set -eu
cd "$(dirname "$0")/.."

preset=$1
shift
mkdir -p build

# What configuring says is shown when it fails; its warnings, which are about what is left out, when all is to be built.
if ! cmake --preset "$preset" >"build/configure-$preset.log" 2>&1; then
    cat "build/configure-$preset.log" >&2
    exit 1
fi
if [ $# -eq 0 ]; then
    grep -A 1 'CMake Warning' "build/configure-$preset.log" >&2 || true
    cmake --build --preset "$preset"
else
    cmake --build --preset "$preset" --target "$@"
fi

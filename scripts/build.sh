#!/bin/sh
# build.sh PRESET [TARGET...]: configures the build folder of the preset and builds the targets, or everything.
set -eu
cd "$(dirname "$0")/.."

preset=$1
shift

# One compiler cache does for all clones: paths below this folder are taken as they are seen from it.
CCACHE_BASEDIR=$PWD
CCACHE_NOHASHDIR=true
CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
export CCACHE_BASEDIR CCACHE_NOHASHDIR CCACHE_SLOPPINESS

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

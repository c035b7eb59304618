#!/bin/sh
# Whether the table of fields is current; clang-format and clang-tidy over what git knows, with the versions of
# Debian 12 (14). Needs the release build's compile commands.
set -eu
cd "$(dirname "$0")/.."

[ -f build/release/compile_commands.json ] || sh scripts/build.sh release kelmora_json

/usr/bin/python3 -B scripts/generate_fields.py --check
git ls-files '*.h' '*.c' '*.cpp' | xargs clang-format --dry-run -Werror
# Not what was left out of the build for want of something that it needs.
git ls-files 'frame/*.cpp' 'translators/*.cpp' 'host/*.cpp' 'soak/*.cpp' 'bench/*.cpp' |
    while read -r file; do grep -qF "\"$PWD/$file\"" build/release/compile_commands.json && echo "$file"; done |
    xargs -n 4 -P "$(nproc)" clang-tidy -p build/release --quiet 2>build/clang-tidy.log || {
    grep -v 'warnings generated' build/clang-tidy.log >&2
    exit 1
}
echo "lint: clean"

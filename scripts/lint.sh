#!/bin/sh
# Whether the table of fields is current; shellcheck, clang-format and clang-tidy (of Debian 12: 14) over what git knows.
# Needs the release build's compile commands.
set -eu
cd "$(dirname "$0")/.."

[ -f build/release/compile_commands.json ] || sh scripts/build.sh release kelmora_json

/usr/bin/python3 -B scripts/generate_fields.py --check
git ls-files '*.sh' | xargs shellcheck

# A C++ library is configured for one C library: what the plug-in is made of includes the headers that need none, and those
# that are the C library's.
freestanding='bit|cfloat|climits|compare|concepts|cstdarg|cstddef|cstdint|initializer_list|limits|type_traits'
c_library='cstdio|cstdlib|cstring|stddef\.h|stdint\.h'
if git grep -nE '^ *# *include *<' -- frame translators include |
    grep -vE "<($freestanding|$c_library|jansson\.h)>" >&2; then
    echo "lint: these headers are not for all C libraries" >&2
    exit 1
fi
git ls-files '*.h' '*.c' '*.cpp' | xargs clang-format --dry-run -Werror

work=build/lint
rm -rf "$work"
mkdir -p "$work"

# What tests are compiled with, but for precompiled headers, which are another compiler's. The analyzer takes half a
# minute for each file of tests, and follows the paths of GoogleTest's macros; it is for the product. Tests also may
# join strings as they like, also literals, compare bytes, and multiply small numbers.
{
    printf '%s\n' -std=c++20 "-I$PWD" "-I$PWD/include" -DFMT_HEADER_ONLY -Wno-missing-field-initializers
    grep -oE -e '-DKELMORA_[A-Z0-9_]+=[^ ]+' build/release/compile_commands.json | sed 's,[\],,g' | sort -u
} >"$work/compile_flags.txt"
checks='-clang-analyzer-*,-bugprone-suspicious-include,-bugprone-suspicious-memory-comparison'
checks=$checks,-bugprone-signed-char-misuse,-bugprone-implicit-widening-of-multiplication-result
checks=$checks,-performance-inefficient-string-concatenation,-bugprone-suspicious-missing-comma

# bundle NAME FILE...: one source that includes them all, as what costs is the headers that they have in common. Each
# file gets its namespace for itself. Files that get into each other's way all the same are bundled by halves.
bundle() {
    name=$1
    bundle=$work/$name.cpp
    shift
    {
        grep -hE '^#include' "$@" | sort -u
        for file in "$@"; do
            namespace=$(sed -n 's/^namespace \([a-z_]*\) {$/\1/p' "$file" | head -n 1)
            own=${namespace}_$(basename "$file" .cpp)
            echo "namespace $own { using namespace $namespace; }"
            echo "#define $namespace $own"
            echo "#include \"$file\""
            echo "#undef $namespace"
        done
    } >"$bundle"
    if sed 's/"/\\"/g' "$work/compile_flags.txt" | xargs clang++ -fsyntax-only "$bundle" 2>"$bundle.log"; then
        echo "$bundle"
    elif [ $# -gt 2 ]; then
        half=$(($# / 2))
        first=$(printf '%s\n' "$@" | head -n $half)
        second=$(printf '%s\n' "$@" | tail -n +$((half + 1)))
        # shellcheck disable=SC2086 # file names are words
        (bundle "${name}a" $first) && (bundle "${name}b" $second)
    else
        printf '%s\n' "$@"
    fi
}

# What specialises a template of its namespace has to stay in there.
# shellcheck disable=SC2046 # file names are words
{
    tests=$(git ls-files 'tests/*_test.cpp' | grep -v '^tests/support/' | xargs grep -L '^template <> ')
    bundle units_0 $(echo "$tests" | grep '^tests/translators/' | awk 'NR % 2')
    bundle units_1 $(echo "$tests" | grep '^tests/translators/' | awk 'NR % 2 == 0')
    bundle frame $(echo "$tests" | grep '^tests/frame/')
    bundle host $(echo "$tests" | grep '^tests/host/')
    bundle others $(echo "$tests" | grep -v -E '^tests/(translators|frame|host|harness)/')
    echo "$tests" | grep '^tests/harness/'
    git ls-files 'tests/*_test.cpp' | xargs grep -l '^template <> '
    git ls-files 'tests/support/*.cpp'
    git ls-files 'tests/*.cpp' 'fuzz/*.cpp' | grep -v -e '_test\.cpp$' -e '^tests/\(include\|install\|support\)/'
} >"$work/tests.txt"

# Not what was left out of the build for want of something that it needs.
git ls-files 'frame/*.cpp' 'translators/*.cpp' 'host/*.cpp' 'harness/*.cpp' 'soak/*.cpp' 'bench/*.cpp' 'selftest/*.c*' |
    while read -r file; do grep -qF "\"$PWD/$file\"" build/release/compile_commands.json && echo "$file"; done \
        >"$work/product.txt"

# The analyzer, which takes most of the time, is for what runs on devices.
grep -E '^(frame|translators)/' "$work/product.txt" >"$work/plugin.txt"
grep -vE '^(frame|translators)/' "$work/product.txt" >"$work/tools.txt"

jobs=$(nproc)
status=0
xargs -n 1 -P "$jobs" clang-tidy -p "$work" --quiet --checks="$checks" <"$work/tests.txt" >"$work/clang-tidy.log" 2>&1 ||
    status=1
xargs -n 4 -P "$jobs" clang-tidy -p build/release --quiet <"$work/plugin.txt" >>"$work/clang-tidy.log" 2>&1 || status=1
xargs -n 2 -P "$jobs" clang-tidy -p build/release --quiet --checks='-clang-analyzer-*' <"$work/tools.txt" \
    >>"$work/clang-tidy.log" 2>&1 || status=1
[ "$status" -eq 0 ] || {
    grep -v 'warnings generated' "$work/clang-tidy.log" >&2
    exit 1
}
echo "lint: clean"

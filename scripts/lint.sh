#!/bin/sh
# Whether the table of fields is current; shellcheck, clang-format and clang-tidy (of Debian 12: 14) over what git knows.
set -eu
cd "$(dirname "$0")/.."

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

sh scripts/build.sh release selftest_vectors
cmake --preset lint >build/configure-lint.log 2>&1 || {
    cat build/configure-lint.log >&2
    exit 1
}
mkdir -p build/lint/selftest
cp build/release/selftest/vectors.inc build/lint/selftest/
work=build/lint/bundles
rm -rf "$work"
mkdir -p "$work"
/usr/bin/python3 -B scripts/tidy_bundles.py build/lint/compile_commands.json "$work"

# The analyzer, which takes most of the time, is for what runs on devices. Tests may also join strings as they like, also
# literals, compare bytes, and multiply small numbers.
tools='-clang-analyzer-*,-bugprone-suspicious-include'
tests=$tools,-bugprone-suspicious-memory-comparison,-bugprone-signed-char-misuse
tests=$tests,-bugprone-implicit-widening-of-multiplication-result,-bugprone-suspicious-missing-comma
tests=$tests,-performance-inefficient-string-concatenation

status=0
for kind in "tests $tests" "tools $tools" plugin; do
    # shellcheck disable=SC2086 # a kind, and its checks
    /usr/bin/python3 -B scripts/tidy.py "$work" $kind >>"$work/clang-tidy.log" || status=1
done
[ "$status" -eq 0 ] || {
    grep -v 'warnings generated' "$work/clang-tidy.log" >&2
    exit 1
}
echo "lint: clean"

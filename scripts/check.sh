#!/bin/sh
# Everything that must hold before a change lands. Stops at the first failure. What a machine without the tools for it
# had to leave out is said at the end; with CI=true that is a failure.
set -u
cd "$(dirname "$0")/.." || exit 1

mkdir -p build
touch build/missing.txt

stage() { printf '\n== %s\n' "$*"; }
die() {
    printf '\nmake check: FAILED: %s\n' "$*" >&2
    exit 1
}

left_out=""
leave_out() { left_out="$left_out
  - $1"; }

# tests PRESET WHAT: builds a preset and runs its tests.
tests() {
    stage "$2"
    sh scripts/build.sh "$1" || die "$2: build"
    if [ -f "build/$1/tests/CTestTestfile.cmake" ]; then
        ctest --preset "$1" || die "$2"
    else
        leave_out "the $2 (GoogleTest, CLI11, RapidJSON or jansson was not found)"
    fi
}

# can TOOL...: whether all tools are there; those that are not have been named by install-dependencies.sh.
can() {
    for tool in "$@"; do
        command -v "$tool" >/dev/null || return 1
    done
}

# Whether clang is there together with its run-time libraries, which some distributions package apart.
can_sanitize() {
    can clang++ && echo 'int main() { return 0; }' |
        clang++ -fsanitize=address,undefined -x c++ - -o build/sanitizer-probe 2>/dev/null
}

tests release "tests on this machine, with gcc"
can valgrind python3 || leave_out "the counts of instructions"

if can_sanitize; then
    tests asan "tests with AddressSanitizer, UndefinedBehaviorSanitizer and LeakSanitizer, with clang"

    stage "fuzzing, for a minute"
    sh scripts/fuzz.sh 30 || die "fuzzing"

    stage "all resources at once in eight threads, with ThreadSanitizer, with clang"
    sh scripts/build.sh tsan kelmora-soak || die "the soak with ThreadSanitizer: build"
    ctest --preset tsan -R '^soak$' || die "the soak with ThreadSanitizer"
else
    leave_out "the tests with sanitizers"
fi

if can mips-linux-gnu-g++ qemu-mips && [ -f build/jansson-source/CMakeLists.txt ]; then
    sh scripts/build-mips-sysroot.sh || die "the JSON library for MIPS"
    tests mips "tests on MIPS, under qemu-mips"
else
    leave_out "the MIPS build and its tests"
fi

if can clang-format clang-tidy; then
    stage "lint"
    sh scripts/lint.sh || die "lint"
else
    leave_out "lint"
fi

if [ -n "$left_out" ]; then
    printf '\n!! make check LEFT OUT:%s\n!! for want of:\n' "$left_out" >&2
    sed 's/^/  - /' build/missing.txt >&2
    [ "${CI:-}" != true ] || die "CI must leave out nothing"
    printf '\nmake check: passed, but for what was left out\n'
else
    printf '\nmake check: passed\n'
fi

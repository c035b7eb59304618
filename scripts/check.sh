#!/bin/sh
# Everything that must hold before a change lands: stages, of which one builds and another one runs tests at a time, as
# most tests leave a processor to spare; what takes one processor fills the gaps. Ends at the first stage that fails, with
# its output. What a machine without the tools for it had to leave out is said at the end; with CI=true that is a failure.
set -u
cd "$(dirname "$0")/.." || exit 1

work=build/check
rm -rf "$work"
mkdir -p "$work"
touch build/missing.txt
mkfifo "$work/ended"
exec 3<>"$work/ended" # held open, so that who waits for the end of a stage is not told of an end of file
begun=$(date +%s)

: >"$work/left_out"
leave_out() { echo "  - $1" >>"$work/left_out"; }

# can TOOL...: whether all tools are there; those that are not have been named by install-dependencies.sh.
can() {
    for tool in "$@"; do
        command -v "$tool" >/dev/null || return 1
    done
}

# Whether clang is there together with its run-time libraries, which some distributions package apart.
can_sanitize() {
    can clang++ && echo 'int main() { return 0; }' |
        clang++ -fsanitize=address,undefined -x c++ - -o "$work/sanitizer-probe" 2>/dev/null
}

# ---- the stages

# stage NAME LANE NEEDS TITLE COMMAND: one that runs when its lane (build, run or any) is free and the stage NEEDS (- for
# none) has passed. One that ends with 77 could not be tried.
stage() {
    echo "$1" >>"$work/pending"
    echo "$2" >"$work/$1.lane"
    echo "$3" >"$work/$1.needs"
    echo "$4" >"$work/$1.title"
    echo "$5" >"$work/$1.command"
}

# tests PRESET NEEDS TITLE
tests() {
    stage "$1-tests" run "$2" "$3" \
        "[ -f build/$1/tests/CTestTestfile.cmake ] || { echo GoogleTest or what kelmora-host needs was not found; exit 77; }
        ctest --preset $1"
}

# In the order in which a lane takes them.
stage release build - "building for this machine, with gcc" "sh scripts/build.sh release"
tests release release "tests on this machine"
can valgrind python3 || leave_out "memcheck, and the counts of instructions"
if ! can tsc || ! /usr/bin/python3 -c 'import jinja2, jsonschema' 2>/dev/null; then
    leave_out "the tests of schemas, types and reference"
fi

if can mips-linux-gnu-g++ qemu-mips && [ -f build/jansson-source/CMakeLists.txt ]; then
    stage mips build release "building for MIPS" "sh scripts/build-sysroot.sh mips-linux-gnu && sh scripts/build.sh mips"
    tests mips mips "tests on MIPS, under qemu-mips"
    if can arm-linux-gnueabihf-g++ qemu-arm; then
        stage arm build release "building unit tests and self-test for ARM" \
            "sh scripts/build-sysroot.sh arm-linux-gnueabihf && sh scripts/build.sh arm"
        tests arm arm "unit tests, contracts and self-test on ARM, under qemu-arm"
    else
        leave_out "the tests on ARM"
    fi
    if can s390x-linux-gnu-g++ qemu-s390x; then
        stage s390x build release "building the self-test for s390x" "sh scripts/build-sysroot.sh s390x-linux-gnu &&
            sh scripts/build.sh s390x kelmora_json kelmora-selftest changed_plugin selftest_without_object_get"
        stage s390x-tests run s390x "self-test on s390x, under qemu-s390x" "ctest --preset s390x -R '^selftest\$'"
    else
        leave_out "the self-test on s390x"
    fi
    if [ -f build/musl-source/configure ]; then
        stage mips-musl build release "building plug-in and self-test for MIPS with musl" \
            "sh scripts/build-musl-sysroot.sh && sh scripts/build.sh mips-musl"
        stage mips-musl-tests run mips-musl "self-test on MIPS with musl, under qemu-mips" \
            "[ -f build/release/selftest/vectors.inc ] || { echo there are no vectors of it; exit 77; }; ctest --preset mips-musl"
    else
        leave_out "the build for musl and its self-test"
    fi
else
    leave_out "the MIPS build and its tests"
fi

if can dh dpkg-buildpackage lintian mips-linux-gnu-g++ qemu-mips && [ -f build/musl-source/configure ]; then
    stage packages build mips-musl "packages, made twice" "sh tests/packages/packages_test.sh"
else
    leave_out "the packages"
fi

if can_sanitize; then
    stage asan build - "building with AddressSanitizer and UndefinedBehaviorSanitizer, with clang" \
        "sh scripts/build.sh asan"
    tests asan asan "tests with AddressSanitizer, UndefinedBehaviorSanitizer and LeakSanitizer"
    stage fuzz run asan "fuzzing, 30 seconds each" "sh scripts/fuzz.sh 30 from_fuzzer round_trip_fuzzer"
    stage tsan build - "building the soak and the server with ThreadSanitizer, with clang" \
        "sh scripts/build.sh tsan kelmora-soak kelmora_json kelmora-host"
    stage tsan-tests run tsan "all resources at once in eight threads, and the server, with ThreadSanitizer" \
        "ctest --preset tsan -R '^(soak|serve)\$'"
else
    leave_out "the tests with sanitizers"
fi

if can clang-format clang-tidy clang++ shellcheck mandoc && /usr/bin/python3 -c 'import clang.cindex' 2>/dev/null; then
    stage lint build release "lint" "sh scripts/lint.sh"
    stage adding build release "a resource added to a copy" "sh tests/adding_a_resource_test.sh"
else
    leave_out "lint, and adding a resource to a copy"
fi

if can chromium chromedriver && /usr/bin/python3 -c 'import selenium' 2>/dev/null; then
    stage page any release "the page, in Chromium" "/usr/bin/python3 -B tests/page/page_test.py build/release/kelmora-host"
else
    leave_out "the tests of the page"
fi

if [ -f "$work/packages.command" ]; then
    stage fresh-root any packages "packages installed and used in a fresh Debian root" "sh tests/packages/fresh_root_test.sh"
fi
if [ -f "$work/asan.command" ]; then
    stage direct-fuzz any asan "the same records to both builds of the plug-in, 60 seconds" \
        "sh scripts/fuzz.sh 60 direct_fuzzer"
fi

# ---- running them

clock() {
    seconds=$(($(date +%s) - begun))
    printf '%2d:%02d' $((seconds / 60)) $((seconds % 60))
}

# The stage that runs in each lane. Each is a process group of its own.
build=
run=
stop() {
    groups=$(cat "$work"/*.group 2>/dev/null)
    for group in $groups; do
        kill -TERM "-$group" 2>/dev/null
    done
}
trap 'stop; exit 1' HUP INT TERM

begin() {
    printf '[%s] begins: %s\n' "$(clock)" "$(cat "$work/$1.title")"
    date +%s >"$work/$1.begun"
    # shellcheck disable=SC2016 # the arguments of that shell
    setsid sh -c 'sh -c "$2" >"$3" 2>&1 </dev/null; echo "$1 $?" >"$4"' sh "$1" "$(cat "$work/$1.command")" "$work/$1.log" \
        "$work/ended" 3>&- &
    echo $! >"$work/$1.group"
}

free_lane() { if [ -z "$run" ]; then echo run; else echo build; fi; }

# begin_what_can: in each lane that is free, the first stage that waits for nothing.
begin_what_can() {
    names=$(cat "$work/pending")
    for name in $names; do
        needs=$(cat "$work/$name.needs")
        [ "$needs" = - ] || [ -f "$work/$needs.passed" ] || continue
        lane=$(cat "$work/$name.lane")
        [ "$lane" != any ] || lane=$(free_lane)
        eval "busy=\$$lane"
        [ -z "$busy" ] || continue
        eval "$lane=\$name"
        sed -i "/^$name\$/d" "$work/pending"
        begin "$name"
    done
}

: >"$work/times"
while :; do
    begin_what_can
    [ -n "$build$run" ] || break
    read -r name status <&3
    rm "$work/$name.group"
    title=$(cat "$work/$name.title")
    seconds=$(($(date +%s) - $(cat "$work/$name.begun")))
    [ "$build" != "$name" ] || build=
    [ "$run" != "$name" ] || run=
    case $status in
    0)
        touch "$work/$name.passed"
        printf '[%s] passed: %s, %d s\n' "$(clock)" "$title" "$seconds"
        grep -E 'tests passed|passed, [0-9]+ failed|Total Test time|^lint:|^stat::|DONE' "$work/$name.log" | sed 's/^/        /'
        printf '%6d s  %s\n' "$seconds" "$title" >>"$work/times"
        ;;
    77)
        leave_out "the $title ($(tail -n 1 "$work/$name.log"))"
        ;;
    *)
        stop
        printf '\n'
        cat "$work/$name.log"
        printf '\nmake check: FAILED: %s\n' "$title" >&2
        exit 1
        ;;
    esac
done

printf '\n'
cat "$work/times"
printf '%6d s  in all\n' $(($(date +%s) - begun))

if [ -s "$work/left_out" ]; then
    {
        printf '\n!! make check LEFT OUT:\n'
        cat "$work/left_out"
        printf '!! for want of:\n'
        sed 's/^/  - /' build/missing.txt
    } >&2
    [ "${CI:-}" != true ] || {
        printf '\nmake check: FAILED: CI must leave out nothing\n' >&2
        exit 1
    }
    printf '\nmake check: passed, but for what was left out\n'
else
    printf '\nmake check: passed\n'
fi

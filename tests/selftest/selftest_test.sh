#!/bin/sh
# selftest_test.sh SELFTEST PLUGIN CHANGED LACKING [EMULATOR...]: the self-test passes with the plug-in, and says what is
# wrong with one whose resource radio has a key changed (CHANGED), and where the process has no json_object_get (LACKING:
# the self-test in such a process).
set -eu
export LC_ALL=C

selftest=$1
plugin=$2
changed=$3
lacking=$4
shift 4
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM

fail() {
    echo "selftest_test: $*" >&2
    cat "$work/out" "$work/err" >&2
    exit 1
}

# expect STATUS COMMAND...
expect() {
    expected=$1
    shift
    status=0
    "$@" >"$work/out" 2>"$work/err" || status=$?
    sed -i '/^qemu: uncaught target signal 11/d' "$work/err" # the emulator's words where a stack is too small
    [ "$status" -eq "$expected" ] || fail "the status is $status, not $expected"
}

expect 0 "$@" "$selftest" "$plugin"
tail -n 1 "$work/out" | grep -qx '[0-9][0-9]* passed, 0 failed' || fail "no last line"
passed=$(tail -n 1 "$work/out" | cut -d ' ' -f 1)
[ "$passed" -gt 1000 ] || fail "only $passed checks"
[ ! -s "$work/err" ] || fail "it passed, and complains"
sed -n 's/^ *ROW([0-9]*, \([a-z0-9_]*\),.*/\1/p' "$root/include/kelmora_resources.h" >"$work/resources"
[ -s "$work/resources" ] || fail "no resources were found in the list"
sed -n 's/^\([a-z0-9_]*\)  *[0-9]* passed$/\1/p' "$work/out" >"$work/served"
diff "$work/resources" "$work/served" >&2 || fail "not a line for each resource (<)"
for line in 'C library: ' 'jansson: ' '[36][24] bits, ' 'plug-in: ' "a thread's stack: "; do
    grep -q "^$line" "$work/out" || fail "nothing of $line"
done

expect 1 "$@" "$selftest" "$changed"
tail -n 1 "$work/out" | grep -qx '[0-9][0-9]* passed, [1-9][0-9]* failed' || fail "no last line"
grep -q '^radio .*FAILED$' "$work/out" || fail "radio should fail"
[ "$(grep -c FAILED "$work/out")" -eq 1 ] || fail "radio alone should fail"
grep -q '^  expected: .*"bandwidth": 20' "$work/err" || fail "it does not say what was expected"
grep -q '^  got:      .*"bandwith": 20' "$work/err" || fail "it does not say what there was"

expect 1 "$@" "$lacking" "$plugin"
[ "$(grep missing "$work/out")" = "missing in this process: json_object_get (jansson's)" ] || fail "it does not say what lacks"
tail -n 1 "$work/out" | grep -qx '[0-9][0-9]* passed, 1 failed' || fail "no last line"

expect 1 "$@" "$selftest" /nowhere
grep -q '^FAILED: .*/nowhere' "$work/out" || fail "it does not say that there is no plug-in"

expect 2 "$@" "$selftest"

if command -v mandoc >/dev/null; then
    mandoc -T lint -W warning "$root/docs/kelmora-selftest.1" >&2 || fail "mandoc complains of the man page"
fi

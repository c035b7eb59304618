#!/bin/sh
# fuzz.sh SECONDS [FUZZER...]: runs these fuzzers, or all, for so long, at once, over the seeds and the kept corpus. What
# they find new stays in build/fuzz/corpus; a finding is left in build/fuzz as crash-..., and its report on stderr.
# fuzz.sh --minimise [FUZZER...]: makes the kept corpus of fuzz/corpus anew from all that was found so far.
set -eu
cd "$(dirname "$0")/.."

what=$1
shift
[ $# -gt 0 ] || set -- from_fuzzer round_trip_fuzzer direct_fuzzer
sh scripts/build.sh asan "$@" seeds
programs=build/asan/fuzz
work=build/fuzz/corpus
mkdir -p build/fuzz
rm -rf build/fuzz/seeds
"$programs/seeds" examples build/fuzz/seeds

# Every key, message and text of the translators.
grep -hoE '"[A-Za-z0-9_.]+"' translators/*/*.cpp | sort -u >build/fuzz/dictionary

# seeds_of FUZZER: the folder of its seeds. They are documents; the one that compares the plug-ins takes none.
seeds_of() { [ "$1" = direct_fuzzer ] || echo build/fuzz/seeds; }

# minimise FUZZER, run FUZZER SECONDS
minimise() {
    kept=fuzz/corpus/$1
    rm -rf "$kept"
    mkdir -p "$kept"
    # shellcheck disable=SC2046 # a folder or none
    "$programs/$1" -set_cover_merge=1 "$kept" $(seeds_of "$1") "$work/$1" >"build/fuzz/$1.log" 2>&1
}
run() {
    # A document may be deep, but not slow.
    # shellcheck disable=SC2046 # a folder or none
    if ! "$programs/$1" -max_total_time="$2" -dict=build/fuzz/dictionary -artifact_prefix=build/fuzz/ -timeout=10 \
        -max_len=8192 -print_final_stats=1 "$work/$1" "fuzz/corpus/$1" $(seeds_of "$1") >"build/fuzz/$1.log" 2>&1; then
        cat "build/fuzz/$1.log" >&2
        return 1
    fi
    grep -E '^stat::(number_of_executed_units|average_exec_per_sec)|DONE' "build/fuzz/$1.log" | sed "s/^/$1: /"
}

running=
for fuzzer in "$@"; do
    mkdir -p "$work/$fuzzer"
    if [ "$what" = --minimise ]; then
        minimise "$fuzzer"
    else
        run "$fuzzer" "$what" &
        running="$running $!"
    fi
done
status=0
for one in $running; do
    wait "$one" || status=1
done
exit $status

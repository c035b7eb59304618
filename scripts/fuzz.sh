#!/bin/sh
# fuzz.sh SECONDS: runs both fuzzers for so long, at once, over the seeds and the kept corpus. What it finds new stays in
# build/fuzz/corpus; a finding is left in build/fuzz as crash-..., and its report on stderr.
# fuzz.sh --minimise: makes the kept corpus of fuzz/corpus anew from all that was found so far.
set -eu
cd "$(dirname "$0")/.."

sh scripts/build.sh asan from_fuzzer round_trip_fuzzer seeds
programs=build/asan/fuzz
work=build/fuzz/corpus
mkdir -p build/fuzz
rm -rf build/fuzz/seeds
"$programs/seeds" examples build/fuzz/seeds

# Every key, message and text of the translators.
grep -hoE '"[A-Za-z0-9_.]+"' translators/*/*.cpp | sort -u >build/fuzz/dictionary

# minimise FUZZER, run FUZZER SECONDS
minimise() {
    kept=fuzz/corpus/$1
    rm -rf "$kept"
    mkdir -p "$kept"
    "$programs/$1" -set_cover_merge=1 "$kept" build/fuzz/seeds "$work/$1" >"build/fuzz/$1.log" 2>&1
}
run() {
    # A document may be deep, but not slow.
    if ! "$programs/$1" -max_total_time="$2" -dict=build/fuzz/dictionary -artifact_prefix=build/fuzz/ -timeout=10 \
        -max_len=8192 -print_final_stats=1 "$work/$1" "fuzz/corpus/$1" build/fuzz/seeds >"build/fuzz/$1.log" 2>&1; then
        cat "build/fuzz/$1.log" >&2
        return 1
    fi
    grep -E '^stat::(number_of_executed_units|average_exec_per_sec)|DONE' "build/fuzz/$1.log" | sed "s/^/$1: /"
}

mkdir -p "$work/from_fuzzer" "$work/round_trip_fuzzer"
if [ "$1" = --minimise ]; then
    minimise from_fuzzer
    minimise round_trip_fuzzer
else
    run from_fuzzer "$1" &
    other=$!
    status=0
    run round_trip_fuzzer "$1" || status=1
    wait "$other" || status=1
    exit $status
fi

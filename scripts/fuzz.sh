#!/bin/sh
# fuzz.sh SECONDS: runs each fuzzer for so long, over the seeds and the kept corpus. What it finds new stays in
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

for fuzzer in from_fuzzer round_trip_fuzzer; do
    kept=fuzz/corpus/$fuzzer
    mkdir -p "$work/$fuzzer" "$kept"
    if [ "$1" = --minimise ]; then
        rm -rf "$kept"
        mkdir -p "$kept"
        "$programs/$fuzzer" -set_cover_merge=1 "$kept" build/fuzz/seeds "$work/$fuzzer" >"build/fuzz/$fuzzer.log" 2>&1
        continue
    fi
    # A document may be deep, but not slow.
    if ! "$programs/$fuzzer" -max_total_time="$1" -dict=build/fuzz/dictionary -artifact_prefix=build/fuzz/ -timeout=10 \
        -max_len=8192 -print_final_stats=1 "$work/$fuzzer" "$kept" build/fuzz/seeds >"build/fuzz/$fuzzer.log" 2>&1; then
        cat "build/fuzz/$fuzzer.log" >&2
        exit 1
    fi
    grep -E '^stat::(number_of_executed_units|average_exec_per_sec)|DONE' "build/fuzz/$fuzzer.log" |
        sed "s/^/$fuzzer: /"
done

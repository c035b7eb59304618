#!/bin/sh
# bench.sh WHAT: builds what measures it, and prints tables; bench/README.md says what they mean.
#   instructions  instructions, allocations and peak heap beside the baselines, on this machine and on MIPS
#   time          the time of every translator, with Google Benchmark
#   libraries     instructions, allocations and peak heap beside other JSON libraries
#   size          what the target's plug-in takes of a device
#   stack         what stack the target's translators take
set -eu
cd "$(dirname "$0")/.."

# on_mips TARGET...: builds for MIPS.
on_mips() {
    sh scripts/build-sysroot.sh mips-linux-gnu
    sh scripts/build.sh mips "$@"
}

case $1 in
instructions)
    sh scripts/build.sh release kelmora-bench-instructions kelmora-bench-allocations kelmora_json_direct
    python3 -B scripts/bench_instructions.py release
    python3 -B scripts/bench_instructions.py --direct release
    on_mips kelmora-bench-instructions kelmora-bench-allocations kelmora_json_direct
    python3 -B scripts/bench_instructions.py mips
    python3 -B scripts/bench_instructions.py --direct mips
    ;;
time)
    sh scripts/build.sh release kelmora-bench
    build/release/kelmora-bench --benchmark_min_time=0.2
    ;;
libraries)
    sh scripts/build.sh release kelmora-bench-other-libraries kelmora-bench-other-libraries-heap
    python3 -B scripts/bench_other_libraries.py
    ;;
size)
    on_mips kelmora_json kelmora_json_direct kelmora-bench-pages
    python3 -B scripts/size.py
    ;;
stack)
    on_mips kelmora_json kelmora_json_direct kelmora-bench-stack
    python3 -B scripts/stack.py
    python3 -B scripts/stack.py --direct
    ;;
*)
    echo "bench: no $1; one of: instructions time libraries size stack" >&2
    exit 2
    ;;
esac

#!/usr/bin/env python3
"""Instructions, allocations and peak heap of the library beside its baselines, and what each further record costs.

Runs two programs of bench/ as a preset built them, and prints tables. With --check it prints what is past its bound
only, and fails for it.
"""

import argparse
import sys

from programs import count_instructions, direct_plugin, run_program

RATIO = 1.02  # bound of the library's instructions, in those of the baseline
DIRECT = {"plain": 0.07, "sorted": 0.10}  # the same of direct text, without reals, from 8 records on
SORTED = ("interface", "datetime")
REALS = ("connected_device", "traceroute")  # which take what jansson takes
PEAK = 256  # bytes that the library's peak heap may lie above the baseline's
GROWTH = 1.05  # bound of how much the cost of a record differs between the growing sizes, in the baseline's difference
GROWING = (16, 64, 256)
SIDES = ("library", "baseline")


def count_heap(preset, plugin):
    """{"RESOURCE DIRECTION SIZE SIDE": (allocations, peak bytes)}"""
    lines = run_program(preset, "kelmora-bench-allocations", *plugin).splitlines()
    words = (line.rsplit(maxsplit=2) for line in lines)
    return {name: (int(allocations), int(peak)) for name, allocations, peak in words}


def measure_growth(instructions, cases):
    """{"RESOURCE DIRECTION": {side: [what each record but the first costs, at the growing sizes]}}"""
    growth = {}
    for case in cases:
        name, size = case.rsplit(maxsplit=1)
        if int(size) not in GROWING:
            continue
        for side in SIDES:
            further = instructions[f"{case} {side}"] - instructions[f"{name} 1 {side}"]
            growth.setdefault(name, {}).setdefault(side, []).append(further / (int(size) - 1))
    return growth


def bound_of(case, direct):
    """The bound of a case's ratio; None where there is none."""
    resource, direction, size = case.split()
    if not direct or direction == "from":
        return RATIO
    if resource in REALS or int(size) < 8:
        return None
    return DIRECT["sorted" if resource in SORTED else "plain"]


def spread(costs):
    return max(costs) / min(costs)


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--check", action="store_true", help="print what is past its bound only, and fail for it")
    arguments.add_argument("--direct", action="store_true", help="measure the plug-in of KELMORA_DIRECT_TEXT")
    arguments.add_argument("preset", choices=("release", "mips"), help="the build: this machine's or the target's")
    options = arguments.parse_args()

    plugin = [direct_plugin(options.preset)] if options.direct else []
    instructions = count_instructions(options.preset, "kelmora-bench-instructions", *plugin)
    heap = count_heap(options.preset, plugin)
    cases = [name.removesuffix(" library") for name in heap if name.endswith(" library")]
    growth = measure_growth(instructions, cases)

    faults = []
    ratios = []
    table = [f"{'':36}{'instructions':>24}{'':9}{'allocations':>16}{'peak heap, bytes':>22}",
             f"{'':36}" + f"{'library':>12}{'baseline':>12}{'ratio':>9}" + f"{'library':>8}{'baseline':>8}" +
             f"{'library':>11}{'baseline':>11}"]
    for case in cases:
        cost, baseline = (instructions[f"{case} {side}"] for side in SIDES)
        (allocations, peak), (baseline_allocations, baseline_peak) = (heap[f"{case} {side}"] for side in SIDES)
        ratios.append(cost / baseline)
        table.append(f"{case:36}{cost:>12}{baseline:>12}{ratios[-1]:>9.4f}{allocations:>8}{baseline_allocations:>8}"
                     f"{peak:>11}{baseline_peak:>11}")
        bound = bound_of(case, options.direct)
        if bound is not None and ratios[-1] > bound:
            faults.append(f"{case}: {ratios[-1]:.4f} of the baseline's instructions")
        if allocations > baseline_allocations:
            faults.append(f"{case}: {allocations} allocations, the baseline {baseline_allocations}")
        if peak > baseline_peak + PEAK:
            faults.append(f"{case}: a peak heap of {peak} bytes, the baseline {baseline_peak}")

    table += ["", f"{'instructions of each further record':36}" + "".join(f"{f'at {size}':>9}" for size in GROWING) +
              f"{'spread':>9}{'of the baseline':>14}"]
    for name, costs in growth.items():
        spreads = [spread(costs[side]) for side in SIDES]
        table.append(f"{name:36}" + "".join(f"{cost:>9.0f}" for cost in costs["library"]) +
                     f"{spreads[0]:>9.3f}{spreads[1]:>14.3f}")
        if spreads[0] > GROWTH * spreads[1] and not options.direct:
            faults.append(f"{name}: the cost of a record spreads by {spreads[0]:.3f}, the baseline's by {spreads[1]:.3f}")

    if options.check:
        print(f"{len(cases)} cases, the highest ratio of instructions {max(ratios):.4f}")
    else:
        print("\n".join(table))
    for fault in faults:
        print(f"past its bound: {fault}", file=sys.stderr)
    sys.exit(1 if options.check and faults else 0)


if __name__ == "__main__":
    main()

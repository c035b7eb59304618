#!/usr/bin/env python3
"""Instructions, allocations and peak heap of the library, its baselines and other JSON libraries for the same work.

Runs two programs of bench/other_libraries/ and prints two tables in Markdown, the quickest first. The programs fail when one of
the libraries comes to another document than the baseline.
"""

import math

from programs import count_instructions, run_program

BASE = "baseline"


def count_heap():
    """{"RESOURCE DIRECTION SIZE: PEER": (allocations, peak bytes, whether the result is the baseline's byte for byte)}"""
    heap = {}
    for line in run_program("release", "kelmora-bench-other-libraries-heap").splitlines():
        name, counts = line.rsplit(": ", maxsplit=1)
        allocations, peak, result = counts.split()
        heap[name] = (int(allocations), int(peak), result == "same")
    return heap


def in_order(items):
    """Without what comes again."""
    return list(dict.fromkeys(items))


def print_table(rows):
    widths = [max(map(len, column)) for column in zip(*rows)]
    rows.insert(1, ["-" * widths[0]] + ["-" * (width - 1) + ":" for width in widths[1:]])
    for row in rows:
        cells = [row[0].ljust(widths[0])] + [cell.rjust(width) for cell, width in zip(row[1:], widths[1:])]
        print("| " + " | ".join(cells) + " |")


def main():
    instructions = count_instructions("release", "kelmora-bench-other-libraries")
    heap = count_heap()
    cases = in_order(name.split(": ")[0] for name in heap)
    other_libraries = in_order(name.split(": ")[1] for name in heap)

    def ratio(case, other_library):
        return instructions[f"{case}: {other_library}"] / instructions[f"{case}: {BASE}"]

    def mean_ratio(other_library):
        return math.exp(sum(math.log(ratio(case, other_library)) for case in of[other_library]) / len(of[other_library]))

    of = {other_library: [case for case in cases if f"{case}: {other_library}" in heap] for other_library in other_libraries}
    other_libraries.sort(key=mean_ratio)

    def table_of(cell):
        return [["", *cases]] + [[other_library] + [cell(case, other_library) if case in of[other_library] else "" for case in cases]
                                 for other_library in other_libraries]

    print("Instructions, and their ratio to the baseline's; * marks another text of the same document:\n")
    print_table(table_of(lambda case, other_library: f"{instructions[f'{case}: {other_library}']:,}"
                         f"{'' if heap[f'{case}: {other_library}'][2] else '*'} ({ratio(case, other_library):.3f})"))
    print("\nAllocations, and the peak heap in bytes:\n")
    print_table(table_of(lambda case, other_library: "{0:,} ({1:,})".format(*heap[f"{case}: {other_library}"])))


if __name__ == "__main__":
    main()

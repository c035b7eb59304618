#!/usr/bin/env python3
"""Instructions, allocations and peak heap of the library, its baselines and other JSON libraries for the same work.

Runs two programs of bench/other_libraries/ and prints two tables in Markdown, the quickest first. The programs fail when
one of the libraries comes to another document than the baseline.
"""

import math

from programs import count_instructions, run_program

BASE = "baseline"


def count_heap():
    """{"RESOURCE DIRECTION SIZE: LIBRARY": (allocations, peak bytes, whether the result is the baseline's byte for byte)}"""
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
    libraries = in_order(name.split(": ")[1] for name in heap)

    def ratio(case, library):
        return instructions[f"{case}: {library}"] / instructions[f"{case}: {BASE}"]

    def mean_ratio(library):
        return math.exp(sum(math.log(ratio(case, library)) for case in of[library]) / len(of[library]))

    of = {library: [case for case in cases if f"{case}: {library}" in heap] for library in libraries}
    libraries.sort(key=mean_ratio)

    def table_of(cell):
        return [["", *cases]] + [[library] + [cell(case, library) if case in of[library] else "" for case in cases]
                                 for library in libraries]

    print("Instructions, and their ratio to the baseline's; * marks another text of the same document:\n")
    print_table(table_of(lambda case, library: f"{instructions[f'{case}: {library}']:,}"
                         f"{'' if heap[f'{case}: {library}'][2] else '*'} ({ratio(case, library):.3f})"))
    print("\nAllocations, and the peak heap in bytes:\n")
    print_table(table_of(lambda case, library: "{0:,} ({1:,})".format(*heap[f"{case}: {library}"])))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Instructions, allocations and peak heap of the library, its floors and other JSON libraries for the same work.

Runs two programs of bench/peers/ and prints two tables in Markdown, the quickest first. The programs fail when one of
the libraries comes to another document than the floor.
"""

import math

from programs import count_instructions, run_program

BASE = "floor"


def count_heap():
    """{"RESOURCE DIRECTION SIZE: PEER": (allocations, peak bytes, whether the result is the floor's byte for byte)}"""
    heap = {}
    for line in run_program("release", "kelmora-bench-peers-heap").splitlines():
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
    instructions = count_instructions("release", "kelmora-bench-peers")
    heap = count_heap()
    cases = in_order(name.split(": ")[0] for name in heap)
    peers = in_order(name.split(": ")[1] for name in heap)

    def ratio(case, peer):
        return instructions[f"{case}: {peer}"] / instructions[f"{case}: {BASE}"]

    def mean_ratio(peer):
        return math.exp(sum(math.log(ratio(case, peer)) for case in of[peer]) / len(of[peer]))

    of = {peer: [case for case in cases if f"{case}: {peer}" in heap] for peer in peers}
    peers.sort(key=mean_ratio)

    def table_of(cell):
        return [["", *cases]] + [[peer] + [cell(case, peer) if case in of[peer] else "" for case in cases]
                                 for peer in peers]

    print("Instructions, and their ratio to the floor's; * marks another text of the same document:\n")
    print_table(table_of(lambda case, peer: f"{instructions[f'{case}: {peer}']:,}"
                         f"{'' if heap[f'{case}: {peer}'][2] else '*'} ({ratio(case, peer):.3f})"))
    print("\nAllocations, and the peak heap in bytes:\n")
    print_table(table_of(lambda case, peer: "{0:,} ({1:,})".format(*heap[f"{case}: {peer}"])))


if __name__ == "__main__":
    main()

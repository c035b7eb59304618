#!/usr/bin/env python3
"""What stack the target's plug-in takes, in bytes, measured with a program of bench/.

With --check it prints one line, and fails when a translator takes more than its bound.
"""

import argparse
import sys

from programs import direct_plugin, run_program

STACK = 8 * 1024  # what a translator may take all in all, but for what grows with a document's or a tree's depth
DEEPEST = 10  # translators to list of each direction


def measure(plugin):
    """{kind of line: [words of a line]}"""
    lines = {}
    for line in run_program("mips", "kelmora-bench-stack", *plugin).splitlines():
        kind, *words = line.split()
        lines.setdefault(kind, []).append([int(word) if word.isdigit() else word for word in words])
    return lines


def deepest_of(uses, direction):
    """The deepest use of each resource, sorted."""
    deepest = {}
    for resource, way, document, total, alone, first in uses:
        if way == direction:
            use = (total, alone, first, document)
            deepest[resource] = max(deepest.get(resource, use), use)
    return sorted(deepest.items(), key=lambda item: item[1], reverse=True)


def print_measured(lines):
    print(f"all in all (bound {STACK}), the JSON library's own for the same text, and as a process's first call")
    for direction in ("to", "from"):
        print(f"  {direction + '-translators':36}{'all':>8}{'JSON':>8}{'first':>8}")
        for resource, (total, alone, first, document) in deepest_of(lines["use"], direction)[:DEEPEST]:
            print(f"  {resource + ' ' + document:36}{total:>8}{alone:>8}{first:>8}")
    costs = [(first - total, f"{resource} {way} {document}")
             for resource, way, document, total, _, first in lines["use"]]
    print(f"  binding costs the first call {max(costs)[0]} at most: {max(costs)[1]}")

    print(f"\nthe deepest documents\n  {'':36}{'all':>8}{'JSON':>8}")
    for resource, kind, total, alone in lines["deepest"]:
        print(f"  {resource + ' ' + kind:36}{total:>8}{alone:>8}")

    print(f"\nthe tree of neighbours\n  {'levels':>8}{'all':>8}{'build':>8}{'dump':>8}{'release':>8}")
    for row in lines["tree"]:
        print("  " + "".join(f"{number:>8}" for number in row))
    (before, *low), (after, *high) = lines["tree"][-2:]
    print(f"  {'each':>8}" + "".join(f"{(b - a) / (after - before):>8g}" for a, b in zip(low, high)))
    for stack, levels in lines["carries"]:
        print(f"  a stack of {stack} carries {levels} levels")


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--check", action="store_true", help="print one line, and fail past the bound")
    arguments.add_argument("--direct", action="store_true", help="measure the plug-in of KELMORA_DIRECT_TEXT")
    options = arguments.parse_args()

    lines = measure([direct_plugin("mips")] if options.direct else [])
    if not options.check:
        print_measured(lines)
        return
    use = max(lines["use"], key=lambda words: words[3])
    print(f"{len(lines['use'])} calls, at most {use[3]} bytes of stack: {' '.join(use[:3])} (bound {STACK})")
    sys.exit(1 if use[3] > STACK else 0)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""What stack the target's plug-in takes, in bytes: measured with a program of bench/, and as the compiler states it.

With --check it measures only and prints one line, and fails when a translator takes more than its bound.
"""

import argparse
import json
import re
import shlex
import subprocess
import sys
import tempfile
from pathlib import Path

from programs import built, run_program

STACK = 8 * 1024  # what a translator may take all in all, but for what grows with a document's or a tree's depth
DEEPEST = 10  # translators to list of each direction

# ---- measured


def measure():
    """{kind of line: [words of a line]}"""
    lines = {}
    for line in run_program("mips", "kelmora-bench-stack").splitlines():
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
    print(f"measured: all in all (bound {STACK}), the JSON library's own for the same text, and as a process's first call")
    for direction in ("to", "from"):
        print(f"  {direction + '-translators':36}{'all':>8}{'JSON':>8}{'first':>8}")
        for resource, (total, alone, first, document) in deepest_of(lines["use"], direction)[:DEEPEST]:
            print(f"  {resource + ' ' + document:36}{total:>8}{alone:>8}{first:>8}")
    costs = [(first - total, f"{resource} {way} {document}")
             for resource, way, document, total, _, first in lines["use"]]
    print(f"  binding costs the first call {max(costs)[0]} at most: {max(costs)[1]}")

    print(f"\nmeasured: the deepest documents\n  {'':36}{'all':>8}{'JSON':>8}")
    for resource, kind, total, alone in lines["deepest"]:
        print(f"  {resource + ' ' + kind:36}{total:>8}{alone:>8}")

    print(f"\nmeasured: the tree of neighbours\n  {'levels':>8}{'all':>8}{'build':>8}{'dump':>8}{'release':>8}")
    for row in lines["tree"]:
        print("  " + "".join(f"{number:>8}" for number in row))
    (before, *low), (after, *high) = lines["tree"][-2:]
    print(f"  {'each':>8}" + "".join(f"{(b - a) / (after - before):>8g}" for a, b in zip(low, high)))
    for stack, levels in lines["carries"]:
        print(f"  a stack of {stack} carries {levels} levels")


# ---- as the compiler states it


def compile_graphs(folder):
    """The call graphs of the library's units, with their frames: {unit: text}"""
    graphs = {}
    for entry in json.loads(built("mips", "compile_commands.json").read_text()):
        words = [word for word in shlex.split(entry["command"]) if not word.endswith("ccache")]
        output = words.index("-o") + 1
        if "/kelmora_json_objects.dir/" in words[output]:
            unit = words[output].split(".dir/")[1].removesuffix(".cpp.o")
            words[output] = f"{folder}/{unit.replace('/', '-')}.o"
            subprocess.run([*words, "-fcallgraph-info=su"], cwd=entry["directory"], check=True)
            graphs[unit] = Path(words[output]).with_suffix(".ci").read_text()
    return graphs


# What the frame calls through a pointer: a function of the unit whose translator was called.
POINTED_TO = {"frame/encode": "NodeWriter", "frame/decoder": "Reader"}


class Frames:
    """The library's own frames, on the longest path of calls."""

    def __init__(self, graphs):
        self.frames = {}  # of each function that the library defines
        self.calls = {}
        self.pointed_to = {}  # functions, by unit and kind
        self.recursive = set()
        for unit, graph in graphs.items():
            for function, frame in re.findall(r'^node: { title: "(.*?)" label: ".*\\n(\d+) bytes', graph, re.MULTILINE):
                self.frames[one_name(function)] = int(frame)
                kind = re.search(r":_ZN7kelmora6detail\d+(NodeWriter|Reader)I.*E4callE", function)
                if kind:
                    self.pointed_to.setdefault((unit, kind[1]), set()).add(function)
            for caller, callee in re.findall(r'^edge: { sourcename: "(.*?)" targetname: "(.*?)"', graph, re.MULTILINE):
                name = POINTED_TO[unit] if callee == "__indirect_call" else one_name(callee)
                self.calls.setdefault(one_name(caller), set()).add(name)

    def deepest(self, function, unit, callers=()):
        """(bytes, names of the functions on the way); what recurs counts once"""
        if function in callers:
            self.recursive.add(function)
            return 0, ()
        callees = set(self.calls.get(function, ()))
        for kind in callees & set(POINTED_TO.values()):
            callees |= self.pointed_to.get((unit, kind), set())
        known = (self.deepest(callee, unit, (*callers, function)) for callee in callees if callee in self.frames)
        below, way = max(known, default=(0, ()))
        return self.frames[function] + below, (function, *way)


def one_name(function):
    """Constructors and destructors have two names, and one body."""
    return re.sub(r"(?<=[a-z])([CD])1E", r"\g<1>2E", function)


def short_names(functions):
    names = subprocess.run(["c++filt"], input="\n".join(name.split(":")[-1] for name in functions),
                           capture_output=True, text=True, check=True).stdout.splitlines()
    unnamed = "(anonymous namespace)::"
    return [re.sub(r"\(.*|<.*>(?=::)|.*> (?=kelmora)", "", name.replace(unnamed, "")) for name in names]


def print_stated():
    with tempfile.TemporaryDirectory() as folder:
        graphs = compile_graphs(folder)
    frames = Frames(graphs)
    print("\nas the compiler states it: the library's own frames, without those of jansson, libc and the host")
    for direction in ("to", "from"):
        paths = []
        for unit in graphs:
            function = f"{unit.split('/')[-1]}_{direction}_translator"
            if function in frames.frames:
                paths.append((*frames.deepest(function, unit), unit.split("/")[-1]))
        for size, way, resource in sorted(paths, reverse=True)[:DEEPEST]:
            print(f"  {resource + ' ' + direction:36}{size:>8}  {' > '.join(short_names(way[1:]))}")
        print(f"  ... of {len(paths)}")
    for function in sorted(frames.recursive):
        print(f"  recurs: {short_names([function])[0]}, {frames.frames[function]} each time")


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--check", action="store_true", help="print one line, and fail past the bound")
    check = arguments.parse_args().check

    lines = measure()
    if not check:
        print_measured(lines)
        print_stated()
        return
    use = max(lines["use"], key=lambda words: words[3])
    print(f"{len(lines['use'])} calls, at most {use[3]} bytes of stack: {' '.join(use[:3])} (bound {STACK})")
    sys.exit(1 if use[3] > STACK else 0)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""tidy_bundles.py COMPILE_COMMANDS FOLDER: what clang-tidy is to look at, in FOLDER: compile_commands.json, and a list each of
the plug-in's sources, the tests' and the tools'.

What costs is the headers, so sources that are compiled alike, but for definitions, are looked at in bundles. Not the plug-in's, which have few
headers; not programs, which would all be main; nor the benchmarks, whose names are alike. A source of two programs is
looked at once.
"""
import json
import os
import re
import shlex
import sys

KINDS = {"plugin": "(frame|translators)/", "tests": "(tests|fuzz)/", "tools": "(host|harness|soak|bench|selftest)/"}
IN_BUNDLE = 32  # few enough for several processors


def kind_of(name):
    if name.startswith("tests/include/"):  # the compiler is their judge
        return None
    return next((kind for kind, pattern in KINDS.items() if re.match(pattern, name)), None)


def can_be_bundled(name):
    with open(name, encoding="utf-8") as file:
        source = file.read()
    return (
        kind_of(name) != "plugin"
        and not name.startswith("bench/")
        and re.search("^namespace kelmora", source, re.M)
        and not re.search(r"^int main\(", source, re.M)
    )


def arguments_of(command):
    arguments = shlex.split(command["command"])
    return arguments[: arguments.index("-o")]


def main():
    commands, folder = sys.argv[1:]
    database, lists, groups, seen = [], {kind: [] for kind in KINDS}, {}, set()

    def add(kind, name, directory, arguments):
        path = os.path.abspath(name)
        database.append({"file": path, "directory": directory, "arguments": [*arguments, "-c", path]})
        lists[kind].append(path)

    with open(commands, encoding="utf-8") as file:
        for command in json.load(file):
            name = os.path.relpath(command["file"])
            kind = kind_of(name)
            if kind is None or name in seen:
                continue
            seen.add(name)
            arguments = arguments_of(command)
            if can_be_bundled(name):
                alike = tuple(argument for argument in arguments if not argument.startswith(("-D", "-O")))
                names, definitions = groups.setdefault((kind, command["directory"], alike), ([], set()))
                names.append(name)
                definitions.update(argument for argument in arguments if argument.startswith("-D"))
            else:
                add(kind, name, command["directory"], arguments)

    for (kind, directory, alike), (names, definitions) in groups.items():
        for begin in range(0, len(names), IN_BUNDLE):
            bundle = f"{folder}/{kind}_{len(database)}.cpp"
            with open(bundle, "w", encoding="utf-8") as file:
                file.writelines(f'#include "{os.path.abspath(name)}"\n' for name in names[begin : begin + IN_BUNDLE])
            add(kind, bundle, directory, [*alike, *sorted(definitions)])

    with open(f"{folder}/compile_commands.json", "w", encoding="utf-8") as file:
        json.dump(database, file)
    for kind, paths in lists.items():
        with open(f"{folder}/{kind}.txt", "w", encoding="utf-8") as file:
            file.writelines(path + "\n" for path in reversed(paths))  # bundles, which take longest, first


if __name__ == "__main__":
    main()

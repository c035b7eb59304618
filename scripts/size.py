#!/usr/bin/env python3
"""What the target's plug-in takes: bytes by section and unit, and of memory once it is loaded.

Reads build/mips, and runs a program of bench/ there. With --check it prints one line, and fails when the bound is broken.
That there is no writable data and nothing for the loader to resolve is the ABI test's to say.
"""

import argparse
import os
import re
import sys
import tempfile
from pathlib import Path

from programs import ROOT, built, direct_plugin, run, run_program

HEADER = (ROOT / "include/kelmora_json.h").read_text()
VERSION = re.search(r'KELMORA_JSON_VERSION "(.*)"', HEADER)[1]
LIBRARY = built("mips", f"libkelmora_json.so.{VERSION}")
OBJECTS = built("mips", "CMakeFiles/kelmora_json_objects.dir")
JANSSON = ROOT / "build/mips-sysroot/lib/libjansson.so"

CODE = 112 * 1024  # bytes that .text and .rodata may take together
DIRECT = 8 * 1024  # bytes more with KELMORA_DIRECT_TEXT
LARGEST = 10  # units to list


def sections_of(*files):
    """For each file: {section: bytes}, those added up that the compiler made for each function."""
    found = []
    for line in run(["mips-linux-gnu-size", "-A", *files]).splitlines():
        if line.startswith("section "):
            found.append({})
        row = re.match(r"(\.(?:text|rodata)|\.\S+)\S* +(\d+) +\d+$", line)
        if row:
            found[-1][row[1]] = found[-1].get(row[1], 0) + int(row[2])
    return found


def code_of(sections):
    return sections.get(".text", 0) + sections.get(".rodata", 0)


def stripped_size(library):
    with tempfile.TemporaryDirectory() as folder:
        copy = Path(folder) / library.name
        run(["mips-linux-gnu-strip", "-o", copy, library])
        return copy.stat().st_size


def print_library(library):
    (sections,) = sections_of(library)
    print(f"\n{library.name}, bytes")
    for name, size in sections.items():
        print(f"  {name:24}{size:>8}")
    print(f"  {'.text and .rodata':24}{code_of(sections):>8}")
    print(f"  {'file, stripped':24}{stripped_size(library):>8}")


def print_units():
    units = sorted(OBJECTS.rglob("*.o"))
    sizes = [(code_of(sections), sections.get(".text", 0), sections.get(".rodata", 0),
              unit.relative_to(OBJECTS).with_suffix("").with_suffix(""))
             for unit, sections in zip(units, sections_of(*units))]
    print(f"\nthe largest units, before the linker merges constants\n  {'':60}{'.text':>8}{'.rodata':>8}{'both':>8}")
    for both, text, constants, unit in sorted(sizes, reverse=True)[:LARGEST]:
        print(f"  {str(unit):60}{text:>8}{constants:>8}{both:>8}")


def print_pages():
    with LIBRARY.open("rb") as file:
        os.fsync(file.fileno())  # what the linker wrote just now would count as dirty
    print(f"\nmapped, KiB, once it is loaded (as the emulator maps it)\n  {'':4}{'Rss':>16}{'Private_Clean':>16}"
          f"{'Private_Dirty':>16}")
    for line in run_program("mips", "kelmora-bench-pages").splitlines():
        permissions, *kibibytes = line.split()
        print(f"  {permissions}" + "".join(f"{number:>16}" for number in kibibytes))


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--check", action="store_true", help="print one line, and fail when the bound is broken")
    check = arguments.parse_args().check

    code, direct = (code_of(sections) for sections in sections_of(LIBRARY, direct_plugin("mips")))
    print(f"{LIBRARY.name}: {code} bytes of .text and .rodata (bound {CODE}), with KELMORA_DIRECT_TEXT {direct - code} more "
          f"(bound {DIRECT})")
    if check:
        sys.exit(1 if code > CODE or direct - code > DIRECT else 0)
    print_library(LIBRARY)
    print_pages()
    print_units()
    print_library(JANSSON.resolve())
    print("\nwith KELMORA_DIRECT_TEXT", end="")
    print_library(direct_plugin("mips"))


if __name__ == "__main__":
    main()

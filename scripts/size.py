#!/usr/bin/env python3
"""What the target's plug-in takes: bytes of the file, work of the loader, memory.

Reads build/mips, and runs a program of bench/ there. With --check it prints one line, and fails when a bound is broken.
"""

import argparse
import os
import re
import sys
import tempfile
from pathlib import Path

from programs import ROOT, built, run, run_program

LIBRARY = built("mips", "libkelmora_json.so.1.3.0")
OBJECTS = built("mips", "CMakeFiles/kelmora_json_objects.dir")
JANSSON = ROOT / "build/mips-sysroot/lib/libjansson.so"

CODE = 112 * 1024  # bytes that .text and .rodata may take together
RELOCATIONS = 64  # the loader must have fewer than these to resolve
LARGEST = 10  # units to list

# What the loader writes to. Any other section that may be written to is data of the library's own, and breaks a bound.
LOADERS = {
    ".got": "addresses: the local ones moved when it is loaded, those of imports bound at their first call",
    ".got.plt": "addresses of imports, bound at their first call",
    ".dynamic": "what the loader reads",
    ".rld_map": "a word for debuggers",
}


def run_tool(tool, *arguments):
    return run([f"mips-linux-gnu-{tool}", *arguments])


def sections_of(*files):
    """For each file: {section: (bytes, flags)} of what is loaded, sections of one name added up."""
    found = []
    for line in run_tool("readelf", "-W", "-S", *files).splitlines():
        if line.startswith("Section Headers:"):
            found.append({})
        row = re.match(r" *\[ *\d+\] (\.\S+) +\S+ +\w+ +\w+ +(\w+) +\w+ +([A-Zp]+) ", line)
        if row and "A" in row[3]:
            size, flags = found[-1].get(row[1], (0, row[3]))
            found[-1][row[1]] = (size + int(row[2], 16), flags)
    return found


def bytes_of(sections, name):
    """Of a section, and of those that the compiler made of it, one a function."""
    return sum(size for section, (size, _) in sections.items() if section == name or section.startswith(name + "."))


def relocations_of(library):
    return re.findall(r"^\w{8}  \w{8} (R_MIPS_(?!NONE)\w+)", run_tool("readelf", "-W", "-r", library), re.MULTILINE)


def global_offset_table(library):
    """(local entries, entries of symbols, of those the ones that are bound at their first call)"""
    dynamic = dict(re.findall(r"\(MIPS_(\w+)\) +(\w+)", run_tool("readelf", "-W", "-d", library)))
    local, symbols, first = (int(dynamic[tag], 0) for tag in ("LOCAL_GOTNO", "SYMTABNO", "GOTSYM"))
    rows = (line.split() for line in run_tool("readelf", "-W", "--dyn-syms", library).splitlines())
    stubs = [row for row in rows if len(row) > 7 and row[6] == "UND" and int(row[1], 16) != 0]
    return local, symbols - first, len(stubs)


def stripped_size(library):
    with tempfile.TemporaryDirectory() as folder:
        copy = Path(folder) / library.name
        run_tool("strip", "-o", copy, library)
        return copy.stat().st_size


def print_library(library):
    (sections,) = sections_of(library)
    for name, (size, flags) in sections.items():
        note = LOADERS.get(name, "data of its own") if "W" in flags else ""
        print(f"  {name:24}{size:>8}  {flags:4}{note}".rstrip())
    print(f"  {'.text and .rodata':24}{bytes_of(sections, '.text') + bytes_of(sections, '.rodata'):>8}")
    print(f"  {'file':24}{library.stat().st_size:>8}")
    print(f"  {'file, stripped':24}{stripped_size(library):>8}")


def print_units():
    units = sorted(OBJECTS.rglob("*.o"))
    sizes = []
    for unit, sections in zip(units, sections_of(*units)):
        text, constants = bytes_of(sections, ".text"), bytes_of(sections, ".rodata")
        sizes.append((text + constants, text, constants, unit.relative_to(OBJECTS).with_suffix("")))
    print(f"  {'':60}{'.text':>8}{'.rodata':>8}{'both':>8}")
    for both, text, constants, unit in sorted(sizes, reverse=True)[:LARGEST]:
        print(f"  {str(unit):60}{text:>8}{constants:>8}{both:>8}")


def mappings_of(library):
    with library.open("rb") as file:
        os.fsync(file.fileno())  # what the linker wrote just now would count as dirty
    return [line.split() for line in run_program("mips", "kelmora-bench-pages").splitlines()]


def report():
    print(f"{LIBRARY.name}, bytes (.text and .rodata may take {CODE} together)")
    print_library(LIBRARY)

    local, imports, lazy = global_offset_table(LIBRARY)
    print(f"\nfor the loader\n  {'relocations':24}{len(relocations_of(LIBRARY)):>8}  fewer than {RELOCATIONS}")
    print(f"  {'local GOT entries':24}{local:>8}  moved when it is loaded, without relocations")
    print(f"  {'imports in the GOT':24}{imports:>8}  of which {lazy} are bound at their first call")

    print(f"\nmapped, KiB, once it is loaded (as the emulator maps it)\n  {'':4}{'Rss':>16}{'Private_Clean':>16}"
          f"{'Private_Dirty':>16}")
    for permissions, *kibibytes in mappings_of(LIBRARY):
        print(f"  {permissions}" + "".join(f"{number:>16}" for number in kibibytes))

    print("\nthe largest units, before the linker merges constants, bytes")
    print_units()

    print(f"\n{JANSSON.name}, beside it, bytes")
    print_library(JANSSON.resolve())


def check():
    (sections,) = sections_of(LIBRARY)
    code = bytes_of(sections, ".text") + bytes_of(sections, ".rodata")
    relocations = len(relocations_of(LIBRARY))
    data = [name for name, (_, flags) in sections.items() if "W" in flags and name not in LOADERS]
    print(f"{LIBRARY.name}: {code} bytes of .text and .rodata (bound {CODE}), {relocations} relocations (fewer than "
          f"{RELOCATIONS}), writable data: {' '.join(data) or 'none'}")
    sys.exit(1 if code > CODE or relocations >= RELOCATIONS or data else 0)


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--check", action="store_true", help="print one line, and fail when a bound is broken")
    if arguments.parse_args().check:
        check()
    report()


if __name__ == "__main__":
    main()

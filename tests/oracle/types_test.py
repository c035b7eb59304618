#!/usr/bin/env python3
"""Assigns each example and all that is shown of the sample gateway to its TypeScript type, with tsc --strict.

types_test.py KELMORA_HOST [--types FILE]
"""

import argparse
import json
import pathlib
import subprocess
import sys
import tempfile


def output_of(*command):
    return subprocess.run([str(part) for part in command], check=False, capture_output=True, text=True).stdout


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("host", type=pathlib.Path, metavar="KELMORA_HOST")
    parser.add_argument("--types", type=pathlib.Path, metavar="FILE", help="instead of the program's own")
    arguments = parser.parse_args()
    root = pathlib.Path(__file__).resolve().parents[2]
    types = arguments.types.read_text() if arguments.types else output_of(arguments.host, "types")

    lines = ['import type { Resources } from "./kelmora";']
    counts = {"input": 0, "text": 0}

    def assign(resource, direction, document):
        # By way of a variable: a client may send more keys than are taken, as it sends back what it was shown.
        number = len(lines)
        lines.append(f"const document{number} = {document};")
        lines.append(f'export const typed{number}: Resources["{resource}"]["{direction}"] = document{number};')
        counts[direction] += 1

    for resource in json.loads(output_of(arguments.host, "list", "--json")):
        name = resource["resource"]
        example = root / "examples" / f"{name}.json"
        if example.exists():
            assign(name, "input", example.read_text().strip())
        shown = output_of(arguments.host, "show", name).strip()
        if shown[:1] in ("[", "{"):
            assign(name, "text", shown)

    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        (folder / "kelmora.d.ts").write_text(types)
        (folder / "documents.ts").write_text("\n".join(lines) + "\n")
        checked = subprocess.run(["tsc", "--strict", "--noEmit", "documents.ts"], cwd=folder, check=False,
                                 capture_output=True, text=True)
    print(checked.stdout, end="")
    print(f"{counts['input']} examples, {counts['text']} outputs")
    if counts["input"] == 0 or counts["text"] == 0:
        sys.exit("there was nothing to check")
    sys.exit(checked.returncode)


if __name__ == "__main__":
    main()

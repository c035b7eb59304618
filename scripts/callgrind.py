"""Counts of instructions from a program that counts calls of its own under callgrind (bench/callgrind.h)."""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

BUILD = Path(__file__).resolve().parent.parent / "build" / "release"


def count_instructions(program):
    """{name of a call: instructions}, of a program that the release build made."""
    counts = {}
    with tempfile.TemporaryDirectory() as folder:
        command = ["valgrind", "--tool=callgrind", "--collect-atstart=no", "--dump-line=no",
                   f"--callgrind-out-file={folder}/%p", BUILD / program]
        run = subprocess.run(command, capture_output=True, text=True, check=False)
        if run.returncode != 0:
            sys.exit(f"{program} under callgrind: {run.stderr}")
        for file in Path(folder).iterdir():
            text = file.read_text()
            name = re.search(r"Client Request: (.*)", text)
            if name:
                counts[name[1]] = int(re.search(r"summary: (\d+)", text)[1])
    return counts

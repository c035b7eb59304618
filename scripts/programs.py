"""Runs the programs that bench/ builds, on the machine that a preset is for, and counts their instructions."""

import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent


def run(command):
    """The command's output; its failure is the script's."""
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}: {done.stderr}")
    return done.stdout


def built(preset, file):
    return ROOT / "build" / preset / file


def direct_plugin(preset):
    """The plug-in of KELMORA_DIRECT_TEXT that a preset builds beside the one that is shipped."""
    (library,) = built(preset, "direct").glob("libkelmora_json.so.*")
    return library


def emulated(program, *options):
    """The command that runs a program of the MIPS build."""
    return ["qemu-mips", *options, "-L", "/usr/mips-linux-gnu", built("mips", program)]


def run_program(preset, program, *arguments):
    """The program's output."""
    return run([*(emulated(program) if preset == "mips" else [built(preset, program)]), *arguments])


def count_instructions(preset, program, *arguments):
    """{name of a call: instructions} of a program that has calls of its own counted (bench/counting.h): by callgrind,
    or by qemu where it is for MIPS."""
    with tempfile.TemporaryDirectory() as folder:
        if preset == "mips":
            counter = Path(folder) / "qemu_counter.so"
            run([os.environ.get("CC", "cc"), "-shared", "-fPIC", "-O2", "-o", counter, ROOT / "bench/qemu_counter.c"])
            lines = run([*emulated(program, "-plugin", f"file={counter}"), *arguments]).splitlines()
            return {name: int(count) for count, name in (line.split(maxsplit=1) for line in lines)}

        run(["valgrind", "--tool=callgrind", "--collect-atstart=no", "--dump-line=no",
             f"--callgrind-out-file={folder}/%p", built(preset, program), *arguments])
        counts = {}
        for file in Path(folder).iterdir():
            text = file.read_text()
            name = re.search(r"Client Request: (.*)", text)
            if name:
                counts[name[1]] = int(re.search(r"summary: (\d+)", text)[1])
        return counts

"""Counts of instructions, from a program that has calls of its own counted (bench/counting.h)."""

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


def emulated(program, *options):
    """The command that runs a program of the MIPS build under qemu."""
    return ["qemu-mips", *options, "-L", "/usr/mips-linux-gnu",
            "-E", f"LD_LIBRARY_PATH={ROOT}/build/mips-sysroot/lib", program]


def built(preset, program):
    return ROOT / "build" / preset / program


def run_program(preset, program):
    """The output of a program of this build, on the machine that the build is for."""
    path = built(preset, program)
    return run(emulated(path) if preset == "mips" else [path])


def count_instructions(preset, program):
    """{name of a call: instructions}, counted by callgrind or, of the MIPS build, by qemu."""
    with tempfile.TemporaryDirectory() as folder:
        if preset == "mips":
            counter = Path(folder) / "qemu_counter.so"
            run([os.environ.get("CC", "cc"), "-shared", "-fPIC", "-O2", "-o", counter, ROOT / "bench/qemu_counter.c"])
            lines = run(emulated(built(preset, program), "-plugin", f"file={counter}")).splitlines()
            return {name: int(count) for count, name in (line.split(maxsplit=1) for line in lines)}

        run(["valgrind", "--tool=callgrind", "--collect-atstart=no", "--dump-line=no",
             f"--callgrind-out-file={folder}/%p", built(preset, program)])
        counts = {}
        for file in Path(folder).iterdir():
            text = file.read_text()
            name = re.search(r"Client Request: (.*)", text)
            if name:
                counts[name[1]] = int(re.search(r"summary: (\d+)", text)[1])
        return counts

#!/usr/bin/env python3
"""tidy.py FOLDER KIND [CHECKS]: runs clang-tidy over the sources of a kind that tidy_bundles.py has listed in FOLDER.

A source that passed is not looked at again as long as it, its headers, its arguments and clang-tidy stay what they were. What
they were is kept in the user's cache folder, for all clones.
"""
import concurrent.futures
import functools
import hashlib
import json
import os
import shlex
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
CACHE = Path(os.environ.get("XDG_CACHE_HOME") or Path.home() / ".cache") / "kelmora-json" / "clang-tidy"


def hashed(contents):
    """Of bytes, in which this clone's folder counts as any other."""
    return hashlib.sha256(contents.replace(bytes(ROOT), b".")).hexdigest()


@functools.cache
def hashed_file(name):
    try:
        return hashed((ROOT / name).read_bytes())
    except OSError:
        return "none"


def headers_of(entry):
    """The files that a compilation reads, those of the project as seen from its folder."""
    rule = subprocess.run([*entry["arguments"], "-M", "-MT", "it"], cwd=entry["directory"], check=True, capture_output=True,
                          text=True).stdout
    files = shlex.split(rule.replace("\\\n", " "))[1:]
    return [str(Path(file).relative_to(ROOT)) if Path(file).is_relative_to(ROOT) else file for file in files]


def passed(stamp):
    try:
        return all(hashed_file(name) == was for name, was in json.loads(stamp.read_text(encoding="utf-8")).items())
    except OSError:
        return False


def main():
    folder, kind, *checks = sys.argv[1:]
    with open(f"{folder}/compile_commands.json", encoding="utf-8") as file:
        entries = {entry["file"]: entry for entry in json.load(file)}
    version = subprocess.run(["clang-tidy", "--version"], check=True, capture_output=True, text=True).stdout
    configuration = (ROOT / ".clang-tidy").read_text(encoding="utf-8")
    options = [f"--checks={','.join(checks)}"] if checks else []
    cache = CACHE
    try:
        cache.mkdir(parents=True, exist_ok=True)
    except OSError:  # nobody's home, say
        cache = Path(folder) / "passed"
        cache.mkdir(exist_ok=True)

    def looked_at(source):
        """What clang-tidy says of a source that does not pass."""
        entry = entries[source]
        stamp = cache / hashed("\0".join([version, configuration, *options, *entry["arguments"]]).encode())
        if passed(stamp):
            return None
        done = subprocess.run(["clang-tidy", "-p", folder, "--quiet", *options, source], check=False, capture_output=True,
                              text=True)
        if done.returncode != 0:
            return done.stdout + done.stderr
        new = stamp.with_suffix(f".{os.getpid()}")
        new.write_text(json.dumps({name: hashed_file(name) for name in headers_of(entry)}), encoding="utf-8")
        new.rename(stamp)
        return None

    with open(f"{folder}/{kind}.txt", encoding="utf-8") as file:
        sources = file.read().split()
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as threads:
        findings = [finding for finding in threads.map(looked_at, sources) if finding is not None]
    print("".join(findings), end="")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())

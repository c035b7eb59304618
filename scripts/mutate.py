#!/usr/bin/env python3
"""Tests the unit tests: makes small faults in the library, one at a time, and
tells which go unnoticed.

    scripts/mutate.py [--sample 250] [--seed SEED] [--kind KIND] [--least 95]
                      [--jobs 2] [--list] [PATH...]

Takes a sample of the faults that are possible in frame/ and translators/ (or
below PATH), spread over the units and over the kinds of faults. The commit that
is checked out draws the sample: another one with each commit. The same seed and
the same sources give the same sample again. The faults are made in a copy of the
sources, in build/mutation/src. What a fault can reach is built and run until a
program fails: the tests of the unit's group and those of every resource, or
those of the frame, of every resource and of all groups.

Not counted are faults that do not compile, and those that give the same
program. A header's fault rebuilds nearly everything, so each header has one in
the sample, unless it is named.

Prints the faults that survived as diffs. The exit status is 0 when at least
--least percent were caught.
"""

import argparse
import difflib
import hashlib
import os
import random
import re
import resource
import signal
import subprocess
import sys
from collections import Counter, namedtuple
from itertools import zip_longest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
COPY = ROOT / "build/mutation/src"
PROGRAMS = COPY / "build/mutation/tests"
TIMEOUT = 120  # seconds that a test program has, and
MEMORY = 4 << 30  # bytes: a fault may make it endless

# A place in a file: its lines from `first` on, before and after.
Mutant = namedtuple("Mutant", "unit kind first before after")

# Kind of fault, pattern, replacement: one fault for each match in a line,
# outside texts, comments and preprocessor lines.
FAULTS = [
    ("required to optional", r'\brequired(_\w+)?\("(?:[^".:]+[.:])*([^".:]+)"_(?:bare_)?key',
     r'optional\1("\2"'),
    ("required to optional", r'\brequired(_\w+)?\((?:key|\w+_key)<("\w+")[^>]*>\(\)', r"optional\1(\2"),
    ("optional to required", r'\boptional(_\w+)?\(("\w+")', r"required\1(\2_key"),
    ("checked to required", r'\bchecked(_\w+)\(("\w+")', r"required\1(\2_bare_key"),
    ("key's message", r'"_key', '"_bare_key'),
    ("key's message", r'"_bare_key', '"_key'),
    ("key's field", r'"(?:[^".:]+[.:])+([^".:]+)"(?=_(?:bare_)?key)', r'"\1"'),
    ("type", r"(?<=[._])integer\(", "boolean("),
    ("type", r"(?<=[._])boolean\(", "integer("),
    ("type", r"(?<=\.)real\(", "integer("),
    ("type", r"(?<=\.)number\(", "real("),
    ("type", r"\bis_true\(\)", "is_string()"),
    ("type", r"\bis_string\(\)", "is_true()"),
    ("cut", r'(?<=\.)string\((?=")', "whole_string("),
    ("width or sign", r"\buint32_t\b", "int32_t"),
    ("width or sign", r"\bint32_t\b", "uint32_t"),
    ("width or sign", r"\buint32_t\b", "uint16_t"),
    ("width or sign", r"\buint16_t\b", "uint8_t"),
    ("width or sign", r"\buint8_t\b", "uint16_t"),
    ("ok()", r" && (\w+\.)?ok\(\)", ""),
    ("ok()", r"\b(\w+\.)?ok\(\) && ", ""),
    ("ok()", r"!(\w+\.)?ok\(\) \|\| ", ""),
    ("ok()", r"(?<=if \()!(\w+\.)?ok\(\)(?=\))", "false"),
    ("ok()", r"(?<=if \()(\w+\.)?ok\(\)(?=\))", "true"),
    ("ok()", r"(?<=return )(?:call_->ok|ok\(\)) \? (.*) : \w+;", r"\1;"),
    ("leak", r"(?<=leak_document_on_failure\()true", "false"),
    ("leak", r"(?<=leak_document_on_failure\()false", "true"),
    ("condition", r"\bif \(([^=]*|.*[=!<>]=.*)\)(?=( \{)?$)", r"if (!(\1))"),
    ("operator", r" < ", " <= "),
    ("operator", r" <= ", " < "),
    ("operator", r" > ", " >= "),
    ("operator", r" >= ", " > "),
    ("operator", r" == ", " != "),
    ("operator", r" != ", " == "),
    ("operator", r" && ", " || "),
    ("operator", r" \|\| ", " && "),
    ("operator", r" \+ ", " - "),
    ("operator", r" - ", " + "),
    ("constant", r"(?<![\w.])\d+(?=U?[\s;,)\]}])", lambda match: str(int(match[0]) + 1)),
    ("constant", r"(?<![\w.])0x[0-9A-F]+(?=U?[\s;,)])", lambda match: hex(int(match[0], 16) + 1)),
    ("constant", r"(?<!failure\()\btrue\b", "false"),
    ("constant", r"(?<!failure\()\bfalse\b", "true"),
    # insertion_order gives the same text as plain: jansson keeps the order.
    ("flags", r"\bFlags::pretty\b", "Flags::plain"),
    ("flags", r"\bFlags::(plain|insertion_order)\b", "Flags::pretty"),
    ("nodes", r"\bNodes::(walking|head_only|head_repeated)\b", "Nodes::counting"),
    ("nodes", r"\bNodes::(counting|head_only)\b", "Nodes::walking"),
    ("nodes", r"\bNodes::(counting|walking|head_repeated)\b", "Nodes::head_only"),
    ("nodes", r"\bNodes::counting\b", "Nodes::head_repeated"),
    ("nodes", r"\bNodes::(counting|walking|head_only)_if_any\b", r"Nodes::\1"),
    ("nodes", r"\bNodes::(counting|walking|head_only)\b", r"Nodes::\1_if_any"),
    ("nodes", r"\bNodes::walking_if_any\b", "Nodes::counting_if_any"),
    ("nodes", r"\bNodes::counting_if_any\b", "Nodes::walking_if_any"),
    ("nodes", r"\bNodes::walking_with_head_id\b", "Nodes::walking"),
    ("root", r", Root::\w+", ""),
    ("root", r"\bRoot::always_array\b", "Root::always_object"),
    ("root", r"\bRoot::always_object\b", "Root::always_array"),
]

TEXT = re.compile(r'"(?:[^"\\]|\\.)*"')
STATEMENT = re.compile(
    r"^( +)(return;|continue;|break;|\+\+.*;|[*\w.>\[\]:-]+(<\w+>)?( [|+]?= |\().*;)$")
NO_STATEMENT = r"\1static_cast<void>(0);"
CALL = re.compile(r"^( +[\w.>-]+\(.+, )([\w.>\[\]-]+)\);$")
REQUIRED = re.compile(r"\brequired\w*\(([^,]*)")
OPTIONAL = re.compile(r"\boptional_")
WRITE = re.compile(r"^ +\w+\.(boolean|integer|real|string|whole_string)\(")


def code_of(line):
    """The line without its comment; empty for a preprocessor line."""
    if line.lstrip().startswith("#"):
        return ""
    masked = TEXT.sub(lambda text: "x" * len(text[0]), line)
    return line[:masked.find("//")].rstrip() if "//" in masked else line


def other_letter(text, choose):
    """The text with one letter changed; None when it has none."""
    letters = [i for i, letter in enumerate(text) if letter.isalpha() and text[i - 1] != "\\"]
    if not letters:
        return None
    place = choose.choice(letters)
    letter = "a" if text[place] in "zZ" else chr(ord(text[place]) + 1)
    return text[:place] + letter + text[place + 1:]


def faults_of_line(code, choose):
    """(kind, new line) for each fault within one line."""
    texts = list(TEXT.finditer(code))
    for text in texts:
        changed = other_letter(text[0], choose)
        if changed:
            yield "text", code[:text.start()] + changed + code[text.end():]
    for kind, pattern, replacement in FAULTS:
        for match in re.finditer(pattern, code):
            if any(text.start() < match.start() < text.end() - 1 for text in texts):
                continue
            changed = replacement(match) if callable(replacement) else match.expand(replacement)
            yield kind, code[:match.start()] + changed + code[match.end():]
    if STATEMENT.match(code):
        yield "statement left out", STATEMENT.sub(NO_STATEMENT, code)


def presence_shows(code, unit_text):
    """Whether it can matter that this line requires its key."""
    return f"decode_after<from_json>({REQUIRED.search(code)[1]}" not in unit_text  # known to be there


def order_shows(code, following, unit_text):
    """Whether the order of two statements can matter."""
    if OPTIONAL.search(code) and OPTIONAL.search(following):
        return False  # neither can fail
    return not (WRITE.match(code) and "Flags::pretty" in unit_text)  # sorted when rendered


def mutants_of(unit, choose):
    """All faults of a file."""
    text = (COPY / unit).read_text()
    lines = text.splitlines(keepends=True)
    codes = [code_of(line.rstrip("\n")) for line in lines]
    for i, code in enumerate(codes):
        for kind, changed in faults_of_line(code, choose):
            if kind != "required to optional" or presence_shows(code, text):
                yield Mutant(unit, kind, i, [lines[i]], [changed + "\n"])
        if i == 0 or not STATEMENT.match(code) or not STATEMENT.match(codes[i - 1]):
            continue
        before = lines[i - 1:i + 1]
        if order_shows(codes[i - 1], code, text):
            yield Mutant(unit, "order", i - 1, before, before[::-1])
        one, two = CALL.match(codes[i - 1]), CALL.match(code)
        if one and two and one[2] != two[2]:
            after = [f"{one[1]}{two[2]});\n", f"{two[1]}{one[2]});\n"]
            yield Mutant(unit, "fields swapped", i - 1, before, after)


def in_turn(queues):
    """One of each queue in turn, until all are empty."""
    return [item for turn in zip_longest(*queues) for item in turn if item is not None]


def plan(units, all_of_headers, choose):
    """The order in which faults are taken: each unit's kinds, and the units, in turn."""
    queues = []
    for unit in units:
        kinds = {}
        for mutant in mutants_of(unit, choose):
            kinds.setdefault(mutant.kind, []).append(mutant)
        for mutants in kinds.values():
            choose.shuffle(mutants)
        kinds = list(kinds.values())
        choose.shuffle(kinds)
        queue = in_turn(kinds)
        queues.append(queue if all_of_headers or not unit.endswith(".h") else queue[:1])
    return in_turn(queues)


def copy_sources():
    """Brings the copy up to date. Unchanged files keep their times: nothing is built for them."""
    listed = subprocess.run(["git", "ls-files", "-z", "-co", "--exclude-standard"], cwd=ROOT,
                            check=True, stdout=subprocess.PIPE, text=True).stdout
    wanted = {name for name in listed.split("\0") if (ROOT / name).is_file()}
    for name in wanted:
        source, target = ROOT / name, COPY / name
        if not target.is_file() or target.read_bytes() != source.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(source.read_bytes())
    for folder in {Path(name).parts[0] for name in wanted}:
        for path in (COPY / folder).rglob("*"):
            if path.is_file() and str(path.relative_to(COPY)) not in wanted:
                path.unlink()


def cmake(*arguments):
    """Whether a run of CMake in the copy succeeds, and what it says."""
    done = subprocess.run(["cmake", *arguments], cwd=COPY, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, errors="replace")
    return done.returncode == 0, done.stdout


def build(target, jobs):
    return cmake("--build", "--preset", "mutation", "--target", target, "-j", str(jobs))


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))


def passes(program):
    """Whether a test program ends well, and in time."""
    try:
        return subprocess.run([PROGRAMS / program], env={**os.environ, "GTEST_FAIL_FAST": "1"},
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              timeout=TIMEOUT, preexec_fn=limit_memory).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def digest(program):
    return hashlib.sha256((PROGRAMS / program).read_bytes()).digest()


def prepare(jobs):
    """Builds and runs the tests without any fault: they must pass. Their programs' digests."""
    for done, output in (cmake("--preset", "mutation"), build("unit_tests", jobs)):
        if not done:
            sys.exit(output)
    groups = sorted(path.name for path in (COPY / "tests/translators").iterdir())
    programs = [f"{name}_tests" for name in ["frame", "every_resource", *groups]]
    for program in programs:
        if not passes(program):
            sys.exit(f"mutate: {program} fails without any fault")
    return {program: digest(program) for program in programs}


def changed_lines(mutant, lines):
    return lines[:mutant.first] + mutant.after + lines[mutant.first + len(mutant.before):]


def verdict(mutant, originals, jobs):
    """What becomes of a fault. The file is as before afterwards."""
    path = COPY / mutant.unit
    original = path.read_text()
    folder, group = Path(mutant.unit).parts[:2]
    programs = originals if folder == "frame" else [f"{group}_tests", "every_resource_tests"]
    result = "same program"
    try:
        path.write_text("".join(changed_lines(mutant, original.splitlines(keepends=True))))
        for program in programs:
            if not build(program, jobs)[0]:
                return "does not compile"
            if digest(program) == originals[program]:
                continue
            if not passes(program):
                return "caught"
            result = "survived"
        return result
    finally:
        path.write_text(original)


def diff(mutant):
    lines = (COPY / mutant.unit).read_text().splitlines(keepends=True)
    return "".join(difflib.unified_diff(lines, changed_lines(mutant, lines), mutant.unit,
                                        f"{mutant.unit} ({mutant.kind})", n=2))


def run(mutants, sample, originals, jobs, results):
    """Adds (mutant, verdict) to the results until as many as the sample asks for count."""
    counted = 0
    while mutants and counted < sample:
        batch, mutants = mutants[:sample - counted], mutants[sample - counted:]
        # Neighbours follow each other, headers come last: less to build again.
        batch.sort(key=lambda mutant: (mutant.unit.endswith(".h"), mutant.unit, mutant.first))
        for mutant in batch:
            result = verdict(mutant, originals, jobs)
            results.append((mutant, result))
            counted += result in ("caught", "survived")
            place = f"{mutant.unit}:{mutant.first + 1}"
            print(f"{counted:4} {result:16} {mutant.kind:20} {place}", flush=True)


def report(results):
    """Prints the survivors and the figures. The percentage that was caught."""
    for mutant, result in results:
        if result == "survived":
            print("\n" + diff(mutant), end="")
    count = Counter(result for _, result in results)
    counted = count["caught"] + count["survived"]
    share = 100 * count["caught"] / max(counted, 1)
    print(f"\n{counted} faults: {count['caught']} caught ({share:.1f} %), "
          f"{count['survived']} survived. Not counted: {count['does not compile']} that do not "
          f"compile, {count['same program']} that give the same program.")
    return share


def seed_of_commit():
    """A number that each commit has of its own."""
    commit = subprocess.run(["git", "rev-parse", "HEAD"], cwd=ROOT, check=True,
                            stdout=subprocess.PIPE, text=True).stdout
    return int(commit[:8], 16)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("paths", nargs="*", metavar="PATH", help="units or folders to change")
    parser.add_argument("--sample", type=int, default=250, help="how many faults to count (250)")
    parser.add_argument("--seed", type=int, help="another sample than the commit's")
    parser.add_argument("--kind", help="faults of this kind alone")
    parser.add_argument("--least", type=float, default=95, help="percent to be caught (95)")
    parser.add_argument("--jobs", type=int, default=2, help="compilers at once (2)")
    parser.add_argument("--list", action="store_true", help="show the sample, build nothing")
    arguments = parser.parse_args()
    signal.signal(signal.SIGTERM, signal.default_int_handler)  # like Ctrl-C

    seed = seed_of_commit() if arguments.seed is None else arguments.seed
    copy_sources()
    wanted = tuple(arguments.paths) or ("frame/", "translators/")
    files = [path for folder in ("frame", "translators") for path in (COPY / folder).rglob("*")]
    units = sorted(str(path.relative_to(COPY)) for path in files if path.suffix in (".cpp", ".h"))
    units = [unit for unit in units if unit.startswith(wanted)]
    mutants = plan(units, bool(arguments.paths), random.Random(seed))
    mutants = [mutant for mutant in mutants if arguments.kind in (None, mutant.kind)]
    print(f"{len(units)} units, {len(mutants)} faults to choose from, seed {seed}", flush=True)
    if arguments.list:
        print("\n".join(map(diff, mutants[:arguments.sample])))
        return 0
    results = []
    try:
        run(mutants, arguments.sample, prepare(arguments.jobs), arguments.jobs, results)
    except KeyboardInterrupt:
        report(results)
        sys.exit("mutate: stopped; the copy is as it was, and the sources were never touched")
    return 0 if report(results) >= arguments.least else 1


if __name__ == "__main__":
    sys.exit(main())

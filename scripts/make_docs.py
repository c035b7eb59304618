#!/usr/bin/env python3
"""Makes the reference of all resources: pages that open from disk, out of what the plug-in itself answers.

make_docs.py KELMORA_HOST OUT

KELMORA_HOST is asked for the contracts (describe --json), for an example each way, and for how the records are laid out
on the machines that plug-ins are built for (layout --json).
"""

import argparse
import json
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

import jinja2

ROOT = pathlib.Path(__file__).resolve().parents[1]

TYPES = {"array": "list", "text": "object or list"}
EFFECTS = {
    "replaces": "the new ones replace them",
    "appends": "the new ones go behind them",
    "prepends": "each new one goes in front of them",
    "keeps_first": "the first stays, the new ones go behind it, the others are let go",
    "overwrites": "the new ones are written over the first of them, the others stay",
}
ROOTS = {
    "by_list_flag": "An object, or a list of them where the request is for a list",
    "array": "Always a list of objects",
    "object": "Always an object",
}
NODES = {
    "head": "only the first record is written",
    "head_repeated": "a list shows the first record as often as there are records",
}
CASES = [
    ("A string is too long", "It is cut to the bytes that the field has room for. A cut inside a character beyond "
     "ASCII makes the key disappear from what is written.", "datetime", '{"timezone": "' + "x" * 80 + '"}'),
    ("A number is too large", "Its low bits are stored, as many as the field has.", "bridging",
     '{"ageing_time": 4294967297}'),
    ("A number has a fraction or an exponent", "It is no integer to the plug-in, and stores 0; so do 300.0 and 3e2.",
     "bridging", '{"ageing_time": 300.5}'),
    ("null is sent", "The key is there, so nothing is missing; it stores 0, false or an empty string.", "bridging",
     '{"ageing_time": null}'),
    ("A boolean is sent as 1 or as \"true\"", "Only true is true; everything else stores false.", "datetime",
     '{"dst_enabled": 1}'),
    ("A required key is missing", "The document is rejected. What stood before it in the order of the keys is stored "
     "already.", "radio", '{"enabled": true}'),
    ("An optional key is missing", "The field keeps what it held.", "bridging",
     '{"802_1_d_spanning_tree": true}'),
    ("A key is unknown", "It is ignored.", "bridging", '{"ageing_tme": 300}'),
    ("A key is there twice", "The last one counts.", "bridging", '{"ageing_time": 1, "ageing_time": 2}'),
    ("The document is a list", "A list has no keys: it is accepted where nothing is required, and stores nothing.",
     "bridging", '[{"ageing_time": 300}]'),
    ("The text is no JSON", "It is rejected.", "bridging", '{"ageing_time": 300,}'),
    ("The text is empty", "It is accepted, and nothing is stored.", "bridging", ""),
]


def ask(command, *arguments, text=None):
    return subprocess.run([*command, *map(str, arguments)], input=text, check=False, capture_output=True, text=True)


def told(command, *arguments):
    """What a command tells as JSON."""
    answer = ask(command, *arguments, "--json")
    if answer.returncode != 0:
        sys.exit(f"{shlex.join([*command, *arguments])}: {answer.stderr}")
    return json.loads(answer.stdout)


def last(path):
    return path.rsplit("/", 1)[1].replace("~1", "/").replace("~0", "~")


def place_of(direction, path):
    return direction + re.sub(r"[^A-Za-z0-9_]", "-", path)


def as_alternatives(words):
    return words[0] if len(words) == 1 else ", ".join(words[:-1]) + " or " + words[-1]


def condition_text(condition):
    name = last(condition["path"]) if condition.get("path") else ""
    if "field" in condition:
        name = (f"{name} is absent and " if name else "") + f"the stored {condition['field']}"
    if not condition.get("values"):
        return f"{name} is there"
    values = as_alternatives([json.dumps(value) for value in condition["values"]])
    return f"{name} is {'not ' if condition.get('except') else ''}{values}"


def conditions_text(conditions):
    return "when " + as_alternatives([condition_text(each) for each in conditions])


def range_of(key):
    ranges = []
    if bits := key.get("bits", 0):
        half = 2 ** (bits - 1)
        ranges.append(f"\u2212{half} \u2026 {half - 1}" if key.get("is_signed") else f"0 \u2026 {2 * half - 1}")
    if "longest" in key:
        bytes_ = f"{key['longest']} byte{'' if key['longest'] == 1 else 's'}"
        ranges.append(f"up to {bytes_}" if key["longest"] else "empty")
    least, most = key.get("least", 0), key.get("most")
    if most is not None:
        ranges.append(f"{most}" if least == most else f"{least} to {most}" if least else f"up to {most}")
    elif least:
        ranges.append(f"{least} or more")
    return as_alternatives(ranges) if ranges else ""


def input_remarks(key):
    if key.get("looked_at_when"):
        yield "looked at only " + conditions_text(key["looked_at_when"])
    if key.get("only_with"):
        yield "stored only together with " + " and ".join(last(path) for path in key["only_with"])
    if key.get("values"):
        yield "values of an effect of their own: " + ", ".join(json.dumps(value) for value in key["values"])
    if key["type"] == "real":
        yield "a number without a fraction or exponent stores 0: 2.0 is taken, 2 is not"
    if key.get("checked"):
        yield "another type is rejected"
    if key.get("skipped"):
        yield "another type counts as absent"
    if key.get("saturates"):
        yield "what does not fit becomes the nearest that does"
    if key.get("too_long") == "rejected":
        yield "a longer one is rejected"
    if key.get("empty_is_skipped"):
        yield "an empty one is skipped"
    if key.get("least"):
        yield "fewer are rejected"
    if "most" in key and key.get("too_many"):
        yield f"more are {key['too_many']}"
    if "effect" in key:
        yield "of the entries that were there: " + EFFECTS[key["effect"]]
    if key.get("empty_keeps"):
        yield "an empty list changes nothing"
    if key.get("cleared_when_absent"):
        yield "absent, it is cleared"
    if key.get("marked_when_absent"):
        yield "absent, the host is told so"
    if key.get("also_sets"):
        yield "it also sets " + ", ".join(field["path"] for field in key["also_sets"])


def necessity(key, keys):
    if key["path"].endswith("/*"):
        return ""
    if key.get("refused"):
        return "must not be there"
    if key.get("at_least_one"):
        names = [last(each["path"]) for each in keys if each.get("at_least_one") == key["at_least_one"]]
        return "at least " + as_alternatives(names)
    if key.get("required_when"):
        return conditions_text(key["required_when"])
    return "yes" if key.get("required") else "no"


def row(key, direction, kind, need, remarks):
    fields = key.get("fields", [])
    name = last(key["path"])
    return {
        "place": place_of(direction, key["path"]),
        "name": "(element)" if name == "*" else name,
        "depth": key["path"].count("/") - 1,
        "type": kind,
        "range": range_of(key),
        "necessity": need,
        "meaning": "the record's identifier" if key.get("id") else fields[0].get("meaning", "") if fields else "",
        "remarks": remarks,
        "fields": [field["path"] if field["type"].startswith("struct ") else f"{field['type']} {field['path']}"
                   for field in fields],
    }


def input_rows(contract):
    keys = contract["input"]["keys"]
    return [row(key, "input", TYPES.get(key["type"], key["type"]), necessity(key, keys), list(input_remarks(key)))
            for key in keys]


def output_rows(contract):
    rows = []
    for key in contract["output"]["keys"]:
        need = "" if key["path"].endswith("/*") else "always" if key["always"] else \
            conditions_text(key["when"]) if key.get("when") else "sometimes"
        remarks = [f"its elements are of the same form as those of {key['like']}"] if key.get("like") else []
        rows.append(row(key, "output", as_alternatives([TYPES.get(each, each) for each in key["types"]]), need,
                        remarks))
    return rows


def root_text(output):
    parts = [ROOTS[output["root"]], NODES.get(output["nodes"], "")]
    parts.append("[] when there is no record" if output.get("empty_without_count") else "")
    parts.append("every record has the first one's id" if output.get("head_id") else "")
    parts.append("over several lines" if output.get("pretty") else "")
    parts.append("keys sorted by name" if output.get("sorted") else "")
    return "; ".join(part for part in parts if part) + "."


def errors_of(contract):
    for key in contract.get("input", {}).get("keys", []):
        name = key["path"].lstrip("/")
        for member, when in (("absent", "{} is missing"),
                             ("unfit", "{} is there" if key.get("refused") else "{} is of another type"),
                             ("out_of_size", "{} is too long, or has too many or few elements"),
                             ("unknown", "{} has another value; the document is accepted all the same")):
            if member in key:
                yield {"when": when.format(name), **key[member]}


def oddities_of(contract):
    for key in contract.get("input", {}).get("keys", []):
        name = last(key["path"])
        error = key.get("absent")
        if error and name not in (error["field"], error["field"].rsplit(".", 1)[-1].rsplit(":", 1)[-1]):
            yield f"The absence of {key['path']} is reported as that of \u201c{error['field']}\u201d."
        if key.get("refused"):
            yield f"{key['path']} may be read, but a document that has it is rejected."
        if key["type"] == "real":
            yield f"{key['path']} takes numbers with a fraction or an exponent alone; 2 stores 0."
        if key.get("also_sets"):
            yield f"{key['path']} also sets " + ", ".join(field["path"] for field in key["also_sets"]) + "."
        if any("field" in each for each in key.get("required_when", [])):
            yield f"Whether {key['path']} is required may depend on the record as it was."
    output = contract.get("output")
    if output and output["nodes"] in NODES:
        yield NODES[output["nodes"]].capitalize() + "."


def picture(fields, target, size):
    """Cells of a grid that is eight bytes wide."""
    cells = []
    end = 0

    def add(begin, size, text, style, title):
        rows = (begin + size - 1) // 8 - begin // 8 + 1
        while size > 0:
            span = min(size, 8 - begin % 8)
            cells.append({"column": begin % 8 + 1, "span": span, "text": text or "\u00a0", "style": style,
                          "title": title})
            begin, size, text = begin + span, size - span, ""
            if rows > 6 and size > 16:  # of a long string its first and last bytes
                skipped = size - size % 8 - (0 if size % 8 else 8)
                if skipped >= 16:
                    cells.append({"column": 1, "span": 8, "text": f"\u22ee {skipped} bytes", "style": "more",
                                  "title": title})
                    begin, size = begin + skipped, size - skipped

    def pad(until):
        if until > end:
            add(end, until - end, "", "gap", f"bytes {end} to {until - 1}: padding")

    for number, field in enumerate(fields):
        offset, width = field["offset"][target], field["width"][target]
        pad(offset)
        add(offset, width, f"{offset} {field['name']}", f"c{number % 5}",
            f"{field['type']} {field['name']}: bytes {offset} to {offset + width - 1}")
        end = offset + width
    pad(size)
    return {"target": target, "cells": cells}


def records_of(command, name):
    for record in told(command, "layout", name)["records"]:
        targets = list(record["size"])
        alike = all(field[what][target] == field[what][targets[0]] for field in record["fields"]
                    for what in ("offset", "width") for target in targets)
        yield {
            "name": f"{record['kind']} {record['name']}",
            "meaning": record.get("meaning", ""),
            "sizes": [f"{record['size'][target]} bytes on {target}" for target in targets],
            "targets": targets,
            "alike": alike,
            "fields": record["fields"],
            # The members of a union all stand in the same place.
            "pictures": [picture(record["fields"], target, record["size"][target])
                         for target in (targets[:1] if alike else targets)] if record["kind"] == "struct" else [],
        }


def pretty(text):
    try:
        return json.dumps(json.loads(text), indent=2, ensure_ascii=False)
    except ValueError:
        return text.strip()


def page_of(command, listed):
    name = listed["resource"]
    contract = told(command, "describe", name)
    raw = "input" not in contract and "output" not in contract
    example = ROOT / "examples" / f"{name}.json"
    text = example.read_text() if example.exists() and "input" in contract else ""
    return contract, {
        "name": name, "number": contract["number"], "group": contract["group"], "raw": raw,
        "way": {"to_only": "read-only", "from_only": "write-only"}.get(contract["directions"], ""),
        "shape": "8 raw bytes" if raw else {"by_list_flag": "list or object", "array": "always a list",
                                            "object": "always an object"}[contract["output"]["root"]]
        if "output" in contract else "an object",
        "output": output_rows(contract) if "output" in contract else None,
        "input": input_rows(contract) if "input" in contract else None,
        "root": root_text(contract["output"]) if "output" in contract else "",
        "shown": pretty(ask(command, "show", name).stdout) if "output" in contract else "",
        "example": text.strip(),
        "result": pretty(ask(command, "try", name, example).stdout) if text and "output" in contract else "",
        "errors": list(errors_of(contract)),
        "oddities": list(oddities_of(contract)),
        "records": list(records_of(command, name)),
    }


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("host", metavar="KELMORA_HOST")
    parser.add_argument("out", type=pathlib.Path, metavar="OUT")
    arguments = parser.parse_args()
    command = [str(arguments.host)]

    pages = [page_of(command, each) for each in told(command, "list")]
    version = ask(command, "--version").stdout.split()[-1]
    templates = jinja2.Environment(loader=jinja2.FileSystemLoader(ROOT / "docs" / "reference"), autoescape=True,
                                   undefined=jinja2.StrictUndefined, trim_blocks=True, lstrip_blocks=True)

    def write(template, path, **values):
        path = arguments.out / path
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(templates.get_template(template).render(version=version, **values))

    search = [{"name": page["name"], "group": page["group"], "keys": [
        [last(key["path"]) if key["path"].count("/") == 1 else key["path"][1:], entry["meaning"], entry["place"]]
        for direction in ("output", "input") if direction in contract
        for key, entry in zip(contract[direction]["keys"], page[direction]) if not key["path"].endswith("/*")
    ]} for contract, page in pages]
    write("index.html.j2", "index.html", title="libkelmora_json: resources", top="",
          resources=[page for _, page in pages], search=search)
    for _, page in pages:
        write("resource.html.j2", f"resources/{page['name']}.html", title=f"{page['name']}: libkelmora_json", top="../",
              resource=page)

    cases = []
    for title, text, resource, document in CASES:
        answer = ask(command, "check", resource, "-", text=document)
        answered = (answer.stdout + answer.stderr).replace("<stdin>:", "").strip()
        cases.append({"title": title, "text": text, "answer": answered or "Nothing is lost.",
                      "document": f"{resource}: {document}" if document else f"{resource}, no byte at all"})
    inputs = [(page["name"], key) for contract, page in pages if "input" in contract
              for key in contract["input"]["keys"]]
    lists = [{"resource": name, "path": key["path"], "range": range_of(key), "place": place_of("input", key["path"]),
              "effect": EFFECTS[key["effect"]] + ("; an empty list changes nothing" if key.get("empty_keeps") else "")}
             for name, key in inputs if "effect" in key]
    strings = [{"resource": name, "path": key["path"], "range": range_of(key), "place": place_of("input", key["path"])}
               for name, key in inputs if key.get("too_long") == "rejected"]
    write("what-happens-when.html.j2", "what-happens-when.html", title="What happens when: libkelmora_json", top="",
          cases=cases, lists=lists, strings=strings)
    # Nothing stands inside the pages: kelmora-host serves them too, under a policy that runs nothing inline.
    for file in ("docs/reference/style.css", "docs/reference/search.js", "host/serve/page/icon.svg"):
        shutil.copyfile(ROOT / file, arguments.out / pathlib.Path(file).name)
    print(f"{len(pages)} resources: {arguments.out / 'index.html'}")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Makes the reference and reads it as a browser without a network would: every page is whole, every link leads somewhere.

docs_test.py KELMORA_HOST
"""

import html.parser
import json
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
VOID = {"meta", "link", "input", "br", "hr", "img", "wbr", "path", "rect", "circle", "line"}


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.open, self.ids, self.links, self.faults, self.text = [], set(), [], [], ""
        self.feed(path.read_text())
        if self.open:
            self.faults.append(f"never closed: {self.open}")

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        if tag not in VOID:
            self.open.append(tag)
        if "id" in attrs:
            if attrs["id"] in self.ids:
                self.faults.append(f"the id {attrs['id']} is there twice")
            self.ids.add(attrs["id"])
        if "style" in attrs or (tag == "script" and "src" not in attrs and attrs.get("type") != "application/json"):
            self.faults.append(f"<{tag}> has something inline, which does not run where it is served")
        self.links += [attrs[name] for name in ("href", "src") if name in attrs]

    def handle_endtag(self, tag):
        if tag not in VOID and (not self.open or self.open.pop() != tag):
            self.faults.append(f"</{tag}> closes nothing")

    def handle_data(self, data):
        self.text += data


def faults_of(folder, resources):
    pages = {path: Page(path) for path in folder.rglob("*.html")}
    for path, page in pages.items():
        for fault in page.faults:
            yield f"{path.name}: {fault}"
        for link in page.links:
            file, _, anchor = link.partition("#")
            target = path if not file else (path.parent / file).resolve()
            if not target.is_file():
                yield f"{path.name}: {link} leads nowhere"
            elif anchor and target in pages and anchor not in pages[target].ids:
                yield f"{path.name}: {link}: there is no such place"
    for resource in resources:
        page = next((page for path, page in pages.items() if path.stem == resource["resource"]), None)
        if page is None or resource["resource"] not in page.text or resource["group"] not in page.text:
            yield f"{resource['resource']} has no page of its own"
        elif f"struct kelmora_{resource['resource']}" not in page.text or not re.search(
                r"\d bytes on mips, \d+ bytes on x86-64\.", page.text):
            yield f"{resource['resource']} does not say how its record is laid out"


def main():
    host = pathlib.Path(sys.argv[1])
    listed = subprocess.run([host, "list", "--json"], check=True, capture_output=True, text=True).stdout
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder).resolve()
        subprocess.run([sys.executable, "-B", ROOT / "scripts" / "make_docs.py", host, folder], check=True)
        faults = list(faults_of(folder, json.loads(listed)))
    print("\n".join(faults) or "the reference is whole")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Holds the schemas of all resources against the plug-in, on random and mutated documents.

schemas_test.py KELMORA_HOST [--texts PROGRAM] [--documents N] [--texts-each N] [--seed SEED] [RESOURCE...]

- accept is valid exactly when the plug-in's result is 1.
- input is valid exactly when the result is 1 and nothing is cut, wrapped or of a wrong type.
- output is valid for every text that the plug-in writes from records of random bytes (PROGRAM makes them).

Kept clear of, as no schema can tell: 2.0 from 2, the bytes of strings beyond ASCII near their limit, integers beyond 64
bits, and documents that leave out a key in whose absence the record decides about others.
"""

import argparse
import concurrent.futures
import copy
import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile

import jsonschema

INTEGERS = [0, 1, -1, 2, 3, 4, 5, 7, 16, 127, 128, -128, -129, 255, 256, 257, 32767, 32768, 65535, 65536, 65537,
            2**31 - 1, 2**31, -2**31, -2**31 - 1, 2**32 - 1, 2**32, 2**32 + 1, -2**32, 2**63 - 1, -2**63]
REALS = [0.5, -0.25, 1.5, 1e-300, 123456.75]
STRINGS = ["", "a", "0", "0x1f", "true", "192.0.2.1", "\u00e4", "\U0001f600", "with \"quotes\" and \\", "a b\tc"]
LOSSES = {"cut", "wrapped", "wrong-type", "not-an-object"}


class Shape:
    """What a schema, with all that it says under conditions, knows of a place in a document."""

    def __init__(self):
        self.properties = {}
        self.element = None
        self.types = set()
        self.longest = set()
        self.most = set()
        self.as_real = False

    def add(self, schema):
        if not isinstance(schema, dict):
            return self
        kind = schema.get("type", [])
        self.types.update([kind] if isinstance(kind, str) else kind)
        self.as_real |= "x-kelmora-write-as" in schema
        if "maxLength" in schema:
            self.longest.add(schema["maxLength"])
        for limit in ("maxItems", "minItems"):
            if limit in schema:
                self.most.add(schema[limit])
        for name, value in schema.get("properties", {}).items():
            self.properties.setdefault(name, Shape()).add(value)
        if "items" in schema:
            self.element = (self.element or Shape()).add(schema["items"])
        for clause in schema.get("allOf", []) + [schema.get(word) for word in ("if", "then", "else", "not")]:
            self.add(clause)
        for clause in schema.get("anyOf", []):
            self.add(clause)
        for name in schema.get("required", []):
            self.properties.setdefault(name, Shape())
        return self


class Generator:
    def __init__(self, seed):
        self.random = random.Random(seed)

    def any_value(self, depth=0):
        pick = self.random.randrange(9 if depth < 2 else 6)
        if pick == 0:
            return None
        if pick == 1:
            return self.random.random() < 0.5
        if pick == 2:
            return self.random.choice(INTEGERS)
        if pick == 3:
            return self.random.choice(REALS)
        if pick in (4, 5):
            return self.string(Shape())
        if pick == 6:
            return [self.any_value(depth + 1) for _ in range(self.random.randrange(4))]
        return {self.random.choice("abcxyz"): self.any_value(depth + 1) for _ in range(self.random.randrange(3))}

    def string(self, shape):
        if shape.longest and self.random.random() < 0.3:
            length = self.random.choice(sorted(shape.longest)) + self.random.choice([-1, 0, 0, 1, 5])
            return "x" * max(length, 0)
        return self.random.choice(STRINGS)

    def value(self, shape, wildness):
        """A value that fits, but for a part of them that is given by the wildness."""
        if self.random.random() < wildness or not (shape.types or shape.properties or shape.element):
            return self.any_value()
        if shape.properties:
            return {name: self.value(each, wildness) for name, each in shape.properties.items()
                    if self.random.random() < 0.93}
        if shape.element or "array" in shape.types:
            lengths = [0, 1, 2, 3] + [limit + step for limit in shape.most for step in (-1, 0, 1)]
            element = shape.element or Shape()
            return [self.value(element, wildness) for _ in range(max(0, self.random.choice(lengths)))]
        kind = self.random.choice(sorted(shape.types))
        if kind == "boolean":
            return self.random.random() < 0.5
        if kind == "integer":
            return self.random.choice(INTEGERS[:9]) if self.random.random() < 0.8 else self.random.choice(INTEGERS)
        if kind == "number":
            return self.random.choice(REALS)
        if kind == "string":
            return self.string(shape)
        return self.any_value()

    def mutated(self, document, shape):
        """The document after one to three changes at any depth."""
        document = copy.deepcopy(document)
        for _ in range(self.random.randint(1, 3)):
            places = list(self.places(document, shape))
            container, inner = self.random.choice(places)
            self.change(container, inner)
        return document

    def places(self, value, shape):
        if isinstance(value, (dict, list)):
            yield value, shape
        children = value.items() if isinstance(value, dict) else enumerate(value) if isinstance(value, list) else []
        for name, child in children:
            inner = shape.properties.get(name, Shape()) if isinstance(value, dict) else shape.element or Shape()
            yield from self.places(child, inner)

    def change(self, container, shape):
        names = list(container) if isinstance(container, dict) else list(range(len(container)))
        pick = self.random.randrange(5)
        if pick == 0 and names:
            del container[self.random.choice(names)]
        elif pick in (1, 2) and names:
            name = self.random.choice(names)
            inner = shape.properties.get(name, Shape()) if isinstance(container, dict) else shape.element or Shape()
            container[name] = self.any_value() if pick == 1 else self.value(inner, 0)
        elif isinstance(container, dict):
            known = sorted(set(shape.properties) - set(container))
            name = self.random.choice(known) if known and pick == 3 else "unknown key"
            container[name] = self.value(shape.properties.get(name, Shape()), 0.2)
        elif container:
            container.extend(copy.deepcopy(self.random.choice(container)) for _ in range(self.random.randrange(20)))
        else:
            container.append(self.any_value())


def written_as_reals(value, shape):
    """The document with reals where integers are taken for none."""
    if isinstance(value, dict):
        return {name: written_as_reals(each, shape.properties.get(name, Shape())) for name, each in value.items()}
    if isinstance(value, list):
        return [written_as_reals(each, shape.element or Shape()) for each in value]
    if shape.as_real and isinstance(value, int) and not isinstance(value, bool):
        return float(value) if abs(value) < 2**53 else 0.0
    return value


def run(*command):
    return subprocess.run([str(part) for part in command], check=False, capture_output=True, text=True)


def examples(root, resource):
    for path in sorted(root.glob(f"examples/{resource}.json")):
        yield json.loads(path.read_text())


def shown(host, resource):
    answer = run(host, "show", resource)
    if answer.returncode == 0 and answer.stdout.strip()[:1] in ("[", "{"):
        records = json.loads(answer.stdout)
        yield from records if isinstance(records, list) else [records]


def is_lossless(document, answer):
    if answer["result"] == "rejected":
        return False
    for finding in answer["findings"]:
        if finding["code"] in LOSSES:
            return False
        if finding["code"] == "ignored" and is_element(document, finding["pointer"]):
            return False  # elements too many
    return True


def is_element(document, pointer):
    value = document
    for token in pointer.split("/")[1:-1]:
        token = token.replace("~1", "/").replace("~0", "~")
        value = value[int(token)] if isinstance(value, list) else value[token]
    return pointer != "" and isinstance(value, list)


class Test:
    def __init__(self, arguments, schemas, folder):
        self.arguments = arguments
        self.schemas = schemas
        self.folder = folder
        self.disagreements = {}
        self.counts = {"accept": 0, "input": 0, "output": 0}
        self.valid = {"accept": 0, "input": 0, "output": 0}

    def schema(self, resource, direction):
        path = self.schemas / f"{resource}.{direction}.schema.json"
        if not path.exists():
            return None
        schema = json.loads(path.read_text())
        jsonschema.Draft202012Validator.check_schema(schema)
        return schema

    def disagree(self, resource, direction, document, what):
        text = json.dumps(document)
        self.disagreements.setdefault((resource, direction, what), []).append(text)

    def documents(self, resource, shape, records_decide):
        generator = Generator(f"{self.arguments.seed} {resource}")
        seeds = list(examples(self.arguments.root, resource)) + list(shown(self.arguments.host, resource))
        yield from ({}, [], [{}], *seeds)
        for _ in range(self.arguments.documents):
            seed = generator.random.choice(seeds) if seeds else {}
            pick = generator.random.randrange(4)
            if pick == 0 or not isinstance(seed, (dict, list)):
                document = generator.value(shape, 0.15)
            elif pick == 1:
                document = generator.value(shape, 0.01)
            else:
                document = generator.mutated(seed, shape)
            if not isinstance(document, (dict, list)):
                document = [document]
            yield document

    def take(self, resource):
        """Asks the plug-in about random documents; the judgement is left to what it returns, if anything."""
        accept = self.schema(resource, "accept")
        inputs = self.schema(resource, "input")
        if accept is None:
            return None
        shape = Shape().add(inputs or {}).add(accept)
        deciding = (inputs or {}).get("x-kelmora-record-of-zeros", [])
        documents = []
        for document in self.documents(resource, shape, deciding):
            document = written_as_reals(document, shape)
            for pointer in deciding:
                if isinstance(document, dict):
                    document.setdefault(pointer[1:], False)
            if deciding and not isinstance(document, dict):
                continue
            documents.append(document)
        files = []
        for number, document in enumerate(documents):
            file = self.folder / f"{resource}-{number}.json"
            file.write_text(json.dumps(document))
            files.append(file)
        answers = run(self.arguments.host, "check", "--json", resource, *files).stdout.rstrip("\n").split("\n")
        if len(answers) != len(files):
            sys.exit(f"{resource}: {len(answers)} answers to {len(files)} documents")
        return lambda: self.judge(resource, accept, inputs, zip(documents, map(json.loads, answers)))

    def judge(self, resource, accept, inputs, answered):
        accepts = jsonschema.Draft202012Validator(accept)
        takes = jsonschema.Draft202012Validator(inputs) if inputs is not None else None
        for document, answer in answered:
            valid = accepts.is_valid(document)
            self.counts["accept"] += 1
            self.valid["accept"] += valid
            if valid != (answer["result"] != "rejected"):
                why = answer["errors"][0]["message"] if answer["errors"] else "accepted"
                self.disagree(resource, "accept", document, f"the schema says {valid}, the plug-in {why}")
            if takes is None:
                continue
            valid = takes.is_valid(document)
            self.counts["input"] += 1
            self.valid["input"] += valid
            if valid != is_lossless(document, answer):
                findings = sorted({f"{each['code']} {each['pointer']}" for each in answer["findings"]
                                   if each["code"] in LOSSES})[:3]
                why = findings or answer["result"]
                if not valid:
                    why = f"{next(takes.iter_errors(document)).message[:80]}"
                self.disagree(resource, "input", document, f"the schema says {valid}: {why}")

    def write(self, resource, texts):
        schema = self.schema(resource, "output")
        if schema is None:
            for text in texts:
                self.disagree(resource, "output", text, "there is a text and no schema")
            return
        writes = jsonschema.Draft202012Validator(schema)
        for text in texts:
            self.counts["output"] += 1
            document = json.loads(text)
            error = jsonschema.exceptions.best_match(writes.iter_errors(document))
            self.valid["output"] += error is None
            if error is not None:
                self.disagree(resource, "output", document, "/".join(map(str, error.absolute_schema_path)))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("host", type=pathlib.Path, metavar="KELMORA_HOST")
    parser.add_argument("--texts", type=pathlib.Path, metavar="PROGRAM")
    parser.add_argument("--documents", type=int, default=200, metavar="N", help="for each resource")
    parser.add_argument("--texts-each", type=int, default=100, metavar="N", help="for each resource")
    parser.add_argument("--seed", default="1")
    parser.add_argument("--schemas", type=pathlib.Path, metavar="DIR", help="instead of the program's own")
    parser.add_argument("resources", nargs="*", metavar="RESOURCE")
    arguments = parser.parse_intermixed_args()
    arguments.root = pathlib.Path(__file__).resolve().parents[2]

    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        schemas = arguments.schemas
        if schemas is None:
            schemas = folder / "schemas"
            schemas.mkdir()
            run(arguments.host, "schema", "--all", schemas).check_returncode()
        names = arguments.resources or [each["resource"] for each in
                                        json.loads(run(arguments.host, "list", "--json").stdout)]
        test = Test(arguments, schemas, folder)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:  # each waits for a process of its own
            for judge in pool.map(test.take, names):
                if judge is not None:
                    judge()
        if arguments.texts:
            answer = run(arguments.texts, arguments.texts_each, arguments.seed, *names)
            answer.check_returncode()
            texts = {}
            for line in answer.stdout.rstrip("\n").split("\n"):
                resource, text = line.split("\t", 1)
                texts.setdefault(resource, []).append(json.loads(text))
            for resource, each in texts.items():
                test.write(resource, each)
    for (resource, direction, what), documents in sorted(test.disagreements.items()):
        print(f"{resource} {direction}: {what} ({len(documents)} times): {min(documents, key=len)[:1000]}")
    for direction, count in test.counts.items():
        print(f"{direction}: {count} documents, {test.valid[direction]} of them valid")
    if test.disagreements:
        sys.exit(1)


if __name__ == "__main__":
    main()

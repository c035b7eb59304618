#!/usr/bin/python3
"""Makes host/contract/fields_table.inc, the table of all fields of all records, from the public headers, with libclang
(Debian: python3-clang-14).

    generate_fields.py           writes the table
    generate_fields.py --check   compares: exit status 1 and the difference when the table is not current

Offsets and sizes are not in the table: its rows become offsetof and sizeof expressions, true on any target.
"""
import difflib
import pathlib
import sys

try:
    from clang.cindex import Config, Cursor, CursorKind, Index, TokenKind, TranslationUnit, TypeKind
except ImportError:
    sys.exit("generate_fields: needs libclang's Python binding (Debian: python3-clang-14)")

ROOT = pathlib.Path(__file__).resolve().parent.parent
TABLE = ROOT / "host/contract/fields_table.inc"

# One variable of each resource's record type: where the records that matter are found from.
RECORDS_C = """
#include "kelmora_records.h"
#include "kelmora_resources.h"
#define ROW(number, name, group, directions) struct kelmora_##name record_##number;
KELMORA_RESOURCES(ROW)
"""

INTRODUCTION = """\
// The fields of all records, in their order. Made from include/records/ by scripts/generate_fields.py, not by hand.
//
// RECORD(struct, meaning)                          begins a struct
// UNION(struct, member)                            begins the union that is that member of the struct
// FIELD(name, kind, type, meaning)                 a field
// LINK(name, kind, record, type, meaning)          a field that holds or points to a struct or union of this table
// END(record)                                      ends a struct or union
"""

UNSIGNED = {TypeKind.UCHAR, TypeKind.USHORT, TypeKind.UINT, TypeKind.ULONG, TypeKind.ULONGLONG}
SIGNED = {TypeKind.SCHAR, TypeKind.SHORT, TypeKind.INT, TypeKind.LONG, TypeKind.LONGLONG}
REAL = {TypeKind.FLOAT, TypeKind.DOUBLE}
CHAR = {TypeKind.CHAR_S, TypeKind.CHAR_U}


def parse():
    unit = Index.create().parse(
        "records.c", ["-x", "c", "-std=c99", f"-I{ROOT / 'include'}"], [("records.c", RECORDS_C)])
    errors = [str(diagnostic) for diagnostic in unit.diagnostics]
    if errors:
        sys.exit("generate_fields: " + "\n".join(errors))
    return unit


def at(cursor):
    """Where a declaration stands, in the order of inclusion: a group's header includes no other group's."""
    return cursor.location.file.name, cursor.location.offset


def clean(comment):
    """A comment's text on one line."""
    text = comment.spelling.removeprefix("/*").removesuffix("*/")
    return " ".join(" ".join(line.strip().removeprefix("*").strip() for line in text.splitlines()).split())


class Comments:
    """The comments of the headers, by the lines that they begin and end on."""

    def __init__(self, unit):
        self.starting, self.ending = {}, {}
        files = {include.include.name for include in unit.get_includes() if "records/" in include.include.name}
        for name in files:
            file = unit.get_file(name)
            extent = (0, pathlib.Path(name).stat().st_size)
            whole = unit.get_extent(name, extent)
            for token in unit.get_tokens(extent=whole):
                if token.kind == TokenKind.COMMENT:
                    self.starting[file.name, token.extent.start.line] = token
                    self.ending[file.name, token.extent.end.line] = token

    def before(self, cursor):
        """The comment that ends on the line above."""
        comment = self.ending.get((cursor.location.file.name, cursor.extent.start.line - 1))
        return clean(comment) if comment else ""

    def beside(self, cursor):
        """The comment on the line that the declaration ends on."""
        comment = self.starting.get((cursor.location.file.name, cursor.extent.end.line))
        return clean(comment) if comment else ""


def is_record(type_):
    return type_.get_canonical().kind == TypeKind.RECORD


def is_node(cursor):
    """Whether a struct is a node of a chain: it has a pointer `next` to its own kind."""
    return any(is_next(field) for field in cursor.type.get_fields())


def is_next(field):
    pointee = field.type.get_pointee()
    return field.spelling == "next" and is_record(pointee) and pointee.get_declaration() == field.semantic_parent


def identifier(cursor):
    """What the table calls a struct or union."""
    if cursor.kind == CursorKind.UNION_DECL:
        return f"{cursor.semantic_parent.spelling}_{member_of_union(cursor).spelling}"
    return cursor.spelling


def member_of_union(union):
    for field in union.semantic_parent.type.get_fields():
        if field.type.get_canonical().get_declaration() == union:
            return field
    sys.exit(f"generate_fields: {union.location}: a union that is no member of its struct")


def kind_of(field):
    """A field's kind, and the declaration of the struct or union that it holds or points to."""
    type_ = field.type.get_canonical()
    dimensions = 0
    while type_.kind == TypeKind.CONSTANTARRAY:
        type_ = type_.element_type.get_canonical()
        dimensions += 1
    if dimensions and type_.kind in CHAR:
        return "string", None
    if dimensions == 1 and type_.kind == TypeKind.UCHAR:
        return "bytes", None
    if dimensions <= 1:
        if type_.kind in UNSIGNED:
            return "unsigned_integer", None
        if type_.kind in SIGNED:
            return "signed_integer", None
        if type_.kind in REAL:
            return "real", None
        if type_.kind == TypeKind.RECORD:
            declaration = type_.get_declaration()
            return ("alternatives" if declaration.kind == CursorKind.UNION_DECL else "record"), declaration
        if type_.kind == TypeKind.POINTER and dimensions == 0:
            pointee = type_.get_pointee().get_canonical()
            if pointee.kind in CHAR:
                return "string_pointer", None
            if pointee.kind == TypeKind.RECORD and is_node(pointee.get_declaration()):
                return ("next" if is_next(field) else "chain"), pointee.get_declaration()
    sys.exit(f"generate_fields: {field.location}: no kind of field is known for {field.type.spelling}")


def type_text(field):
    """A field's type in C, as the header has it, macros included."""
    if field.type.get_canonical().get_declaration().kind == CursorKind.UNION_DECL:
        return "union"
    text = ""
    for token in field.get_tokens():
        if token.kind == TokenKind.COMMENT or token.spelling == ";":
            break
        if token.spelling == field.spelling and token.extent.start.offset == field.location.offset:
            continue
        glued = text == "" or token.spelling in "[]" or text.endswith(("[", "*"))
        text += token.spelling if glued else " " + token.spelling
    return text


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def rows(cursor, comments):
    if cursor.kind == CursorKind.UNION_DECL:
        yield f"UNION({cursor.semantic_parent.spelling}, {member_of_union(cursor).spelling})"
    else:
        yield f"RECORD({cursor.spelling}, {quoted(comments.before(cursor))})"
    for field in cursor.type.get_fields():
        kind, element = kind_of(field)
        texts = f"{quoted(type_text(field))}, {quoted(comments.beside(field))}"
        if element is None:
            yield f"FIELD({field.spelling}, {kind}, {texts})"
        else:
            yield f"LINK({field.spelling}, {kind}, {identifier(element)}, {texts})"
    yield f"END({identifier(cursor)})"


def reachable(unit):
    """The structs and unions that a resource's record is or leads to, in the order of the headers."""
    found = {}
    pending = [cursor.type.get_canonical().get_declaration() for cursor in unit.cursor.get_children()
               if cursor.kind == CursorKind.VAR_DECL]
    while pending:
        cursor = pending.pop()
        if cursor.get_usr() in found:
            continue
        found[cursor.get_usr()] = cursor
        pending += [element for _, element in map(kind_of, cursor.type.get_fields()) if element is not None]
    return sorted(found.values(), key=at)


def table():
    unit = parse()
    comments = Comments(unit)
    lines = []
    for cursor in reachable(unit):
        lines.append("")
        lines.extend(rows(cursor, comments))
    return INTRODUCTION + "\n".join(lines) + "\n"


def main(arguments):
    if arguments not in ([], ["--check"]):
        sys.exit("usage: generate_fields.py [--check]")
    made = table()
    if not arguments:
        TABLE.write_text(made)
        return 0
    there = TABLE.read_text() if TABLE.exists() else ""
    name = str(TABLE.relative_to(ROOT))
    difference = list(difflib.unified_diff(there.splitlines(True), made.splitlines(True), name, "made from the headers"))
    sys.stderr.writelines(difference)
    if difference:
        print(f"generate_fields: {name} is not current: run scripts/generate_fields.py", file=sys.stderr)
    return 1 if difference else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

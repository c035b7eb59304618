#!/usr/bin/env python3
"""Makes the pictures of the page that the README shows: screenshots.py KELMORA_HOST [OUT], by default docs/images."""

import collections
import pathlib
import struct
import sys
import zlib

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "page"))
import page_test  # noqa: E402 # pylint: disable=import-error,wrong-import-position

SIZE = (1440, 900)
LOSSY = (ROOT / "examples" / "wireless-lossy.json").read_text()


def rows_of(png):
    """Width, and the rows of red, green and blue, of a picture without alpha."""
    chunks = collections.defaultdict(bytes)
    at = 8
    while at < len(png):
        size, kind = struct.unpack(">I4s", png[at:at + 8])
        chunks[kind] += png[at + 8:at + 8 + size]
        at += 12 + size
    width, height, depth, colours = struct.unpack(">IIBB", chunks[b"IHDR"][:10])
    assert (depth, colours) == (8, 2), "the browser makes other pictures now"
    filtered, length = zlib.decompress(chunks[b"IDAT"]), width * 3
    rows, above = [], bytearray(length)
    for begin in range(0, height * (length + 1), length + 1):
        kind, row = filtered[begin], bytearray(filtered[begin + 1:begin + 1 + length])
        for i in range(length):
            left, corner = (row[i - 3], above[i - 3]) if i >= 3 else (0, 0)
            if kind == 4:
                guess = left + above[i] - corner
                row[i] = row[i] + min((left, above[i], corner), key=lambda each, guess=guess: abs(guess - each)) & 255
            elif kind:
                row[i] = row[i] + (0, left, above[i], (left + above[i]) // 2)[kind] & 255
        rows.append(row)
        above = row
    return width, rows


def with_palette(png):
    """The picture with 256 colours, the most frequent ones of groups of similar ones: a third of the bytes."""
    width, rows = rows_of(png)
    pixels = [[bytes(row[i:i + 3]) for i in range(0, len(row), 3)] for row in rows]
    count = collections.Counter(pixel for row in pixels for pixel in row)
    groups = {}
    for colour, _ in count.most_common():
        groups.setdefault(tuple(part >> 4 for part in colour), colour)
    palette = list(groups.values())[:256]
    nearest = {colour: i for i, colour in enumerate(palette)}
    for colour in count:
        if colour not in nearest:
            nearest[colour] = min(range(len(palette)), key=lambda i, c=colour: sum((a - b) ** 2 for a, b in zip(c, palette[i])))
    data = zlib.compress(b"".join(b"\0" + bytes(nearest[pixel] for pixel in row) for row in pixels), 9)

    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    return (png[:8] + chunk(b"IHDR", struct.pack(">IIBBBBB", width, len(rows), 8, 3, 0, 0, 0)) +
            chunk(b"PLTE", b"".join(palette)) + chunk(b"IDAT", data) + chunk(b"IEND", b""))


def try_a_lossy_document(page):
    page.look(*SIZE)
    page.open("#/wireless/try")
    page.document(LOSSY)
    line = next(i for i, text in enumerate(LOSSY.splitlines()) if "ssid" in text)
    page.js("const c = document.querySelector('.CodeMirror').CodeMirror; c.focus(); c.setCursor(arguments[0], 12)", line)
    page.until(lambda: page.all(".segment.lit"), "the bytes are lit")


def look_at_the_mesh(page):
    page.look(*SIZE, scheme="dark")
    page.open("#/easymesh/look")
    page.one(".mesh svg")


def main():
    program = sys.argv[1]
    out = pathlib.Path(sys.argv[2]) if len(sys.argv) > 2 else ROOT / "docs" / "images"
    out.mkdir(parents=True, exist_ok=True)
    with page_test.server(program) as base:
        page = page_test.Page(base)
        try:
            for name, show in (("try", try_a_lossy_document), ("look", look_at_the_mesh)):
                show(page)
                path = out / f"page-{name}.png"
                path.write_bytes(with_palette(page.driver.get_screenshot_as_png()))
                print(f"{path}: {path.stat().st_size} bytes")
        finally:
            page.driver.quit()


if __name__ == "__main__":
    main()

"""The table of icon glyphs: reading and checking it."""

import json
import re
from typing import List, NamedTuple

# Words that cannot be variables in C++ or JavaScript.
RESERVED = frozenset(
    """alignas alignof and asm auto bitand bitor bool break case catch char class compl concept const constexpr
    continue debugger decltype default delete do double else enum explicit export extends extern false finally float
    for friend function goto if import in inline instanceof int let long mutable namespace new noexcept not null
    nullptr operator or private protected public register requires return short signed sizeof static struct super
    switch template this throw true try typedef typeid typename typeof union unsigned using var virtual void volatile
    while with xor yield""".split()
)


class TableError(Exception):
    """What is wrong, in words for whoever runs the build."""


class Glyph(NamedTuple):
    code: int
    name: str
    source: str
    meaning: str


def load(path: str) -> List[Glyph]:
    """The glyphs in the order of their code points."""
    try:
        with open(path, encoding="utf-8") as file:
            rows = json.load(file)
    except OSError as error:
        raise TableError(f"{path}: {error.strerror}") from error
    except ValueError as error:
        raise TableError(f"{path}: not readable as JSON: {error}") from error
    if not isinstance(rows, list) or not rows:
        raise TableError(f"{path}: no list of glyphs")

    by_code, by_name = {}, {}
    for number, row in enumerate(rows, 1):
        glyph = _glyph(row, f"{path}: entry {number}")
        for key, seen in ((glyph.code, by_code), (glyph.name, by_name)):
            if key in seen:
                what = f"code point U+{glyph.code:04X}" if key == glyph.code else f"name {glyph.name}"
                raise TableError(f"{path}: {what} stands twice, for {seen[key].source} and for {glyph.source}")
            seen[key] = glyph
    return [by_code[code] for code in sorted(by_code)]


def _glyph(row: dict, where: str) -> Glyph:
    if not isinstance(row, dict) or set(row) != {"code", "name", "source", "meaning"}:
        raise TableError(f"{where}: needs code, name, source and meaning")
    if not all(isinstance(value, str) and value for value in row.values()):
        raise TableError(f"{where}: every value is a text that isn't empty")
    if not re.fullmatch(r"U\+[0-9A-F]{4}", row["code"]):
        raise TableError(f"{where}: {row['code']} isn't written as U+E000")
    code = int(row["code"][2:], 16)
    if not 0xE000 <= code <= 0xF8FF:
        raise TableError(f"{where}: {row['code']} lies outside the private use area")
    if not re.fullmatch(r"[a-z][A-Za-z0-9]*", row["name"]) or row["name"] in RESERVED:
        raise TableError(f"{where}: {row['name']} can't be the name of a constant")
    if "\n" in row["meaning"] or "*/" in row["meaning"]:
        raise TableError(f"{where}: the meaning of {row['name']} can't be put into a comment")
    return Glyph(code, row["name"], row["source"], row["meaning"])

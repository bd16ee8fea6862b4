#!/usr/bin/env python3
"""Writes the icons' code points as constants for the pages (Glyphs.js) and for C++ (Glyphs.h)."""

import argparse
import os
import sys
from typing import List

from glyph_table import Glyph, TableError, load

ORIGIN = "Made by the build from res/fonts/glyphs.json; changes belong there."


def script(glyphs: List[Glyph]) -> str:
    lines = [".pragma library", f"// {ORIGIN}"]
    lines += [f'var {glyph.name} = "\\u{glyph.code:04x}" // {glyph.meaning}' for glyph in glyphs]
    return "\n".join(lines) + "\n"


def header(glyphs: List[Glyph]) -> str:
    lines = ["#pragma once", "", f"// {ORIGIN}", "", "/// Code points of the icon font.", "namespace Glyph {", ""]
    lines += [f"inline constexpr char16_t {g.name} = u'\\u{g.code:04x}'; ///< {g.meaning}" for g in glyphs]
    lines += ["", "} // namespace Glyph"]
    return "\n".join(lines) + "\n"


def write_if_changed(path: str, text: str) -> None:
    """An untouched file keeps its time, and what includes it isn't compiled again."""
    new = text.encode("utf-8")
    if os.path.exists(path):
        with open(path, "rb") as file:
            if file.read() == new:
                return
    with open(path, "wb") as file:
        file.write(new)


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--glyphs", required=True, help="the table of glyphs, JSON")
    parser.add_argument("--out", required=True, help="folder for Glyphs.js and Glyphs.h")
    arguments = parser.parse_args()
    try:
        glyphs = load(arguments.glyphs)
        os.makedirs(arguments.out, exist_ok=True)
        write_if_changed(os.path.join(arguments.out, "Glyphs.js"), script(glyphs))
        write_if_changed(os.path.join(arguments.out, "Glyphs.h"), header(glyphs))
    except (TableError, OSError) as error:
        print(f"make_constants: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())

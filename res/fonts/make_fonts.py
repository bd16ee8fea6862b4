#!/usr/bin/env python3
"""Makes the two fonts that lie beside the program: Pinfang.ttf for text and iconfont.ttf for the icons."""

import argparse
import os
import sys
from typing import Dict, List

from fontTools.fontBuilder import FontBuilder
from fontTools.misc.timeTools import timestampFromString
from fontTools.pens.recordingPen import DecomposingRecordingPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTCollection, TTFont, TTLibError

from glyph_table import Glyph, TableError, load

# One moment for every build, so that the same input gives the same bytes.
MADE_AT = timestampFromString("Mon Jan  1 00:00:00 2024")
# What no page could do without; a text font lacking one of these was the wrong choice.
TEXT_PROBE = "0123456789AZaz[]%￥系统启动中技师房间手牌"


def open_font(path: str) -> TTFont:
    """The font, or the first face of a collection."""
    if not os.path.isfile(path):
        raise TableError(f"{path}: there is no such font")
    try:
        with open(path, "rb") as file:
            is_collection = file.read(4) == b"ttcf"
        return TTCollection(path, lazy=True).fonts[0] if is_collection else TTFont(path, lazy=True)
    except (TTLibError, OSError) as error:
        raise TableError(f"{path}: not readable as a font: {error}") from error


def glyph_names(font: TTFont) -> Dict[str, str]:
    """Readable name to glyph: an icon font spells its names as ligatures."""
    names = {name: name for name in font.getGlyphOrder()}
    if "GSUB" not in font:
        return names
    spelt = {glyph: chr(code) for code, glyph in font.getBestCmap().items()}
    for lookup in font["GSUB"].table.LookupList.Lookup:
        for table in lookup.SubTable:
            table = getattr(table, "ExtSubTable", table)
            for first, ligatures in getattr(table, "ligatures", {}).items():
                for ligature in ligatures:
                    word = [spelt.get(part) for part in [first] + ligature.Component]
                    if None not in word:
                        names["".join(word)] = ligature.LigGlyph
    return names


def make_icon_font(source: TTFont, glyphs: List[Glyph], source_path: str) -> TTFont:
    if "glyf" not in source:
        raise TableError(f"{source_path}: its outlines aren't TrueType")
    names = glyph_names(source)
    missing = [f"{glyph.source} (U+{glyph.code:04X} {glyph.name})" for glyph in glyphs if glyph.source not in names]
    if missing:
        raise TableError(f"{source_path}: no glyph called {', '.join(missing)}")

    outlines, metrics, source_glyphs = {}, {}, source.getGlyphSet()
    for name, source_name in [(".notdef", ".notdef")] + [(g.name, names[g.source]) for g in glyphs]:
        recording = DecomposingRecordingPen(source_glyphs)
        source_glyphs[source_name].draw(recording)
        if not recording.value and name != ".notdef":
            raise TableError(f"{source_path}: the glyph for {name} has no outline")
        pen = TTGlyphPen(None)
        recording.replay(pen)
        outlines[name] = pen.glyph()
        metrics[name] = source["hmtx"][source_name]

    ascent, descent = source["hhea"].ascent, source["hhea"].descent
    builder = FontBuilder(source["head"].unitsPerEm, isTTF=True)
    builder.updateHead(created=MADE_AT, modified=MADE_AT)
    builder.setupGlyphOrder(list(outlines))
    builder.setupCharacterMap({glyph.code: glyph.name for glyph in glyphs})
    builder.setupGlyf(outlines)
    builder.setupHorizontalMetrics(metrics)
    builder.setupHorizontalHeader(ascent=ascent, descent=descent)
    builder.setupOS2(sTypoAscender=ascent, sTypoDescender=descent, usWinAscent=ascent, usWinDescent=-descent)
    builder.setupNameTable(
        {
            "copyright": source["name"].getDebugName(0) or "",
            "familyName": "iconfont",
            "styleName": "Regular",
            "uniqueFontIdentifier": "iconfont Regular",
            "fullName": "iconfont",
            "version": "Version 1.0",
            "psName": "iconfont",
            "description": f"A choice of glyphs of {source['name'].getDebugName(1)} at other code points",
        },
        mac=False,
    )
    builder.setupPost()
    return builder.font


def make_text_font(source: TTFont, source_path: str) -> TTFont:
    covered = source.getBestCmap()
    missing = [char for char in TEXT_PROBE if ord(char) not in covered]
    if missing:
        raise TableError(f"{source_path}: lacks {' '.join(missing)}")
    source["head"].created = source["head"].modified = MADE_AT
    return source


def save(font: TTFont, path: str) -> None:
    """Readers of the old file never see half of a new one."""
    font.recalcTimestamp = False
    part = f"{path}.part"
    try:
        font.save(part)
        os.replace(part, path)
    finally:
        if os.path.exists(part):
            os.remove(part)


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--glyphs", required=True, help="the table of glyphs, JSON")
    parser.add_argument("--icon-source", required=True, help="an icon font whose ligatures spell its glyphs' names")
    parser.add_argument("--text-source", required=True, help="a font or collection with Latin and Chinese")
    parser.add_argument("--out", required=True, help="folder for the two fonts")
    arguments = parser.parse_args()
    try:
        icons = make_icon_font(open_font(arguments.icon_source), load(arguments.glyphs), arguments.icon_source)
        text = make_text_font(open_font(arguments.text_source), arguments.text_source)
        os.makedirs(arguments.out, exist_ok=True)
        save(icons, os.path.join(arguments.out, "iconfont.ttf"))
        save(text, os.path.join(arguments.out, "Pinfang.ttf"))
    except (TableError, OSError) as error:
        print(f"make_fonts: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())

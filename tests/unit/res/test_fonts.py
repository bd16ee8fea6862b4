"""The made fonts, their table and the scripts that make them."""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from fontTools.pens.boundsPen import BoundsPen
from fontTools.ttLib import TTFont

ROOT = pathlib.Path(__file__).resolve().parents[3]
SCRIPTS = ROOT / "res" / "fonts"
TABLE = SCRIPTS / "glyphs.json"
FONT_DIR = pathlib.Path(os.environ["FONT_DIR"])
CONSTANT_DIR = pathlib.Path(os.environ["CONSTANT_DIR"])
ICON_SOURCE = os.environ["ICON_SOURCE"]
TEXT_SOURCE = os.environ["TEXT_SOURCE"]


def is_private(char):
    return 0xE000 <= ord(char) <= 0xF8FF


def table():
    return {row["name"]: int(row["code"][2:], 16) for row in json.loads(TABLE.read_text("utf-8"))}


def sources(folder, *suffixes):
    files = [path for path in (ROOT / folder).rglob("*") if path.suffix in suffixes]
    return [(path, path.read_text("utf-8")) for path in files]


def make(script, **options):
    command = [sys.executable, "-B", str(SCRIPTS / script)]
    for name, value in options.items():
        command += [f"--{name.replace('_', '-')}", str(value)]
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8", check=False)


class MadeFonts(unittest.TestCase):
    def test_icon_font_holds_the_table_and_nothing_else(self):
        font = TTFont(FONT_DIR / "iconfont.ttf")
        self.assertEqual(font["name"].getDebugName(1), "iconfont")
        glyphs, cmap = font.getGlyphSet(), font.getBestCmap()
        self.assertEqual({glyph: code for code, glyph in cmap.items()}, table())
        for name in table():
            with self.subTest(glyph=name):
                pen = BoundsPen(glyphs)
                glyphs[name].draw(pen)
                self.assertIsNotNone(pen.bounds)

    def test_no_two_icons_look_alike(self):
        font = TTFont(FONT_DIR / "iconfont.ttf")
        seen = {}
        for name in table():
            outline = font["glyf"][name].compile(font["glyf"])
            self.assertNotIn(outline, seen, f"{name} looks like {seen.get(outline)}")
            seen[outline] = name

    def test_text_font_covers_what_is_shown(self):
        written = "".join(text for folder in ("ui", "src") for _, text in sources(folder, ".qml", ".js", ".cpp", ".h"))
        self.assertRegex(written, "系统启动中", "no texts found, so nothing was checked")
        common = bytes(b for lead in range(0xB0, 0xD8) for trail in range(0xA1, 0xFF) for b in (lead, trail))
        wanted = set(written) | set(common.decode("gb2312", "ignore")) | set("￥¥，。：；！？（）【】“”、—…～×÷℃")
        wanted |= {chr(code) for code in range(0x20, 0x7F)}
        font = TTFont(FONT_DIR / "Pinfang.ttf")
        lacking = {c for c in wanted if ord(c) >= 0x20 and not is_private(c)} - set(map(chr, font.getBestCmap()))
        self.assertEqual(lacking, set())

        glyphs, cmap = font.getGlyphSet(), font.getBestCmap()
        for char in "0Az￥中":
            pen = BoundsPen(glyphs)
            glyphs[cmap[ord(char)]].draw(pen)
            self.assertIsNotNone(pen.bounds, char)


class Constants(unittest.TestCase):
    def test_header_and_script_say_what_the_table_says(self):
        patterns = {
            "Glyphs.h": r"^inline constexpr char16_t (\w+) = u'\\u([0-9a-f]{4})';",
            "Glyphs.js": r'^var (\w+) = "\\u([0-9a-f]{4})"',
        }
        for file, pattern in patterns.items():
            with self.subTest(file=file):
                found = re.findall(pattern, (CONSTANT_DIR / file).read_text("utf-8"), re.MULTILINE)
                self.assertEqual({name: int(code, 16) for name, code in found}, table())

    def test_unchanged_constants_keep_their_time(self):
        with tempfile.TemporaryDirectory() as out:
            files = [pathlib.Path(out) / "Glyphs.js", pathlib.Path(out) / "Glyphs.h"]
            self.assertEqual(make("make_constants.py", glyphs=TABLE, out=out).returncode, 0)
            for file in files:
                os.utime(file, (1, 1))
            self.assertEqual(make("make_constants.py", glyphs=TABLE, out=out).returncode, 0)
            self.assertEqual([file.stat().st_mtime for file in files], [1, 1])

    def test_every_constant_in_use_is_there(self):
        # QML takes a misspelt one for undefined and shows an empty place.
        used = {}
        for path, text in sources("ui", ".qml", ".js"):
            for alias in re.findall(r'import "[^"]*Glyphs\.js" as (\w+)', text):
                used.update({name: path for name in re.findall(rf"(?<![/\w]){alias}\.(\w+)", text)})
        for path, text in sources("src", ".cpp", ".h"):
            used.update({name: path for name in re.findall(r"\bGlyph::(\w+)", text)})
        self.assertIn("moduleRooms", used)
        self.assertEqual({name: path for name, path in used.items() if name not in table()}, {})

    def test_no_code_point_is_written_by_hand(self):
        by_hand = re.compile(r"\\u(?:[eE][0-9a-fA-F]|[fF][0-8])[0-9a-fA-F]{2}|&#x[eE][0-9a-fA-F]{3};|[\ue000-\uf8ff]")
        for folder, *suffixes in (("ui", ".qml", ".js"), ("src", ".cpp", ".h")):
            for path, text in sources(folder, *suffixes):
                with self.subTest(file=path.name):
                    self.assertEqual(by_hand.findall(text), [])


class Making(unittest.TestCase):
    def run_make(self, out, **options):
        given = {"glyphs": TABLE, "icon_source": ICON_SOURCE, "text_source": TEXT_SOURCE, "out": out}
        return make("make_fonts.py", **{**given, **options})

    def test_made_again_is_the_same(self):
        with tempfile.TemporaryDirectory() as out:
            result = self.run_make(out)
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            self.assertEqual(sorted(os.listdir(out)), ["Pinfang.ttf", "iconfont.ttf"])
            for name in os.listdir(out):
                again = (pathlib.Path(out) / name).read_bytes()
                self.assertTrue(again == (FONT_DIR / name).read_bytes(), f"{name} differs")

    def test_faults_stop_the_build(self):
        good = {"code": "U+E001", "name": "one", "source": "lock", "meaning": "first"}
        rows = {
            "unknown glyph": ([{**good, "source": "no_such_icon"}], "no_such_icon"),
            "two unknown": ([{**good, "source": "nix"}, {**good, "code": "U+E002", "name": "b", "source": "nil"}], "nil"),
            "code point twice": ([good, {**good, "name": "two"}], "U+E001"),
            "name twice": ([good, {**good, "code": "U+E002"}], "name one stands twice"),
            "outside the area": ([{**good, "code": "U+0041"}], "U+0041"),
            "badly written code": ([{**good, "code": "E001"}], "E001"),
            "reserved word": ([{**good, "name": "delete"}], "delete"),
            "upper case": ([{**good, "name": "One"}], "One"),
            "key missing": ([{"code": "U+E001", "name": "one"}], "entry 1"),
            "number for a text": ([{**good, "name": 7}], "entry 1"),
            "empty": ([], "no list"),
            "no JSON": ("{", "JSON"),
        }
        for what, (content, message) in rows.items():
            with self.subTest(what), tempfile.TemporaryDirectory() as folder:
                glyphs, out = pathlib.Path(folder) / "glyphs.json", pathlib.Path(folder) / "out"
                glyphs.write_text(content if isinstance(content, str) else json.dumps(content), "utf-8")
                self.check_refused(self.run_make(out, glyphs=glyphs), message, out)

    def test_unfit_source_stops_the_build(self):
        rows = {
            "no icon font": ({"icon_source": "/nowhere/icons.ttf"}, "/nowhere/icons.ttf"),
            "no text font": ({"text_source": "/nowhere/text.ttc"}, "/nowhere/text.ttc"),
            "no table": ({"glyphs": "/nowhere/glyphs.json"}, "/nowhere/glyphs.json"),
            "icons without the names": ({"icon_source": TEXT_SOURCE}, "meeting_room"),
            "texts without Chinese": ({"text_source": ICON_SOURCE}, "系"),
            "no font at all": ({"icon_source": __file__}, "not readable as a font"),
        }
        for what, (options, message) in rows.items():
            with self.subTest(what), tempfile.TemporaryDirectory() as folder:
                out = pathlib.Path(folder) / "out"
                self.check_refused(self.run_make(out, **options), message, out)

    def check_refused(self, result, message, out):
        self.assertEqual(result.returncode, 1)
        self.assertIn(message, result.stderr)
        self.assertNotIn("Traceback", result.stderr)
        self.assertFalse(out.exists(), "a refused run leaves no fonts")


if __name__ == "__main__":
    unittest.main()

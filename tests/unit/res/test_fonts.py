"""The made fonts, their table and the scripts that make them."""

import filecmp
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from fontTools.ttLib import TTFont

ROOT = pathlib.Path(__file__).resolve().parents[3]
SCRIPTS = ROOT / "res" / "fonts"
TABLE = SCRIPTS / "glyphs.json"
FONT_DIR = pathlib.Path(os.environ["FONT_DIR"])
CONSTANT_DIR = pathlib.Path(os.environ["CONSTANT_DIR"])
ICON_SOURCE = os.environ["ICON_SOURCE"]
TEXT_SOURCE = os.environ["TEXT_SOURCE"]


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
        self.assertEqual({glyph: code for code, glyph in font.getBestCmap().items()}, table())
        seen = {}
        for name in table():
            outline = font["glyf"][name].compile(font["glyf"])
            self.assertTrue(outline, name)
            self.assertNotIn(outline, seen, f"{name} looks like {seen.get(outline)}")
            seen[outline] = name

    def test_text_font_covers_what_is_shown(self):
        written = "".join(text for folder in ("ui", "src") for _, text in sources(folder, ".qml", ".js", ".cpp", ".h"))
        self.assertRegex(written, "系统启动中", "no texts found, so nothing was checked")
        common = bytes(b for lead in range(0xB0, 0xD8) for trail in range(0xA1, 0xFF) for b in (lead, trail))
        wanted = set(written) | set(common.decode("gb2312", "ignore")) | set("￥¥，。：；！？（）【】“”、—…～×÷℃")
        wanted |= {chr(code) for code in range(0x20, 0x7F)}
        cmap = TTFont(FONT_DIR / "Pinfang.ttf").getBestCmap()
        self.assertEqual({c for c in wanted if ord(c) >= 0x20 and not 0xE000 <= ord(c) <= 0xF8FF and ord(c) not in cmap}, set())


class Constants(unittest.TestCase):
    def test_header_and_script_say_what_the_table_says(self):
        for file, pattern in (("Glyphs.h", r"^inline constexpr char16_t (\w+) = u'\\u([0-9a-f]{4})';"),
                              ("Glyphs.js", r'^var (\w+) = "\\u([0-9a-f]{4})"')):
            found = re.findall(pattern, (CONSTANT_DIR / file).read_text("utf-8"), re.MULTILINE)
            self.assertEqual({name: int(code, 16) for name, code in found}, table(), file)
        fixed = "Rooms E617 Clock E731 Helper E730 Consume E688 Timer E6E1 Self E73F Buffet E6E6 Transfer E829 Other E6A2"
        for name, code in re.findall(r"(\w+) (\w{4})", fixed):
            self.assertEqual(table()["module" + name], int(code, 16))
        self.assertEqual([table()[name] for name in ("clear", "back", "close")], [0xE728, 0xE6D5, 0xE6DD])

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
                self.assertEqual(by_hand.findall(text), [], path.name)


class Making(unittest.TestCase):
    def run_make(self, out, **options):
        given = {"glyphs": TABLE, "icon_source": ICON_SOURCE, "text_source": TEXT_SOURCE, "out": out}
        return make("make_fonts.py", **{**given, **options})

    def test_made_again_is_the_same(self):
        with tempfile.TemporaryDirectory() as out:
            result = self.run_make(out)
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            self.assertEqual(sorted(os.listdir(out)), ["Pinfang.ttf", "iconfont.ttf"])
            self.assertEqual(filecmp.cmpfiles(out, FONT_DIR, os.listdir(out), shallow=False)[1:], ([], []))

    def test_faults_stop_the_build(self):
        good = {"code": "U+E001", "name": "one", "source": "lock", "meaning": "first"}
        two = [{**good, "source": "nix"}, {**good, "code": "U+E002", "name": "b", "source": "nil"}]
        tables = (
            ([{**good, "source": "no_such_icon"}], "no_such_icon"),
            (two, "nil"),
            ([good, {**good, "name": "two"}], "U+E001"),
            ([good, {**good, "code": "U+E002"}], "name one stands twice"),
            ([{**good, "code": "U+0041"}], "U+0041"),
            ([{**good, "name": "delete"}], "delete"),
            ([{**good, "name": 7}], "entry 1"),
            ("{", "JSON"),
        )
        with tempfile.TemporaryDirectory() as folder:
            glyphs = pathlib.Path(folder) / "glyphs.json"
            for content, message in tables:
                glyphs.write_text(content if isinstance(content, str) else json.dumps(content), "utf-8")
                self.check_refused(message, glyphs=glyphs)
        self.check_refused("/nowhere/text.ttc", text_source="/nowhere/text.ttc")
        self.check_refused("/nowhere/table.json", glyphs="/nowhere/table.json")
        self.check_refused("meeting_room", icon_source=TEXT_SOURCE)  # icons without the names
        self.check_refused("系", text_source=ICON_SOURCE)  # texts without Chinese
        self.check_refused("not readable as a font", icon_source=__file__)

    def check_refused(self, message, **options):
        with self.subTest(message), tempfile.TemporaryDirectory() as folder:
            out = pathlib.Path(folder) / "out"
            result = self.run_make(out, **options)
            self.assertEqual(result.returncode, 1)
            self.assertIn(message, result.stderr)
            self.assertNotIn("Traceback", result.stderr)
            self.assertFalse(out.exists(), "a refused run leaves no fonts")


if __name__ == "__main__":
    unittest.main()

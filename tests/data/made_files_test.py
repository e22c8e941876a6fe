#!/usr/bin/python3
"""What is committed and what makes it: libraries, symbols and pictures are those that their scripts write."""
import re
import subprocess
import sys
import unittest
from pathlib import Path
from xml.etree import ElementTree

ROOT = Path(__file__).resolve().parents[2]
SYMBOLS = ROOT / "data" / "symbols"
sys.path.insert(0, str(SYMBOLS))
sys.dont_write_bytecode = True
import make_furnishings  # noqa: E402
import make_openings  # noqa: E402


class MadeFiles(unittest.TestCase):
    def test_committed_files_follow_their_scripts(self):
        for script in ("make_mechspecs.py", "make_archspecs.py", "make_pictures.py"):
            done = subprocess.run([ROOT / "data" / script, "--check"], capture_output=True, text=True, check=False)
            self.assertEqual(done.returncode, 0, done.stderr)
        written = {name: make_openings.text(lines, f"{script.__name__}.py")
                   for script in (make_openings, make_furnishings) for name, lines in script.files()}
        committed = {str(path.relative_to(SYMBOLS)): path.read_text(encoding="utf-8") for path in SYMBOLS.glob("*/*.sym")}
        self.assertEqual(written, committed)

    def test_openings_fill_their_frames(self):
        for path in (*SYMBOLS.glob("Windows/*.sym"), *SYMBOLS.glob("Doors/*.sym")):
            nominal = float(re.match(r"[A-Z]+(\d+)", path.stem)[1])
            wall = float((re.findall(r"-(\d+)$", path.stem) or ["220"])[0])
            text = path.read_text(encoding="utf-8")
            self.assertEqual(re.findall(r"(?m)^(size|symbol) (\S+)", text),
                             [("size", "real"), ("symbol", path.stem + "P"), ("symbol", path.stem + "PE")])
            plan, elevation = ([[float(n) for n in row.split()[1:]] for row in part.splitlines() if row.startswith(("  line", "  closed"))]
                               for part in text.split("symbol ")[1:])
            y = {v for row in plan for v in row[1::2]}
            self.assertTrue(min(y) == 0 and wall in y, path.name)
            for rows in (plan, elevation):
                x = {v for row in rows for v in row[0::2]}
                if not path.stem.startswith("DP"):  # the leaf slides into the wall
                    self.assertEqual((min(x), max(x)), (0, nominal), path.name)
            self.assertEqual(max(v for row in elevation for v in row[1::2]), 0, path.name)

    def test_dialogs_name_pictures_that_are_there_and_no_other_is(self):
        named = set()
        for source in (*(ROOT / "mech").glob("*.cpp"), *(ROOT / "arch").glob("*.cpp")):
            named |= set(re.findall(r'"((?:nut|rivet|screw|key|wall|flange|link|shaft|duct|finish|lay|weld|tolerance)_[a-z_]+)"', source.read_text(encoding="utf-8")))
        self.assertEqual(named, {path.stem for path in (ROOT / "data" / "pictures").glob("*.svg")})

    def test_pictures_are_plain_strokes_inside_their_frame(self):
        contents = set()
        for path in (ROOT / "data" / "pictures").glob("*.svg"):
            text = path.read_text(encoding="ascii")
            self.assertNotIn(text, contents, f"{path.name} is like another")
            contents.add(text)
            root = ElementTree.fromstring(text)
            self.assertEqual(root.get("viewBox"), "0 0 100 60")
            self.assertEqual({element.tag.rpartition("}")[2] for element in root} - {"path", "circle"}, set())
            for shape in root:
                ends = re.findall(r"[ML ](-?[\d.]+) (-?[\d.]+)", re.sub(r"A\S+ \S+ \S+ \S+ \S+", "", shape.get("d", "")))
                for x, y in ends:
                    self.assertTrue(0 <= float(x) <= 100 and 0 <= float(y) <= 60, f"{path.name}: {x} {y}")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])  # ctest hands over the batch tool

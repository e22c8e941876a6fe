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

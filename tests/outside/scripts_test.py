"""What scripts of tools and macros come to, each worked out by hand: their drawings, and the variables that they read."""

import json
import math
import pathlib
import subprocess
import sys
import tempfile
import unittest

BATCH = pathlib.Path(sys.argv[1]).resolve()
U = [(0, 0), (90, 0), (90, 60), (80, 60), (80, 10), (10, 10), (10, 60), (0, 60)]  # its centre of area lies outside
SYMBOLS = "size paper\nsymbol TICK\n  line 0 0 3 4\n"

# Name, script, variables to read: what they hold.
READ = [
    ("a boundary with arcs", "draw arc 100 0 50 0 0 0 0\ndraw line 0 0 100 0\nmacro AUTOPERIM 0 [50,10]\nmacro QRYAREAPERIM A P X Y\n",
     {"A": math.pi * 1250, "P": math.pi * 50 + 100}),
    ("the style", "style 3 2 7\nmacro ENQUIRE LINEDEF T P W\n", {"T": 2, "P": 3, "W": 7}),
    ("texts", 'textstyle "Courier New" 25 0.8 5 7\nmacro ENQUIRE TEXTDEFAULTS H J A S W F$ P\n',
     {"H": 25, "J": 5, "A": 0, "S": 0, "W": 0.8, "F$": "Courier New", "P": 7}),
    ("a line near", "draw line 1 2 30 2\nmacro CURTOCOORDENTER 10 3\nmacro ENQUIRE NEARLINE A B C D\n", {"A": 1, "B": 2, "C": 30, "D": 2}),
    ("the cursor onto a line", "draw line 0 2 30 2\nmacro CURTOCOORDENTER 10 3\nmacro JUMPNEAR\nmacro ENQUIRE CURPOSN X Y\n", {"X": 10, "Y": 2}),
    ("the cursor onto a text", 'draw text 9 3 35 "A"\nmacro CURTOCOORDENTER 10 4\nmacro JUMPNEAR N\nmacro ENQUIRE CURPOSN X Y\n',
     {"X": 9, "Y": 3}),
    ("a sheet turned", 'sheet "A4" landscape 100 0\nmacro SETPORTRAIT 1\nmacro ENQUIRE PAPER X Y W H\n', {"X": 248.5, "Y": 105, "W": 210, "H": 297}),
]
LINE = "draw line 0 0 10 0\n"
PICKED = "point 5 0\nspace\n"
# Name, script: the lines that are there in the end, each with its group's name, and what else is there by kind.
DRAWN = [
    ("moved", LINE + "tool move\n" + PICKED + "point 0 0\npoint 3 4\n", [(3, 4, 13, 4, "")], {}),
    ("turned", LINE + "tool rotate\n" + PICKED + "point 0 0\npoint 1 0\npoint 0 2\n", [(0, 0, 0, 10, "")], {}),
    ("mirrored", LINE + "tool mirror\n" + PICKED + "point 0 -1\npoint 5 -1\nreply yes\n", [(0, 0, 10, 0, ""), (0, -2, 10, -2, "")], {}),
    ("mirrored away", LINE + "tool mirror\n" + PICKED + "point 0 -1\npoint 5 -1\nreply no\n", [(0, -2, 10, -2, "")], {}),
    ("a polyline", "tool polyline\npoint 0 0\npoint 10 0\npoint 10 5\nspace\n", [(0, 0, 10, 0, "POLY"), (10, 0, 10, 5, "POLY")], {}),
    ("an arc through points", "tool arc\npoint 0 0\npoint 5 5\npoint 10 0\n", [], {"arc": 1}),
    ("a symbol", 'macro NEWSYMFL "own.sym" "Y" "Y"\ndraw symbol "TICK" 1 2 3 45\ndraw symbol "TICK" 9 2 1 0\nundo\n', [], {"symbol": 1}),
    # Cutting: a text goes where not all of it is inside, also where a notch of the polygon reaches into it.
    ("cut by a circle", 'draw line -50 0 50 0\ndraw text 0 2 35 "in"\ndraw text 9 2 35 "out"\nmacro SNIP "N" "N" "N" [0,0] [10,0]\n',
     [(-10, 0, 10, 0, "")], {"text": 1}),
    ("cut by a notched polygon", 'draw text 10 10 35 "WWWWWWWW"\nmacro POLYSNIP "N" "N" [0,0] [60,0] [60,60] [26,60] [25,11] [24,60] [0,60]\n', [], {}),
    ("kept by a polygon", 'draw text 10 10 35 "WW"\nmacro POLYSNIP "N" "N" [0,0] [60,0] [60,60] [26,60] [25,11] [24,60] [0,60]\n', [], {"text": 1}),
    ("a corner cut square", LINE + "draw line 8 -3 8 9\nmacro FILLET 2 \"Y\" 0 [4,0] [8,5]\n", [(0, 0, 8, 0, ""), (8, 0, 8, 9, "")], {}),
    ("a rounded corner joins its part", 'macro PARENT "P"\nmacro BEGINGROUP "G"\nmacro POLY\nmacro PARENT "Q"\n' + LINE
     + 'draw line 10 0 10 10\nmacro SELECTLAYER "0"\nmacro LINKSEL "PLATE"\nmacro FILLET 2 "Y" 2 [4,0] [10,5]\n',
     [(0, 0, 8, 0, "PLATE"), (10, 2, 10, 10, "PLATE")], {"arc": 1}),
]


def inside(point, corners):
    """Of a polygon: a ray to the right crosses its sides an odd number of times."""
    x, y = point
    sides = zip(corners, corners[1:] + corners[:1], strict=True)
    return sum((a[1] > y) != (b[1] > y) and x < a[0] + (y - a[1]) / (b[1] - a[1]) * (b[0] - a[0]) for a, b in sides) % 2 == 1


class Scripts(unittest.TestCase):
    def played(self, text):
        """The primitives in the end, and the variables read on the way."""
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            (folder / "own.sym").write_text(SYMBOLS, encoding="ascii")
            (folder / "x.scr").write_text(text + 'export "x.json"\n', encoding="utf-8")
            done = subprocess.run([BATCH, "run", folder / "x.scr", "-o", folder / "out", "--transcript", folder / "t.jsonl"],
                                  capture_output=True, text=True, check=False)
            self.assertEqual(done.returncode, 0, done.stderr)
            events = [json.loads(line) for line in (folder / "t.jsonl").read_text("utf-8").splitlines()]
            drawing = json.loads((folder / "out" / "x.json").read_text("utf-8"))
            return drawing["primitives"], {event["name"]: event["value"] for event in events if event["event"] == "variable"}

    def test_variables(self):
        for name, text, wanted in READ:
            with self.subTest(name):
                found = self.played(text + "".join(f"read {variable}\n" for variable in wanted))[1]
                for variable, value in wanted.items():
                    if isinstance(value, str):
                        self.assertEqual(found[variable], value)
                    else:
                        self.assertAlmostEqual(found[variable], value, 3, variable)

    def test_drawings(self):
        for name, text, lines, others in DRAWN:
            with self.subTest(name):
                primitives = self.played(text)[0]
                found = sorted((*(round(value, 6) + 0.0 for value in p["p1"] + p["p2"]), p["group"]) for p in primitives if p["type"] == "line")
                self.assertEqual([sorted((line[:2], line[2:4])) + [line[4]] for line in found],
                                 [sorted((line[:2], line[2:4])) + [line[4]] for line in sorted(lines)])
                kinds = [p["type"] for p in primitives if p["type"] != "line"]
                self.assertEqual({kind: kinds.count(kind) for kind in kinds}, others)
                self.assertEqual({p["group"] for p in primitives if p["type"] == "arc" and lines} - {line[4] for line in lines}, set())

    def test_a_point_inside_lies_inside_whatever_the_shape(self):
        sides = "".join(f"draw line {a[0]} {a[1]} {b[0]} {b[1]}\n" for a, b in zip(U, U[1:] + U[:1], strict=True))
        found = self.played(sides + "macro AUTOPERIM 0 [5,5]\nmacro QRYAREAPERIM A P X Y\nread A\nread X\nread Y\n")[1]
        self.assertAlmostEqual(found["A"], 1900, 6)
        self.assertTrue(inside((found["X"], found["Y"]), U), found)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

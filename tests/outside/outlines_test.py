#!/usr/bin/python3
"""Every flange, gear and link that ships, cut out by the batch tool and read with another's reader, is what its record says.

  outlines_test.py BATCH
"""
import configparser
import math
import random
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import ezdxf
from ezdxf.math import bulge_to_arc

BATCH = Path(sys.argv.pop(1)).resolve() if len(sys.argv) > 1 else None
CATALOGUE = Path(__file__).resolve().parents[2] / "data" / "ISO Mechspecs.ini"
APART, ROW = 2000.0, 40  # the parts stand in rows of so many, so far from each other
# Pressure angle in degrees, and the least number of teeth for which the flanks meet root and tip.
LEAST_TEETH = {14.5: 7, 20.0: 8, 25.0: 8, 30.0: 11}


def shipped(section, key):
    file = configparser.ConfigParser(interpolation=None, comment_prefixes=(";",), delimiters=("=",))
    file.optionxform = str
    file.read_string(CATALOGUE.read_bytes().decode("cp1252"))
    records = []
    while line := file[section].get(f"{key}{len(records) + 1}", ""):
        name, *numbers = line.split(",")
        records.append((name, list(map(float, numbers))))
    return records


def place(n):
    return APART * (n % ROW), APART * (n // ROW)


def command(name, title, setting, answers):
    return f'run {name}\ndialog "Mechanical Ardenix - {title}"\n{setting}press "OK"\n{answers}space\n'


def chosen(name, title, n, record, points=2):
    at = "point {} {}\n".format(*place(n))
    return command(name, title, f'pick "Definition" "{record}"\n', at * points)


def edges(loop):
    """The ends and bulges of a closed polyline."""
    points = loop.get_points("xyb")
    return list(zip(points, points[1:] + points[:1]))


def arcs_of(loop):
    """Centre and radius of every edge that is one."""
    for (x1, y1, bulge), (x2, y2, _) in edges(loop):
        if bulge:
            centre, _, _, radius = bulge_to_arc((x1, y1), (x2, y2), bulge)
            yield centre, radius


def flattened(loop, sagitta=2e-5):
    points = []
    for (x1, y1, bulge), (x2, y2, _) in edges(loop):
        points.append((x1, y1))
        if not bulge:
            continue
        centre, start, end, radius = bulge_to_arc((x1, y1), (x2, y2), bulge)
        turn = (end - start) % (2 * math.pi)
        steps = max(2, math.ceil(turn / math.sqrt(8 * sagitta / radius)))
        inner = [start + turn * i / steps for i in range(1, steps)]
        points += [(centre.x + radius * math.cos(a), centre.y + radius * math.sin(a)) for a in (inner if bulge > 0 else inner[::-1])]
    return points


class Outlines(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def cut(self, script):
        """The loops and circles of each part, moved to the origin, by its place; all that was said, too."""
        head = 'setting "MechanicalTools" "SpecFile" "ISO Mechspecs.ini"\n'
        (self.folder / "x.scr").write_text(head + script + 'save "x.drg"\n', encoding="utf-8")
        self.run_batch("run", "x.scr", "-o", self.folder)
        said = self.run_batch("outline", "x.drg", "-o", "x.dxf").stderr
        document = ezdxf.readfile(self.folder / "x.dxf")
        self.assertFalse(document.audit().has_errors)
        parts = {}
        for entity in document.modelspace():
            x, y = entity.get_points("xy")[0] if entity.dxftype() == "LWPOLYLINE" else entity.dxf.center.vec2
            column, row = (math.floor(v / APART + 0.5) for v in (x, y))
            entity.translate(-APART * column, -APART * row, 0)
            parts.setdefault(column + ROW * row, []).append(entity)
        return parts, said

    def run_batch(self, *words):
        done = subprocess.run([BATCH, *map(str, words)], capture_output=True, text=True, check=False, cwd=self.folder)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done

    def split(self, entities):
        """The one loop of a part, and its circles as centre and radius."""
        circles = [(e.dxf.center.vec2, e.dxf.radius) for e in entities if e.dxftype() == "CIRCLE"]
        loops = [e for e in entities if e.dxftype() == "LWPOLYLINE"]
        return loops, circles

    def test_every_flange_closes_and_has_its_holes_on_the_pitch_circle(self):
        records = shipped("FLANGES", "Flange")
        self.assertEqual(len(records), 150)
        parts, said = self.cut("".join(chosen("MechDrawFlanges", "Flanges", n, name) for n, (name, _) in enumerate(records)))
        self.assertEqual(said, "")
        for n, (name, (outside, bore, _, hole, pitch, count)) in enumerate(records):
            with self.subTest(name):
                loops, circles = self.split(parts[n])
                bolts = [centre for centre, radius in circles if abs(radius - hole / 2) < 1e-6]
                self.assertEqual(len(bolts), count)
                self.assertEqual(sum(abs(radius - bore / 2) < 1e-6 for _, radius in circles), 1)
                angles = sorted(math.degrees(centre.angle) % 360 for centre in bolts)
                for centre in bolts:
                    self.assertAlmostEqual(centre.magnitude, pitch / 2, 6)
                for before, after in zip(angles, angles[1:]):
                    self.assertAlmostEqual(after - before, 360 / count, 6)
                if count >= 4:
                    self.assertEqual((loops, len(circles)), ([], count + 2))
                    self.assertEqual(max(radius for _, radius in circles), outside / 2)
                else:
                    self.assertEqual([len(loop) for loop in loops], [10 if count == 2 else 6])

    def check_gear(self, loops, teeth, module, arcs=(8,)):
        """One closed chain of arcs between root and tip, with so many on every tooth: 6 without fillets."""
        self.assertEqual(len(loops), 1)
        pitch = teeth * module / 2
        tip, root = pitch + module, pitch - 1.25 * module
        points = loops[0].get_points("xyb")
        self.assertIn(len(points) / teeth, arcs)
        self.assertTrue(all(bulge for *_, bulge in points))
        distances = [math.hypot(x, y) for x, y, _ in points]
        self.assertAlmostEqual(max(distances), tip, 5)
        self.assertAlmostEqual(min(distances), root, 5)

    def test_every_gear_closes_between_root_and_tip(self):
        records = shipped("GEARS", "Bolt")
        self.assertEqual(len(records), 176)
        parts, said = self.cut(
            "".join(chosen("MechDrawGears", "Spur Gears", n, name, points=1) for n, (name, _) in enumerate(records)))
        self.assertEqual(said, "")
        for n, (name, (_, teeth, module, bore, width, depth)) in enumerate(records):
            with self.subTest(name):
                loops, circles = self.split(parts[n])
                self.assertEqual(circles, [])
                self.check_gear([loop for loop in loops if len(loop) != 4], int(teeth), module)
                keyed = [loop for loop in loops if len(loop) == 4]
                self.assertEqual(len(keyed), 1 if bore else 0)
                for loop in keyed:
                    points = loop.get_points("xy")
                    across = [x for x, _ in points]
                    self.assertAlmostEqual(max(across) - min(across), width, 6)
                    top, chord = max(y for _, y in points), min(y for _, y in points)
                    self.assertAlmostEqual(top - chord, depth, 6)
                    self.assertAlmostEqual(math.hypot(width / 2, chord), bore / 2, 6)

    def test_gears_of_any_teeth_close(self):
        chance = random.Random(18)
        gears = [(angle, least, 2.0) for angle, least in LEAST_TEETH.items()] + [(20.0, 1000, 1.5)]
        gears += [(angle, chance.randint(LEAST_TEETH[angle], 400), chance.choice((0.3, 1.25, 4.0)))
                  for angle in chance.choices(list(LEAST_TEETH), k=30)]
        fields = 'set "Pressure angle" {}\nset "Number of teeth" {}\nset "Module (PCD / no. teeth)" {}\nset "Shaft diameter" 0\n'
        script = ""
        for n, gear in enumerate(gears):
            at = "point {} {}\n".format(*place(n))
            script += command("MechDrawGears", "Spur Gears", fields.format(*gear), at).replace('press "OK"\n', 'press "OK"\nreply no\n')
        parts, said = self.cut(script)
        self.assertEqual(said, "")
        for n, (angle, teeth, module) in enumerate(gears):
            with self.subTest(angle=angle, teeth=teeth, module=module):
                self.check_gear(self.split(parts[n])[0], teeth, module, arcs=(6, 8) if angle == 30.0 else (8,))

    def test_true_flanks_roll_on_each_other_without_play_or_overlap(self):
        """Conjugate flanks touch in every position: an involute's law, and with 8 teeth that of its undercut."""
        module = 2.0
        for teeth in ((25, 50), (8, 40)):
            script = ""
            for n, count in enumerate(teeth):
                setting = f'pick "Definition" "M2 Z25"\nset "Number of teeth" {count}\nset "Shaft diameter" 0\ncheck "True involute"\n'
                script += command("MechDrawGears", "Spur Gears", setting, "point {} {}\n".format(*place(n))).replace(
                    'press "OK"\n', 'press "OK"\nreply no\n')
            parts, _ = self.cut(script)
            first, second = (flattened(self.split(parts[n])[0][0], 5e-4) for n in (0, 1))
            space = self.middle_of_space(first, teeth[0], module)
            tooth = self.middle_of_space(second, teeth[1], module) + math.pi / teeth[1]
            apart = module * sum(teeth) / 2
            for phase in (0.0, 0.13, 0.31, 0.5):
                roll = phase * 2 * math.pi / teeth[0]
                turn = math.pi - tooth - (space + roll) * teeth[0] / teeth[1]
                driven = [p for p in self.turned(second, turn, apart) if math.hypot(*p) < module * (teeth[0] / 2 + 1)]
                sides = self.turned(first, roll, 0.0)
                sides = list(zip(sides, sides[1:] + sides[:1]))
                near = [(a, b) for a, b in sides if a[0] > 0]
                with self.subTest(teeth=teeth, phase=phase):
                    self.assertLess(max(self.depth(p, sides) for p in driven), 0.002 * module)
                    self.assertLess(min(self.away(p, near) for p in driven), 0.002 * module)

    def turned(self, points, angle, right):
        cosine, sine = math.cos(angle), math.sin(angle)
        return [(right + x * cosine - y * sine, x * sine + y * cosine) for x, y in points]

    def middle_of_space(self, points, teeth, module):
        """The angle at which the bottom of a space lies in its middle."""
        bottom = module * (teeth / 2 - 1.25) + 1e-4
        waves = [(math.cos(teeth * a), math.sin(teeth * a)) for a in (math.atan2(y, x) for x, y in points if math.hypot(x, y) < bottom)]
        return math.atan2(sum(y for _, y in waves), sum(x for x, _ in waves)) / teeth

    def test_two_gears_mesh_at_their_centre_distance(self):
        script = "".join(chosen("MechDrawGears", "Spur Gears", n, name, points=1) for n, name in enumerate(("M2 Z25", "M2 Z50")))
        parts, _ = self.cut(script)
        first, second = (flattened(max(self.split(parts[n])[0], key=len)) for n in (0, 1))
        turn = math.radians(6.7685)
        cosine, sine = math.cos(turn), math.sin(turn)
        meshing = [(75 + x * cosine - y * sine, x * sine + y * cosine) for x, y in second]
        sides = list(zip(first, first[1:] + first[:1]))
        deepest = max(self.depth(p, sides) for p in meshing if math.hypot(*p) < 27)
        self.assertLess(deepest, 0.001)
        self.assertGreater(sum(math.hypot(*p) < 26.9 for p in meshing), 50, "they do not reach into each other")

    def depth(self, point, sides):
        """How far a point lies inside an outline; 0 outside."""
        x, y = point
        inside = False
        for (x1, y1), (x2, y2) in sides:
            if (y1 > y) != (y2 > y) and x > x1 + (x2 - x1) * (y - y1) / (y2 - y1):
                inside = not inside
        return self.away(point, sides) if inside else 0.0

    def away(self, point, sides):
        """How far a point lies from the nearest side."""
        x, y = point
        best = math.inf
        for (x1, y1), (x2, y2) in sides:
            along = ((x - x1) * (x2 - x1) + (y - y1) * (y2 - y1)) / ((x2 - x1) ** 2 + (y2 - y1) ** 2)
            along = min(max(along, 0), 1)
            best = min(best, math.hypot(x1 + along * (x2 - x1) - x, y1 + along * (y2 - y1) - y))
        return best

    def test_links_and_slots_close_and_the_pattern_of_a_duct_is_one_loop(self):
        records = shipped("LINKS", "Bolt")
        script = "".join(chosen("MechDrawLinks", "Links", n, name) for n, (name, _) in enumerate(records))
        slots = len(records)
        script += 'run MechDrawSlots\ntext "40 10 30"\nreply yes\npoint {} {}\nspace\n'.format(*place(slots))
        script += command("MechDrawRectRnd", "Rectangle to Round Duct", "", "point 0 -500\n")
        parts, said = self.cut(script)
        self.assertEqual(said, "", "the duct is no part")
        for n, (name, numbers) in enumerate(records):
            loops, circles = self.split(parts[n])
            self.assertEqual([len(loop) for loop in loops], [10 if numbers[-1] == 0 else 6], name)
            self.assertEqual({round(radius, 6) for _, radius in circles}, {numbers[1] / 2, numbers[4] / 2}, name)
            reach = sorted(radius for _, radius in arcs_of(loops[0]))
            for boss in (numbers[0] / 2, numbers[3] / 2):
                self.assertTrue(any(abs(radius - boss) < 1e-6 for radius in reach), name)
        self.assertEqual([len(loop) for loop in self.split(parts[slots])[0]], [4])
        for inside in (("180", "-500"), ("200", "-460")):
            self.run_batch("outline", "x.drg", "--at", *inside, "-o", "duct.dxf")
            loops = list(ezdxf.readfile(self.folder / "duct.dxf").modelspace())
            self.assertEqual([len(loop) for loop in loops], [11])

    def test_what_does_not_close_is_named(self):
        script = ('macro PARENT "A"\nmacro BEGINGROUP "OPEN"\nmacro ARCR [0,0] [10,0] 9 [#]\nmacro PARENT "A"\n'
                  'macro BEGINGROUP "RING"\nmacro ARCR [0,50] [10,50] 9 [#]\nmacro ARCR [10,50] [0,50] 9 [#]\nsave "x.drg"\n')
        (self.folder / "x.scr").write_text(script, encoding="utf-8")
        self.run_batch("run", "x.scr", "-o", self.folder)
        self.assertIn("OPEN does not close at 10.000, 0.000", self.run_batch("outline", "x.drg", "-o", "x.dxf").stderr)
        for words, code in ((("--group", "OPEN"), 1), (("--group", "NONE"), 3), (("--at", "1", "2", "--group", "RING"), 2)):
            done = subprocess.run([BATCH, "outline", "x.drg", *words, "-o", "y.dxf"], capture_output=True, cwd=self.folder, check=False)
            self.assertEqual(done.returncode, code, words)
        self.assertFalse((self.folder / "y.dxf").exists())


if __name__ == "__main__":
    unittest.main()

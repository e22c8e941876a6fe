"""Exchange files that another program writes, from R12 to R2018, come in whole: converted and compared."""

import json
import math
import pathlib
import subprocess
import sys
import tempfile
import unittest

import ezdxf

BATCH = pathlib.Path(sys.argv[1]).resolve()
VERSIONS = ["R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018"]


def groups(*pairs):
    return "".join(f"{code}\n{value}\n" for code, value in pairs)


TEXT = ((8, "0"), (10, 1), (20, 2), (40, 2.5))
# What few programs write: the entity, its groups, the kinds or texts that come in, what the report names.
SELDOM = [
    ("TEXT", (*TEXT, (1, "%%176%%u %%o%%999 a^Ib^ c")), ["\u00b0 %%999 a\tb^c"], ""),
    ("TEXT", (*TEXT, (1, "\\U+00D8 \\U+20AC \\U+12")), ["\u00d8 \u20ac \\U+12"], ""),
    ("MTEXT", (*TEXT, (1, "\\LA\\l \\W0.5;B^JC^ID\\~E")), ["A B\\NC D E"], ""),
    ("MTEXT", (*TEXT, (1, "\\S1^ 2; \\S3#4; \\S\\/5/6;")), ["1/2 3/4 /5/6"], ""),
    ("TEXT", (*TEXT, (1, "\\U+4E2D")), ["?"], "1 character that Windows-1252 lacks, shown as the nearest or \"?\""),
    ("HATCH", ((8, "0"), (0, "HATCH"), (8, "0")), [], "2 HATCH without a closed outline"),
    ("HATCH", ((8, "0"), (91, 99), (92, 2), (93, 2000000000), (10, 0), (20, 0), (78, 5)), [], "1 HATCH without"),
    ("POINT", ((8, "0"), (10, 1), (20, 2)), [], "1 POINT"),
    ("LINE", ((8, "0"), (10, 1), (20, 2), (11, 3), (21, 4), (60, 1)), [], "1 LINE that is invisible"),
    ("LINE", ((8, "0"), (10, 1), (20, 2), (11, 3), (21, 4), (67, 1)), [], "1 LINE on a layout"),
    ("POLYLINE", ((8, "0"), (66, 1), (70, 64)), [], "1 POLYLINE that is a mesh"),
    ("ATTRIB", (*TEXT, (1, "A"), (70, 1)), [], "1 ATTRIB that is hidden"),
    ("ATTDEF", (*TEXT, (1, "A"), (70, 0)), [], "1 ATTDEF"),
    ("ATTDEF", (*TEXT, (1, "A"), (70, 2.0)), ["A"], ""),
    ("ELLIPSE", ((8, "0"), (10, 0), (20, 0), (11, 5), (21, 0), (40, 1), (41, 0), (42, math.pi)), ["arc"], ""),
]


class Import(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def convert(self, document=None, ending="json", code=0):
        if document is not None:
            document.saveas(self.folder / "in.dxf")
        out = self.folder / f"out.{ending}"
        run = subprocess.run([BATCH, "convert", self.folder / "in.dxf", out], capture_output=True, text=True, check=False)
        self.assertEqual(run.returncode, code, run.stderr)
        self.report = run.stderr
        if code != 0:
            return None
        return json.loads(out.read_text(encoding="utf-8")) if ending == "json" else out

    def write(self, *entities):
        text = groups((0, "SECTION"), (2, "ENTITIES"), *entities, (0, "ENDSEC"), (0, "EOF"))
        (self.folder / "in.dxf").write_text(text, encoding="ascii")

    def kinds(self, drawing):
        return [primitive["type"] for primitive in drawing["primitives"]]

    def near(self, point, x, y):
        self.assertAlmostEqual(point[0], x, 6)
        self.assertAlmostEqual(point[1], y, 6)

    def each_version(self, versions=VERSIONS):
        for version in versions:
            with self.subTest(version):
                document = ezdxf.new(version, setup=True)
                yield version, document, document.modelspace()

    def test_lines_circles_arcs_and_looks(self):
        for _, document, space in self.each_version():
            document.layers.new("Wände", dxfattribs={"color": 1, "linetype": "DASHED"}).off()
            document.layers.new("Fixed", dxfattribs={"color": 5}).lock()
            space.add_line((1, 2, 9), (3, 4, 9), dxfattribs={"layer": "Wände", "color": 3, "linetype": "CENTER"})
            space.add_circle((10, 20), 5, dxfattribs={"layer": "Fixed"})
            space.add_arc((0, 0), 10, 30, 120, dxfattribs={"layer": "wände"})
            drawing = self.convert(document)
            line, circle, arc = drawing["primitives"]
            self.assertEqual((line["layer"], line["linetype"], line["p1"], line["p2"]), ("Wände", 4, [1, 2], [3, 4]))
            self.assertEqual((circle["centre"], circle["start"], circle["end"], circle["pen"]),
                             ([10, 20], [15, 20], [15, 20], 256))
            self.near(arc["start"], 10 * math.cos(math.radians(30)), 5)
            self.near(arc["end"], -5, 10 * math.sin(math.radians(120)))
            self.assertEqual((arc["layer"], arc["linetype"]), ("Wände", 2))
            layers = {layer["name"]: layer for layer in drawing["layers"]}
            self.assertFalse(layers["Wände"]["visible"])
            self.assertTrue(layers["Fixed"]["locked"])
            self.assertEqual(self.report, "")

    def test_hatches_keep_outlines_and_lines(self):
        for _, document, space in self.each_version(VERSIONS[1:]):
            document.header["$INSUNITS"] = 4
            hatch = space.add_hatch()
            hatch.set_pattern_fill("ANSI32", color=2, scale=0.5, angle=30)
            hatch.paths.add_polyline_path([(0, 0), (100, 0, 0.5), (100, 50), (0, 50)], is_closed=True)
            edges = hatch.paths.add_edge_path()
            edges.add_arc((30, 25), 10, 0, 360)
            edges = hatch.paths.add_edge_path()
            edges.add_line((60, 20), (80, 20))
            edges.add_arc((80, 25), 5, 270, 450)
            edges.add_line((80, 30), (60, 30))
            edges.add_arc((60, 25), 5, 90, 270)
            space.add_hatch(color=1).paths.add_polyline_path([(0, 60), (9, 60), (9, 70)], is_closed=True)
            lines, solid = self.convert(document)["primitives"]
            self.assertEqual((lines["pattern"], lines["pen"], solid["pattern"], self.report), ("ANSI32", 7, "SOLID", ""))
            outer, circle, slot = lines["outlines"].split(";")
            self.assertEqual(outer, "0 0 0 100 0 0.5 100 50 0 0 50 0")
            self.assertEqual((len(circle.split()), len(slot.split())), (6, 18))
            angle, *_, across = (float(number) for number in lines["lines"].split(";")[0].split())
            self.near((angle, across * lines["scale"]), 75, hatch.pattern.lines[0].offset.magnitude)

    def test_polylines_with_bulges_become_lines_and_arcs(self):
        points = [(0, 0, 0), (10, 0, 1), (10, 4, 0), (0, 4, 1)]
        for version, document, space in self.each_version():
            if version == "R12":
                space.add_polyline2d([p[:2] for p in points], format="xy", close=True)
                for vertex, point in zip(space[0].vertices, points):
                    vertex.dxf.bulge = point[2]
            else:
                space.add_lwpolyline(points, format="xyb", close=True)
            drawing = self.convert(document)
            self.assertEqual(self.kinds(drawing), ["line", "arc", "line", "arc"])
            arc = drawing["primitives"][1]
            self.near(arc["centre"], 10, 2)
            self.assertEqual((arc["start"], arc["end"], arc["direction"]), ([10, 0], [10, 4], 0))

    def test_texts_lose_their_codes_and_keep_their_letters(self):
        for version, document, space in self.each_version():
            space.add_text("%%c20 %%p0.1 45%%d Länge 5%%%", dxfattribs={"height": 2.5, "insert": (5, 6)})
            expected = ["Ø20 ±0.1 45° Länge 5%"]
            if version != "R12":
                space.add_mtext("{\\fArial|b0;Über \\H2x;groß}\\Pzweite \\S1/2; \\{x\\}", dxfattribs={"char_height": 3})
                space.add_mtext("one two three four", dxfattribs={"char_height": 3, "width": 20})
                expected += ["Über groß\\Nzweite 1/2 {x}", "one two\\Nthree\\Nfour"]
            texts = self.convert(document)["primitives"]
            self.assertEqual([text["text"] for text in texts][:2], expected[:2])
            self.assertGreater(texts[0]["height"], 25)
            if version != "R12":
                self.assertEqual(texts[2]["text"].replace("\\N", " "), "one two three four")
                self.assertIn("\\N", texts[2]["text"])

    def test_blocks_nested_scaled_turned_and_in_rows(self):
        for _, document, space in self.each_version():
            inner = document.blocks.new("INNER", base_point=(1, 1))
            inner.add_line((1, 1), (2, 1))
            outer = document.blocks.new("OUTER")
            outer.add_blockref("INNER", (10, 0), dxfattribs={"xscale": 2, "yscale": 2, "rotation": 90})
            wide = document.blocks.new("WIDE")
            wide.add_circle((0, 0), 1)
            space.add_blockref("OUTER", (100, 0), dxfattribs={"rotation": 90})
            space.add_blockref("OUTER", (0, 0), dxfattribs={"xscale": 3, "yscale": 1})
            space.add_blockref("WIDE", (5, 5), dxfattribs={"xscale": 2, "yscale": 1})
            space.add_blockref("INNER", (0, 0), dxfattribs={"column_count": 3, "row_count": 2, "column_spacing": 7,
                                                            "row_spacing": 9})
            drawing = self.convert(document)
            primitives = drawing["primitives"]
            self.assertEqual((primitives[0]["type"], primitives[0]["name"], primitives[0]["rotation"]),
                             ("symbol", "OUTER", 90))
            self.near(primitives[1]["p1"], 30, 0)
            self.near(primitives[1]["p2"], 30, 2)
            ellipse = [p for p in primitives[2:] if p["type"] == "line"]
            self.assertGreater(len(ellipse), 100)
            for side in ellipse:
                x, y = side["p1"][0] - 5, side["p1"][1] - 5
                self.assertAlmostEqual(x * x / 4 + y * y, 1, 9)
            placed = sorted(p["at"] for p in primitives if p["type"] == "symbol" and p["name"] == "INNER")
            self.assertEqual(placed, [[0, 0], [0, 9], [7, 0], [7, 9], [14, 0], [14, 9]])
            self.assertEqual(set(drawing["symbols"]), {"OUTER", "INNER"})

    def test_attributes_and_looks_of_blocks(self):
        document = ezdxf.new("R2010")
        document.layers.new("A")
        block = document.blocks.new("TAG")
        block.add_line((0, 0), (1, 0))
        block.add_line((0, 0), (0, 1), dxfattribs={"layer": "A"})
        block.add_attdef("NO", (0, 0))
        reference = document.modelspace().add_blockref("TAG", (0, 0), dxfattribs={"layer": "B"})
        reference.add_attrib("NO", "17", (3, 4))
        primitives = self.convert(document)["primitives"]
        self.assertEqual([p["layer"] for p in primitives[:2]], ["B", "A"])
        self.assertEqual(primitives[2]["text"], "17")

    def test_curves_become_chains_near_them(self):
        document = ezdxf.new("R2010")
        space = document.modelspace()
        space.add_ellipse((0, 0), major_axis=(0, 10), ratio=0.5, start_param=0, end_param=math.pi)
        spline = space.add_open_spline([(0, 0), (10, 20), (20, -20), (30, 0), (45, 3)], degree=3)
        lines = self.convert(document)["primitives"]
        tool = list(spline.construction_tool().approximate(2000))
        for line in lines:
            x, y = line["p1"]
            on_ellipse = abs(x * x / 25 + y * y / 100 - 1) < 1e-9 and x <= 1e-9
            self.assertTrue(on_ellipse or min(math.hypot(x - p.x, y - p.y) for p in tool) < 0.05, (x, y))
        self.near(lines[-1]["p2"], 45, 3)

    def test_dimensions_solids_and_leaders_show_what_they_showed(self):
        document = ezdxf.new("R2010", setup=True)
        space = document.modelspace()
        space.add_linear_dim(base=(0, 10), p1=(0, 0), p2=(30, 0)).render()
        space.add_solid([(0, 0), (10, 0), (0, 5), (10, 5)])
        space.add_leader([(0, 0), (5, 5), (9, 5)])
        primitives = self.convert(document)["primitives"]
        self.assertEqual([p["text"] for p in primitives if p["type"] == "text"], ["3000"])  # its style measures in cm
        corners = [p["p1"] for p in primitives if p["type"] == "line"][-5:-1]
        self.assertEqual(corners, [[0, 0], [10, 0], [10, 5], [0, 5]])
        arrow = next(p for p in primitives if p["type"] == "arrow")
        self.assertEqual((arrow["p1"], arrow["p2"]), ([5, 5], [0, 0]))

    def test_groups_units_and_what_is_seen_from_below(self):
        document = ezdxf.new("R2010", units=6)
        space = document.modelspace()
        members = [space.add_line((0, 0), (1, 0)), space.add_circle((0, 0), 1)]
        space.add_circle((5, 1), 1, dxfattribs={"extrusion": (0, 0, -1)})
        with document.groups.new("PUMP").edit_data() as group:
            group.extend(members)
        drawing = self.convert(document)
        self.assertEqual(drawing["parameters"]["unit"], 1000)
        self.assertEqual([p["group"] for p in drawing["primitives"]], ["PUMP", "PUMP", ""])
        self.near(drawing["primitives"][2]["centre"], -5, 1)

    def test_what_few_programs_write_comes_in_or_is_named(self):
        for kind, pairs, wanted, named in SELDOM:
            with self.subTest(kind, pairs=pairs):
                self.write((0, kind), *pairs)
                drawing = self.convert()
                self.assertEqual([p.get("text", p["type"]) for p in drawing["primitives"]], wanted)
                self.assertIn(named, self.report)
                self.assertEqual(bool(self.report), bool(named))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

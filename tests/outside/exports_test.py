#!/usr/bin/python3
"""Every export of one drawing, read with programs of others, holds what its JSON holds.

  exports_test.py BATCH
"""
import json
import math
import os
import re
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib
from pathlib import Path
from xml.etree import ElementTree

import ezdxf

BATCH = Path(sys.argv.pop(1)).resolve() if len(sys.argv) > 1 else None
SCALE = 2.0
SHEET = (297.0, 210.0)

DRAWING = """parameter scale 2
sheet "A4" landscape 0 0
draw line 20 20 120 80
draw circle 400 300 50.125
draw text 20 350 70 "Größe Ø20, 50 % & <mehr> \\"A\\""
draw text 300 100 35 "erste Zeile\\\\Nzweite Zeile"
layer "Achsen"
style 2 4 3.5
draw line 340.1 300 460.1 300
style 3 21 7
draw line 20 120 220 120
layer "Verschraubung"
style 40 1 5
macro PARENT "BOLTS"
macro BEGINGROUP "M10_S1"
draw line 30 200 130 200
draw arc 180 200 150 200 150 230 1
draw arc 280 200 250 200 250 230 0
macro BEGINGROUP "m10_s1"
draw line 30 220 130 220
"""
# What refers to what within the file: dimensions and symbols to their blocks, an unnamed group to its members.
REFERRING = """macro PARENT "BOLTS"
macro BEGINGROUP "_"
macro HDIM "F" [0,250] [30,220] [130,220] !
macro NEWSYMFL "Symbols/SurveySymbols.drg" "Y" "Y"
draw symbol "TRIG" 300 50 1 30
export "old.dxf" dxf-version R2000
export "new.dxf"
"""
EXPORTS = ["dxf", "json", "svg", "pdf", "png"]


def run(*command, **keys):
    return subprocess.run([str(word) for word in command], check=True, capture_output=True, **keys)


def play(folder, script):
    (folder / "plate.scr").write_text(script + "".join(f'export "plate.{e}"\n' for e in EXPORTS), encoding="utf-8")
    run(BATCH, "run", folder / "plate.scr", "-o", folder)
    return json.loads((folder / "plate.json").read_text(encoding="utf-8"))


def read_ppm(data):
    """Width, height and the pixels' bytes of a binary grey map."""
    header = re.match(rb"P5\s+(\d+)\s+(\d+)\s+255\s", data)
    return int(header[1]), int(header[2]), data[header.end():]


def ink_cells(grey, columns, rows):
    """The cells of a coarse grid over the picture that hold ink."""
    width, height, pixels = grey
    cells = set()
    for y in range(height):
        row = pixels[y * width:(y + 1) * width]
        for match in re.finditer(rb"[\x00-\xa0]+", row):
            first, last = match.start() * columns // width, (match.end() - 1) * columns // width
            cells.update((column, y * rows // height) for column in range(first, last + 1))
    return cells


def grown(cells):
    return {(x + dx, y + dy) for x, y in cells for dx in (-1, 0, 1) for dy in (-1, 0, 1)}


class Exports(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.place = tempfile.TemporaryDirectory()
        cls.folder = Path(cls.place.name)
        cls.drawing = play(cls.folder, DRAWING)
        cls.addClassCleanup(cls.place.cleanup)

    def of_type(self, kind):
        return [p for p in self.drawing["primitives"] if p["type"] == kind]

    def close(self, got, wanted, places=9):
        for a, b in zip(got, wanted):
            self.assertAlmostEqual(a, b, places)

    # ---- DXF

    def dxf(self, name="plate.dxf"):
        document = ezdxf.readfile(self.folder / name)
        audit = document.audit()
        self.assertEqual([e.message for e in audit.errors + audit.fixes], [], name)
        return document

    def test_dxf_references_name_what_is_there(self):
        (self.folder / "referring.scr").write_text(DRAWING + REFERRING, encoding="utf-8")
        run(BATCH, "run", self.folder / "referring.scr", "-o", self.folder)
        for name in ("old.dxf", "new.dxf"):
            lines = (self.folder / name).read_text(encoding="cp1252").split("ENDSEC", 1)[1].splitlines()[1:]
            handles = [value for code, value in zip(lines[::2], lines[1::2]) if code.strip() in ("5", "105")]
            self.assertEqual(len(handles), len(set(handles)), name)
            space = self.dxf(name).modelspace()
            self.assertEqual((len(space.query("DIMENSION")), len(space.query("INSERT"))), (1, 1))

    def test_dxf_lines_and_arcs_are_those_of_the_drawing(self):
        document = self.dxf()
        lines = list(document.modelspace().query("LINE"))
        self.assertEqual(len(lines), len(self.of_type("line")))
        for entity, line in zip(lines, self.of_type("line")):
            self.assertEqual(tuple(entity.dxf.start)[:2], tuple(line["p1"]))
            self.assertEqual(tuple(entity.dxf.end)[:2], tuple(line["p2"]))
            self.assertEqual(entity.dxf.layer, line["layer"])
            self.assertEqual(entity.dxf.lineweight, round(line["width"] * 10) or -3)
        round_ones = list(document.modelspace().query("ARC CIRCLE"))
        self.assertEqual(len(round_ones), len(self.of_type("arc")))
        for entity, arc in zip(round_ones, self.of_type("arc")):
            self.close(entity.dxf.center, arc["centre"])
            self.assertAlmostEqual(entity.dxf.radius, math.dist(arc["start"], arc["centre"]), 9)
            if arc["start"] == arc["end"]:
                self.assertEqual(entity.dxftype(), "CIRCLE")
                continue
            first, last = ("end", "start") if arc["direction"] == 1 else ("start", "end")
            self.close(entity.start_point, arc[first])
            self.close(entity.end_point, arc[last])

    def test_dxf_texts_read_as_typed(self):
        texts = self.of_type("text")
        space = self.dxf().modelspace()
        self.assertEqual(space.query("TEXT").first.plain_text(), texts[0]["text"])
        self.assertEqual(space.query("MTEXT").first.plain_text(), texts[1]["text"].replace("\\N", "\n"))

    def test_dxf_groups_and_layers_keep_their_names(self):
        document = self.dxf()
        named = {p["groupId"]: p["parent"] + " " + p["group"] for p in self.drawing["primitives"] if p["groupId"]}
        sizes = {g: sum(p["groupId"] == g for p in self.drawing["primitives"]) for g in named}
        written = sorted((group.dxf.description, len(group)) for _, group in document.groups)
        self.assertEqual(written, sorted((named[g], sizes[g]) for g in named))
        for layer in self.drawing["layers"]:
            self.assertEqual(document.layers.get(layer["name"]).is_on(), layer["visible"])

    def test_dxf_line_types_look_as_on_paper(self):
        document = self.dxf()
        by_line = {e.dxf.layer: e.dxf.linetype for e in document.modelspace().query("LINE")}
        pattern = document.linetypes.get(by_line["Achsen"]).pattern_tags.tags
        lengths = [tag.value for tag in pattern if tag.code == 49]
        self.assertEqual(lengths, [3 * SCALE, -1.5 * SCALE])  # dashes of 3 mm, gaps of 1.5
        self.assertEqual(by_line["Verschraubung"].upper(), "CONTINUOUS")

    def test_dxf_is_drawn_by_another_program(self):
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", HOME=str(self.folder))
        (self.folder / "other.dxf").write_bytes((self.folder / "plate.dxf").read_bytes())
        run("librecad", "dxf2pdf", "-a", "other.dxf", cwd=self.folder, env=environment, timeout=120)
        grey = read_ppm(run("pdftoppm", "-gray", "-scale-to", "1200", self.folder / "other.pdf").stdout)
        self.assertGreater(len(ink_cells(grey, 60, 60)), 60)

    # ---- SVG

    def test_svg_is_the_sheet_and_its_coordinates_are_the_drawings(self):
        root = ElementTree.parse(self.folder / "plate.svg").getroot()
        self.assertEqual((root.get("width"), root.get("height")), ("297mm", "210mm"))
        space = "{http://www.w3.org/2000/svg}"
        groups = {g.get("data-name"): g for g in root.findall(space + "g")}
        self.assertEqual(set(groups), {layer["name"] for layer in self.drawing["layers"] if layer["visible"]})
        for layer, group in groups.items():
            drawn = [p.get("d") for p in group.findall(space + "path") if "L" in p.get("d")]
            wanted = [line for line in self.of_type("line") if line["layer"] == layer]
            self.assertEqual(len(drawn), len(wanted))
            for path, line in zip(drawn, wanted):
                numbers = [float(n) for n in re.findall(r"[-+.\deE]+", path)]
                expected = [*line["p1"], *line["p2"]]
                self.close(numbers, [SHEET[1] - v / SCALE if n % 2 else v / SCALE for n, v in enumerate(expected)])
        texts = ["".join(t.itertext()) for t in root.iter(space + "text")]
        self.assertEqual(texts, "\\N".join(t["text"] for t in self.of_type("text")).split("\\N"))

    # ---- PDF and PNG

    def test_pdf_page_fonts_and_texts(self):
        pdf = self.folder / "plate.pdf"
        size = re.search(r"Page size:\s+([\d.]+) x ([\d.]+) pts", run("pdfinfo", pdf).stdout.decode())
        self.close(map(float, size.groups()), [mm * 72 / 25.4 for mm in SHEET], 1)
        fonts = run("pdffonts", pdf).stdout.decode().splitlines()[2:]
        self.assertTrue(fonts)
        for font in fonts:
            self.assertRegex(font, r"Liberation\w+\s.*\syes\s+\w+\s+yes")  # embedded, with a map to Unicode
        found = run("pdftotext", "-layout", pdf, "-").stdout.decode()
        for text in self.of_type("text"):
            for line in text["text"].split("\\N"):
                self.assertIn(line, found)

    def test_pdf_and_png_show_the_same_picture(self):
        pdf = read_ppm(run("pdftoppm", "-gray", "-r", "100", self.folder / "plate.pdf").stdout)
        png = read_ppm(self.png_as_grey())
        one, other = ink_cells(pdf, 100, 70), ink_cells(png, 100, 70)
        self.assertGreater(len(one), 100)
        self.assertEqual(one - grown(other), set())
        self.assertEqual(other - grown(one), set())

    def png_as_grey(self):
        """The PNG's pixels, unpacked without any library."""
        data = (self.folder / "plate.png").read_bytes()
        at, packed = 8, b""
        while at < len(data):
            length, kind = struct.unpack(">I4s", data[at:at + 8])
            body = data[at + 8:at + 8 + length]
            if kind == b"IHDR":
                width, height, depth, colour = struct.unpack(">IIBB", body[:10])
            packed += body if kind == b"IDAT" else b""
            at += 12 + length
        self.assertEqual((depth, colour), (8, 2))
        rows, raw, before = [], zlib.decompress(packed), bytearray(width * 3)
        for start in range(0, height * (width * 3 + 1), width * 3 + 1):
            row = bytearray(raw[start + 1:start + 1 + width * 3])
            unfilter(raw[start], row, before)
            rows.append(bytes(grey(row[x:x + 3]) for x in range(0, width * 3, 3)))
            before = row
        return b"P5\n%d %d\n255\n" % (width, height) + b"".join(rows)


def grey(rgb):
    return (rgb[0] * 30 + rgb[1] * 59 + rgb[2] * 11) // 100


def unfilter(kind, row, before):
    """One row of a PNG, in place."""
    for n, value in enumerate(row):
        left, up, corner = (row[n - 3] if n > 2 else 0), before[n], (before[n - 3] if n > 2 else 0)
        if kind == 4:
            guess = left + up - corner
            nearest = min((abs(guess - left), 0, left), (abs(guess - up), 1, up), (abs(guess - corner), 2, corner))
            row[n] = (value + nearest[2]) & 255
        else:
            row[n] = (value + (0, left, up, (left + up) // 2)[kind]) & 255


class SouthOrientedExports(unittest.TestCase):
    """A survey drawing whose paper shows the axes pointing left and down."""

    def test_dxf_and_pdf_show_it_so_with_upright_texts(self):
        script = """parameter scale 500
parameter unit 1000
parameter coordinateSystem 0
parameter orientation 1
draw line 30000 2900000 30100 2900050
draw text 30020 2900030 35 "Erf 12"
draw arc 30010 2900000 30000 2900000 30000 2900010 0
"""
        with tempfile.TemporaryDirectory() as name:
            drawing = play(Path(name), script)
            document = ezdxf.readfile(Path(name) / "plate.dxf")
            self.assertEqual([e.message for e in document.audit().errors], [])
            line = document.modelspace().query("LINE").first
            wanted = drawing["primitives"][0]
            self.assertEqual((line.dxf.end.x, line.dxf.end.y), (-wanted["p2"][0], -wanted["p2"][1]))
            self.assertEqual(document.modelspace().query("TEXT").first.dxf.rotation, 0)
            self.assertAlmostEqual(document.modelspace().query("ARC").first.dxf.start_angle, 180)
            self.assertEqual(document.header["$INSUNITS"], 6)
            self.assertIn("Erf 12", run("pdftotext", Path(name) / "plate.pdf", "-").stdout.decode())


class Dashes(unittest.TestCase):
    """Programs that read DXF lay the patterns of line types themselves, in one of two ways."""

    LINETYPES = (2, 4, 5, 7, 11, 21, 22)

    def strokes(self):
        """A dashed stroke's length on paper and its pattern as a reader takes it: dash, gap, dash, gap, ..."""
        script = "parameter scale 2\n"
        for linetype in self.LINETYPES:
            script += f"style 1 {linetype} 2.5\n"
            script += "".join(f"draw line 0 {20 * n} {1.31 ** n:.3f} {20 * n}\n" for n in range(27))
            script += "draw arc 50 0 0 0 0 50 0\n" + "".join(f"draw circle 0 0 {5 * n}\n" for n in range(3, 50))
        with tempfile.TemporaryDirectory() as name:
            (Path(name) / "plate.scr").write_text(script + 'export "plate.dxf"\n', encoding="utf-8")
            run(BATCH, "run", Path(name) / "plate.scr", "-o", name)
            document = ezdxf.readfile(Path(name) / "plate.dxf")
        for entity in document.modelspace():
            tags = document.linetypes.get(entity.dxf.linetype).pattern_tags.tags
            scale = document.header["$LTSCALE"] * entity.dxf.get("ltscale", 1.0)
            yield entity, [abs(tag.value) * scale for tag in tags if tag.code == 49]

    @staticmethod
    def length(entity):
        if entity.dxftype() == "LINE":
            return (entity.dxf.end - entity.dxf.start).magnitude
        whole = 2 * math.pi * entity.dxf.radius
        return whole if entity.dxftype() == "CIRCLE" else whole / 4

    @staticmethod
    def ink(pattern, along):
        """How far within a dash, below 0 within a gap."""
        along %= sum(pattern)
        for at, length in enumerate(pattern):
            if along <= length:
                return min(along, length - along) * (-1 if at % 2 else 1)
            along -= length
        return 0.0

    def starts(self, length, pattern):
        """Where in the pattern readers begin: at its first dash, or so that both ends get as much of that dash and
        more than half of it."""
        yield 0.0
        runs = math.floor(length / sum(pattern))
        yield (runs * sum(pattern) + pattern[0] - length) / 2

    def test_middles_and_ends_of_lines_and_arcs_are_dashes_for_every_reader(self):
        dashed = 0
        for entity, pattern in self.strokes():
            length = self.length(entity)
            if entity.dxftype() == "CIRCLE" or pattern[0] >= length:
                continue
            dashed += 1
            for start in self.starts(length, pattern):
                for along in (0.1 * pattern[0], length / 2, length - 0.1 * pattern[0]):
                    self.assertGreater(self.ink(pattern, start + along), 0.0, (entity.dxf.linetype, length, along))
        self.assertGreater(dashed, 60)

    def test_circles_close_with_dashes_at_their_quarters(self):
        for entity, pattern in self.strokes():
            if entity.dxftype() == "CIRCLE" and pattern[0] < self.length(entity):
                runs = self.length(entity) / sum(pattern)
                self.assertAlmostEqual(runs / 4, round(runs / 4), 6)

    def test_short_lines_are_continuous(self):
        for entity, pattern in self.strokes():
            unscaled = sum(pattern) / entity.dxf.get("ltscale", 1.0)
            if entity.dxftype() == "LINE" and self.length(entity) < 0.99 * unscaled:
                self.assertGreater(pattern[0], self.length(entity))


if __name__ == "__main__":
    if BATCH is None:
        sys.exit(__doc__)
    unittest.main()

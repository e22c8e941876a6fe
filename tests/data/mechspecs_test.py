#!/usr/bin/python3
"""The libraries as their dialogs and a draughtsman meet them: fasteners, flanges, gears and links."""
import configparser
import math
import re
import unittest
from pathlib import Path

CATALOGUE = Path(__file__).resolve().parents[2] / "data" / "ISO Mechspecs.ini"
SECTIONS = ("BOLTS CAPSCREWS NUTS HOLES WELDS RIVETS SHAFTS GEARS LINKS FLANGES SURFACE_FINISH").split()
SIZES = (3, 4, 5, 6, 8, 10, 12, 16, 20, 24)
HOLE_SIZES = (*SIZES, 30, 36)

# The lengths of ISO 888 in which fasteners up to 360 are made, and the first and last of each size.
LENGTHS = (3, 4, 5, 6, 8, 10, 12, 16, 20, *range(25, 71, 5), *range(80, 161, 10), *range(180, 361, 20))
MADE = {
    "F": {3: (6, 30), 4: (8, 40), 5: (10, 50), 6: (12, 60), 8: (16, 80), 10: (20, 100), 12: (25, 120), 16: (30, 200),
          20: (40, 200), 24: (50, 200), 30: (60, 200), 36: (70, 200)},
    "CSK": {3: (8, 30), 4: (8, 40), 5: (8, 50), 6: (8, 60), 8: (10, 80), 10: (12, 100), 12: (20, 100), 16: (30, 100),
            20: (35, 100)},
    "SET": {3: (3, 16), 4: (4, 20), 5: (5, 25), 6: (6, 30), 8: (8, 40), 10: (10, 50), 12: (12, 60), 16: (16, 60),
            20: (20, 60), 24: (25, 60)},
}

LENGTH, INDEX = r",\d+\.\d{3}", r",\d"
FORMATS = {
    "BOLTS": ("Bolt", LENGTH * 6),
    "CAPSCREWS": ("Bolt", LENGTH * 8 + INDEX * 2),
    "NUTS": ("Nut", LENGTH * 8 + INDEX * 2),
    "HOLES": ("Hole", LENGTH * 4 + INDEX * 2 + LENGTH * 2),
    "RIVETS": ("Bolt", LENGTH * 3 + INDEX + LENGTH * 3 + INDEX),
    "GEARS": ("Bolt", r",\d+\.\d,\d+" + LENGTH * 2 + r",\d+\.\d{6}" * 2),
    "LINKS": ("Bolt", LENGTH * 10 + INDEX),
    "FLANGES": ("Flange", LENGTH * 5 + r",\d+"),
}
# Their parts are numbered under a name that is not the definition's.
NAMED_OTHERWISE = ("GEARS", "LINKS", "FLANGES")

# As printed in tables of fasteners, one part of each size: M10 unless the name says otherwise.
PUBLISHED = {
    "BOLTS": {
        "M8x40": "13.000,5.300,8.000,40.000,22.000,6.466",
        "M8x40F": "13.000,5.300,8.000,40.000,40.000,6.466",
    },
    "CAPSCREWS": {
        "M10x60": "16.000,10.000,10.000,60.000,28.000,8.160,10.000,8.000,0,0",
        "M24x200": "36.000,24.000,24.000,200.000,140.000,20.319,24.000,19.000,0,0",
        "M8x30CSK": "17.920,4.960,8.000,25.040,0.000,6.466,8.000,5.000,1,0",
        "M6x16BH": "10.500,3.300,6.000,16.000,0.000,4.773,6.000,4.000,2,0",
        "M12x20SET": "12.000,3.000,12.000,20.000,0.000,9.853,12.000,6.000,4,0",
    },
    "NUTS": {
        "M10": "16.000,8.400,10.000,14.600,8.376,0.000,0.000,0.000,0,0",
        "M12THINWF": "18.000,5.400,12.000,16.600,10.106,0.600,0.000,0.000,0,1",
        "M16CASTLE": "24.000,20.800,16.000,22.500,13.835,0.000,4.500,6.000,1,0",
    },
    "HOLES": {
        "M10x15TAP": "8.500,10.000,22.300,0.000,1,1,0.000,15.000",
        "M8CB": "9.000,0.000,16.600,8.600,0,0,15.000,0.000",
        "M16CLRC": "18.500,0.000,32.000,0.000,0,0,0.000,0.000",
        "M10CSK": "11.000,0.000,20.000,5.865,0,0,0.000,0.000",
        "M30CLR": "33.000,0.000,60.000,0.000,0,0,0.000,0.000",
        "M30x45TAP": "26.500,30.000,60.200,0.000,1,1,0.000,45.000",
        "M36TAPTHRU": "32.000,36.000,72.000,0.000,1,0,0.000,72.000",
    },
    "GEARS": {
        "M1 Z17": "20.0,17,1.000,0.000,0.000000,0.000000",
        "M4 Z25": "20.0,25,4.000,30.000,8.000000,3.843000",  # DIN 6885-1: 33.3 from the far side of the bore
    },
    "FLANGES": {
        "DN10 PN6": "75.000,18.000,22.000,11.000,50.000,4",
        "DN65 PN16": "185.000,77.500,36.000,18.000,145.000,8",
        "DN100 CL150": "230.000,116.100,38.200,19.100,190.500,8",
        "DN600 PN40": "890.000,616.500,96.000,48.000,795.000,20",
    },
    "RIVETS": {
        "4x12SNAP": "4.000,2.400,7.000,0,6.000,2.400,7.000,0",
        "5x12CSK": "5.000,2.500,8.800,4,9.000,2.500,8.800,4",
    },
}
# Of bolts by diameter: minor diameter, and thread length up to 125, up to 200 and beyond.
THREADS = {
    3: (2.387, 12), 4: (3.141, 14), 5: (4.019, 16), 6: (4.773, 18), 8: (6.466, 22), 10: (8.160, 26),
    12: (9.853, 30), 16: (13.546, 38, 44), 20: (16.933, 46, 52), 24: (20.319, 54, 60, 73),
    30: (25.706, 66, 72, 85), 36: (31.093, None, 84, 97),
}


class Mechspecs(unittest.TestCase):
    def setUp(self):
        self.file = configparser.ConfigParser(interpolation=None, comment_prefixes=(";",), delimiters=("=",), strict=True)
        self.file.optionxform = str
        self.file.read_string(CATALOGUE.read_bytes().decode("cp1252"))
        self.lines = {}
        for section, (key, _) in FORMATS.items():  # up to the first gap, as the definition store counts them
            lines = self.lines[section] = []
            while line := self.file[section].get(f"{key}{len(lines) + 1}", ""):
                lines.append(line)
        self.parts = {section: {line.split(",")[0]: line.partition(",")[2] for line in lines}
                      for section, lines in self.lines.items()}

    def numbers(self, section):
        return {name: list(map(float, fields.split(","))) for name, fields in self.parts[section].items()}

    def test_file_is_ascii_with_windows_line_ends(self):
        content = CATALOGUE.read_bytes()
        self.assertTrue(content.isascii() and content.endswith(b"\r\n"))
        self.assertEqual(content.count(b"\n"), content.count(b"\r\n"))
        self.assertEqual(content.count(b"\r"), content.count(b"\r\n"))

    def test_every_section_is_there_and_selects_its_first_entry(self):
        for section in SECTIONS:
            self.assertEqual(self.file[section]["Current"], "0")

    def test_setup_is_valid_and_its_symbol_files_lie_below_the_data_folder(self):
        setup = self.file["Setup"]
        for kind in ("Weld", "Tolerance", "SurfaceFinish"):
            path = setup[kind + "Symbols"]
            self.assertTrue(path.endswith(".drg"), path)
            self.assertFalse(path.startswith(("\\", "/")) or ":" in path or ".." in path, path)
        for line in ("Solid", "Hidden", "Center"):
            self.assertIn(int(setup[line + "LT"]), range(1, 33))
            self.assertRegex(setup[line + "LW"], r"^[0-4]\.\d\d$")

    def test_records_are_complete_and_printed_as_their_dialogs_save_them(self):
        for section, lines in self.lines.items():
            key, fields = FORMATS[section]
            self.assertEqual(len([k for k in self.file[section] if re.fullmatch(key + r"\d+", k)]), len(lines), section)
            for line in lines:
                self.assertRegex(line, "^[^,]{1,31}" + fields + "$")
        self.assertGreater(len(self.lines["BOLTS"]), 150)
        self.assertGreater(sum(map(len, self.lines.values())), 300)

    def test_names_are_short_and_differ_once_cleaned(self):
        for section, lines in self.lines.items():
            cleaned = {re.sub(r"[^A-Z0-9$_|-]", "_", line.split(",")[0].upper()) for line in lines}
            self.assertEqual(len(cleaned), len(lines), section)
            if section not in NAMED_OTHERWISE:
                self.assertLessEqual(max(map(len, cleaned)), 10, section)  # with "_S" and a number they make 15

    def test_parts_agree_with_published_tables(self):
        for section, parts in PUBLISHED.items():
            for name, fields in parts.items():
                self.assertEqual(self.parts[section].get(name), fields, name)

    def test_every_size_is_there(self):
        def sizes(section, word):
            return {float(m[1]) for name in self.parts[section] if (m := re.fullmatch(rf"M(\d+)(?:x[\d.]+)?{word}", name))}

        for section, words in {"CAPSCREWS": ("", "SET"), "NUTS": ("", "WF", "THIN", "THINWF"), "HOLES": ("CB",)}.items():
            for word in words:
                self.assertLessEqual(set(SIZES), sizes(section, word), f"{section} {word}")
        for word in ("TAP", "TAPTHRU", "CLR", "CLRF", "CLRC"):
            self.assertEqual(set(HOLE_SIZES), sizes("HOLES", word), word)

    def test_no_length_is_missing_between_the_shortest_and_the_longest_of_a_size(self):
        made = {}
        for section in ("BOLTS", "CAPSCREWS"):
            for name in self.parts[section]:
                size, length, word = re.fullmatch(r"M(\d+)x(\d+)(\w*)", name).groups()
                made.setdefault((section, word, int(size)), []).append(int(length))
        for kind, lengths in made.items():
            first, last = LENGTHS.index(lengths[0]), LENGTHS.index(lengths[-1])
            self.assertEqual(lengths, list(LENGTHS[first:last + 1]), kind)
        for word, sizes in MADE.items():
            found = {size: (lengths[0], lengths[-1]) for (_, its, size), lengths in made.items() if its == word}
            self.assertEqual(found, sizes, word)

    def test_bolts_are_sound_named_for_their_sizes_and_in_their_order(self):
        bolts = self.numbers("BOLTS")
        for name, (head_size, head_height, diameter, length, thread, minor) in bolts.items():
            with self.subTest(name):
                self.assertTrue(head_size >= diameter > minor and length >= thread > 0 and head_height > 0)
                self.assertLessEqual(max(head_size, length), 10000)
                self.assertEqual(name, f"M{diameter:g}x{length:g}" + ("F" if thread == length else ""))
                published_minor, *thread_lengths = THREADS[diameter]
                self.assertEqual(minor, published_minor)
                if not name.endswith("F"):
                    self.assertEqual(thread, thread_lengths[(length > 125) + (length > 200)])
        order = [(diameter, length, thread == length) for _, _, diameter, length, thread, _ in bolts.values()]
        self.assertEqual(order, sorted(set(order)))
        self.assertEqual({diameter for diameter, *_ in order}, set(THREADS))
        spacing = float(self.file["Defaults"]["BoltRepeat"].split(",")[0])
        self.assertGreaterEqual(spacing, max(bolt[0] for bolt in bolts.values()), "repeats leave no room for a head")

    def test_a_screw_fits_its_counterbore_its_hole_and_its_nut(self):
        screws, nuts, holes = map(self.numbers, ("CAPSCREWS", "NUTS", "HOLES"))
        for size in SIZES:
            head, height, nominal = next(s[:3] for name, s in screws.items() if re.fullmatch(rf"M{size}x\d+", name))
            clearance, _, _, depth, _, _, bore, _ = holes[f"M{size}CB"]
            self.assertTrue(clearance > nominal and bore > head and depth > height, size)
            self.assertTrue(nuts[f"M{size}"][4] < nominal and holes[f"M{size}TAPTHRU"][0] < nominal, size)

    def test_flanges_hold_their_holes_apart_from_bore_edge_and_each_other(self):
        for name, (outside, bore, corner, hole, pitch, count) in self.numbers("FLANGES").items():
            with self.subTest(name):
                self.assertTrue(outside > bore and corner > hole and pitch / 2 > (bore + hole) / 2)
                self.assertGreater(pitch * math.sin(math.pi / count), 1.4 * hole)
                self.assertTrue(outside > pitch + hole if count >= 4 else abs(outside - corner) < pitch)

    def test_gears_keep_their_bore_and_links_their_holes_inside_the_material(self):
        for name, (_, teeth, module, bore, width, depth) in self.numbers("GEARS").items():
            self.assertEqual(name, f"M{module:g} Z{teeth:g}")
            self.assertLessEqual(bore + 2 * depth, 0.5 * module * (teeth - 2.5), name)
            self.assertTrue(width < bore or bore == 0, name)
        for name, (left, left_hole, length, right, right_hole, *_) in self.numbers("LINKS").items():
            self.assertEqual(name.split()[1], f"{length:g}")
            self.assertTrue(left >= 1.8 * left_hole and right >= 1.8 * right_hole and length > (left + right) / 2, name)

    def test_screws_have_the_lengths_that_their_standards_say(self):
        for name, (_, height, nominal, shaft, shank, *_) in self.numbers("CAPSCREWS").items():
            if shank > 0:
                self.assertAlmostEqual(shaft - shank, 2 * nominal + 12, msg=name)
            if name.endswith("CSK"):  # its length is that over all
                self.assertAlmostEqual(height + shaft, float(re.search(r"x(\d+)", name)[1]), msg=name)


if __name__ == "__main__":
    unittest.main(argv=["mechspecs_test"])  # ctest hands over the batch tool

#!/usr/bin/python3
"""The libraries of screws, nuts, holes and rivets, and the pictures of their dialogs, as a draughtsman meets them."""
import configparser
import re
import subprocess
import sys
import unittest
from pathlib import Path
from xml.etree import ElementTree

ROOT = Path(__file__).resolve().parents[2]
CATALOGUE = ROOT / "data" / "ISO Mechspecs.ini"
SIZES = (3, 4, 5, 6, 8, 10, 12, 16, 20, 24)

LENGTH, INDEX = r",\d+\.\d{3}", r",\d"
FORMATS = {
    "CAPSCREWS": ("Bolt", LENGTH * 8 + INDEX * 2),
    "NUTS": ("Nut", LENGTH * 8 + INDEX * 2),
    "HOLES": ("Hole", LENGTH * 4 + INDEX * 2 + LENGTH * 2),
    "RIVETS": ("Bolt", LENGTH * 3 + INDEX + LENGTH * 3 + INDEX),
}

# As printed in tables of fasteners, one part of each size: M10 unless the name says otherwise.
PUBLISHED = {
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
    },
    "RIVETS": {
        "4x12SNAP": "4.000,2.400,7.000,0,6.000,2.400,7.000,0",
        "5x12CSK": "5.000,2.500,8.800,4,9.000,2.500,8.800,4",
    },
}


def records():
    """The records of each section up to its first gap, by name: the fields as text."""
    catalogue = configparser.ConfigParser(interpolation=None, comment_prefixes=(";",), delimiters=("=",), strict=True)
    catalogue.optionxform = str
    catalogue.read_string(CATALOGUE.read_bytes().decode("cp1252"))
    for section, (key, _) in FORMATS.items():
        lines = []
        while line := catalogue[section].get(f"{key}{len(lines) + 1}", ""):
            lines.append(line)
        yield section, lines


class FastenerRecordsTest(unittest.TestCase):
    def setUp(self):
        self.lines = dict(records())
        self.parts = {section: {line.split(",")[0]: line.partition(",")[2] for line in lines}
                      for section, lines in self.lines.items()}

    def numbers(self, section):
        return {name: list(map(float, fields.split(","))) for name, fields in self.parts[section].items()}

    def test_records_are_printed_as_their_dialogs_save_them(self):
        for section, lines in self.lines.items():
            for line in lines:
                self.assertRegex(line, "^[^,]{1,31}" + FORMATS[section][1] + "$")
        self.assertGreater(sum(map(len, self.lines.values())), 150)

    def test_names_are_short_and_differ_once_cleaned(self):
        for section, lines in self.lines.items():
            cleaned = {re.sub(r"[^A-Z0-9$_|-]", "_", line.split(",")[0].upper()) for line in lines}
            self.assertEqual(len(cleaned), len(lines), section)
            self.assertLessEqual(max(map(len, cleaned)), 10, section)

    def test_parts_agree_with_published_tables(self):
        for section, parts in PUBLISHED.items():
            for name, fields in parts.items():
                self.assertEqual(self.parts[section].get(name), fields, name)

    def test_every_size_is_there(self):
        def sizes(section, word):
            return {float(m[1]) for name in self.parts[section] if (m := re.fullmatch(rf"M(\d+)(?:x[\d.]+)?{word}", name))}

        for section, words in {"CAPSCREWS": ("", "SET"), "NUTS": ("", "WF", "THIN", "THINWF"),
                               "HOLES": ("TAP", "TAPTHRU", "CLR", "CB")}.items():
            for word in words:
                self.assertLessEqual(set(SIZES), sizes(section, word), f"{section} {word}")

    def test_a_screw_fits_its_counterbore_its_hole_and_its_nut(self):
        screws, nuts, holes = map(self.numbers, ("CAPSCREWS", "NUTS", "HOLES"))
        for size in SIZES:
            head, height, nominal = next(s[:3] for name, s in screws.items() if re.fullmatch(rf"M{size}x\d+", name))
            clearance, _, _, depth, _, _, bore, _ = holes[f"M{size}CB"]
            self.assertGreater(clearance, nominal)
            self.assertGreater(bore, head)
            self.assertGreater(depth, height)
            self.assertLess(nuts[f"M{size}"][4], nominal)
            self.assertLess(holes[f"M{size}TAPTHRU"][0], nominal)

    def test_the_threaded_end_of_a_screw_is_as_long_as_its_standard_says(self):
        for name, (_, _, nominal, shaft, shank, *_) in self.numbers("CAPSCREWS").items():
            if shank > 0:
                self.assertAlmostEqual(shaft - shank, 2 * nominal + 12, msg=name)

    def test_a_countersunk_screw_is_as_long_over_all_as_it_is_called(self):
        for name, (_, height, _, shaft, *_) in self.numbers("CAPSCREWS").items():
            if name.endswith("CSK"):
                self.assertAlmostEqual(height + shaft, float(re.search(r"x(\d+)", name)[1]), msg=name)


class PicturesTest(unittest.TestCase):
    def test_committed_pictures_follow_their_script(self):
        done = subprocess.run([ROOT / "data" / "make_pictures.py", "--check"], capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_dialogs_name_pictures_that_are_there_and_no_other_is(self):
        named = set()
        for source in (*(ROOT / "mech").glob("*.cpp"), *(ROOT / "arch").glob("*.cpp")):
            named |= set(re.findall(r'"((?:nut|rivet|screw|key|wall)_[a-z_]+)"', source.read_text(encoding="utf-8")))
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

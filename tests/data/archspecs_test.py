#!/usr/bin/python3
"""Laws of the architectural specification file that ships."""

import configparser
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
LISTS = {"BLDG_STD_TYPES": ("BldgStd", 6), "WALL_TYPES": ("Wall", 36), "STAIRS_TREADS": ("Tread", 8), "STAIRS_RAILINGS": ("Rail", 15)}


class ArchSpecs(unittest.TestCase):
    def setUp(self):
        self.file = configparser.ConfigParser(interpolation=None, delimiters=("=",), comment_prefixes=(";",))
        self.file.optionxform = str
        self.file.read_string((ROOT / "data" / "ArchSpecs.ini").read_text(encoding="ascii"))

    def records(self, section):
        return [value.split(",") for value in self.file[section].values()]

    def test_lists_are_numbered_without_gaps_and_their_records_complete(self):
        for section, (prefix, fields) in LISTS.items():
            records = self.file[section]
            self.assertEqual(list(records), [f"{prefix}{n}" for n in range(1, len(records) + 1)])
            self.assertGreaterEqual(len(records), 3)
            for key, value in records.items():
                self.assertEqual(len(value.split(",")), fields, key)
            names = [record[0] for record in self.records(section)]
            self.assertEqual(len(set(names)), len(names))
            self.assertTrue(all(0 < len(name) <= 31 for name in names))

    def test_walls_have_sound_rows_and_stand_inside_their_foundations(self):
        for record in self.records("WALL_TYPES"):
            rows = [record[7 + 4 * row:11 + 4 * row] for row in range(6)]
            for pen, linetype, width, visible in rows:
                self.assertTrue(1 <= int(pen) <= 256 and 1 <= int(linetype) <= 32 and 0 < float(width) <= 72, record[0])
                self.assertIn(visible, "01")
            self.assertEqual((rows[1][3], rows[4][3]), ("1", "1"), record[0])  # the faces are always drawn
            outer, leaf, cavity, inner, within = map(float, record[31:])
            self.assertEqual(outer, within, "a strip is centred below its wall")
            self.assertGreater(inner, 0)
            if record[2] == "0":
                self.assertTrue(leaf > 0 and cavity > 0)

    def test_settings_name_records_that_are_there_and_clean_layers(self):
        for section, key, records in (("BLDG_STD", "Current", "BLDG_STD_TYPES"), ("WALLS", "Current", "WALL_TYPES"),
                                      ("STAIRS_GENERAL", "CurrentTread", "STAIRS_TREADS"),
                                      ("STAIRS_GENERAL", "CurrentRailing", "STAIRS_RAILINGS")):
            self.assertIn(int(self.file[section][key]), range(1, len(self.file[records]) + 1), section)
        for key, kind in (("InternalWall", "1"), ("ExternalWall", "0")):
            self.assertEqual(self.records("WALL_TYPES")[int(self.file["WALLS"][key]) - 1][2], kind, key)
        layers = [record[1] for record in self.records("WALL_TYPES")]
        layers += [v for s in self.file for k, v in self.file[s].items() if re.search("Layer$|View$|XSect$", k)]
        for layer in layers:
            self.assertRegex(layer, r"^[A-Z0-9$_|-]{1,31}$")

    def test_flights_and_railings_meet_a_standard_that_ships(self):
        standards = [tuple(map(float, record[1:])) for record in self.records("BLDG_STD_TYPES")]
        for name, _, rise, going, _, width, nosing, _ in self.records("STAIRS_TREADS"):
            deep = float(going) >= 260  # such treads need not reach over each other
            self.assertTrue(any(float(rise) <= most and float(going) >= least and float(width) >= clear and
                                (deep or float(nosing) >= over) for most, least, clear, over, _ in standards), name)
        for record in self.records("STAIRS_RAILINGS"):
            treads, newel, count, width = int(record[3]), float(record[5]), int(record[13]), float(record[14])
            gap = (treads * 250 - newel - count * width) / (count + 1)
            self.assertTrue(record[12] == "0" or gap <= 100, record[0])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])  # ctest hands over the batch tool

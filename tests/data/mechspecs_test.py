#!/usr/bin/python3
"""The bolt catalogue as the bolt dialog and a draughtsman meet it."""
import configparser
import re
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
CATALOGUE = ROOT / "data" / "ISO Mechspecs.ini"
SECTIONS = ("BOLTS CAPSCREWS NUTS HOLES WELDS RIVETS SHAFTS GEARS LINKS FLANGES SURFACE_FINISH").split()

# As printed in tables of fasteners: minor diameter, and thread length up to 125, up to 200 and beyond.
PUBLISHED = {
    3: (2.387, 12), 4: (3.141, 14), 5: (4.019, 16), 6: (4.773, 18), 8: (6.466, 22), 10: (8.160, 26),
    12: (9.853, 30), 16: (13.546, 38, 44), 20: (16.933, 46, 52), 24: (20.319, 54, 60, 73),
    30: (25.706, 66, 72, 85), 36: (31.093, None, 84, 97),
}


def load():
    catalogue = configparser.ConfigParser(interpolation=None, comment_prefixes=(";",), delimiters=("=",), strict=True)
    catalogue.optionxform = str
    catalogue.read_string(CATALOGUE.read_bytes().decode("cp1252"))
    return catalogue


def numbered_records(section):
    """Records 1, 2, 3, ... up to the first missing one, as the definition store counts them."""
    records = []
    while record := section.get(f"Bolt{len(records) + 1}", ""):
        records.append(record)
    return records


class MechspecsTest(unittest.TestCase):
    def setUp(self):
        self.file = load()
        self.records = numbered_records(self.file["BOLTS"])
        self.bolts = [(r.split(",")[0], *map(float, r.split(",")[1:])) for r in self.records]

    def testCommittedFileFollowsItsTables(self):
        done = subprocess.run([ROOT / "data" / "make_mechspecs.py", "--check"], capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)

    def testFileIsAsciiWithWindowsLineEnds(self):
        content = CATALOGUE.read_bytes()
        self.assertTrue(content.isascii())
        self.assertEqual(content.count(b"\n"), content.count(b"\r\n"))
        self.assertEqual(content.count(b"\r"), content.count(b"\r\n"))
        self.assertTrue(content.endswith(b"\r\n"))

    def testEveryKeyOfTheBoltSectionIsCounted(self):
        self.assertEqual(len([key for key in self.file["BOLTS"] if key.startswith("Bolt")]), len(self.records))
        self.assertGreaterEqual(len(self.records), 150)

    def testEveryBoltPassesTheDialogAsItStands(self):
        for name, head_size, head_height, diameter, length, thread, minor in self.bolts:
            with self.subTest(name):
                self.assertGreaterEqual(head_size, diameter)
                self.assertGreater(head_height, 0)
                self.assertGreaterEqual(length, thread)
                self.assertGreater(thread, 0)
                self.assertGreater(diameter, minor)
                self.assertLessEqual(max(head_size, length), 10000)

    def testFieldsArePrintedAsTheDialogSavesThem(self):
        for record in self.records:
            self.assertRegex(record, r"^[^,]{1,31}(,\d+\.\d{3}){6}$")

    def testNamesSurviveCleaningAndNumbering(self):
        cleaned = {re.sub(r"[^A-Z0-9$_|-]", "_", name.upper()) for name, *_ in self.bolts}
        self.assertEqual(len(cleaned), len(self.bolts))
        for name in cleaned:
            self.assertLessEqual(len(f"{name}_S9999"), 15)

    def testNamesTellDiameterLengthAndThread(self):
        for name, _, _, diameter, length, thread, _ in self.bolts:
            self.assertEqual(name, f"M{diameter:g}x{length:g}" + ("F" if thread == length else ""))

    def testBoltsStandByDiameterThenLength(self):
        order = [(diameter, length) for _, _, _, diameter, length, *_ in self.bolts]
        self.assertEqual(order, sorted(set(order)))

    def testThreadsAgreeWithPublishedTables(self):
        self.assertEqual({bolt[3] for bolt in self.bolts}, set(PUBLISHED))
        for name, _, _, diameter, length, thread, minor in self.bolts:
            published_minor, *thread_lengths = PUBLISHED[diameter]
            self.assertEqual(minor, published_minor, name)
            if not name.endswith("F"):
                self.assertEqual(thread, thread_lengths[(length > 125) + (length > 200)], name)

    def testEverySectionIsThereAndSelectsItsFirstEntry(self):
        for section in SECTIONS:
            self.assertEqual(self.file[section]["Current"], "0")

    def testSetupIsValidAndItsSymbolFilesLieBelowTheDataFolder(self):
        setup = self.file["Setup"]
        for kind in ("Weld", "Tolerance", "SurfaceFinish"):
            path = setup[kind + "Symbols"]
            self.assertTrue(path.endswith(".drg"), path)
            self.assertFalse(path.startswith(("\\", "/")) or ":" in path or ".." in path, path)
        for line in ("Solid", "Hidden", "Center"):
            self.assertIn(int(setup[line + "LT"]), range(1, 33))
            self.assertRegex(setup[line + "LW"], r"^[0-4]\.\d\d$")

    def testRepeatsOfferedLeaveRoomForTheLargestHead(self):
        spacing = float(self.file["Defaults"]["BoltRepeat"].split(",")[0])
        self.assertGreaterEqual(spacing, max(bolt[1] for bolt in self.bolts))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])  # ctest hands over the batch tool

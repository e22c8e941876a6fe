"""The batch tool as its callers meet it: exit codes, messages, what is written and what is not."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

BATCH = pathlib.Path(sys.argv[1]).resolve()
LIBRARY = 'setting "MechanicalTools" "SpecFile" "ISO Mechspecs.ini"\n'
ONE_BOLT = 'run MechDrawBolts\ndialog "Mechanical Ardenix - Hex Bolts"\n  press "OK"\n'
PLACED = 'point 10 20\nmenu "No Rotation"\nspace\n'


class Batch(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.out = self.folder / "out"

    def run_batch(self, *words):
        environment = {key: value for key, value in os.environ.items() if key != "DISPLAY"}
        return subprocess.run([BATCH, *words], capture_output=True, text=True, check=False, env=environment,
                              cwd=self.folder, timeout=120)

    def play(self, text, *words):
        (self.folder / "x.scr").write_text(text, encoding="utf-8")
        return self.run_batch("run", "x.scr", "-o", "out", *words)

    def written(self):
        return sorted(path.name for path in self.out.rglob("*")) if self.out.exists() else []

    def test_exit_codes(self):
        self.assertEqual(self.run_batch("--help").returncode, 0)
        self.assertIn("6.40", self.run_batch("--version").stdout)
        for wrong in ([], ["fly"], ["run"], ["run", "x.scr", "--sideways"]):
            self.assertEqual(self.run_batch(*wrong).returncode, 2, wrong)
        self.assertEqual(self.run_batch("run", "nowhere.scr").returncode, 3)
        self.assertEqual(self.run_batch("run", "/dev/zero").returncode, 3)
        self.assertEqual(self.run_batch("describe", "MechDrawMoons").returncode, 1)
        self.assertEqual(self.play("layer \"A\"\n", "--transcript", "no/such/folder/t.jsonl").returncode, 4)
        self.assertEqual(self.play("layer \"A\"\n", "--settings", "nowhere.ini").returncode, 3)

    def test_commands_and_their_dialogs_are_listed(self):
        self.assertEqual([line.split("\t")[0] for line in self.run_batch("commands").stdout.splitlines()][:2],
                         ["DisplayMechSetup", "MechDrawBolts"])
        described = self.run_batch("describe", "MechDrawBolts").stdout
        for line in ('"Thread length"  number  0 to 10000', 'dialog "Save Changes to Bolt?"', '"Name for new Bolt"  text'):
            self.assertIn(line, described)

    def test_bad_input_names_file_line_and_rule_and_writes_nothing_after_it(self):
        cases = [
            (LIBRARY + ONE_BOLT + 'text "x"\n', 5, "asks for a point, the script gave: text"),
            (LIBRARY + ONE_BOLT + PLACED + "point 1 1\n", 8, "no command waits for an answer"),
            ("hop\n", 1, 'there is no statement "hop"'),
            ('export "../x.svg"\n', 1, "climbs out"),
            ('export "a.txt"\n', 1, "export writes files ending in"),
        ]
        for text, line, rule in cases:
            shutil.rmtree(self.out, ignore_errors=True)
            done = self.play(text + 'export "late.svg"\n')
            self.assertEqual(done.returncode, 1, text)
            self.assertIn(f"x.scr:{line}: ", done.stderr, text)
            self.assertIn(rule, done.stderr, text)
            self.assertNotIn("late.svg", self.written())

    def test_settings_files_are_read_and_worked_on_as_copies(self):
        settings = self.folder / "config" / "brevan" / "settings.ini"
        settings.parent.mkdir(parents=True)
        settings.write_text("[MechanicalTools]\nSpecFile=ISO Mechspecs.ini\n", encoding="ascii")
        before = settings.read_bytes()
        os.environ["XDG_CONFIG_HOME"] = str(self.folder / "config")
        self.addCleanup(os.environ.pop, "XDG_CONFIG_HOME")
        for words in (["--settings", settings], ["--user-settings"]):
            done = self.play(ONE_BOLT + PLACED, *words)
            self.assertEqual(done.returncode, 0, done.stderr)
            self.assertEqual(settings.read_bytes(), before)
        self.assertEqual(self.run_batch("run", "x.scr", "--user-settings", "--settings", "x.ini").returncode, 2)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

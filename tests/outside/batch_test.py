"""The batch tool as its callers meet it: exit codes, messages, what is written and what is not."""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
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
        (self.folder / "bad.dxf").write_text("0\nSECTION\n", encoding="ascii")
        (self.folder / "good.sym").write_text("symbol A\n  line 0 0 1 1\n", encoding="ascii")
        for words, code in (("good.sym", "x.docx"), 2), (("good.png", "x.dxf"), 2), (("bad.dxf", "x.json"), 3), (
                ("none.drg", "x.json"), 3), (("good.sym", "no/such/folder/x.json"), 4), (("good.sym", "good.sym"), 2), (("good.sym", "x.drg"), 0):
            self.assertEqual(self.run_batch("convert", *words).returncode, code, words)
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
            ('draw line 0 0 9 9\nexport "../x.svg"\n', 2, "climbs out"),
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

    def test_a_page_shows_the_drawing_or_says_why_not(self):
        line = "0\nLINE\n8\n0\n10\n{}\n20\n{}\n11\n{}\n21\n{}\n"
        file = "0\nSECTION\n2\nENTITIES\n{}0\nENDSEC\n0\nEOF\n"
        (self.folder / "house.dxf").write_text(file.format(line.format(5000, 0, 17000, 8000)), encoding="ascii")
        (self.folder / "empty.dxf").write_text(file.format(""), encoding="ascii")
        sizes = {(): "420mm", ("--scale", "1:100"): "297mm", ("--scale", "1:20", "--paper", "A1"): "841mm"}
        for options, width in sizes.items():
            done = self.run_batch("convert", "house.dxf", "house.svg", *options)
            self.assertEqual(done.returncode, 0, done.stderr)
            self.assertIn(f'width="{width}"', (self.folder / "house.svg").read_text(encoding="utf-8"))
            self.assertEqual("on A3 at 1:50" in done.stderr, not options, done.stderr)
        for ending in ("svg", "pdf", "png"):
            done = self.run_batch("convert", "empty.dxf", "empty." + ending)
            self.assertEqual((done.returncode, (self.folder / ("empty." + ending)).exists()), (4, False))
            self.assertIn("empty", done.stderr)
        self.assertEqual(self.run_batch("convert", "house.dxf", "x.pdf", "--scale", "0:1").returncode, 2)
        done = self.play('open "house.dxf"\nexport "a.svg" scale "1:100" paper A4\nexport "b.svg"\n')
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("on A3 at 1:50", done.stderr)
        self.assertEqual(['width="297mm"' in (self.out / name).read_text(encoding="utf-8")[:300] for name in ("a.svg", "b.svg")], [True, False])

    def test_a_signal_ends_reading_painting_and_writing_too(self):
        """Wherever the work is, in the toolkit or the database, too; a drawing that takes seconds in each."""
        arcs = "".join(f"0\nARC\n8\n0\n10\n{n % 1000}\n20\n{n // 1000}\n40\n0.4\n50\n0\n51\n270\n" for n in range(400_000))
        (self.folder / "arcs.dxf").write_text("0\nSECTION\n2\nENTITIES\n" + arcs + "0\nENDSEC\n0\nEOF\n", encoding="ascii")
        (self.folder / "x.scr").write_text('open "arcs.dxf"\nexport "x.pdf"\n', encoding="utf-8")
        self.out.mkdir()
        works = [["convert", "arcs.dxf", f"out/x.{ending}"] for ending in ("pdf", "png", "svg", "drg")]
        for n, words in enumerate(works + [["run", "x.scr", "-o", "out"]]):
            number = (signal.SIGINT, signal.SIGTERM)[n % 2]
            with subprocess.Popen([BATCH, *words], cwd=self.folder, stderr=subprocess.PIPE) as program:
                self.wait_until_caught(program, signal.SIGALRM)
                time.sleep(0.1 * n)
                program.send_signal(number)
                self.assertEqual(program.wait(timeout=60), 128 + number, words)
                self.assertEqual(program.stderr.read(), b"stopped by a signal\n")
            self.assertEqual(self.written(), [])

    def wait_until_caught(self, program, number):
        """Until the program heeds the signal."""
        while program.poll() is None:
            status = pathlib.Path(f"/proc/{program.pid}/status").read_text(encoding="ascii")
            if int(status.split("SigCgt:")[1].split()[0], 16) >> (number - 1) & 1:
                return
            time.sleep(0.005)
        self.fail("it ended before a signal came")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

"""What the fault tests share: the programs under test, a folder for each test, and system calls that fail."""

import os
import pathlib
import random
import signal
import subprocess
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "outside"))  # screen.py
BATCH = pathlib.Path(sys.argv[1]).resolve()
BUILD = BATCH.parent
DATA = BUILD.parent / "share" / "brevan"
EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
FAULT_CALLS = BUILD / "libfault_calls.so"
# The whole suite takes minutes; without this every test takes a sample, always the same one but for FAULTS_SEED.
WHOLE = os.environ.get("FAULTS_WHOLE") == "1"
SEED = int(os.environ.get("FAULTS_SEED", "1"))
SECONDS = 120

LIBRARY_OF = 'setting "MechanicalTools" "SpecFile" "{}"\n'
DRAWING = """parameter scale 2
layer "W\u00e4nde"
style 3 4 2.5
draw line 20 20 120.125 80
draw circle 400 300 50.5
draw text 20 350 70 "Gr\u00f6\u00dfe \u00d820, 50 % & <mehr>"
layer "Achsen"
draw arc 180 200 150 200 150 230 1
"""


def amount(whole, sample):
    """How often a test repeats: in the whole suite, and in the sample of every change."""
    return whole if WHOLE else sample


def add_bolt(name):
    """Keeps a changed bolt as a new one, and draws none."""
    return ('run MechDrawBolts\ndialog "Mechanical Ardenix - Hex Bolts"\n  pick "Definition" "M12x120"\n'
            '  set "Length" 150\n  set "Thread length" 36\n  press "OK"\ndialog "Save Changes to Bolt?"\n'
            '  pick "Choice" "Save the changes as a new definition"\n  press "OK"\ndialog "Ardenix - Add New Item"\n'
            f'  set "Name for new Bolt" "{name}"\n  press "OK"\nspace\n')


class FaultTest(unittest.TestCase):
    """A folder of the test's own, with "out" in it for what is written."""

    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="brevan-faults-")
        self.addCleanup(place.cleanup)
        self.folder = pathlib.Path(place.name).resolve()
        self.folder.chmod(0o755)
        self.out = self.folder / "out"
        self.out.mkdir()
        self.random = random.Random(f"{SEED} {self.id()}")

    def environment(self, **more):
        keep = {key: value for key, value in os.environ.items() if key not in ("DISPLAY", "WAYLAND_DISPLAY")}
        return dict(keep, HOME=str(self.folder), QT_QPA_PLATFORM="offscreen", **more)

    def faulty(self, below=None, **faults):
        """The environment in which calls below "out", or another folder, fail as told: at, do, log, count, new_at."""
        named = {"FAULTS_" + key.upper(): str(value) for key, value in faults.items()}
        # Under the sanitizer this library comes first, and its own runtime second.
        sanitizer = os.environ.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0:alloc_dealloc_mismatch=0"
        if "new_at" in faults:
            # A toolkit that runs out of memory leaves some behind, and may break.
            sanitizer += ":detect_leaks=0:handle_segv=0"
        return self.environment(LD_PRELOAD=str(FAULT_CALLS), FAULTS_BELOW=str(below or self.out), ASAN_OPTIONS=sanitizer,
                                **named)

    def batch(self, *words, environment=None, **keys):
        keys = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, "stdin": subprocess.DEVNULL, "timeout": SECONDS, **keys}
        return subprocess.run([BATCH, *words], check=False, cwd=self.folder, env=environment or self.environment(), **keys)

    def write(self, name, content):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content.encode("utf-8") if isinstance(content, str) else content)
        return path

    def play(self, text, *words, **keys):
        self.write("x.scr", text)
        return self.batch("run", "x.scr", "-o", "out", *words, **keys)

    def sample_drawing(self, ending="drg", text=DRAWING):
        """A drawing file beside "out", made by the program itself."""
        name = "sample." + ending
        statement = "save" if ending == "drg" else "export"
        self.write("sample.scr", text + f'{statement} "{name}"\n')
        done = self.batch("run", "sample.scr", "-o", ".")
        self.assertEqual(done.returncode, 0, done.stderr)
        return self.folder / name

    def names(self):
        return {str(path.relative_to(self.out)) for path in self.out.rglob("*") if path.is_file()}

    def assertRefused(self, done, codes, *words):
        """One message that holds the words, a code that says what failed, and no crash."""
        said = done.stderr.decode("utf-8", "replace")
        self.assertIn(done.returncode, codes, said)
        self.assertTrue(said.strip(), "no message")
        self.assertLess(len(said), 2000, said[:2000])
        for word in words:
            self.assertIn(word, said)

    def assertDone(self, done):
        self.assertEqual(done.returncode, 0, done.stderr[:2000])


def killed(done):
    return done.returncode == -signal.SIGKILL


SKIPPED = 77  # the exit status that ctest and ../run take for a test that this system does not allow


def main(reason_to_skip=lambda: ""):
    """Runs the tests, or says why this system does not allow them."""
    reason = reason_to_skip()
    if reason:
        print("skipped:", reason)
        sys.exit(SKIPPED)
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]], verbosity=2 if WHOLE else 1)

"""The desktop: killed at its first start and while it keeps work for recovery, cut off from power, in another locale.

    desktop_test.py BATCH
"""

import collections
import contextlib
import pathlib
import shutil
import signal
import sqlite3
import subprocess
import time

import power_cut
from fault_program import BUILD, DATA, SECONDS, FaultTest, amount, killed, main

DESKTOP = BUILD / "brevan"
SESSIONS = BUILD / "desktop_tests"
# The points that a killed session had been given come back as lines of a layer of their own.
OWN_LINES = """SELECT count(*) FROM lines WHERE symbol = 0
               AND layer NOT IN (SELECT layer FROM layers WHERE name = 'Points given')"""


class FirstStart(FaultTest):
    """What ships is copied to the person's own folders; no file of them may be there in part."""

    def setUp(self):
        super().setUp()
        self.shipped = {str(path.relative_to(DATA)): path.read_bytes() for path in DATA.rglob("*") if path.is_file()}

    def start(self, **faults):
        home = {"XDG_CONFIG_HOME": str(self.out / "config"), "XDG_DATA_HOME": str(self.out / "data")}
        return subprocess.Popen([DESKTOP], cwd=self.folder, env=dict(self.faulty(**faults), **home), stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def own(self):
        folder = self.out / "data" / "brevan"
        return {str(path.relative_to(folder)): path.read_bytes() for path in folder.rglob("*")
                if path.is_file() and not path.name.endswith(".saving")}

    def begin_to_end(self, **faults):
        """Starts it, lets it come up, ends it."""
        program = self.start(**faults)
        limit = time.monotonic() + SECONDS
        while self.own() != self.shipped and program.poll() is None and time.monotonic() < limit:
            time.sleep(0.05)
        if program.poll() is None:
            program.kill()
        return program.wait(timeout=SECONDS)

    def test_killed_at_its_calls(self):
        count = self.folder / "count"
        self.assertEqual(self.begin_to_end(count=count), -signal.SIGKILL)
        self.assertEqual(self.own(), self.shipped)
        calls = int(count.read_text(encoding="ascii"))
        self.assertGreater(calls, len(self.shipped))
        for call in sorted(self.random.sample(range(1, calls - 20), amount(100, 4))):
            shutil.rmtree(self.out)
            self.out.mkdir()
            self.assertEqual(self.start(at=call, do="kill").wait(timeout=SECONDS), -signal.SIGKILL)
            for name, content in self.own().items():
                self.assertTrue(content == self.shipped[name], f"{name} is there in part after call {call}")
        self.begin_to_end()
        self.assertEqual(self.own(), self.shipped)
        settings = self.out / "config" / "brevan" / "settings.ini"
        self.assertIn(b"SpecFile=ISO Mechspecs.ini", settings.read_bytes())


class Recovery(FaultTest):
    """Each run of the session opens what the last one kept, draws one line more and dies."""

    def setUp(self):
        super().setUp()
        self.recovery = self.out / "recovery"
        self.recovery.mkdir()

    def run_session(self, what, **faults):
        environment = dict(self.faulty(below=self.recovery, **faults), BREVAN_TEST_ROOT=str(self.out), LANG="C")
        return subprocess.run([SESSIONS, "--gtest_also_run_disabled_tests", "--gtest_filter=KilledSession.*" + what], check=False,
                              cwd=self.folder, env=environment, capture_output=True, stdin=subprocess.DEVNULL, timeout=SECONDS)

    def session(self, **faults):
        done = self.run_session("Line", **faults)
        self.assertTrue(killed(done), done.stdout[-2000:])

    def most_lines_kept(self, files):
        """Looks at files of recovery in a folder of their own, as the next start would."""
        most = 0
        for name, content in files.items():
            (self.folder / "found").mkdir(exist_ok=True)
            (self.folder / "found" / pathlib.Path(name).name).write_bytes(content)
        for path in sorted((self.folder / "found").glob("*.drg")):
            with contextlib.closing(sqlite3.connect(path)) as database, contextlib.suppress(sqlite3.DatabaseError):
                most = max(most, database.execute(OWN_LINES).fetchone()[0])
        shutil.rmtree(self.folder / "found", ignore_errors=True)
        return most

    def test_power_cut_after_a_command_keeps_it(self):
        for command in range(1, amount(12, 4) + 1):
            log = self.folder / "log"
            log.unlink(missing_ok=True)
            disk = power_cut.Disk(self.recovery)
            self.session(log=log)
            operations = power_cut.read_log(log)
            self.assertTrue(operations)
            for left in disk.after_cut(operations, self.random, amount(20, 4)):
                self.assertEqual(self.most_lines_kept(left), command, sorted(left))

    def test_power_cut_at_any_moment_keeps_what_was_kept_before(self):
        for _ in range(amount(4, 1)):
            self.session()
        before = self.most_lines_kept({str(path): path.read_bytes() for path in self.recovery.iterdir()})
        disk = power_cut.Disk(self.recovery)
        self.session(log=self.folder / "log")
        operations = power_cut.read_log(self.folder / "log")
        cuts = sorted(self.random.sample(range(len(operations)), min(len(operations), amount(300, 15))))
        for cut in cuts:
            for left in disk.after_cut(operations[:cut], self.random, 2):
                self.assertIn(self.most_lines_kept(left), (before, before + 1), f"cut after {operations[cut - 1][:2]}")

    def test_killed_at_any_call_keeps_what_was_kept_before(self):
        count = self.folder / "count"
        self.session()
        self.session(count=count)
        calls = int(count.read_text(encoding="ascii"))
        lines = 2
        for call in sorted(self.random.sample(range(1, calls), min(calls - 1, amount(200, 4)))):
            self.session(at=call, do="kill")
            kept = self.most_lines_kept({str(path): path.read_bytes() for path in self.recovery.iterdir()})
            self.assertIn(kept, (lines, lines + 1), f"killed at call {call}")
            lines = kept

    def test_memory_running_out_in_a_command(self):
        """The command is taken back and that is said; or the program ends, and what was drawn before is kept."""
        outcomes = collections.Counter()
        for at in self.random.sample(range(1, 30_000), amount(200, 3)):
            done = self.run_session("Bolt", new_at=at)
            own = b'"std::bad_alloc" thrown in' in done.stdout
            outcomes[own and "within the test" or done.returncode] += 1
            # The toolkit's own constructors leave widgets half made.
            self.assertTrue(own or done.returncode in (0, -signal.SIGABRT, -signal.SIGSEGV), (at, done.stdout[-2000:]))
            kept = self.most_lines_kept({str(path): path.read_bytes() for path in self.recovery.iterdir()})
            self.assertGreaterEqual(kept, 1, f"the line is lost after allocation {at}")
            for path in self.recovery.iterdir():
                path.unlink()
        print(dict(outcomes))
        self.assertGreater(outcomes[0], amount(150, 1), "it ends too often")


if __name__ == "__main__":
    main()

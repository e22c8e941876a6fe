"""Every writer, killed and failing at each of its system calls, cut off from power, out of space: the file is the old or
the new one, whole; success is told of the new one only; nothing is left beside it.

    writers_test.py BATCH
"""

import contextlib
import errno
import json
import os
import shutil
import signal
import sqlite3
import subprocess
import time
from xml.etree import ElementTree

import power_cut
from fault_program import BATCH, LIBRARY_OF, SECONDS, WHOLE, FaultTest, add_bolt, amount, killed, main
from writers import ALL, shipped_library

ERRORS = (errno.ENOSPC, errno.EIO, errno.EACCES, errno.EDQUOT)


WHOLE_STATES = ("old", "between", "new")


class Undisturbed:
    """A run in which nothing goes wrong, and how what others leave compares with it."""

    def __init__(self, old, disk):
        self.old, self.disk = old, disk
        self.operations, self.versions, self.names, self.calls = [], [], set(), 0

    def state(self, content):
        """A command may save its library more than once; each version is whole."""
        if content == self.versions[-1]:
            return "new"
        if content == self.old:
            return "old"
        return "missing" if content is None else "between" if content in self.versions else "torn"


class Writers(FaultTest):
    def setUp(self):
        super().setUp()
        self.sample_drawing()

    def content(self, writer):
        path = self.out / writer.target
        return path.read_bytes() if path.exists() else None

    def undisturbed(self, writer, **more):
        """What the writer does when nothing goes wrong."""
        writer.prepare(self)
        log, counted = self.folder / "log", self.folder / "count"
        log.unlink(missing_ok=True)
        run = Undisturbed(writer.before(), power_cut.Disk(self.out))
        self.assertDone(writer.run(self, self.faulty(log=log, count=counted, **more)))
        run.operations, run.names = power_cut.read_log(log), self.names()
        run.calls = int(counted.read_text(encoding="ascii"))
        run.versions = list(run.disk.versions(run.operations, str(self.out / writer.target)))
        self.assertGreater(run.calls, 4)
        self.assertTrue(run.versions, "not put in place by renaming")
        self.assertTrue(all(run.versions) and run.versions[-1] == self.content(writer) != run.old)
        return run

    def each(self, check):
        for writer in ALL:
            with self.subTest(writer.name):
                check(writer, self.undisturbed(writer))

    def test_killed_at_every_call(self):
        self.each(self.kill_at_every_call)

    def kill_at_every_call(self, writer, run):
        for call in range(1, run.calls + 1):
            writer.prepare(self)
            self.assertTrue(killed(writer.run(self, self.faulty(at=call, do="kill"))), call)
            left = run.state(self.content(writer))
            self.assertIn(left, WHOLE_STATES, call)
            if left == "old":
                self.assertDone(writer.run(self))
                self.assertEqual((run.state(self.content(writer)), self.names()), ("new", run.names),
                                 f"not cleaned up after call {call}")

    def test_every_call_failing(self):
        self.each(self.fail_every_call)

    def fail_every_call(self, writer, run, errors=ERRORS, **more):
        for call in range(1, run.calls + 1):
            for error in errors if WHOLE or more else errors[call % 2:][:1]:
                at = f"call {call}, {os.strerror(error)}"
                writer.prepare(self)
                done = writer.run(self, self.faulty(at=call, do=error, **more))
                left = run.state(self.content(writer))
                self.assertIn(left, WHOLE_STATES, at)
                self.assertLessEqual(self.names(), run.names, "litter after " + at)
                if done.returncode == 0:
                    self.assertEqual(left, "new", at + ": told as done")
                else:
                    self.assertRefused(done, (1, 3, 4), os.strerror(error))

    def test_looking_in_vain(self):
        """Files that cannot be opened, closed or looked at, those of the toolkit and its fonts included."""
        writer = next(row for row in ALL if row.name == "convert to pdf")
        run = self.undisturbed(writer)
        counted = self.folder / "count"
        writer.prepare(self)
        self.assertDone(writer.run(self, self.faulty(count=counted, looking=1)))
        calls = range(1, int(counted.read_text(encoding="ascii")) + 1)
        self.assertGreater(len(calls), 100)
        # Those that follow the drawing's own, when the toolkit starts, and others.
        for call in sorted({*calls[:amount(len(calls), 30)], *self.random.sample(calls, amount(0, 10))}):
            writer.prepare(self)
            done = writer.run(self, self.faulty(at=call, do=errno.EIO, looking=1))
            self.assertIn(done.returncode, (0, 3, 4), f"call {call}: {done.stderr[-500:]}")
            self.assertIn(run.state(self.content(writer)), ("old", "new"), f"call {call}")
            if done.returncode != 0:
                self.assertTrue(done.stderr.strip(), f"call {call}: no message")

    def test_calls_that_change_nothing_failing(self):
        """Looking, locking and closing; ended by another signal; written in pieces."""
        writer = next(writer for writer in ALL if writer.name == "save of a script")
        run = self.undisturbed(writer)
        self.fail_every_call(writer, self.undisturbed(writer, looking="below"), ERRORS + (errno.EINTR,), looking="below")
        for call in range(1, run.calls + 1):
            writer.prepare(self)
            self.assertEqual(writer.run(self, self.faulty(at=call, do="term")).returncode, -signal.SIGTERM)
            self.assertIn(run.state(self.content(writer)), WHOLE_STATES, call)
            self.assertLessEqual(self.names(), run.names, f"litter after call {call}")
        writer.prepare(self)
        self.assertDone(writer.run(self, self.faulty(do="short")))
        self.assertEqual(run.state(self.content(writer)), "new")

    def test_power_cut_at_every_call(self):
        self.each(self.cut_power_at_every_call)

    def cut_power_at_every_call(self, writer, run):
        target = str(self.out / writer.target)
        for cut in range(len(run.operations) + 1):
            for left in run.disk.after_cut(run.operations[:cut], self.random, amount(8, 3)):
                self.assertIn(run.state(left.get(target)), WHOLE_STATES, f"after {run.operations[cut - 1][:2]}")
        for left in run.disk.after_cut(run.operations, self.random, amount(40, 10)):
            self.assertEqual(run.state(left.get(target)), "new", "told as done")

    def test_memory_running_out(self):
        self.each(self.run_out_of_memory)

    def run_out_of_memory(self, writer, run):
        for at in sorted(self.random.sample(range(1, 3000), amount(150, 2))):
            writer.prepare(self)
            done = writer.run(self, self.faulty(new_at=at))
            left = run.state(self.content(writer))
            self.assertIn(done.returncode, (0, 1, 3, 4), f"allocation {at}: {done.stderr[-500:]}")
            self.assertIn(left, WHOLE_STATES, f"allocation {at}")
            self.assertLessEqual(self.names(), run.names, f"litter after allocation {at}")
            self.assertNotIn(b"bad_alloc", done.stderr)
            if done.returncode == 0:
                self.assertEqual(left, "new", f"allocation {at}: told as done")


class Kills(FaultTest):
    """A program that saves all the time, ended at any moment."""

    SAVES = "".join(f'draw line {n} 0 {n} 10\nsave "x.drg"\nexport "x.svg"\nexport "x.json"\n' for n in range(400))

    def ended(self, number):
        shutil.rmtree(self.out)
        self.out.mkdir()
        program = subprocess.Popen([BATCH, "run", "x.scr", "-o", "out"], cwd=self.folder, env=self.environment(),
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        time.sleep(0.02 + self.random.random() * 0.4)
        program.send_signal(number)
        return program.wait(timeout=SECONDS)

    def assertWhole(self):
        """Each file holds so many whole lines; the drawing is read by SQLite, the others by their own grammar."""
        for name in self.names():
            path = self.out / name
            if name == "x.drg":
                with contextlib.closing(sqlite3.connect(path)) as database:
                    self.assertEqual(database.execute("PRAGMA integrity_check").fetchone(), ("ok",))
                    self.assertGreater(database.execute("SELECT count(*) FROM lines").fetchone()[0], 0)
            elif name == "x.json":
                self.assertTrue(json.loads(path.read_text(encoding="utf-8"))["primitives"])
            elif name == "x.svg":
                self.assertTrue(len(ElementTree.parse(path).getroot()))

    def test_at_random_moments(self):
        self.write("x.scr", self.SAVES)
        ended_early = 0
        for _ in range(amount(1000, 8)):
            ended_early += self.ended(signal.SIGKILL) == -signal.SIGKILL
            self.assertWhole()
        self.assertGreater(ended_early, amount(500, 3))

    def test_asked_to_end(self):
        self.write("x.scr", self.SAVES)
        for number in (signal.SIGINT, signal.SIGTERM):
            ended_early = 0
            for _ in range(amount(100, 4)):
                code = self.ended(number)
                # Before the program heeds signals the system ends it.
                self.assertIn(code, (0, 128 + number, -number))
                self.assertLessEqual(self.names(), {"x.drg", "x.svg", "x.json"}, "litter")
                self.assertWhole()
                ended_early += code == 128 + number
            self.assertGreater(ended_early, 0)


class TwoPrograms(FaultTest):
    """Two programs that add to one library in turn, each told when the other was faster."""

    def test_no_update_is_lost(self):
        count = amount(300, 6)
        library = self.write("out/lib.ini", shipped_library())

        def add(who, number):
            script = self.write(f"{who}.scr", LIBRARY_OF.format("out/lib.ini") + add_bolt(f"{who}{number}"))
            return subprocess.Popen([BATCH, "run", script, "-o", "out"], cwd=self.folder, env=self.environment(),
                                    stderr=subprocess.PIPE)

        refused = 0
        waiting = {"LEFT": 1, "RIGHT": 1}
        while min(waiting.values()) <= count:
            running = {who: add(who, number) for who, number in waiting.items() if number <= count}
            for who, program in running.items():
                said = program.communicate(timeout=SECONDS)[1]
                if program.returncode == 0:
                    waiting[who] += 1
                    continue
                refused += 1
                if b"already exists" in said:  # it was added by a try whose later save was refused
                    self.assertIn(f"={who}{waiting[who]},".encode(), library.read_bytes())
                    waiting[who] += 1
                else:
                    self.assertIn(b"changed by another program", said)
        kept = library.read_bytes()
        for who in waiting:
            for number in range(1, count + 1):
                self.assertIn(f"={who}{number},".encode(), kept)
        if WHOLE:
            self.assertGreater(refused, 0, "they never met")


if __name__ == "__main__":
    main()

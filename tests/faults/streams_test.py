"""Standard streams that are closed, full or read by nobody.

    streams_test.py BATCH
"""

import os
import subprocess

from fault_program import BATCH, DRAWING, LIBRARY_OF, SECONDS, FaultTest, add_bolt, main
from writers import shipped_library

PRINTING = (("commands",), ("describe", "MechDrawBolts"), ("--help",), ("--version",), ("run", "--help"))


class Streams(FaultTest):
    def shell(self, redirections, *words):
        """Runs the tool with the shell's redirections after it."""
        return subprocess.run(["sh", "-c", '"$@" ' + redirections, "sh", BATCH, *words], cwd=self.folder, check=False,
                              env=self.environment(), stdin=subprocess.DEVNULL, capture_output=True, timeout=SECONDS)

    def test_what_cannot_be_printed_is_no_success(self):
        for words in PRINTING:
            for redirection in (">/dev/full", ">&-"):
                with self.subTest(words=words, redirection=redirection):
                    self.assertRefused(self.shell(redirection, *words), (4,), "standard output")

    def test_a_reader_that_has_gone_stops_the_printing(self):
        done = self.shell("| head -n 1", "commands")
        self.assertEqual((done.returncode, len(done.stdout.splitlines())), (0, 1))
        self.assertEqual(done.stderr, b"")

    def test_closed_streams_never_become_files(self):
        """Messages of a run must not land in what it writes, which takes the lowest free descriptor."""
        self.write("own.ini", shipped_library())
        text = LIBRARY_OF.format("own.ini") + add_bolt("OWN") + DRAWING + 'export "x.json"\nsave "x.drg"\nhop\n'
        self.play(text)
        wanted = {name: (self.out / name).read_bytes() for name in self.names()}
        self.assertEqual(set(wanted), {"own.ini", "x.json", "x.drg"})
        for redirection in ("0<&-", ">&-", "2>&-", "0<&- >&- 2>&-", ">/dev/full 2>/dev/full"):
            with self.subTest(redirection):
                for name in wanted:
                    (self.out / name).unlink()
                self.assertEqual(self.shell(redirection, "run", "x.scr", "-o", "out").returncode, 1)
                self.assertEqual({name: (self.out / name).read_bytes() for name in self.names()}, wanted)

    def test_a_run_outlives_the_reader_of_its_messages(self):
        self.write("own.ini", shipped_library())
        self.write("x.scr", LIBRARY_OF.format("own.ini") + add_bolt("OWN") + 'export "x.json"\n')
        reader, writer = os.pipe()
        os.close(reader)
        try:
            done = self.batch("run", "x.scr", "-o", "out", stdout=writer, stderr=writer)
        finally:
            os.close(writer)
        self.assertEqual((done.returncode, self.names()), (0, {"own.ini", "x.json"}))


if __name__ == "__main__":
    main()

"""Every reader, given what is no file, no text, no end of it, or damaged: one clear message, in no time, nothing written.

    inputs_test.py BATCH
"""

import os
import socket
import struct
import subprocess
import threading
import time
import unittest

from fault_program import BATCH, DATA, DRAWING, LIBRARY_OF, SECONDS, WHOLE, FaultTest, main

SURVEY = ('setting "SG_DEFAULTS" "SG_DiaramFile" "{}"\nrun SG_DiagramEditor\ndialog "*"\npress "Control coords"\n'
          'dialog "Control Coordinates"\npress "Trig lists"\nfile "{}"\npress "OK"\npress "Cancel"\nexport "x.json"\n')

TABLE = (LIBRARY_OF.format("ISO Mechspecs.ini") + 'run MechDrawTabBox\ndialog "*"\nmenu "Actions/Import Data"\nfile "{}"\n'
         'expect no message\npress "Cancel"\nexport "x.json"\n')

SECTIONS = ('setting "SG_DEFAULTS" "SG_SectionalFile" "Sectional Plan.ini"\nparameter coordinateSystem 0\nrun SG_SectionEditor\n'
            'dialog "*"\npress "OK"\nrun SG_SectionMgr\ndialog "Section Manager"\npress "Load"\nfile "{}"\npress "OK"\nexport "x.json"\n')

# What a program is told to read a file: its name, the file's ending, and its words or a script for it.
READERS = [
    ("drawing", "drg", lambda path: ("convert", path, "out/x.json"), None),
    ("dxf", "dxf", lambda path: ("convert", path, "out/x.json"), None),
    ("symbols as text", "sym", lambda path: ("convert", path, "out/x.json"), None),
    ("script", "scr", lambda path: ("run", path, "-o", "out"), None),
    ("settings", "ini", lambda path: ("run", "x.scr", "-o", "out", "--settings", path), lambda path: 'export "x.json"\n'),
    ("drawing opened by a script", "drg", None, lambda path: f'open "{path}"\nexport "x.json"\n'),
    ("drawing inserted by a macro", "drg", None, lambda path: f'macro LOAD "{path}" [0,0] 1 0\nexport "x.json"\n'),
    ("symbols of a macro", "drg", None, lambda path: f'macro NEWSYMFL "{path}" "Y" "Y"\nexport "x.json"\n'),
    ("library", "ini", None, lambda path: LIBRARY_OF.format(path) + 'run MechDrawBolts\nexport "x.json"\n'),
    ("survey settings", "ini", None, lambda path: SURVEY.format(path, "none.txt")),
    ("table", "csv", None, lambda path: TABLE.format(path)),
    ("list of sections", "csv", None, SECTIONS.format),
    ("listing", "txt", None, lambda path: SURVEY.format("job.ini", path)),
]
# The mechanical and survey readers tell of a file by a message of their own, which a script may expect and go on.
GOES_ON = ("listing", "list of sections")
MESSAGES = {"library": 2, "table": 2, "survey settings": 3}


def measured(test, words):
    """Exit code, message, seconds and megabytes of a run."""
    begun = time.monotonic()
    with open(test.folder / "said", "wb") as said:
        program = subprocess.Popen([BATCH, *words], cwd=test.folder, env=test.environment(), stdin=subprocess.DEVNULL,
                                   stdout=said, stderr=said)
        limit = threading.Timer(SECONDS, program.kill)
        limit.start()
        _, status, usage = os.wait4(program.pid, 0)
        limit.cancel()
        program.returncode = os.waitstatus_to_exitcode(status)
    message = (test.folder / "said").read_bytes().decode("utf-8", "replace")
    return program.returncode, message, time.monotonic() - begun, usage.ru_maxrss / 1024


class Readers(FaultTest):
    def setUp(self):
        super().setUp()
        self.write("job.ini", (DATA / "SG Diagram.ini").read_bytes())

    def read(self, reader, path):
        name, _, words, script = reader
        if script is not None:
            self.write("x.scr", script(path))
        return measured(self, words(path) if words else ("run", "x.scr", "-o", "out"))

    def assertRefused(self, reader, path, what):
        code, message, seconds, megabytes = self.read(reader, path)
        self.assertIn(code, (0, 1, 3) if reader[0] in GOES_ON else (1, 3), f"{what}: {message[:500]}")
        self.assertLess(len(message), 1500, what)
        self.assertLessEqual(len(message.strip().splitlines()), MESSAGES.get(reader[0], 1) if code else 3, message)
        self.assertLess(seconds, 10, what)
        if code:
            self.assertTrue(message.strip())
            self.assertFalse(self.names() - {"ISO Mechspecs.ini"}, what)
        for name in self.names():
            (self.out / name).unlink()
        return megabytes

    def each(self, make, what):
        for reader in READERS:
            with self.subTest(reader[0]):
                path = self.folder / ("odd." + reader[1])
                path.unlink(missing_ok=True)
                made = make(path)
                self.assertRefused(reader, made or path.name, what)

    def test_drawings_that_are_well_are_read(self):
        """Else the refusals below would say nothing."""
        for reader in READERS[:2] + READERS[5:7]:
            with self.subTest(reader[0]):
                code, message, _, _ = self.read(reader, self.sample_drawing(reader[1]).name)
                self.assertEqual((code, message), (0, ""))
        self.assertIn("holds no symbols", self.read(READERS[7], "sample.drg")[1])
        self.write("list.txt", "Kop,3418/1,1.5,2.5\n")
        self.assertEqual(self.read(READERS[-1], "list.txt")[0], 0)

    def test_pipe_that_nobody_writes_to(self):
        self.each(os.mkfifo, "a named pipe")

    def test_socket(self):
        def bound(path):
            with socket.socket(socket.AF_UNIX) as end:
                end.bind(str(path))

        self.each(bound, "a socket")

    def test_device_without_end(self):
        self.each(lambda path: path.symlink_to("/dev/zero"), "a link to a device")

    def test_folder(self):
        def folder(path):
            (self.folder / "folders").mkdir(exist_ok=True)
            made = self.folder / "folders" / path.name
            made.mkdir(exist_ok=True)
            return f"folders/{path.name}"

        self.each(folder, "a folder")

    def test_link_to_itself(self):
        self.each(lambda path: path.symlink_to(path.name), "a link to itself")

    def test_missing(self):
        self.each(lambda path: None, "nothing")

    def test_rubbish(self):
        rubbish = bytes(range(256)) * 400
        for reader in READERS:
            with self.subTest(reader[0]):
                self.write("odd." + reader[1], rubbish)
                self.assertRefused(reader, "odd." + reader[1], "rubbish")

    def test_larger_than_anything(self):
        """No byte is read of what is too large, and no memory taken for it."""
        for reader in READERS:
            with self.subTest(reader[0]):
                path = self.folder / ("odd." + reader[1])
                with open(path, "wb") as file:
                    file.truncate(40 << 30)
                megabytes = self.assertRefused(reader, path.name, "40 GB")
                self.assertLess(megabytes, 400)


class Texts(FaultTest):
    """What is longer than anybody reads is refused or passed over."""

    def test_one_line_of_many_megabytes(self):
        megabytes = 100 if WHOLE else 10
        for start in ("", "# ", 'draw text 1 2 35 "', "macro ", 'layer "A" '):
            with self.subTest(start):
                self.write("x.scr", start + "x" * (megabytes << 20) + "\n")
                code, message, seconds, _ = measured(self, ("run", "x.scr", "-o", "out"))
                self.assertIn(code, (0, 1, 3), message[:300])
                self.assertLess(len(message), 1500)
                self.assertLess(seconds, 20)


class Lies(FaultTest):
    """Counts and sizes in a file's head that its content does not bear out."""

    def test_drawing_files(self):
        good = bytearray(self.sample_drawing().read_bytes())
        for place, size in ((16, 2), (28, 4), (32, 4), (36, 4), (52, 4), (96, 4)):
            for value in (0, 1, -1, 0x7FFFFFFF, 0x20000000):
                with self.subTest(place=place, value=value):
                    bad = bytearray(good)
                    bad[place:place + size] = struct.pack(">I", value & 0xFFFFFFFF)[-size:]
                    self.write("bad.drg", bytes(bad))
                    code, message, seconds, megabytes = measured(self, ("convert", "bad.drg", "out/x.json"))
                    self.assertIn(code, (0, 3), message)
                    self.assertLess(seconds, 5)
                    self.assertLess(megabytes, 400)


if __name__ == "__main__":
    main()

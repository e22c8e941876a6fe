"""Names and places that a person or a script of unknown origin gives: nothing outside the output folder changes.

    places_test.py BATCH
"""

import os
import resource
import unittest

from fault_program import DRAWING, LIBRARY_OF, FaultTest, add_bolt, main
from writers import ALL, shipped_library

ODD_NAMES = ["two\nlines", "quote\"'`$(touch stolen)", "%n%s%d%999999d", ".hidden", " blank ", "tab\tbell\a", "\u00fcmlaut",
             "\u4e2d\u6587", "x" * 240, "semi;colon&and|pipe", "star*?[a]", "a.drg.dxf.json", "~", "$HOME", b"\xff\xfe\x80"]
# Places that a script may not name, whatever it does with them.
ESCAPES = ["../stolen.{}", "sub/../../stolen.{}", "..\\stolen.{}", "sub\\..\\..\\stolen.{}", "C:\\stolen.{}", "C:stolen.{}",
           "nul.{}", "con.{}", "COM1.{}", "aux.tar.{}", "away/stolen.{}", "away\\stolen.{}"]


def snapshot(folder, but):
    return {str(path): path.read_bytes() if path.is_file() else None for path in folder.rglob("*")
            if but not in (path, *path.parents)}


class Names(FaultTest):
    def test_odd_names_of_outputs_are_taken_as_they_are_or_refused(self):
        self.sample_drawing("drg")
        for name in ODD_NAMES:
            raw = os.fsencode(name) if isinstance(name, str) else name
            for ending in (b".json", b".drg", b".pdf"):
                with self.subTest(name=raw + ending):
                    target = os.fsencode(self.out) + b"/" + raw + ending
                    done = self.batch("convert", "sample.drg", target)
                    made = {os.fsencode(path) for path in self.out.iterdir()}
                    if done.returncode == 0:
                        self.assertEqual(made, {target})
                        os.unlink(target)
                    else:
                        self.assertRefused(done, (2, 4))
                        self.assertEqual(made, set())

    def test_odd_names_of_inputs_are_read_or_refused(self):
        sample = self.sample_drawing("drg").read_bytes()
        for name in ODD_NAMES:
            raw = os.fsencode(name) if isinstance(name, str) else name
            with self.subTest(name=raw):
                path = os.fsencode(self.folder) + b"/" + raw + b".drg"
                with open(path, "wb") as file:
                    file.write(sample)
                done = self.batch("convert", path, "out/x.json")
                self.assertIn(done.returncode, (0, 3), done.stderr)
                with open(path, "wb") as file:
                    file.write(sample[:-1])
                self.assertRefused(self.batch("convert", path, "out/x.json"), (3,))


class Escapes(FaultTest):
    def setUp(self):
        super().setUp()
        away = self.folder / "elsewhere"
        away.mkdir()
        (away / "stolen.drg").write_bytes(self.sample_drawing().read_bytes())
        (self.out / "sub").mkdir()
        (self.out / "away").symlink_to(away)

    def refused(self, text):
        """Plays a script that must fail and change nothing but what lies below the output folder."""
        self.write("x.scr", text)
        before = snapshot(self.folder, self.out)
        done = self.batch("run", "x.scr", "-o", "out")
        self.assertRefused(done, (1, 4), "x.scr:")
        self.assertEqual(snapshot(self.folder, self.out), before)
        self.assertEqual(self.names() - {"ISO Mechspecs.ini"}, set())

    def test_writing(self):
        for escape in ESCAPES:
            for statement, ending in (("save", "drg"), ("export", "json"), ("export", "pdf"), ("export", "dxf")):
                with self.subTest(escape, statement=statement, ending=ending):
                    self.refused(DRAWING + f'{statement} "{escape.format(ending)}"\n'.replace("\\", "\\\\"))

    def test_reading(self):
        """A drawing is there at some of these places; it is refused all the same."""
        for escape in ESCAPES:
            name = escape.format("drg")
            with self.subTest(escape):
                self.refused(f'open "{name}"\n'.replace("\\", "\\\\"))
                self.refused(f'macro LOAD "{name}" [0,0] 1 0\n')
                self.refused(f'macro NEWSYMFL "{name}" "Y" "Y"\n')

    def test_what_a_script_opens_lies_in_its_folder(self):
        """Neither full paths nor links lead out of it; --allow-read widens it by a folder."""
        outside = self.folder / "elsewhere"
        home = self.folder / "home"
        home.mkdir()
        (home / "near.drg").write_bytes((outside / "stolen.drg").read_bytes())
        (home / "away").symlink_to(outside)
        (home / "link.drg").symlink_to(outside / "stolen.drg")
        self.play_at(home, 'open "near.drg"\n', 0)
        for name in (outside / "stolen.drg", home / "near.drg", "away/stolen.drg", "link.drg"):
            for statement in (f'open "{name}"', f'macro LOAD "{name}" [0,0] 1 0', f'macro NEWSYMFL "{name}" "Y" "Y"'):
                with self.subTest(statement):
                    self.play_at(home, statement + "\n", 1, b"--allow-read")
        for name in (outside / "stolen.drg", "away/stolen.drg", "link.drg"):
            with self.subTest(name):
                self.play_at(home, f'open "{name}"\n', 0, options=("--allow-read", str(outside)))

    def play_at(self, folder, text, code, said=b"", options=()):
        (folder / "x.scr").write_text(text, encoding="utf-8")
        done = self.batch("run", str(folder / "x.scr"), "-o", "out", *options)
        self.assertEqual(done.returncode, code, done.stderr)
        self.assertIn(said, done.stderr)

    def test_full_paths_are_brought_below_the_output_folder(self):
        victim = self.write("victim.json", "precious\n")
        done = self.play(DRAWING + f'export "{victim}"\n')
        self.assertEqual(victim.read_bytes(), b"precious\n", done.stderr)

    def test_links_in_the_output_folder_are_not_followed_out_of_it(self):
        victim = self.write("victim.json", "precious\n")
        (self.out / "x.json").symlink_to(victim)
        self.assertRefused(self.play(DRAWING + 'export "x.json"\n'), (1, 4))
        self.assertEqual(victim.read_bytes(), b"precious\n")

    def test_a_library_elsewhere_is_never_written(self):
        library = self.write("elsewhere/own.ini", shipped_library())
        before = library.read_bytes()
        (self.folder / "away").symlink_to(library.parent)
        for name in ("elsewhere/own.ini", str(library), "away/own.ini"):
            with self.subTest(name):
                self.play(LIBRARY_OF.format(name) + add_bolt("STOLEN"))
                self.assertEqual(library.read_bytes(), before)


@unittest.skipIf("FAULTS_COUNTED" in os.environ, "the limit holds for what a coverage build counts, too")
class Space(FaultTest):
    """A limit on the size of files, as a quota sets it."""

    def test_every_writer_within_every_limit(self):
        self.sample_drawing()
        for writer in ALL:
            writer.prepare(self)
            self.assertDone(writer.run(self))
            path = self.out / writer.target
            size = path.stat().st_size
            for limit in (0, 1, size // 2):
                with self.subTest(writer.name, limit=limit):
                    writer.prepare(self)
                    names = self.names()
                    before = path.read_bytes() if path.exists() else None
                    done = self.batch(*writer.command(self), preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit)))
                    self.assertRefused(done, (1, 4), "File too large")
                    self.assertEqual(path.read_bytes() if path.exists() else None, before)
                    self.assertEqual(self.names(), names)


if __name__ == "__main__":
    main()

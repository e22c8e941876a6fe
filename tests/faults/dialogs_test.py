"""Every text in every field of every dialog that a command opens with: accepted or refused by name, and Cancel writes
nothing. Macros and scripts that ask for more than there can be.

    dialogs_test.py BATCH
"""

import re
import time

from fault_program import DATA, LIBRARY_OF, FaultTest, amount, main
from writers import settings_file, shipped_library

SETTINGS = "".join(f'setting "SG_DEFAULTS" "{key}" "out/{name}"\n' for key, name in (
    ("SG_DiaramFile", "job.ini"), ("SG_GenPlanFile", "plan.ini"), ("SG_SectionalFile", "sectional.ini")))
SETTINGS += 'setting "ArchitecturalTools" "SpecFile" "out/arch.ini"\n'
TEXTS = ["", " ", "nan", "inf", "1e308", "1e400", "5e-324", "-1", "0", "1,5", "1.5mm", "0x10", "10000000000000000000000", "%n%s%d",
         '"', '\\"#DELSELECT', "]", "#REPEAT 5", "a,b,c", "A\\\\N0\\\\NINSERT", "\u00df\u00d8\u20ac", "x" * 300, "x" * 65536,
         "[BOLTS]", "=", ";", "..\\\\..\\\\x", "/etc/passwd", "$(x)", "<b>&amp;", "\u0007", "CON", "-0", "1.", ".5", "+3", "1e3"]
KINDS = {"number": "set", "integer": "set", "text": "set", "editable list": "set", "drop-down list": "pick", "spin": "set"}


class Dialogs(FaultTest):
    def opened(self, command):
        """The title of the dialog that the command opens with, and its fields with how each is filled."""
        described = self.batch("describe", command).stdout.decode("utf-8").split("\n\n")[0]
        title = re.match(r'dialog "(.*)"\n', described)
        rows = re.findall(r'^  "([^"]*)"  ([a-z -]+)', described, re.MULTILINE)
        return (title and title[1], [(name, KINDS[kind.strip()]) for name, kind in rows if kind.strip() in KINDS])

    def files(self):
        return {"lib.ini": shipped_library(), "arch.ini": (DATA / "ArchSpecs.ini").read_bytes(), "job.ini": settings_file(),
                "plan.ini": (DATA / "General Plan.ini").read_bytes(), "sectional.ini": (DATA / "Sectional Plan.ini").read_bytes()}

    def test_every_text_in_every_field(self):
        commands = [line.split("\t")[0] for line in self.batch("commands").stdout.decode().splitlines()]
        cases = []
        for command in commands:
            title, fields = self.opened(command)
            cases += [(command, title, field, text) for field in fields for text in TEXTS]
        self.assertGreater(len(cases), 1000)
        refused = 0
        for command, title, (name, verb), text in self.random.sample(cases, min(len(cases), amount(4000, 60))):
            with self.subTest(command, field=name, text=text[:40]):
                before = self.files()
                for file, content in before.items():
                    self.write("out/" + file, content)
                typed = text if '\\"' in text else text.replace('"', '\\"')
                done = self.play(LIBRARY_OF.format("out/lib.ini") + SETTINGS +
                                 f'run {command}\ndialog "{"*" if command.startswith("SG_") else title}"\n'
                                 f'  {verb} "{name}" "{typed}"\n  press "Cancel"\n')
                if done.returncode != 0:
                    self.assertRefused(done, (1,), "x.scr:8: ")
                    refused += 1
                for file, content in before.items():
                    self.assertEqual((self.out / file).read_bytes() == content, True, f"{file} was written")
        self.assertGreater(refused, 0)


class Limits(FaultTest):
    ENDLESS = {
        "a repeat": 'macro REPEAT 1000000000 "Y" [0,0] [1,1]\n',
        "repeats of repeats": 'macro SELECTLAYER "0"\nmacro REPEAT 4000 "Y" [0,0] [1,1]\n' * 3,
        "no number": 'macro REPEAT 1e400 "Y" [0,0] [1,1]\n',
        "brackets": "macro MOVE " + "[" * 100_000 + "\n",
        "words": "draw " + "1 " * 1_000_000 + "\n",
    }

    def test_what_has_no_end_is_refused_by_name(self):
        for name, text in self.ENDLESS.items():
            with self.subTest(name):
                begun = time.monotonic()
                done = self.play('draw line 0 0 1 1\nmacro SELECTLAYER "0"\n' + text + 'export "x.json"\n')
                self.assertRefused(done, (1,), "x.scr:")
                self.assertEqual(self.names(), set())
                self.assertLess(time.monotonic() - begun, 20)

    def test_a_text_is_never_a_second_command(self):
        """Layer names and texts go through macros quoted; whatever they hold, nothing else runs."""
        for text in ('A"#DELSELECT', "A' #DELSELECT", "A#DELSELECT#", "A\\\" B", "A]#NEWLAYER \"B\"", "##", '"""'):
            with self.subTest(text):
                quoted = text.replace("\\", "\\\\").replace('"', '\\"')
                done = self.play(f'draw text 0 0 35 "{quoted}"\nlayer "{quoted}"\ndraw line 0 0 1 1\nexport "x.json"\n')
                if done.returncode == 0:
                    drawn = (self.out / "x.json").read_text(encoding="utf-8")
                    self.assertEqual((drawn.count('"type":"line"'), drawn.count('"type":"text"')), (1, 1))
                    self.assertIn(quoted, drawn)
                else:
                    self.assertRefused(done, (1,), "x.scr:")


if __name__ == "__main__":
    main()

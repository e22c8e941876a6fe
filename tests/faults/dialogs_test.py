"""Every text in every field of every dialog, those that dialogs open too: accepted or refused by name, and Cancel writes
nothing. Macros and scripts that ask for more than there can be.

    dialogs_test.py BATCH
"""

import re
import time

from fault_program import DATA, WHOLE, FaultTest, amount, main

TEXTS = ["", " ", "nan", "inf", "1e308", "1e400", "5e-324", "-1", "0", "1,5", "1.5mm", "0x10", "10000000000000000000000", "%n%s%d",
         '"', '\\"#DELSELECT', "]", "#REPEAT 5", "a,b,c", "A\\\\N0\\\\NINSERT", "\u00df\u00d8\u20ac", "x" * 300, "x" * 65536,
         "[BOLTS]", "=", ";", "..\\\\..\\\\x", "/etc/passwd", "$(x)", "<b>&amp;", "\u0007", "CON", "-0", "1.", ".5", "+3", "1e3"]
KINDS = {"number": "set", "integer": "set", "text": "set", "editable list": "set", "drop-down list": "pick", "spin": "set"}


class Dialogs(FaultTest):
    SHIPPED = ("ISO Mechspecs.ini", "ArchSpecs.ini", "SG Diagram.ini", "General Plan.ini", "Sectional Plan.ini")
    SETTINGS = "".join(f'setting "{section}" "{key}" "out/{name}"\n' for (section, key), name in zip((
        ("MechanicalTools", "SpecFile"), ("ArchitecturalTools", "SpecFile"), ("SG_DEFAULTS", "SG_DiaramFile"),
        ("SG_DEFAULTS", "SG_GenPlanFile"), ("SG_DEFAULTS", "SG_SectionalFile")), SHIPPED, strict=True))

    def unchanged(self):
        """Puts the files that dialogs write as they ship, and gives them."""
        files = {name: (DATA / name).read_bytes() for name in self.SHIPPED}
        for name, content in files.items():
            self.write("out/" + name, content)
        return files

    def dialogs(self, command):
        """The statements that open each dialog of a command, those that its dialogs open too, and its fields by kind."""
        described = self.batch("describe", command).stdout.decode("utf-8")
        controls = {match[1]: re.findall(r'^  "([^"]*)"  ([a-z -]+)', match[2], re.MULTILINE)
                    for match in re.finditer(r'^dialog "(.*)"\n((?:  .*\n)*)', described, re.MULTILINE)}
        controls = {title: [(name, kind.strip()) for name, kind in rows] for title, rows in controls.items()}
        system = "parameter coordinateSystem 0\n" if command.startswith("SG_") else ""
        ways = [(f'{system}run {command}\ndialog "{title}"\n', title) for title in list(controls)[:1]]
        for way, title in ways:
            edits = [f'set "{name}" 7\n' for name, kind in controls[title] if kind == "number"][:1]
            for press in [f'press "{name}"\n' for name, kind in controls[title] if kind == "button"]:
                self.unchanged()
                said = self.play(self.SETTINGS + way + "".join(edits) + press).stderr.decode("utf-8")
                opened = re.search('shows the dialog "(.*)", the script ends', said)
                if opened and opened[1] in controls and all(opened[1] != title for _, title in ways):
                    ways.append((way + "".join(edits) + press + f'dialog "{opened[1]}"\n', opened[1]))
        return [(way, [(name, KINDS[kind]) for name, kind in controls[title] if kind in KINDS]) for way, title in ways]

    def test_every_text_in_every_field(self):
        commands = [line.split("\t")[0] for line in self.batch("commands").stdout.decode().splitlines()]
        found = [self.dialogs(command) for command in self.random.sample(commands, amount(len(commands), 3))]
        dialogs = [dialog for opened in found for dialog in opened]
        cases = [(way, field, text) for way, fields in dialogs for field in fields for text in TEXTS]
        refused, within = 0, 0
        for way, (name, verb), text in self.random.sample(cases, min(len(cases), amount(5000, 60))):
            with self.subTest(way, field=name, text=text[:40]):
                before = self.unchanged()
                typed = text if '\\"' in text else text.replace('"', '\\"')
                line = f'  {verb} "{name}" "{typed}"\n'
                done = self.play(self.SETTINGS + way + line + '  press "Cancel"\n' * way.count("dialog "))
                within += way.count("dialog ") > 1
                if done.returncode != 0:
                    self.assertRefused(done, (1,), f"x.scr:{(self.SETTINGS + way).count(chr(10)) + 1}: ")
                    refused += 1
                for file, content in before.items():
                    self.assertEqual((self.out / file).read_bytes() == content, True, f"{file} was written")
        self.assertGreater(refused, 0)
        if WHOLE:
            self.assertGreater(len(dialogs), sum(map(bool, found)) + 10)
            self.assertGreater(within, 100)


class Limits(FaultTest):
    ENDLESS = {
        "a repeat": 'macro REPEAT 1000000000 "Y" [0,0] [1,1]\n',
        "repeats of repeats": 'macro SELECTLAYER "0"\nmacro REPEAT 4000 "Y" [0,0] [1,1]\n' * 3,
        "no number": 'macro REPEAT 1e400 "Y" [0,0] [1,1]\n',
        "brackets": "macro MOVE " + "[" * 100_000 + "\n",
        "words": "draw " + "1 " * 1_000_000 + "\n",
        "a long text repeated": f'draw text 0 0 35 "{"x" * 1_000_000}"\nmacro SELECTLAYER "0"\nmacro REPEAT 4000 "Y" [0,0] [1,1]\n',
        "windows": "new\n" * 1001,
    }
    if WHOLE:
        ENDLESS["windows full of lines"] = 'macro REPEAT 4000000 "Y" [0,0] [1,1]\nnew\ndraw line 0 0 1 1\nmacro SELECTLAYER "0"\n' * 4

    def test_what_has_no_end_is_refused_by_name(self):
        for name, text in self.ENDLESS.items():
            with self.subTest(name):
                begun = time.monotonic()
                done = self.play('draw line 0 0 1 1\nmacro SELECTLAYER "0"\n' + text + 'export "x.json"\n')
                self.assertRefused(done, (1,), "x.scr:")
                self.assertEqual(self.names(), set())
                self.assertLess(time.monotonic() - begun, 300 if "full" in name else 20)


if __name__ == "__main__":
    main()

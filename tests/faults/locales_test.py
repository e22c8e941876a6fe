"""Locales that write 1.5 as 1,5 and the small I as another letter: what is written is the same to the byte. Needs localedef
and the locales' sources; where they are missing it says so and is skipped (exit status 77).

    locales_test.py BATCH
"""

import shutil

from fault_program import DRAWING, EXAMPLES, LIBRARY_OF, FaultTest, add_bolt, main
from locales import LOCALES, environment_of, reason_to_skip
from writers import CONTROL_VISIT, settings_file, shipped_library

ALL_EXPORTS = "".join(f'export "x.{ending}"\n' for ending in ("dxf", "svg", "pdf", "png", "json"))
MACROS = 'macro SELECTLAYER "Achsen"\nmacro ROTATE [1.5,2.25] "Y" 33.125\nmacro SCALE [0.5,0.25] "N" 1.5 1.5\nlayer "iI"\n'


class Locales(FaultTest):
    def outputs(self, locale, words):
        shutil.rmtree(self.out)
        self.out.mkdir()
        self.write("out/job.ini", settings_file())
        self.write("own.ini", shipped_library())
        environment = self.environment(**(environment_of(locale) if locale else {"LC_ALL": "C"}))
        done = self.batch(*words, environment=environment)
        self.assertDone(done)
        return done.stderr, {name: (self.out / name).read_bytes() for name in self.names()}

    def same(self, words):
        wanted = self.outputs("", words)
        self.assertTrue(wanted[1])
        for locale in LOCALES:
            found = self.outputs(locale, words)
            self.assertEqual(found[0], wanted[0], locale)
            self.assertEqual(set(found[1]), set(wanted[1]), locale)
            for name, content in wanted[1].items():
                self.assertTrue(found[1][name] == content, f"{name} differs in {locale}")

    def test_scripts(self):
        text = DRAWING + MACROS + ALL_EXPORTS + 'save "x.drg"\n' + LIBRARY_OF.format("own.ini") + add_bolt("OWN") + CONTROL_VISIT
        self.write("x.scr", text)
        self.same(("run", "x.scr", "-o", "out", "--transcript", "out/t.jsonl"))

    def test_examples(self):
        for script in sorted(EXAMPLES.glob("*/*.scr")):
            with self.subTest(script.stem):
                self.same(("run", script, "-o", "out"))

    def test_conversions(self):
        for source in ("drg", "dxf"):
            self.sample_drawing(source)
            for target in ("drg", "dxf", "svg", "pdf", "json"):
                with self.subTest(source=source, target=target):
                    self.same(("convert", f"sample.{source}", f"out/x.{target}"))


if __name__ == "__main__":
    main(reason_to_skip)

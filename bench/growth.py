"""Four times the work takes about four times the time: whatever is found by walking shows as sixteen times.

    growth.py BATCH
"""

import math
import pathlib
import resource
import sys

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "tests" / "faults"))
from fault_program import FaultTest, main  # noqa: E402


BOUND = 2.5  # a walk takes 4; a table that outgrows the processor's caches up to 2.4, its instructions twice as many


def lines(count, one):
    return "".join(one(n) + "\n" for n in range(count))


def grid(count):
    """Lines that stand apart, so that a pick meets one."""
    return lines(count, lambda n: f"draw line {n % 1000 * 20} {n // 1000 * 20} {n % 1000 * 20 + 10} {n // 1000 * 20}")


def picks(count, macro):
    """A drawing, then a macro at each of its lines."""
    return grid(count) + lines(count, lambda n: "macro " + macro(n % 1000 * 20 + 5, n // 1000 * 20))


def grouped(count):
    """Each line a group of its own."""
    return 'macro PARENT "P"\n' + grid(count) + lines(count, lambda n: (
        f"macro SELECT [{n % 1000 * 20 + 5},{n // 1000 * 20}] [#]\nmacro LINKSEL \"G{n}\"\nmacro CLEARSEL"))


def symbols(count):
    text = lines(count, lambda n: f"symbol S{n}\n  line 0 0 {n + 1} 0")
    return text, lines(count, lambda n: f'macro ADDSYM "S{n}" [{n},{n}] 1 0')


def library(count):
    return lines(count, lambda n: f"[Section {n}]\nKey=value {n}\n")


# Name, amount, and the script for an amount; a script may need files: {name: content}.
SCRIPTS = [
    ("layers", 30_000, lambda n: lines(n, lambda k: f'layer "L{k}"\ndraw line {k} 0 {k} 10')),
    ("layers gone back to", 30_000,
     lambda n: lines(n, lambda k: f'layer "L{k}"') + lines(n, lambda k: f'layer "L{k * 7919 % n}"\ndraw line {k} 0 {k} 9')),
    ("groups", 10_000, grouped),
    ("groups found by name", 10_000,
     lambda n: grouped(n) + lines(n, lambda k: f'macro SELECTNAME "P G{k * 7919 % n}"\nmacro CLEARSEL')),
    ("groups renamed", 10_000, lambda n: grouped(n) + lines(n, lambda k: f'macro RENAMPAT "P G{k}" "Q H{k}"')),
    ("picks", 20_000, lambda n: picks(n, lambda x, y: f"SELECT [{x},{y}] [#]")),
    ("moves of what was picked", 10_000,
     lambda n: picks(n, lambda x, y: f"SELECT [{x},{y}] [#]\nmacro MOVE [0,0] [1,1]\nmacro CLEARSEL")),
    ("snips", 10_000, lambda n: picks(n, lambda x, y: f'SNIP "Y" "Y" "N" [{x - 1},{y - 1}] [{x + 1},{y + 1}] [#]')),
    ("lines changed at a point", 10_000, lambda n: picks(n, lambda x, y: f'EDITLP "N" [{x},{y}] 4 2 0.1 [#]')),
    ("boundaries", 5_000, lambda n: (
        lines(n, lambda k: f"draw line {k * 10} 0 {k * 10} 10\ndraw line {k * 10} 0 {k * 10 + 10} 0\n"
              f"draw line {k * 10} 10 {k * 10 + 10} 10") + f"draw line {n * 10} 0 {n * 10} 10\n" +
        lines(n, lambda k: f"macro AUTOPERIM 0 [{k * 10 + 5},5]"))),
    ("undo", 20_000, lambda n: grid(n) + "undo\n" * n + "redo\n" * n),
    ("copies", 100_000, lambda n: f"draw line 0 0 10 0\nmacro SELECT [5,0] [#]\nmacro REPEAT {n} \"Y\" [0,0] [0,20]\n"),
    ("texts", 50_000, lambda n: lines(n, lambda k: f'draw text {k % 1000 * 20} {k // 1000 * 20} 35 "Text {k}"')),
]


class Growth(FaultTest):
    def seconds(self, *words):
        """Processor time of a run, the best of three."""
        best = []
        for _ in range(3):
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            self.assertDone(self.batch(*words))
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            best.append(after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime)
        return min(best)

    def grows(self, name, amount, prepare):
        """prepare(n) writes the input for n and gives the program's words."""
        with self.subTest(name):
            nothing = self.seconds(*prepare(1))
            for _ in range(3):  # what else runs on the machine only adds
                once, more = (self.seconds(*prepare(n)) - nothing for n in (amount, 4 * amount))
                doubling = math.sqrt(more / once)
                print(f"{name}: {amount} in {once:.3f} s, {4 * amount} in {more:.3f} s, a doubling {doubling:.2f} times")
                if doubling < BOUND:
                    break
            self.assertGreater(once, 0.01, "too little to measure")
            self.assertLess(doubling, BOUND)

    def script(self, text):
        self.write("x.scr", text + 'export "x.dxf"\n')
        return "run", "x.scr", "-o", "out"

    def test_scripts(self):
        for name, amount, text in SCRIPTS:
            self.grows(name, amount, lambda n, text=text: self.script(text(n)))

    def test_symbols(self):
        def prepare(n):
            text, places = symbols(n)
            self.write("s.sym", text)
            self.assertDone(self.batch("convert", "s.sym", "s.drg"))
            return self.script('macro NEWSYMFL "s.drg" "Y" "Y"\n' + places)

        self.grows("symbols", 10_000, prepare)

    def test_libraries(self):
        def prepare(n):
            self.write("s.ini", library(n))
            return "run", self.write("x.scr", 'draw line 0 0 1 1\nexport "x.dxf"\n').name, "-o", "out", "--settings", "s.ini"

        self.grows("sections of settings", 100_000, prepare)

    def test_files(self):
        def prepare(n, ending):
            self.write("x.scr", lines(n, lambda k: f'layer "L{k}"') + grouped(n) +
                       f'{"save" if ending == "drg" else "export"} "x.{ending}"\n')
            self.assertDone(self.batch("run", "x.scr", "-o", "."))
            return "convert", f"x.{ending}", "out/x.json"

        for ending in ("dxf", "drg"):
            self.grows(f"{ending} of layers and groups", 20_000, lambda n, ending=ending: prepare(n, ending))


if __name__ == "__main__":
    main()

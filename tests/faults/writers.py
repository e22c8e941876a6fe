"""Every way in which the batch tool writes a file: what it is given, what it is told, which file it replaces."""

from fault_program import DATA, DRAWING, LIBRARY_OF, add_bolt

OLD = b"what was there before\n"
CONTROL_VISIT = (
    'setting "SG_DEFAULTS" "SG_DiaramFile" "out/job.ini"\nrun SG_DiagramEditor\ndialog "*"\npress "Control coords"\n'
    'dialog "Control Coordinates"\nset "Control point 1/Y" 12.5\npress "OK"\npress "OK"\n')

NEW_WALL = (
    'setting "ArchitecturalTools" "SpecFile" "out/ArchSpecs.ini"\nrun ArchSetWalls\ndialog "Wall Setup"\n'
    'set "External wall width" 115\npress "Add"\ndialog "Ardenix - Add New Item"\nset "Name for new wall" "OWN"\n'
    'press "OK"\npress "OK"\n')

TABLE = LIBRARY_OF.format("ISO Mechspecs.ini") + (
    'run MechDrawTabBox\ndialog "*"\ncell "Table" 1 "1" "x"\nmenu "Actions/Export Data"\nfile "t.csv"\n'
    'expect no message\npress "Cancel"\nreply yes\n')


class Writer:
    """A row: what it is called, the files it needs, its command line, and the file below "out" that it writes."""

    def __init__(self, name, target, old, script=None, words=(), files=()):
        self.name, self.target, self.old, self.script, self.words, self.files = name, target, old, script, words, files

    def prepare(self, test):
        """Puts everything as it is before the run; other files of an earlier run go."""
        for name in test.names():
            (test.out / name).unlink()
        for name, content in self.files:
            test.write(name, content() if callable(content) else content)
        if self.old is not None:
            test.write("out/" + self.target, self.before())

    def before(self):
        return self.old() if callable(self.old) else self.old

    def command(self, test):
        """The words of its command line, its script being written."""
        if self.script is None:
            return self.words
        test.write("x.scr", self.script)
        return ("run", "x.scr", "-o", "out", *self.words)

    def run(self, test, environment=None):
        return test.batch(*self.command(test), environment=environment)


def shipped_library():
    return (DATA / "ISO Mechspecs.ini").read_bytes()


def settings_file():
    return (DATA / "SG Diagram.ini").read_bytes()


def specification_file():
    return (DATA / "ArchSpecs.ini").read_bytes()


def conversion(ending):
    return Writer("convert to " + ending, "x." + ending, OLD, words=("convert", "sample.drg", "out/x." + ending))


ALL = [
    *[conversion(ending) for ending in ("drg", "dxf", "svg", "pdf", "png", "json")],
    Writer("outline of a figure", "x.dxf", OLD, words=("outline", "sample.drg", "--at", "450", "300", "-o", "out/x.dxf")),
    Writer("save of a script", "x.drg", OLD, DRAWING + 'save "x.drg"\n'),
    Writer("export of a script", "x.svg", OLD, DRAWING + 'export "x.svg"\n'),
    Writer("transcript", "t.jsonl", OLD, DRAWING, ("--transcript", "out/t.jsonl")),
    Writer("library changed in place", "lib.ini", shipped_library, LIBRARY_OF.format("out/lib.ini") + add_bolt("OWN")),
    Writer("library copied at the first change", "own.ini", None, LIBRARY_OF.format("own.ini") + add_bolt("OWN"),
           files=[("own.ini", shipped_library)]),
    Writer("table", "t.csv", OLD, TABLE),
    Writer("survey settings", "job.ini", settings_file, CONTROL_VISIT),
    Writer("architectural specifications", "ArchSpecs.ini", specification_file, NEW_WALL),
]

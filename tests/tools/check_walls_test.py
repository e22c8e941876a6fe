#!/usr/bin/python3
"""The check of the walls sees what was planted, and nothing else."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
CHECK = ROOT / "tools" / "check_walls.py"

SEAM = """#pragma once
#include <string>
#define BREVAN_API
class BREVAN_API TINIFile { public: void UpdateFile(); };
BREVAN_API double coreDmsRad(double degreesMinutesSeconds);
"""
LAWFUL = {
    "frame/host/seam.h": SEAM,
    "frame/names.h": '#include "frame/host/seam.h"\n',
    "mech/bolt.h": '#include "frame/names.h"\n',
    "mech/tables/list.cpp": '#include "mech/bolt.h"\n',
    "arch/wall.h": "#include <vector>\n",
    "survey/sheet/window.h": "",
    "survey/sectional/scheme.h": '#include "survey/sheet/window.h"\n',
    "frame/entry/exports.cpp": '#include "mech/bolt.h"\n#include "arch/wall.h"\n',
    "host/geometry/point.h": "",
    "host/drawing/index.cpp": '#include <boost/geometry.hpp>\n#include "host/geometry/point.h"\n',
    "host/core/file.h": "#include <unistd.h>\n",
    "host/files/store.cpp": '#include <sqlite3.h>\n#include "host/core/file.h"\n#include "host/geometry/point.h"\n',
    "host/files/dxf/notes.h": '#include "host/core/file.h"\n',
    "host/files/dxf/read/reader.h": '#include "host/files/dxf/notes.h"\n',
    "host/files/dxf/write/writer.h": '#include "host/files/dxf/notes.h"\n',
    "host/files/files.cpp": '#include "host/files/dxf/read/reader.h"\n',
    "render/painter.cpp": '#include <QPainter>\n#include "host/geometry/point.h"\n',
    "batch/main.cpp": '#include <CLI/CLI.hpp>\n#include "frame/host/seam.h"\n',
    "tests/mech/bolt_test.cpp": '#include "mech/bolt.h"\n#include "host/core/file.h"\n',
}
PLANTED = {
    "beside: one family includes another": ("mech/thief.cpp", '#include "arch/wall.h"'),
    "beside: general plans know sectional schemes": ("survey/plan/thief.cpp", '#include "survey/sectional/scheme.h"'),
    "above: a family knows the exports": ("mech/thief.cpp", '#include "frame/entry/exports.cpp"'),
    "the module includes the host": ("frame/thief.cpp", '#include "host/geometry/point.h"'),
    "the host includes the module": ("host/core/thief.cpp", '#include "mech/bolt.h"'),
    "above: the drawing knows files": ("host/drawing/thief.cpp", '#include "host/core/file.h"'),
    "beside: the reader of a format knows its writer": ("host/files/dxf/read/thief.cpp", '#include "host/files/dxf/write/writer.h"'),
    "above: a format knows its reader": ("host/files/dxf/thief.cpp", '#include "host/files/dxf/read/reader.h"'),
    "the seam includes the module": ("frame/host/thief.h", '#include "frame/names.h"'),
    "Qt below the painter": ("host/core/thief.cpp", "  #  include <QString>"),
    "Qt by its module's path": ("host/core/thief.cpp", "#include <QtCore/QString>"),
    "the system in the module": ("mech/thief.cpp", "#include <unistd.h>"),
    "the database outside files": ("host/window/thief.cpp", "#include <sqlite3.h>"),
    "a second file with the R-tree": ("host/drawing/thief.cpp", "#include <boost/geometry/index/rtree.hpp>"),
    "the R-tree elsewhere": ("host/core/thief.cpp", "#include <boost/geometry.hpp>"),
    "a path from the file's own folder": ("mech/thief.cpp", '#include "bolt.h"'),
    "a folder without a level": ("sundry/thief.cpp", ""),
}


class CheckWallsTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.root = Path(scratch.name)
        for name, text in LAWFUL.items():
            self.write(name, text)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text + "\n")
        return path

    def check(self, *options):
        return subprocess.run([CHECK, "--root", self.root, *options], capture_output=True, text=True)

    def testLawfulTreePasses(self):
        done = self.check()
        self.assertEqual((done.returncode, done.stderr), (0, ""), done.stdout)

    def testEveryPlantedIncludeIsNamedWithItsLine(self):
        for what, (name, line) in PLANTED.items():
            with self.subTest(what):
                planted = self.write(name, line)
                done = self.check()
                planted.unlink()
                self.assertEqual(done.returncode, 1)
                self.assertIn(name, done.stdout)

    def module(self, body):
        """Builds a module that includes the seam and returns its path."""
        source = self.write("module.cc", f'#include "{self.root}/frame/host/seam.h"\n{body}')
        subprocess.run(["g++", "-shared", "-fPIC", source, "-o", self.root / "module.so"], check=True)
        return self.root / "module.so"

    def testModuleMayAskForTheSeamAndTheStandardLibrary(self):
        module = self.module("std::string f(TINIFile& file) "
                             "{ file.UpdateFile(); return std::to_string(coreDmsRad(1.0)); }")
        done = self.check("--module", module)
        self.assertEqual(done.returncode, 0, done.stdout)

    def testModuleMayNotAskForAnythingElse(self):
        module = self.module("namespace brevan { void redraw(); struct Journal { void undo(); }; }\n"
                             "void f() { brevan::redraw(); brevan::Journal().undo(); }")
        done = self.check("--module", module)
        self.assertEqual(done.returncode, 1)
        self.assertIn("brevan::redraw()", done.stdout)
        self.assertIn("brevan::Journal::undo()", done.stdout)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])  # ctest hands over the batch tool

#!/usr/bin/python3
"""A file that passed is left alone until something of it changes; one that did not is examined every time."""
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

PROJECT = """cmake_minimum_required(VERSION 3.25)
project(probe LANGUAGES CXX)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
add_library(probe OBJECT one.cpp two.cpp untracked.cpp)
"""
CHECKS = """Checks: '-*,modernize-use-nullptr'
WarningsAsErrors: '*'
HeaderFilterRegex: '.*'
"""
FILES = {
    "CMakeLists.txt": PROJECT,
    ".clang-tidy": CHECKS,
    "shared.h": "inline int* none() { return nullptr; }\n",
    "one.cpp": '#include "shared.h"\nint* one() { return none(); }\n',
    "two.cpp": "int* two() { return nullptr; }\n",
}


class RunClangTidyTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.root = Path(scratch.name).resolve()
        for name, text in FILES.items():
            (self.root / name).write_text(text)
        (self.root / "tools").mkdir()
        shutil.copy(ROOT / "tools" / "run_clang_tidy.py", self.root / "tools")
        self.shell("git", "init", "-q")
        self.shell("git", "add", ".")
        (self.root / "untracked.cpp").write_text("int* untracked() { return 0; }\n")
        self.shell("cmake", "-G", "Ninja", "-B", "build")
        self.build()

    def shell(self, *command):
        subprocess.run(command, cwd=self.root, check=True, capture_output=True)

    def build(self):
        self.shell("ninja", "-C", "build")

    def write(self, name, text):
        (self.root / name).write_text(text)
        self.build()

    def tidy(self):
        done = subprocess.run([self.root / "tools" / "run_clang_tidy.py", self.root / "build"],
                              capture_output=True, text=True)
        return done.returncode, done.stdout + done.stderr

    def assertExamined(self, count, status=0):
        returncode, output = self.tidy()
        self.assertEqual(returncode, status, output)
        self.assertIn(f"{count} files examined, {2 - count} unchanged", output)

    def testOnlyWhatChangedIsExaminedAgain(self):
        self.assertExamined(2)
        self.assertExamined(0)
        self.write("two.cpp", "int* two() { return nullptr; }  // again\n")
        self.assertExamined(1)
        self.write("shared.h", "inline int* none() { return  nullptr; }\n")
        self.assertExamined(1)
        self.write(".clang-tidy", CHECKS + "FormatStyle: none\n")
        self.assertExamined(2)

    def testAComplaintStandsUntilItIsMended(self):
        self.write("shared.h", "inline int* none() { return 0; }\n")
        self.assertExamined(2, status=1)
        self.assertExamined(1, status=1)
        self.assertIn("shared.h:1:", self.tidy()[1])
        self.write("shared.h", FILES["shared.h"])
        self.assertExamined(1)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])  # ctest hands over the batch tool

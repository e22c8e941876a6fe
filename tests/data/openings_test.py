#!/usr/bin/python3
"""The windows and doors that are committed are those that make_openings.py writes."""
import sys
import unittest
from pathlib import Path

SYMBOLS = Path(__file__).resolve().parents[2] / "data" / "symbols"
sys.path.insert(0, str(SYMBOLS))
sys.dont_write_bytecode = True
import make_openings  # noqa: E402


class Openings(unittest.TestCase):
    def test_committed_files_are_as_written(self):
        written = {name: make_openings.text(lines) for name, lines in make_openings.files()}
        committed = {str(path.relative_to(SYMBOLS)): path.read_text(encoding="utf-8")
                     for folder in ("Windows", "Doors") for path in (SYMBOLS / folder).glob("*.sym")}
        self.assertEqual(written, committed)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

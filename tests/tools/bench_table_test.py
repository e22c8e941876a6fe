#!/usr/bin/python3
"""The table of benchmarks tells growth, what is asked, and what could not be measured."""
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "bench"))

import table  # noqa: E402
from figures import FIGURES, PROGRAMS, Figure  # noqa: E402


def recorded(size, ours, peer):
    """A row as the C++ programs print it."""
    return {"name": f"pick/loaded/{size}/iterations:1", "run_type": "iteration", "size": size, "ours": ours,
            "peer tree": peer}


# Time grows with the square of the size; the second run's largest was disturbed, its peer with it.
RUNS = [[recorded(10, 1e-3, 5e-4), recorded(100, 1e-1, 5e-2), recorded(1000, 10.0, 5.0)],
        [recorded(10, 1e-3, 5e-4), recorded(100, 1e-1, 5e-2), recorded(1000, 90.0, 45.0)],
        [recorded(10, 1e-3, 5e-4), recorded(100, 1e-1, 5e-2), recorded(1000, 10.0, 5.0)]]


class Table(unittest.TestCase):
    def cells(self, failures=None, **asked):
        figure = Figure("pick_bench", "pick/loaded", asked.pop("peer", "tree"), "pick", "lines", **asked)
        return table.line(figure, {} if failures else table.medians(RUNS), failures or {})

    def test_growth_and_ratio_are_medians_over_the_runs(self):
        self.assertEqual(self.cells(), ("pick", "10 / 100 / 1,000 lines", "10 s", "tree", "2.00 / 2.00 / 2.00", "2.00",
                                        "–", "–"))

    def test_each_kind_of_limit_is_judged_at_the_worst_size(self):
        for asked, met in (({"ratio": 2}, "yes"), ({"ratio": 1.9}, "**no**"), ({"seconds": 1}, "**no**"),
                           ({"over": 5.1}, "yes"), ({"over": 4.9}, "**no**"), ({"growth": 1.1}, "**no**")):
            self.assertEqual(self.cells(**asked)[-1], met, asked)

    def test_a_missing_peer_or_program_is_named(self):
        self.assertEqual(self.cells(peer="GEOS")[3], "GEOS: missing here")
        self.assertIn("ezdxf is missing", self.cells(failures={"pick_bench": "ezdxf is missing"})[2])

    def test_every_figure_belongs_to_a_program_that_is_there(self):
        names = {program.name for program in PROGRAMS}
        self.assertEqual({figure.program for figure in FIGURES}, names)
        for name in names:
            path = Path(table.__file__).parent / (name if name.endswith(".py") else name + ".cpp")
            self.assertTrue(path.exists(), path)

    def test_only_what_stands_between_the_marks_is_replaced(self):
        self.assertEqual(table.replaced("a<b>old<e>z", "<b>", "<e>", "new"), "a<b>\n\nnew\n<e>z")
        with self.assertRaises(ValueError):
            table.replaced("no marks", "<b>", "<e>", "new")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])  # it is given the batch tool, like its neighbours

"""Replays every example through the batch tool and compares its drawing with the one that was looked at.

    examples_test.py BATCH            compare
    examples_test.py BATCH --accept   take the present drawings as right, after looking at them
"""

import json
import math
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
ACCEPTED = ROOT / "tests" / "examples"
BATCH = pathlib.Path(sys.argv[1]).resolve()


def scripts():
    return sorted((ROOT / "examples").glob("*/*.scr"))


def play(script, folder):
    done = subprocess.run([BATCH, "run", script, "-o", folder], capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise AssertionError(f"{script.name}: {done.stderr}")
    return json.loads((folder / f"{script.stem}.json").read_text(encoding="utf-8"))


def differences(path, found, wanted):
    """What differs, numbers within a billionth."""
    if isinstance(wanted, (int, float)) and isinstance(found, (int, float)) and not isinstance(wanted, bool):
        if not math.isclose(found, wanted, rel_tol=1e-9, abs_tol=1e-9):
            yield f"{path}: {found} instead of {wanted}"
    elif isinstance(wanted, dict) and isinstance(found, dict) and wanted.keys() == found.keys():
        for key, value in wanted.items():
            yield from differences(f"{path}.{key}", found[key], value)
    elif isinstance(wanted, list) and isinstance(found, list) and len(wanted) == len(found):
        for index, value in enumerate(wanted):
            yield from differences(f"{path}[{index}]", found[index], value)
    elif found != wanted:
        yield f"{path}: {str(found)[:100]} instead of {str(wanted)[:100]}"


class Examples(unittest.TestCase):
    def test_every_example_draws_what_was_accepted(self):
        self.assertTrue(scripts())
        self.assertEqual({s.stem for s in scripts()}, {a.stem for a in ACCEPTED.glob("*.json")})
        for script in scripts():
            with self.subTest(script.stem), tempfile.TemporaryDirectory() as folder:
                drawing = play(script, pathlib.Path(folder))
                wanted = json.loads((ACCEPTED / f"{script.stem}.json").read_text(encoding="utf-8"))
                self.assertEqual(list(differences("drawing", drawing, wanted))[:5], [])

    def test_the_plates_six_bolts_lie_on_the_pitch_circle(self):
        with tempfile.TemporaryDirectory() as folder:
            drawing = play(ROOT / "examples/flange_plate/flange_plate.scr", pathlib.Path(folder))
        heads = [p for p in drawing["primitives"] if p["group"] == "M12X50_P1" and p["type"] == "arc"]
        angles = sorted(math.degrees(math.atan2(p["centre"][1] - 225, p["centre"][0] - 160)) % 360 for p in heads)
        radii = [math.dist(p["centre"], (160, 225)) for p in heads]
        self.assertEqual(len(heads), 6)
        for radius in radii:
            self.assertAlmostEqual(radius, 80)
        for angle, wanted in zip(angles, range(0, 360, 60)):
            self.assertAlmostEqual((angle - wanted + 180) % 360 - 180, 0)


def accept():
    for script in scripts():
        with tempfile.TemporaryDirectory() as folder:
            play(script, pathlib.Path(folder))
            text = (pathlib.Path(folder) / f"{script.stem}.json").read_text(encoding="utf-8")
        (ACCEPTED / f"{script.stem}.json").write_text(text, encoding="utf-8")
        print(f"accepted {script.stem}")


if __name__ == "__main__":
    if "--accept" in sys.argv:
        accept()
    else:
        unittest.main(argv=sys.argv[:1])

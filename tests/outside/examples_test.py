"""Replays every example through the batch tool and compares its drawing with the one that was looked at.

    examples_test.py BATCH            compare
    examples_test.py BATCH --accept   take the present drawings as right where they differ, after looking at them
"""

import json
import math
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
ACCEPTED = ROOT / "tests" / "examples"
BATCH = pathlib.Path(sys.argv[1]).resolve()
WIDTH = 150  # of a line in an accepted file
LOOK = ("layer", "pen", "linetype", "width", "parent", "group", "groupId")


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


def text_of(value):
    return json.dumps(value, ensure_ascii=False, separators=(",", ":"))


def rounded(value):
    """Numbers to eleven figures, which is far below what counts as a difference."""
    if isinstance(value, list):
        return [rounded(item) for item in value]
    return float(f"{value:.11g}") if isinstance(value, float) else value


def packed(drawing):
    """The drawing as JSON with its primitives in runs of one look: kind, first id, the look, a row of values for each."""
    kinds = []
    runs = []
    for primitive in drawing["primitives"]:
        kind = [primitive["type"]] + [key for key in primitive if key not in LOOK and key not in ("id", "type")]
        kinds += [] if kind in kinds else [kind]
        head = [kinds.index(kind)] + [primitive[key] for key in LOOK]
        if not runs or runs[-1][1] != head or runs[-1][0] + len(runs[-1][2]) != primitive["id"]:
            runs.append((primitive["id"], head, []))
        runs[-1][2].append(rounded([primitive[key] for key in kind[1:]]))
    lines = [text_of({"kinds": kinds, **drawing, "primitives": []})[:-2], ""]
    for first, head, rows in runs:
        for number, row in enumerate(rows):
            words = (text_of([first] + head)[:-1] + ",[" if number == 0 else "") + text_of(row)
            words += "," if number + 1 < len(rows) else "]],"
            lines[-1:] = [lines[-1] + words] if len(lines[-1]) + len(words) <= WIDTH else [lines[-1], words]
    return "\n".join(lines)[:-1] + "]}\n"


def unpacked(text):
    drawing = json.loads(text)
    kinds = drawing.pop("kinds")
    drawing["primitives"] = [
        {"id": first + number, "type": kinds[kind][0], **dict(zip(LOOK, look)), **dict(zip(kinds[kind][1:], row))}
        for first, kind, *look, rows in drawing["primitives"]
        for number, row in enumerate(rows)
    ]
    return drawing


def unlike_accepted(script, drawing):
    path = ACCEPTED / f"{script.stem}.json"
    if not path.exists():
        return [f"there is no {path.name}"]
    return list(differences("drawing", drawing, unpacked(path.read_text(encoding="utf-8"))))[:5]


def ends(line, origin=0, turn=1):
    """Both ends as complex numbers, seen from an origin and turned."""
    return [(complex(*line[key]) - origin) * turn for key in ("p1", "p2")]


def is_edge(primitive):
    return primitive["type"] == "line" and primitive["linetype"] == 1 and primitive["width"] >= 5


def shafts(drawing):
    """The shaft of every bolt and screw in side view: its group, one end of its axis, the turn that lays the axis along
    x, its half width and its reach along the axis, by the longest edge that has its like on the other side."""
    for axis in drawing["primitives"]:
        if axis["type"] != "line" or axis["linetype"] != 4 or not re.fullmatch(r"(M\d+X\d+F?_|S)S\d+", axis["group"]):
            continue
        origin, along = ends(axis)
        turn = abs(along - origin) / (along - origin)
        edges = [ends(p, origin, turn) for p in drawing["primitives"] if is_edge(p) and p["groupId"] == axis["groupId"]]
        beside = [e for e in edges if abs(e[0].imag - e[1].imag) < 1e-6 < e[0].imag and e[0].imag < abs(along - origin) / 2]
        alike = [e for e in beside if any(abs(e[0].conjugate() - end) < 1e-6 for other in edges for end in other)]
        if not alike:
            continue  # what stands out of a nut
        first, last = sorted(max(alike, key=lambda e: abs(e[0] - e[1])), key=lambda end: end.real)
        yield axis, origin, turn, first.imag, first.real, last.real


def runs_through(line, half, first, last):
    """Whether a line passes within a shaft by more than it touches its sides."""
    start, end = line
    inside = [start + (end - start) * step / 200 for step in range(201)]
    return any(abs(p.imag) < 0.9 * half and first + 0.1 < p.real < last - 0.1 for p in inside)


class Examples(unittest.TestCase):
    def test_every_example_draws_what_was_accepted(self):
        self.assertTrue(scripts())
        self.assertEqual({s.stem for s in scripts()}, {a.stem for a in ACCEPTED.glob("*.json")})
        for script in scripts():
            with self.subTest(script.stem), tempfile.TemporaryDirectory() as folder:
                self.assertEqual(unlike_accepted(script, play(script, pathlib.Path(folder))), [])

    def test_no_edge_of_another_part_runs_through_a_bolt(self):
        seen = 0
        for script in scripts():
            drawing = unpacked((ACCEPTED / f"{script.stem}.json").read_text(encoding="utf-8"))
            for axis, origin, turn, half, first, last in shafts(drawing):
                seen += 1
                for edge in filter(is_edge, drawing["primitives"]):
                    if edge["groupId"] != axis["groupId"]:
                        line = ends(edge, origin, turn)
                        self.assertFalse(runs_through(line, half, first, last), f"{script.stem}: {axis}, {edge}")
        self.assertGreaterEqual(seen, 14)


def accept():
    for script in scripts():
        with tempfile.TemporaryDirectory() as folder:
            drawing = play(script, pathlib.Path(folder))
        if unlike_accepted(script, drawing):
            (ACCEPTED / f"{script.stem}.json").write_text(packed(drawing), encoding="utf-8")
            print(f"accepted {script.stem}")


if __name__ == "__main__":
    if "--accept" in sys.argv:
        accept()
    else:
        unittest.main(argv=sys.argv[:1])

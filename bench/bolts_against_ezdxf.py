"""Placing bolts by script and writing them as DXF, against ezdxf drawing and writing the same strokes.

    bolts_against_ezdxf.py BATCH [--quick]

Both sides are timed in this run: our side is the whole program (start, script, dialog, placing with the scan
of groups for each number, DXF); the peer's side is drawing the strokes it is given and saving.
"""

import json
import math
import pathlib
import tempfile
import time

import rows

ezdxf = rows.needed("ezdxf")

HEAD = """setting "MechanicalTools" "SpecFile" "ISO Mechspecs.ini"
run MechDrawBolts
dialog "Mechanical Ardenix - Hex Bolts"
  pick "Definition" "M10x60"
  press "OK"
"""


def script(count, ending):
    side = math.ceil(math.sqrt(count))
    lines = [HEAD]
    for place in range(count):
        lines.append(f'point {place % side * 40} {place // side * 100}\nmenu "No Rotation"\n')
    return "".join(lines) + f'space\nexport "bolts.{ending}"\n'


def play(batch, folder, count, ending):
    path = folder / "bolts.scr"
    path.write_text(script(count, ending), encoding="utf-8")
    return rows.seconds([batch, "run", path, "-o", folder / "out"])


def draw_with_ezdxf(strokes, path):
    start = time.perf_counter()
    document = ezdxf.new("R2010", setup=True)
    space = document.modelspace()
    for stroke in strokes:
        style = {"layer": stroke["layer"], "color": stroke["pen"], "linetype": "CONTINUOUS", "lineweight": 50}
        if stroke["type"] == "line":
            space.add_line(stroke["p1"], stroke["p2"], dxfattribs=style)
            continue
        centre, begin, end = stroke["centre"], stroke["start"], stroke["end"]
        angles = [math.degrees(math.atan2(p[1] - centre[1], p[0] - centre[0])) for p in (begin, end)]
        space.add_arc(centre, math.dist(centre, begin), *angles, dxfattribs=style)
    document.saveas(path)
    return time.perf_counter() - start


def main():
    (batch,), quick = rows.arguments()
    taken = []
    for count in [2500] if quick else [2500, 5000, 10000]:
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            play(batch, folder, count, "json")
            strokes = json.loads((folder / "out/bolts.json").read_text(encoding="utf-8"))["primitives"]
            ours = min(play(batch, folder, count, "dxf") for _ in range(3))
            peer = draw_with_ezdxf(strokes, folder / "peer.dxf")
        taken.append(rows.row("bolts", count, ours, ezdxf=peer))
    rows.show(taken)


if __name__ == "__main__":
    main()

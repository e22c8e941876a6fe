"""Placing parts by script and writing them as DXF, against ezdxf drawing and writing the same strokes.

    parts_against_ezdxf.py BATCH [--quick]

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

LIBRARY = 'setting "MechanicalTools" "SpecFile" "ISO Mechspecs.ini"\n'


def begun(command, title, settings):
    return f'{LIBRARY}run {command}\ndialog "Mechanical Ardenix - {title}"\n{settings}press "OK"\n'


def placed(count, apart, answers):
    """Parts in a square, so far from each other across and up."""
    side = math.ceil(math.sqrt(count))
    return "".join(answers.format(at=f"point {n % side * apart[0]} {n // side * apart[1]}\n") for n in range(count)) + "space\n"


def bolts(count):
    return begun("MechDrawBolts", "Hex Bolts", 'pick "Definition" "M10x60"\n') + placed(count, (40, 100), '{at}menu "No Rotation"\n')


def flanges(count):
    return begun("MechDrawFlanges", "Flanges", 'pick "Definition" "DN80 PN16"\n') + placed(count, (250, 250), "{at}{at}")


def gears(teeth):
    """Ten gears of so many teeth."""
    return (begun("MechDrawGears", "Spur Gears", f'pick "Definition" "M2 Z25"\nset "Number of teeth" {teeth}\n') + "reply no\n"
            + placed(10, (2500, 2500), "{at}"))


def shafts(count):
    return begun("MechDrawShafts", "Shafts", 'pick "Definition" "STEPPED 25-30-36"\n') + placed(count, (250, 60), "{at}{at}")


def one_by_one(count, command, title, definition, apart, answers):
    """In a square, a command with its dialog for each; the answers are points counted from its place."""
    side = math.ceil(math.sqrt(count))
    begin = f'run {command}\ndialog "Mechanical Ardenix - {title}"\npick "Definition" "{definition}"\npress "OK"\n'
    places = ((n % side * apart[0], n // side * apart[1]) for n in range(count))
    return LIBRARY + "".join(begin + answers(x, y) for x, y in places)


def single_bolts(count):
    return one_by_one(count, "MechDrawBolts", "Hex Bolts", "M10x60", (40, 100),
                      lambda x, y: f'point {x} {y}\nmenu "No Rotation"\nspace\n')


def welds(count):
    return one_by_one(count, "MechDrawWelds", "Weld Annotation", "Fillet a5 both sides", (100, 60),
                      lambda x, y: f"point {x} {y}\npoint {x + 20} {y + 30}\npoint {x + 50} {y + 30}\npoint {x + 75} {y + 30}\n")


# What is drawn, at which sizes, the first of them alone for a quick run, and as many of what is measured beside it.
PARTS = (("bolts", bolts, (2500, 5000, 10000), None), ("flanges", flanges, (1000, 2000), None),
         ("gears", gears, (250, 500, 1000), None), ("sheetOfWelds", welds, (1000,), None),
         ("welds", welds, (1000, 10000), single_bolts), ("shafts", shafts, (2500, 5000), bolts))


def play(batch, folder, script, ending):
    path = folder / "parts.scr"
    path.write_text(f'{script}export "parts.{ending}"\n', encoding="utf-8")
    return rows.seconds([batch, "run", path, "-o", folder / "out"])


def add_note(document, stroke, style):
    """A text; an arrow as its line and its head; a symbol as a block of three lines."""
    space = document.modelspace()
    if stroke["type"] == "text":
        space.add_text(stroke["text"], height=stroke["height"] / 10, dxfattribs=style).set_placement(stroke["at"])
    elif stroke["type"] == "arrow":
        space.add_line(stroke["p1"], stroke["p2"], dxfattribs=style)
        space.add_solid([stroke["p2"], stroke["p1"], stroke["p1"]], dxfattribs=style)
    else:
        if stroke["name"] not in document.blocks:
            document.blocks.new(stroke["name"]).add_lwpolyline([(0, 0), (0, 3.5), (3.5, 0)], close=True)
        space.add_blockref(stroke["name"], stroke["at"], dxfattribs=style)


def draw_with_ezdxf(strokes, path):
    start = time.perf_counter()
    document = ezdxf.new("R2010", setup=True)
    space = document.modelspace()
    for stroke in strokes:
        style = {"layer": stroke["layer"], "color": stroke["pen"], "linetype": "CONTINUOUS", "lineweight": 50}
        if stroke["type"] == "line":
            space.add_line(stroke["p1"], stroke["p2"], dxfattribs=style)
            continue
        if stroke["type"] != "arc":
            add_note(document, stroke, style)
            continue
        centre, begin, end = stroke["centre"], stroke["start"], stroke["end"]
        if begin == end:
            space.add_circle(centre, math.dist(centre, begin), dxfattribs=style)
            continue
        angles = [math.degrees(math.atan2(p[1] - centre[1], p[0] - centre[0])) for p in (begin, end)]
        space.add_arc(centre, math.dist(centre, begin), *angles, dxfattribs=style)
    document.saveas(path)
    return time.perf_counter() - start


def measured(batch, name, size, script, beside):
    with tempfile.TemporaryDirectory() as folder_name:
        folder = pathlib.Path(folder_name)
        play(batch, folder, script(size), "json")
        strokes = json.loads((folder / "out/parts.json").read_text(encoding="utf-8"))["primitives"]
        ours = min(play(batch, folder, script(size), "dxf") for _ in range(3))
        peers = {"ezdxf": draw_with_ezdxf(strokes, folder / "peer.dxf")}
        if beside is not None:
            peers[beside.__name__] = min(play(batch, folder, beside(size), "dxf") for _ in range(3))
        return rows.row(name, size, ours, **peers)


def main():
    (batch,), quick = rows.arguments()
    rows.show([measured(batch, name, size, script, beside)
               for name, script, sizes, beside in PARTS for size in (sizes[:1] if quick else sizes)])


if __name__ == "__main__":
    main()

"""Reading and writing DXF by the batch tool, against ezdxf reading and writing the same files.

    dxf_against_ezdxf.py BATCH [--quick]

The file is made by ezdxf: lines and arcs with coordinates of full length. Our side is the whole program: start, read,
write what was read as another DXF file.
"""

import pathlib
import random
import tempfile
import time

import rows

ezdxf = rows.needed("ezdxf")


def make(count, path):
    chance = random.Random(7)
    document = ezdxf.new("R2010", setup=True)
    space = document.modelspace()
    for number in range(count):
        style = {"layer": f"LAYER{number // 100 % 5}", "color": 1 + number // 7 % 5}
        point = (chance.uniform(0, 10_000), chance.uniform(0, 10_000))
        if number % 10 < 8:
            space.add_line(point, (chance.uniform(0, 10_000), chance.uniform(0, 10_000)), dxfattribs=style)
        else:
            space.add_arc(point, chance.uniform(1, 100), chance.uniform(0, 180), chance.uniform(180, 360), dxfattribs=style)
    document.saveas(path)


def theirs(path, out):
    start = time.perf_counter()
    document = ezdxf.readfile(path)
    document.saveas(out)
    return time.perf_counter() - start


def main():
    (batch,), quick = rows.arguments()
    taken = []
    for count in [15_000] if quick else [15_000, 60_000, 240_000]:
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            make(count, folder / "in.dxf")
            ours = min(rows.seconds([batch, "convert", folder / "in.dxf", folder / "ours.dxf"]) for _ in range(3))
            peer = theirs(folder / "in.dxf", folder / "theirs.dxf")
        taken.append(rows.row("readAndWrite", count, ours, ezdxf=peer))
    rows.show(taken)


if __name__ == "__main__":
    main()

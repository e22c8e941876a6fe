"""Reading and writing DXF by the batch tool, against ezdxf reading and writing the same files.

    dxf_against_ezdxf.py BATCH [COUNT ...]

The file is made by ezdxf: lines and arcs with coordinates of full length. Our side is the whole program: start, read,
write what was read as another DXF file. Prints seconds and the ratio for each count, and the growth exponent of our
side.
"""

import math
import pathlib
import random
import subprocess
import sys
import tempfile
import time

import ezdxf


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


def ours(batch, path, out):
    start = time.perf_counter()
    subprocess.run([batch, "convert", path, out], check=True, capture_output=True)
    return time.perf_counter() - start


def theirs(path, out):
    start = time.perf_counter()
    document = ezdxf.readfile(path)
    read = time.perf_counter()
    document.saveas(out)
    return read - start, time.perf_counter() - read


def main():
    batch = pathlib.Path(sys.argv[1]).resolve()
    counts = [int(word) for word in sys.argv[2:]] or [15_000, 60_000, 240_000]
    before = None
    for count in counts:
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            make(count, folder / "in.dxf")
            taken = min(ours(batch, folder / "in.dxf", folder / "ours.dxf") for _ in range(3))
            read, write = theirs(folder / "in.dxf", folder / "theirs.dxf")
        growth = "" if before is None else f", growth exponent {math.log(taken / before[1], count / before[0]):.2f}"
        print(f"{count} entities: {taken:.3f} s, ezdxf {read:.3f} + {write:.3f} s, ratio {(read + write) / taken:.1f}{growth}")
        before = (count, taken)


if __name__ == "__main__":
    main()

"""Tables of a text file by the batch tool, against Python's csv reading and writing the same file and ezdxf drawing it.

    tables_against_python.py BATCH [--quick]

Our side is the whole program: start, dialog, import, what is done with it.
"""

import csv
import pathlib
import tempfile
import time

import rows

ezdxf = rows.needed("ezdxf")

COLUMNS = 7
BEGUN = ('setting "MechanicalTools" "SpecFile" "ISO Mechspecs.ini"\nrun MechDrawTabBox\ndialog "Mechanical Ardenix - Table"\n'
         'menu "Actions/Import Data"\nfile "table.csv"\nexpect no message\n')
LEFT = 'press "Cancel"\nreply yes\n'
SCRIPTS = {
    "importTable": BEGUN + LEFT,
    "exportTable": BEGUN + 'cell "Table" 2 "3" "changed"\nmenu "Actions/Export Data"\nfile "copy.csv"\nexpect no message\n' + LEFT,
    "drawTable": BEGUN + 'press "OK"\nreply no\npoint 0 0\nexport "table.dxf"\n',
}


def play(batch, folder, script):
    (folder / "x.scr").write_text(script, encoding="utf-8")
    return min(rows.seconds([batch, "run", folder / "x.scr", "-o", folder / "out"]) for _ in range(3))


def read(folder):
    with open(folder / "table.csv", newline="", encoding="utf-8") as file:
        return list(csv.reader(file))


def copy(folder):
    with open(folder / "copy.csv", "w", newline="", encoding="utf-8") as file:
        csv.writer(file).writerows(read(folder))


def draw(folder):
    document = ezdxf.new("R2010", setup=True)
    space = document.modelspace()
    table = read(folder)
    for row, cells in enumerate(table):
        space.add_line((0, -row), (COLUMNS, -row))
        for column, cell in enumerate(cells):
            space.add_text(cell, dxfattribs={"insert": (column, -row), "height": 0.35})
    for column in range(COLUMNS + 1):
        space.add_line((column, 0), (column, -len(table)))
    document.saveas(folder / "peer.dxf")


PEERS = {"importTable": ("python_csv", read), "exportTable": ("python_csv", copy), "drawTable": ("ezdxf", draw)}


def peer_seconds(work, folder):
    start = time.perf_counter()
    work(folder)
    return time.perf_counter() - start


def measured(batch, name, count):
    with tempfile.TemporaryDirectory() as place:
        folder = pathlib.Path(place)
        lines = (",".join(f"{row * COLUMNS + column:.3f}" for column in range(COLUMNS)) for row in range(count))
        (folder / "table.csv").write_text("\n".join(lines) + "\n", encoding="utf-8")
        ours = play(batch, folder, SCRIPTS[name])
        peer, work = PEERS[name]
        return rows.row(name, count, ours, **{peer: min(peer_seconds(work, folder) for _ in range(3))})


def main():
    (batch,), quick = rows.arguments()
    rows.show([measured(batch, name, count)
               for name in SCRIPTS for count in ((2500,) if quick else (2500, 5000, 10000))])


if __name__ == "__main__":
    main()

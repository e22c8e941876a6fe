#!/usr/bin/python3
"""Draws every fastener of the shipped library in both views and binds the sheets into one PDF.

    make_contact_sheet.py BATCH OUT.pdf

Sizes that differ much stand on sheets of their own scale. Needs pdfunite.
"""
import configparser
import subprocess
import sys
import tempfile
from pathlib import Path
from types import SimpleNamespace

LIBRARY = Path(__file__).resolve().parents[1] / "data" / "ISO Mechspecs.ini"

# Sheets, and on them the margin and the room between parts and for a name, in paper millimetres.
PAPERS = (("A3", 420, 297), ("A2", 594, 420), ("A1", 841, 594))
MARGIN, GAP, LABEL = 12, 4, 8

# Parts up to a nominal diameter are drawn at a scale, given by its denominator.
SCALES = ((2.5, 0.2), (12, 0.5), (1000, 1))


def reach(half, above, below, plan):
    """How far the side view and the plan reach: to each side, above and below the position, round the centre."""
    return SimpleNamespace(half=max(half, plan), above=above, below=below, plan=plan)


def bolt_reach(f):
    return f[2], reach(f[0] * 0.6, f[1] + f[2], f[3] + f[2] * 0.3, f[0] * 0.6 + 5)


def screw_reach(f):
    return f[2], reach(f[0] / 2, f[1] + f[2] * 0.3, f[3] + f[1] + f[2] * 0.5, f[0] / 2 + 5)


def nut_reach(f):
    return f[2], reach(f[0] * 0.6, f[1] * 1.5 + f[5], f[1] * 0.6, max(f[0] * 0.6, f[3] / 2) + 5)


def hole_reach(f):
    mouth = max(f[0], f[1], f[6], f[0] + 2 * f[3] if f[3] else 0) / 2
    return max(f[0], f[1]), reach(mouth, f[0] / 2, f[2] + f[0], mouth * (2.4 if f[3] else 1.2))


def rivet_reach(f):
    return f[0], reach(f[2] / 2, f[2] + f[0] * 0.3, f[4] + f[6] + f[0] * 0.3, f[2] / 2 + 5)


def kind(section, key, command, title, side, plan, reach_of, turned=False):
    return SimpleNamespace(section=section, key=key, command=command, title="Mechanical Ardenix - " + title, side=side,
                           plan=plan, reach_of=reach_of, turned=turned)


KINDS = (
    kind("BOLTS", "Bolt", "MechDrawBolts", "Hex Bolts", "Side View (elevation)", "Top View (plan)", bolt_reach),
    kind("CAPSCREWS", "Bolt", "MechDrawScrews", "Socket Screws", "Draw Side View (elevation)", "Draw Top View (plan)",
         screw_reach),
    kind("NUTS", "Nut", "MechDrawNuts", "Nuts", "Draw side view (elevation)", "Draw top view (plan view)", nut_reach,
         turned=True),
    kind("HOLES", "Hole", "MechDrawHoles", "Drilled Holes", "Draw Side View (elevation)", "Draw Top View (plan)",
         hole_reach),
    kind("RIVETS", "Bolt", "MechDrawRivets", "Rivets", "Side View (elevation)", "Top View (plan)", rivet_reach),
)


def definitions(library, kind):
    section, parts = library[kind.section], []
    while text := section.get(f"{kind.key}{len(parts) + 1}", ""):
        name, *fields = text.split(",")
        size, extent = kind.reach_of(list(map(float, fields)))
        parts.append(SimpleNamespace(name=name, size=size, extent=extent))
    return parts


def part_script(kind, part, x, top, scale):
    """The side view hangs from the top of its cell, the plan lies below it, the name at the foot."""
    extent = part.extent
    position = top - extent.above
    centre = position - extent.below - extent.plan
    turn = f"point {x} {position}" if kind.turned else 'menu "No Rotation"'
    return (f'run {kind.command}\ndialog "{kind.title}"\n  pick "Definition" "{part.name}"\n'
            f'  check "{kind.side}"\n  check "{kind.plan}"\n  press "OK"\n'
            f"point {x} {position}\n{turn}\npoint {x} {centre}\npoint {x} {centre}\nspace\n"
            f'draw text {x} {centre - extent.plan - LABEL * scale} 20 "{part.name}"\n')


def smallest_sheets(kind, parts, scale):
    """One sheet of the smallest paper that takes them all, else sheets of the largest."""
    for paper in PAPERS:
        scripts = list(sheets(kind, parts, scale, *paper))
        if len(scripts) == 1:
            break
    return scripts


def sheets(kind, parts, scale, paper, width, height):
    """Scripts, each of one sheet, the parts in rows from the top left corner."""
    width, height = width * scale, height * scale
    gap, margin = GAP * scale, MARGIN * scale
    head = (f'setting "MechanicalTools" "SpecFile" "{LIBRARY.name}"\nparameter scale {scale}\n'
            f'sheet "{paper}" landscape 0 0\nstyle 1 1 0\ntextstyle "Arial" 50 1 4 1\n')
    body, x, top, row = [], margin, height - margin, 0
    for part in parts:
        across = 2 * max(part.extent.half, len(part.name) * scale * 1.4) + gap
        down = part.extent.above + part.extent.below + 2 * part.extent.plan + 2 * LABEL * scale + gap
        if x + across > width - margin:
            x, top, row = margin, top - row, 0
        if body and top - down < margin:
            yield head + "".join(body)
            body, x, top, row = [], margin, height - margin, 0
        body.append(part_script(kind, part, round(x + across / 2, 3), round(top, 3), scale))
        x, row = x + across, max(row, down)
    yield head + "".join(body)


def scripts():
    library = configparser.ConfigParser(interpolation=None, comment_prefixes=(";",), delimiters=("=",))
    library.optionxform = str
    library.read_string(LIBRARY.read_text(encoding="cp1252"))
    for kind in KINDS:
        parts, smallest = definitions(library, kind), 0
        for largest, scale in SCALES:
            chosen = [part for part in parts if smallest < part.size <= largest]
            smallest = largest
            if chosen:
                yield from smallest_sheets(kind, chosen, scale)


def main():
    batch, out = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    with tempfile.TemporaryDirectory() as folder:
        pages = []
        for number, script in enumerate(scripts(), 1):
            path = Path(folder) / f"sheet{number:02}.scr"
            path.write_text(script + f'export "{path.stem}.pdf"\n', encoding="utf-8")
            subprocess.run([batch, "run", path, "-o", folder], check=True, stdout=subprocess.DEVNULL)
            pages.append(path.with_suffix(".pdf"))
        subprocess.run(["pdfunite", *pages, out], check=True)
    print(f"{out}: {len(pages)} sheets")


if __name__ == "__main__":
    main()

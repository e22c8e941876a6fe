#!/usr/bin/python3
"""Draws every fastener of the shipped library in both views on A4 pages and binds them into one PDF.

    make_contact_sheet.py BATCH OUT.pdf

A page holds one kind of fastener at one scale; headings name the standards. Needs pdfunite.
"""
import configparser
import re
import subprocess
import sys
import tempfile
from pathlib import Path
from types import SimpleNamespace

LIBRARY = Path(__file__).resolve().parents[1] / "data" / "ISO Mechspecs.ini"

# Paper millimetres: the page, its margin, the room between parts, under headings and for a name, the height of letters.
WIDTH, HEIGHT, MARGIN, GAP = 210, 297, 10, 4
TITLE, HEADING, NAME = 11, 10, 6
NAME_HEIGHT, LETTER_WIDTH = 3, 2.2

# Parts up to a nominal diameter are drawn at a scale, given by its denominator.
SCALES = ((4, 0.5), (12, 1), (24, 2), (1000, 5))


def reach(half, above, below, plan):
    """How far the side view and the plan reach: to each side, above and below the position, round the centre."""
    return SimpleNamespace(half=max(half, plan), above=above, below=below, plan=plan)


def bolt_reach(f):
    return f[2], reach(f[0] * 0.6, f[1] + f[2] * 0.3, f[3] + f[2] * 0.3, f[0] * 0.6 + 5)


def screw_reach(f):
    return f[2], reach(f[0] / 2, f[1] + f[2] * 0.3, f[3] + f[1] + f[2] * 0.5, f[0] / 2 + 5)


def nut_reach(f):
    return f[2], reach(f[0] * 0.6, f[1] * 1.5 + f[5], f[1] * 0.6, max(f[0] * 0.6, f[3] / 2) + 5)


def hole_reach(f):
    mouth = max(f[0], f[1], f[6] or f[0] + 2 * f[3]) / 2
    return max(f[0], f[1]), reach(mouth, f[0] / 2, f[2] + f[0], mouth * (2.4 if f[3] else 1.2))


def rivet_reach(f):
    return f[0], reach(f[2] / 2, f[2] + f[0] * 0.3, f[4] + f[6] + f[0] * 0.3, f[2] / 2 + 5)


def kind(section, key, title, command, dialog, side, plan, reach_of, families, turned=False):
    return SimpleNamespace(section=section, key=key, title=title, command=command, dialog="Mechanical Ardenix - " + dialog,
                           side=side, plan=plan, reach_of=reach_of, families=families, turned=turned)


# The families of a kind: the word at the end of their names, and the heading they stand under.
KINDS = (
    kind("BOLTS", "Bolt", "Hexagon head bolts", "MechDrawBolts", "Hex Bolts", "Side View (elevation)", "Top View (plan)",
         bolt_reach, {"": "Threaded in part, ISO 4014", "F": "Threaded up to the head, ISO 4017"}),
    kind("CAPSCREWS", "Bolt", "Socket screws", "MechDrawScrews", "Socket Screws", "Draw Side View (elevation)",
         "Draw Top View (plan)", screw_reach,
         {"": "Cylindrical head, ISO 4762", "CSK": "Countersunk head, ISO 10642", "BH": "Button head, ISO 7380-1",
          "SET": "Set screws with flat point, ISO 4026"}),
    kind("NUTS", "Nut", "Hexagon nuts", "MechDrawNuts", "Nuts", "Draw side view (elevation)", "Draw top view (plan view)",
         nut_reach,
         {"": "Style 1, ISO 4032", "WF": "Style 1 with washer face, ISO 4032", "THIN": "Thin, ISO 4035",
          "THINWF": "Thin with washer face, ISO 4035", "CASTLE": "Slotted and castle nuts, ISO 7035"}, turned=True),
    kind("HOLES", "Hole", "Holes", "MechDrawHoles", "Drilled Holes", "Draw Side View (elevation)", "Draw Top View (plan)",
         hole_reach,
         {"TAP": "Tapped, blind", "TAPTHRU": "Tapped, through", "CLRF": "Clearance, fine series, ISO 273",
          "CLR": "Clearance, medium series, ISO 273", "CLRC": "Clearance, coarse series, ISO 273",
          "CB": "Counterbored for cap screws, DIN 974-1, row 1", "CSK": "Countersunk, DIN 74 form F",
          "DOWEL": "For parallel pins, ISO 8734"}),
    kind("RIVETS", "Bolt", "Rivets", "MechDrawRivets", "Rivets", "Side View (elevation)", "Top View (plan)", rivet_reach,
         {"SNAP": "Round head, DIN 660", "CSK": "Countersunk head, DIN 661"}),
)


def definitions(library, kind):
    section, parts = library[kind.section], []
    while text := section.get(f"{kind.key}{len(parts) + 1}", ""):
        name, *fields = text.split(",")
        size, extent = kind.reach_of(list(map(float, fields)))
        parts.append(SimpleNamespace(name=name, size=size, extent=extent, family=re.search("[A-Z]*$", name)[0]))
    return parts


def text(x, y, height, words, scale):
    """A text, its place on the page in millimetres of paper."""
    return f'draw text {x * scale} {y * scale} {height * 10:g} "{words}"\n'


def part_script(kind, part, x, top, foot, scale):
    """The side view hangs from the top of its row, the name stands at the foot with the plan above it."""
    position = top * scale - part.extent.above
    centre = (foot + GAP + NAME) * scale + part.extent.plan
    across = x * scale
    turn = f"point {across} {position}" if kind.turned else 'menu "No Rotation"'
    return (f'run {kind.command}\ndialog "{kind.dialog}"\n  pick "Definition" "{part.name}"\n'
            f'  check "{kind.side}"\n  check "{kind.plan}"\n  press "OK"\n'
            f"point {across} {position}\n{turn}\npoint {across} {centre}\npoint {across} {centre}\nspace\n"
            + text(x, foot + GAP, NAME_HEIGHT, part.name, scale))


def cell(part, scale):
    """Width and height on paper."""
    extent = part.extent
    across = 2 * extent.half / scale
    return (max(across, len(part.name) * LETTER_WIDTH) + GAP,
            (extent.above + extent.below + 2 * extent.plan) / scale + NAME + GAP)


def rows(parts, scale):
    """The parts in rows as wide as the page."""
    row, used = [], 0
    for part in parts:
        across = cell(part, scale)[0]
        if row and used + across > WIDTH - 2 * MARGIN:
            yield row
            row, used = [], 0
        row.append(part)
        used += across
    yield row


def row_script(kind, row, top, foot, scale):
    x, scripts = MARGIN, []
    for part in row:
        across = cell(part, scale)[0]
        scripts.append(part_script(kind, part, x + across / 2, top, foot, scale))
        x += across
    return "".join(scripts)


def heading(words, y, scale):
    return 'textstyle "Arial" 35 1 1 1\n' + text(MARGIN, y - 5, 3.5, words, scale) + 'textstyle "Arial" 30 1 4 1\n'


def pages(kind, parts, scale):
    """The scripts of pages without their titles. A heading stands over its first row and is said again on a new page."""
    top, lowest = HEIGHT - MARGIN - TITLE, MARGIN + 5
    page, y = "", top
    for word, words in kind.families.items():
        family = [part for part in parts if part.family == word]
        begun = False
        for row in rows(family, scale) if family else ():
            down = max(cell(part, scale)[1] for part in row)
            if page and y - down - (0 if begun else HEADING) < lowest:
                yield page
                page, y = "", top
            if not begun or not page:
                page += heading(words + (", continued" if begun else ""), y, scale)
                y -= HEADING
            begun = True
            page += row_script(kind, row, y, y - down, scale)
            y -= down
    yield page


def scale_name(scale):
    return f"{1 / scale:g}:1" if scale < 1 else f"1:{scale:g}"


def title(kind, scale, number, count):
    line = (HEIGHT - MARGIN - 8) * scale
    return (f"draw line {MARGIN * scale} {line} {(WIDTH - MARGIN) * scale} {line}\n"
            'textstyle "Arial" 50 1 1 1\n' + text(MARGIN, HEIGHT - MARGIN - 5, 5, kind.title, scale)
            + 'textstyle "Arial" 35 1 7 1\n' + text(WIDTH - MARGIN, HEIGHT - MARGIN - 5, 3.5, scale_name(scale), scale)
            + 'textstyle "Arial" 25 1 4 1\n' + text(WIDTH / 2, MARGIN - 3, 2.5, f"{number} / {count}", scale))


def scripts():
    library = configparser.ConfigParser(interpolation=None, comment_prefixes=(";",), delimiters=("=",))
    library.optionxform = str
    library.read_string(LIBRARY.read_text(encoding="cp1252"))
    drawn = []
    for kind in KINDS:
        parts, smallest = definitions(library, kind), 0
        for largest, scale in SCALES:
            chosen = [part for part in parts if smallest < part.size <= largest]
            smallest = largest
            drawn += [(kind, scale, page) for page in (pages(kind, chosen, scale) if chosen else ())]
    for number, (kind, scale, page) in enumerate(drawn, 1):
        yield (f'setting "MechanicalTools" "SpecFile" "{LIBRARY.name}"\nparameter scale {scale}\n'
               f'sheet "A4" portrait 0 0\nstyle 1 1 5\n' + title(kind, scale, number, len(drawn)) + page)


def main():
    batch, out = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    with tempfile.TemporaryDirectory() as folder:
        sheets = []
        for number, script in enumerate(scripts(), 1):
            path = Path(folder) / f"sheet{number:03}.scr"
            path.write_text(script + f'export "{path.stem}.pdf"\n', encoding="utf-8")
            subprocess.run([batch, "run", path, "-o", folder], check=True, stdout=subprocess.DEVNULL)
            sheets.append(path.with_suffix(".pdf"))
        subprocess.run(["pdfunite", *sheets, out], check=True)
    print(f"{out}: {len(sheets)} pages")


if __name__ == "__main__":
    main()

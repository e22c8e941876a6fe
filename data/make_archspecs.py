#!/usr/bin/python3
"""Makes "ArchSpecs.ini" from the tables below; with --check only compares.

The file is committed so that a copy of the data folder works without running anything.
"""
import sys
from pathlib import Path

CATALOGUE = Path(__file__).resolve().parent / "ArchSpecs.ini"

HEAD = """\
; Architectural specification: building standards, wall types, stairs, and the settings of the drawing commands.
; Lengths are millimetres, angles degrees; a copy of your own may be edited freely.

[SYMBOL]
; 1: symbols picked in the library snap to walls, and windows and doors cut these.
SymbolPath=Symbols
SnapToWalls=1
CutWalls=1
"""

# Name, then maximum rise, minimum going, clear width, nosing and the gap between balusters.
STANDARDS = (
    ("SANS 10400-M", 200, 250, 750, 25, 100, "South Africa, SANS 10400-M:2011, stairways; the nosing is that of treads without a solid riser"),
    ("Approved Document K", 220, 220, 850, 16, 100,
     "England, Approved Document K:2013, private stairs; the width is that of Approved Document M4(2)"),
    ("DIN 18065", 200, 230, 800, 30, 120, "Germany, DIN 18065:2020, dwellings with no more than two homes"),
)

# Styles of wall lines: pen, line type, width in tenths of a millimetre. Cut faces are wide and what
# lies between or below them is fine, as ISO 128 has it; foundations are dashed.
FACE, LEAF, CAVITY, FOOTING = (1, 1, 5.0), (1, 1, 3.5), (8, 1, 2.5), (13, 21, 2.5)

# External walls: leaf, cavity, leaf; strip foundation. The projection is what the strip leaves on each side.
EXTERNAL = (
    ("Brick cavity 270", 110, 50, 110, 600),
    ("Brick 220 collar-jointed", 105, 10, 105, 600),
    ("Brick and block cavity 302.5", 102.5, 100, 100, 600),
    ("Block cavity 300", 100, 100, 100, 600),
)

# Internal walls: thickness; strip foundation, 0 where they stand on the slab; style of the faces.
INTERNAL = (
    ("Brick 220", 220, 600, FACE),
    ("Brick 110", 110, 400, LEAF),
    ("Block 190", 190, 600, FACE),
    ("Block 140", 140, 500, LEAF),
    ("Block 90 partition", 90, 0, LEAF),
    ("Stud partition 95", 95, 0, LEAF),
    ("Stud partition 122", 122, 0, LEAF),
)

TREADS = (
    # Name, treads, rise, going, foot length, tread width, nosing width, nosing height. After the first three: a home and a
    # public building in England (Approved Document K: home 220/220, general access 170/250) and in Germany (DIN 18065: home
    # 200/230, others 190/260, no nosing needed from a going of 260), and steel treads without a nosing to speak of.
    ("House 15 x 180", 15, 180, 250, 350, 900, 25, 30),
    ("House 14 x 190", 14, 190, 250, 350, 900, 25, 30),
    ("Public 12 x 170", 12, 170, 300, 350, 1200, 25, 40),
    ("House England 12 x 220", 12, 220, 220, 350, 900, 16, 30),
    ("Public England 12 x 170", 12, 170, 280, 350, 1200, 25, 40),
    ("House Germany 14 x 200", 14, 200, 230, 350, 800, 30, 40),
    ("Public Germany 16 x 170", 16, 170, 290, 350, 1000, 30, 40),
    ("Steel 16 x 175", 16, 175, 280, 350, 800, 0.01, 40),
)

RAILINGS = (
    # Name, left, right, treads a newel, newel height and width, rail width, guard rail height and depth, bottom rail, its
    # height and depth, balusters, how many a string, their width.
    ("Timber both sides", 1, 1, 5, 100, 90, 45, 900, 70, 1, 100, 45, 1, 10, 32),
    ("Steel left", 1, 0, 5, 50, 50, 40, 1000, 40, 1, 100, 40, 1, 11, 16),
    ("Handrail right", 0, 1, 5, 50, 50, 40, 900, 50, 0, 100, 40, 0, 10, 16),
    # Guards as high as homes need them: 1000 in South Africa, 900 in England and Germany; gaps within 100.
    ("Timber 1000 both sides", 1, 1, 5, 100, 90, 45, 1000, 70, 1, 100, 45, 1, 10, 32),
    ("Spindles 41 both sides", 1, 1, 6, 100, 90, 60, 900, 60, 1, 80, 40, 1, 11, 41),
    ("Steel bars both sides", 1, 1, 5, 40, 40, 42, 900, 42, 1, 100, 20, 1, 10, 14),
)

SETTINGS = """\
[ELEVATION]
ParentName=HOUSE
EavesHeight=2600.000
WinDoorHeight=2100.000
; 1: the name below, heights at the edge, all openings of a wall at once, one pointed at is drawn again.
NameUnder=1
LevelMarks=0
WholeFace=1
DrawInPlace=1
GroundBeyond=1000.000
Pen=1
Linetyp=1
NorthView=ELEVATION_NORTH
WestView=ELEVATION_WEST
EastView=ELEVATION_EAST
SouthView=ELEVATION_SOUTH

[ROOFLN]
; The overhang counts outwards from the wall as a negative length.
EavesOverHang=-550.000
Pen=1
Linetyp=2
Layer=ROOF_LINE
; 1: ridges, hips and valleys are drawn within it.
Ridges=1
RidgeLayer=ROOF_LINE_RIDGES

[ROOFS]
; The pitch is degrees, minutes and seconds as d.mmss: 26 degrees suit concrete tiles.
ParentName=HOUSE
RoofPitch=26.000
; 1: a roof line with its ridges on plan gives the whole roof as it is seen.
FromPlan=1
Pen=1
Linetyp=1
NorthView=ELEVATION_NORTH
WestView=ELEVATION_WEST
EastView=ELEVATION_EAST
SouthView=ELEVATION_SOUTH

[STAIRS_GENERAL]
Section=1
PlanLayer=STAIRS
NorthLayer=ELEVATION_NORTH
EastLayer=ELEVATION_EAST
SouthLayer=ELEVATION_SOUTH
WestLayer=ELEVATION_WEST
SolidLinetype=1
HiddenLinetype=21
SolidPen=1
HiddenPen=13
ArrowPen=14
ArrowLength=2.00
ArrowWidth=1.00
ParentName=STAIRS
CurrentTread=1
CurrentRailing=1
"""

SECTIONS = """\
[XSECTIONS]
; 1 is the close side, 2 the far one; heights count from the floor.
ParentName=HOUSE
WinFrameHt=1200.000
FndWid1=600.000
FndWid2=600.000
FndHt1=230.000
FndHt2=230.000
Flr2GndHt1=170.000
Flr2GndHt2=170.000
Flr2FndHt1=500.000
Flr2FndHt2=500.000
SlabHeight=100.000
BattonWidth=114.000
SupportTrussWidth=152.000
StrutWidth=38.000
StrutSpacing=800.000
Pen=1
Linetyp=1
LnPen=2
XSectLn=4
VertXSect=SECTION_VERTICAL
HorizXSect=SECTION_HORIZONTAL
IncLabel=1
Label=A
TxtHt=5.000
ArrowLen=3.000
ArrowWid=1.500
CutWidth=0.500
HatchScale=0.500
HatchCut=1
Heights=0
"""


def row(style, visible):
    pen, linetype, width = style
    return f"{pen},{linetype},{width:.2f},{int(visible)}"


def wall(name, layer, internal, rows, widths):
    ends = "90.00,90.00,1,0"
    return ",".join((name, layer, str(int(internal)), ends, *rows, *(f"{width:.2f}" for width in widths)))


def external(name, outer, cavity, inner, strip):
    projection = (strip - outer - cavity - inner) / 2
    rows = [row(style, True) for style in (FOOTING, FACE, CAVITY, CAVITY, FACE, FOOTING)]
    return wall(name, "WALLS_EXTERNAL", False, rows, (projection, outer, cavity, inner, projection))


def internal(name, thickness, strip, face):
    projection = (strip - thickness) / 2 if strip else 0
    rows = [row(FOOTING, False), row(face, True), row(CAVITY, False), row(CAVITY, False), row(face, True), row(FOOTING, False)]
    return wall(name, "WALLS_INTERNAL", True, rows, (projection, thickness, 0, thickness, projection))


def numbered(section, prefix, records, before=()):
    return "\n".join((f"[{section}]", *before, *(f"{prefix}{n}={record}" for n, record in enumerate(records, 1)))) + "\n"


def tread(name, count, *lengths):
    return ",".join((name, str(count), *(f"{length:.2f}" for length in lengths)))


def railing(name, *values):
    whole = {0, 1, 2, 8, 11, 12}  # flags and counts
    return ",".join((name, *(str(v) if i in whole else f"{v:.2f}" for i, v in enumerate(values))))


def catalogue():
    standards = [",".join((name, *(f"{limit:.2f}" for limit in limits))) for name, *limits, _ in STANDARDS]
    sources = [f"; {name}: {source}." for name, *_, source in STANDARDS]
    walls = [external(*walls) for walls in EXTERNAL] + [internal(*walls) for walls in INTERNAL]
    drawing = (f"[WALLS]\nParentName=HOUSE\nMethod=1\nDirection=1\nFace=1\nJoinWalls=1\nCurrent=1\n"
               f"InternalWall={len(EXTERNAL) + 2}\nExternalWall=1\n")
    return "\n".join((
        HEAD,
        "[BLDG_STD]\nCurrent=1\n",
        numbered("BLDG_STD_TYPES", "BldgStd", standards,
                 ("; Name, maximum rise, minimum going, tread width, nosing and balustrade spacing.", *sources)),
        drawing,
        numbered("WALL_TYPES", "Wall", walls),
        SETTINGS,
        numbered("STAIRS_TREADS", "Tread", [tread(*treads) for treads in TREADS]),
        numbered("STAIRS_RAILINGS", "Rail", [railing(*railings) for railings in RAILINGS]),
        SECTIONS,
    ))


def main():
    content = catalogue()
    if "--check" not in sys.argv[1:]:
        CATALOGUE.write_text(content, encoding="ascii")
    elif not CATALOGUE.exists() or CATALOGUE.read_text(encoding="ascii") != content:
        sys.exit(f"{CATALOGUE}: differs from what {Path(__file__).name} makes; run it and commit the result")


if __name__ == "__main__":
    main()

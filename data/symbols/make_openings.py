#!/usr/bin/python3
"""Writes the windows and doors: a plan and an elevation each, below Windows/ and Doors/.

The plan lies in a wall whose outer face is y = 0, from the left jamb to the right; only door leaves stand out of the
opening's own width and depth. The elevation hangs from its top left corner, the head, and is as wide as the opening.

Widths are modular, in steps of 300. W1200 suits walls of 220, W1200-110 and W1200-270 walls of those depths. Leaves
of 610, 762, 813 and 926 by 2032 are those of South African joinery, the UK doors are 2040 high; DIN885 and
DIN1010 have opening sizes of DIN 18101. A frame takes the head of all but these to 2100.
"""

import pathlib

WALL = 220
WALLS = (110, 270)
FRAME = 50
LEAF = 40
WIDTHS = (600, 900, 1200, 1500, 1800, 2100, 2400)
HEIGHTS = {600: 600, 900: 900, 2400: 1500}
USUAL_HEIGHT = 1200
WIDEST_PANE = 750
WIDEST_LEAF = 1000
HEAD = 2100
LEAF_HEIGHT = 2032


def rectangle(left, low, right, high):
    return f"  closed {left:g} {low:g} {right:g} {low:g} {right:g} {high:g} {left:g} {high:g}"


def line(*numbers):
    return "  line " + " ".join(f"{number:g}" for number in numbers)


def circle(x, y, radius):
    return f"  circle {x:g} {y:g} {radius:g}"


def quarter(x, y, radius, start):
    return f"  arc {x:g} {y:g} {radius:g} {start} {start + 90}"


# ---- Windows -----------------------------------------------------------------------------------------------------

def window_plan(width, wall, slides):
    glass = wall / 2
    plan = [rectangle(0, 0, width, wall), rectangle(0, glass - FRAME / 2, FRAME, glass + FRAME / 2),
            rectangle(width - FRAME, glass - FRAME / 2, width, glass + FRAME / 2)]
    if not slides:
        return plan + [line(FRAME, glass + side, width - FRAME, glass + side) for side in (-6, 6)]
    middle = width / 2
    return plan + [rectangle(FRAME, glass, middle + FRAME / 2, glass + 20),
                   rectangle(middle - FRAME / 2, glass - 20, width - FRAME, glass)]


def marks(kind, number, left, low, right, high):
    """How a pane opens: the apex of its mark lies at the hinges; a sliding one has an arrow."""
    middle, centre = (low + high) / 2, (left + right) / 2
    if kind == "side":
        hinge, handle = (left, right) if number % 2 == 0 else (right, left)
        return [line(handle, high, hinge, middle, handle, low)]
    if kind == "top":
        return [line(left, low, centre, high, right, low)]
    if kind == "sliding":
        way = 1 if number % 2 == 0 else -1
        tip, size = centre + way * 100, 40
        return [line(centre - way * 100, middle, tip, middle),
                line(tip - way * size, middle + size, tip, middle, tip - way * size, middle - size)]
    return []


def window(name, width, wall, kind):
    height = HEIGHTS.get(width, USUAL_HEIGHT)
    panes = 2 if kind == "sliding" else -(-width // WIDEST_PANE)
    pane = (width - FRAME * (panes + 1)) / panes
    elevation = [rectangle(0, -height, width, 0)]
    for number in range(panes):
        left = FRAME + number * (pane + FRAME)
        box = (left, -height + FRAME, left + pane, -FRAME)
        elevation += [rectangle(*box)] + marks(kind, number, *box)
    return [f"symbol {name}P"] + window_plan(width, wall, kind == "sliding") + [f"symbol {name}PE"] + elevation


def windows():
    for width in WIDTHS:
        for prefix, kind in (("W", "side"), ("WT", "top"), ("WS", "sliding"), ("WF", "fixed")):
            yield f"{prefix}{width}", (width, WALL, kind)
        for wall in WALLS:
            yield f"W{width}-{wall}", (width, wall, "side")


# ---- Doors -------------------------------------------------------------------------------------------------------

def jambs(width, wall=WALL):
    return [line(0, 0, 0, wall), line(width, 0, width, wall), line(0, 0, width, 0)]


def leaf_plan(hinge, leaf, inward, wall=WALL):
    edge = hinge + inward * LEAF
    return [rectangle(min(hinge, edge), wall, max(hinge, edge), wall + leaf),
            quarter(hinge, wall, leaf, 0 if inward == 1 else 90)]


def leaf_elevation(left, right, head, leaf, handle):
    return [rectangle(left, -head, right, -head + leaf)] + ([circle(handle, 950 - head, 25)] if handle else [])


def hinged(width, right_hand=False, head=HEAD, leaf_height=LEAF_HEIGHT, wall=WALL):
    if width > WIDEST_LEAF:
        leaves = [(0, width / 2, 1), (width, width / 2, -1)]
    else:
        leaves = [(width, width, -1)] if right_hand else [(0, width, 1)]
    plan = jambs(width, wall)
    elevation = [rectangle(0, -head, width, 0)]
    for hinge, leaf, inward in leaves:
        plan += leaf_plan(hinge, leaf, inward, wall)
        left, right = sorted((hinge, hinge + inward * leaf))
        left, right = left + (FRAME if left == 0 else 0), right - (FRAME if right == width else 0)
        handle = hinge + inward * (leaf - 2 * FRAME)
        elevation += leaf_elevation(left, right, head, leaf_height, handle)
    return plan, elevation


def sliding(width):
    middle, track = width / 2, WALL / 2
    plan = jambs(width) + [rectangle(0, track, middle + FRAME, track + LEAF),
                           rectangle(middle - FRAME, track - LEAF, width, track)]
    elevation = [rectangle(0, -HEAD, width, 0)]
    for number, left in enumerate((FRAME, middle)):
        box = (left, -HEAD, left + middle - FRAME, -FRAME)
        elevation += [rectangle(*box)] + marks("sliding", number, *box)
    return plan, elevation


def pocket(width):
    track = WALL / 2
    plan = jambs(width) + [rectangle(width / 2, track - LEAF / 2, width, track + LEAF / 2)]
    return plan, [rectangle(0, -HEAD, width, 0)] + leaf_elevation(FRAME, width - FRAME, HEAD, LEAF_HEIGHT, 2 * FRAME)


def bifold(width):
    quarter_width = width / 4
    plan, elevation = jambs(width), [rectangle(0, -HEAD, width, 0)]
    for fold in range(4):
        left = fold * quarter_width
        near, far = (WALL, WALL + quarter_width) if fold % 2 == 0 else (WALL + quarter_width, WALL)
        plan.append(line(left, near, left + quarter_width, far))
        elevation += leaf_elevation(left + (FRAME if fold == 0 else 0), left + quarter_width - (FRAME if fold == 3 else 0),
                                    HEAD, LEAF_HEIGHT, None)
    return plan, elevation


def garage(width):
    plan = jambs(width) + [rectangle(0, WALL, width, WALL + LEAF)]
    rows = 4
    elevation = [rectangle(0, -HEAD, width, 0)]
    return plan, elevation + [line(0, -HEAD * row / rows, width, -HEAD * row / rows) for row in range(1, rows)]


def opening(width):
    return jambs(width)[:2] + [line(0, 0, width, 0), line(0, WALL, width, WALL)], [rectangle(0, -HEAD, width, 0)]


def single(width, head, leaf_height):
    """One leaf, however wide."""
    plan = jambs(width) + leaf_plan(0, width, 1)
    handle = width - 2 * FRAME
    return plan, [rectangle(0, -head, width, 0)] + leaf_elevation(FRAME, width - FRAME, head, leaf_height, handle)


def doors():
    for width in (610, 750, 762, 813, 900, 926):
        yield f"D{width}", hinged(width)
        yield f"D{width}R", hinged(width, right_hand=True)
    for width in (762, 813, 900):
        for wall in WALLS:
            yield f"D{width}-{wall}", hinged(width, wall=wall)
            yield f"D{width}R-{wall}", hinged(width, right_hand=True, wall=wall)
    for width in (1500, 1800):
        yield f"D{width}", hinged(width)
        yield f"DB{width}", bifold(width)
    for width in (1800, 2400):
        yield f"DS{width}", sliding(width)
    for width in (726, 826):
        yield f"UK{width}", hinged(width, head=2040 + 60, leaf_height=2040)
    for width in (885, 1010):
        yield f"DIN{width}", single(width, 2005, 1985)
    for width in (762, 813):
        yield f"DP{width}", pocket(width)
    for width in (2440, 4880):
        yield f"DG{width}", garage(width)
    for width in (813, 926, 1200):
        yield f"O{width}", opening(width)


def files():
    for name, (width, wall, kind) in windows():
        yield f"Windows/{name}.sym", window(name, width, wall, kind)
    for name, (plan, elevation) in doors():
        yield f"Doors/{name}.sym", [f"symbol {name}P"] + plan + [f"symbol {name}PE"] + elevation


def text(lines, author="make_openings.py"):
    return f"# Written by {author}\nsize real\n" + "\n".join(lines) + "\n"


def write(made, author):
    for name, lines in made:
        path = pathlib.Path(__file__).parent / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(text(lines, author), encoding="utf-8")


if __name__ == "__main__":
    write(files(), "make_openings.py")

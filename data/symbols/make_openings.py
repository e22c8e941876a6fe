#!/usr/bin/python3
"""Writes the windows and doors: Windows/W<width>.sym and Doors/D<width>.sym, a plan and an elevation each.

The plan lies in a wall of WALL mm whose outer face is y = 0, from the left jamb to the right. The elevation hangs
from its top left corner, the head.
"""

import pathlib

WALL = 220
FRAME = 50
LEAF = 40
WINDOW_HEIGHTS = {600: 600, 900: 900, 1200: 1200, 1500: 1200, 1800: 1200, 2400: 1500}
DOOR_WIDTHS = (750, 813, 900, 1500, 1800)
DOOR_HEIGHT = 2032
WIDEST_LEAF = 1000
WIDEST_PANE = 750


def rectangle(left, low, right, high):
    return f"  closed {left:g} {low:g} {right:g} {low:g} {right:g} {high:g} {left:g} {high:g}"


def window(width, height):
    panes = -(-width // WIDEST_PANE)
    glass = WALL / 2
    plan = [f"symbol W{width}P", rectangle(0, 0, width, WALL),
            rectangle(0, glass - FRAME / 2, FRAME, glass + FRAME / 2),
            rectangle(width - FRAME, glass - FRAME / 2, width, glass + FRAME / 2)]
    plan += [f"  line {FRAME} {glass + side:g} {width - FRAME} {glass + side:g}" for side in (-6, 6)]
    elevation = [f"symbol W{width}PE", rectangle(0, -height, width, 0)]
    pane = (width - FRAME * (panes + 1)) / panes
    for n in range(panes):
        left = FRAME + n * (pane + FRAME)
        elevation.append(rectangle(left, -height + FRAME, left + pane, -FRAME))
    return plan + elevation


def door(width):
    leaves = [(0, width)] if width <= WIDEST_LEAF else [(0, width / 2), (width, width / 2)]
    plan = [f"symbol D{width}P", f"  line 0 0 0 {WALL}", f"  line {width} 0 {width} {WALL}",
            f"  line 0 0 {width} 0"]
    elevation = [f"symbol D{width}PE", rectangle(0, -DOOR_HEIGHT, width, 0)]
    for hinge, leaf in leaves:
        inward = 1 if hinge == 0 else -1
        open_edge = hinge + inward * LEAF
        plan.append(rectangle(min(hinge, open_edge), WALL, max(hinge, open_edge), WALL + leaf))
        turn = "0 90" if inward == 1 else "90 180"
        plan.append(f"  arc {hinge:g} {WALL} {leaf:g} {turn}")
        left, right = sorted((hinge, hinge + inward * leaf))
        elevation.append(rectangle(left + FRAME, -DOOR_HEIGHT, right - FRAME / (len(leaves)), -FRAME)
                         if inward == 1 else rectangle(left + FRAME / 2, -DOOR_HEIGHT, right - FRAME, -FRAME))
        handle = hinge + inward * (leaf - 2 * FRAME)
        elevation.append(f"  circle {handle:g} {50 - DOOR_HEIGHT + 950} 25")
    return plan + elevation


def files():
    for width, height in WINDOW_HEIGHTS.items():
        yield f"Windows/W{width}.sym", window(width, height)
    for width in DOOR_WIDTHS:
        yield f"Doors/D{width}.sym", door(width)


def text(lines):
    return "# Written by make_openings.py\nsize real\n" + "\n".join(lines) + "\n"


if __name__ == "__main__":
    for name, lines in files():
        path = pathlib.Path(__file__).parent / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(text(lines), encoding="utf-8")

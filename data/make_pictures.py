#!/usr/bin/python3
"""Makes the pictures of the dialogs, SVG files under pictures/; with --check only compares.

Every picture is 100 wide and 60 high, drawn from the proportions of the real part in five inks of a middle
lightness, which stand out from a light ground and from a dark one.
"""
import math
import sys
from pathlib import Path

from annotation_pictures import annotation_pictures
from picture_strokes import (
    ARROW, BODY, CENTRE, COS30, MATERIAL, OUTLINE, TAN30, THREAD, bow_to, circle, cross, line, number, pair, path,
    polygon, regular, thread_arc)

FOLDER = Path(__file__).resolve().parent / "pictures"


# ---- Nuts ------------------------------------------------------------------------------------------------------------

def nut_top(x, top, half, slots, depth):
    """The upper edge from left to right, down into every slot and up again."""
    points = [(x - half, top)]
    for middle, width in slots:
        points += [(middle - width, top), (middle - width, top + depth), (middle + width, top + depth),
                   (middle + width, top)]
    return points + [(x + half, top)]


def cut_bow(start, end, rise, slots):
    """A bow between level points with nothing inside the slots."""
    half = (end[0] - start[0]) / 2
    radius = (half * half + rise * rise) / (2 * abs(rise))
    middle = start[0] + half
    centre = start[1] + math.copysign(radius - abs(rise), rise)
    edges = [start[0], *(edge for c, w in slots if start[0] < c < end[0] for edge in (c - w, c + w)), end[0]]
    on_bow = [(x, centre - math.copysign(math.sqrt(radius * radius - (x - middle) ** 2), rise)) for x in edges]
    turn = f"A{number(radius)} {number(radius)} 0 0 {int(rise > 0)} "
    return [path(OUTLINE, f"M{pair(on_bow[i])}", turn + pair(on_bow[i + 1])) for i in range(0, len(on_bow), 2)]


def nut_side(slotted, shape):
    x, base, w, height, depth = 50, 49, 34, 36, 15
    chamfer = (w - w * COS30) * TAN30 * 1.6
    s, top = w * COS30, base - height
    low = chamfer if shape == "rounded" else 0
    high = chamfer if shape != "flat" else 0
    slots = ((x - 0.75 * w, 2.75), (x, 5.5), (x + 0.75 * w, 2.75)) if slotted else ()
    foot, head = (s if low else w), (s if high else w)
    outline = [(x - foot, base), (x - w, base - low), (x - w, top + high), *nut_top(x, top, head, slots, depth),
               (x + w, top + high), (x + w, base - low), (x + foot, base)]
    strokes = [polygon(OUTLINE, outline, fill=BODY)]
    strokes += [line(OUTLINE, (x + edge, base - low), (x + edge, top + high)) for edge in (-w / 2, w / 2)]
    for left, right in ((x - w, x - w / 2), (x - w / 2, x + w / 2), (x + w / 2, x + w)):
        if high:
            strokes += cut_bow((left, top + high), (right, top + high), high, slots)
        if low:
            strokes += cut_bow((left, base - low), (right, base - low), -low, ())
    return strokes + [line(CENTRE, (x, 4), (x, 57))]


def nut_plan(slotted):
    centre, w = (50, 30), 27
    s, bore, thread, half = w * COS30, 11, 13, 3
    strokes = [polygon(OUTLINE, regular(centre, w), fill=BODY), circle(OUTLINE, centre, s), circle(OUTLINE, centre, bore),
               thread_arc(centre, thread)]
    for axis in range(30, 390, 60) if slotted else ():
        along = (math.cos(math.radians(axis)), -math.sin(math.radians(axis)))
        across = (-along[1], along[0])
        inner = math.sqrt(bore * bore - half * half)
        for side in (-half, half):
            strokes.append(line(OUTLINE, *(tuple(c + a * far + b * side for c, a, b in zip(centre, along, across))
                                           for far in (inner, s))))
    return strokes + cross(centre, 29)


# ---- Rivets ----------------------------------------------------------------------------------------------------------

def rivet_head(shape, outwards):
    """A head on a plate at half height; outwards is -1 for the head above the plate, 1 for the one below it."""
    x, face, half, shank, height = 50, 30 + outwards * 2, 20, 10, 15
    end = face - outwards * 26
    sunk = shape == "countersunk"
    neck = face - outwards * (13 if sunk else 0)
    left, right = (x - half, face), (x + half, face)
    if shape in ("snap", "mushroom"):
        rise = -outwards * (height if shape == "snap" else 8)
        head = [path(OUTLINE, f"M{pair(left)}", bow_to(left, right, rise), "Z", fill=BODY)]
    else:
        inner = {"pan": half - height / 4, "flat": half, "countersunk": shank}[shape]
        far = face - outwards * 13 if sunk else face + outwards * (height if shape == "pan" else 9)
        head = [polygon(OUTLINE, [left, (x - inner, far), (x + inner, far), right], fill=BODY)]
    plate = [line(MATERIAL, (8, face), left), line(MATERIAL, right, (92, face))]
    walls = [polygon("", [(x - shank, neck), (x - shank, end), (x + shank, end), (x + shank, neck)], fill=BODY)]
    walls += [line(OUTLINE, (x + side, neck), (x + side, end)) for side in (-shank, shank)]
    return plate + walls + head + [line(CENTRE, (x, 3), (x, 57))]


# ---- Screws ----------------------------------------------------------------------------------------------------------

def screw_shaft(x, top, radius, tip):
    minor, chamfer = radius * 0.8, radius * 0.2
    strokes = [polygon(OUTLINE, [(x - radius, top), (x - radius, tip - chamfer), (x - minor, tip), (x + minor, tip),
                                 (x + radius, tip - chamfer), (x + radius, top)], closed=False, fill=BODY),
               line(OUTLINE, (x - radius, tip - chamfer), (x + radius, tip - chamfer))]
    return strokes + [line(THREAD, (x + side, top), (x + side, tip)) for side in (-minor, minor)]


def screw_head(head):
    x, face, half, radius = 50, 27, 20, 11
    surface = [line(MATERIAL, (8, face), (x - half, face)), line(MATERIAL, (x + half, face), (92, face))]
    left, right = (x - half, face), (x + half, face)
    if head == "cylindrical":
        shape = [polygon(OUTLINE, [left, (x - half, 9), (x - half + 3, 6), (x + half - 3, 6), (x + half, 9), right], fill=BODY),
                 line(OUTLINE, (x - half, 9), (x + half, 9))]
        neck = face
    elif head == "countersunk":
        neck = face + 10
        shape = [polygon(OUTLINE, [left, (x - radius, neck), (x + radius, neck), right], fill=BODY)]
    elif head == "rounded":
        neck = face
        shape = [path(OUTLINE, f"M{pair(left)}", f"L{x - half} {face - 6}", bow_to((x - half, face - 6), (x + half, face - 6), 9),
                      f"L{pair(right)}", "Z", fill=BODY)]
    else:
        neck = face + 9
        shape = [path(OUTLINE, f"M{pair(left)}", bow_to(left, right, 9), f"L{x + radius} {neck}", f"L{x - radius} {neck}", "Z",
                      fill=BODY), line(OUTLINE, left, right)]
    return surface + screw_shaft(x, neck, radius, 55) + shape + [line(CENTRE, (x, 2), (x, 58))]


def set_screw():
    x, top, tip, radius = 50, 9, 51, 15
    minor, edge, point = radius * 0.8, radius * 0.2, radius / 2
    outline = [(x - minor, top), (x - radius, top + edge), (x - radius, tip - point), (x - radius + point, tip),
               (x + radius - point, tip), (x + radius, tip - point), (x + radius, top + edge), (x + minor, top)]
    strokes = [polygon(OUTLINE, outline, fill=BODY), line(OUTLINE, (x - radius, top + edge), (x + radius, top + edge)),
               line(OUTLINE, (x - radius, tip - point), (x + radius, tip - point))]
    strokes += [line(THREAD, (x + side, top), (x + side, tip - point)) for side in (-minor, minor)]
    return strokes + [line(CENTRE, (x, 3), (x, 57))]


def key(shape):
    centre, radius = (50, 30), 24
    x, y = centre
    strokes = [circle(OUTLINE, centre, radius, fill=BODY)]
    if shape == "hexagon":
        strokes.append(polygon(OUTLINE, regular(centre, 12 / COS30)))
    elif shape == "slot":
        end = math.sqrt(radius * radius - 16)
        strokes += [line(OUTLINE, (x - end, y + side), (x + end, y + side)) for side in (-4, 4)]
    else:
        arm, half, bend = 15, 2.5, 7.5
        commands = [f"M{pair((x + half, y - arm))}"]
        for quarter in range(4):
            c, s = round(math.cos(math.pi / 2 * quarter)), round(math.sin(math.pi / 2 * quarter))
            corners = ((half, -bend), (bend, -half), (arm, -half), (arm, half))
            start, *ends = (pair((x + a * c - b * s, y + a * s + b * c)) for a, b in corners)
            commands += [f"L{start}", f"A5 5 0 0 0 {ends[0]}", *(f"L{end}" for end in ends[1:])]
        strokes.append(path(OUTLINE, *commands, "Z"))
    return strokes + cross(centre, 29)


# ---- Flanges ---------------------------------------------------------------------------------------------------------

def drilled(centre, edge, hole):
    return [circle(OUTLINE, centre, edge, fill=BODY), circle(OUTLINE, centre, hole)]


def around(centre, radius, count, start):
    angles = (math.radians(start + 360 / count * i) for i in range(count))
    return [(centre[0] + radius * math.cos(a), centre[1] - radius * math.sin(a)) for a in angles]


def round_flange():
    centre, pitch = (50, 30), 19
    strokes = drilled(centre, 26, 10) + [circle(CENTRE, centre, pitch)]
    for hole in around(centre, pitch, 6, 90):
        strokes.append(circle(OUTLINE, hole, 3))
    return strokes + cross(centre, 29)


def shaft():
    """A collar between two steps, the ends chamfered, one step rounded."""
    outline = (f"M12,21L15,18H36V{8 + 4}A4,4 0 0 1 40,8H62V16H85L88,19V41L85,44H62V52H40A4,4 0 0 1 36,48V42H15L12,39Z",)
    strokes = [path(OUTLINE, *outline, fill=BODY)]
    for x, half in ((15, 12), (36, 18), (62, 22), (85, 14)):
        strokes.append(line(OUTLINE, (x, 30 - half), (x, 30 + half)))
    return strokes + [line(CENTRE, (5, 30), (95, 30))]


def joined(ends, radius, fill):
    """The outline round circles of one radius, their centres given counter-clockwise as seen."""
    points = []
    for start, end in zip(ends, ends[1:] + ends[:1]):
        length = math.dist(start, end)
        across = ((end[1] - start[1]) / length * radius, (start[0] - end[0]) / length * radius)
        points += [tuple(p - a for p, a in zip(end_, across)) for end_ in (start, end)]
    commands = [f"M{pair(points[0])}"]
    for i in range(1, len(points), 2):
        commands += [f"L{pair(points[i])}", f"A{number(radius)} {number(radius)} 0 0 0 {pair(points[(i + 1) % len(points)])}"]
    return path(OUTLINE, *commands, "Z", fill=fill)


def triangular_flange():
    centre, pitch = (53, 30), 18
    holes = around(centre, pitch, 3, 60)
    strokes = [joined(holes, 9, BODY), circle(OUTLINE, centre, 7), circle(CENTRE, centre, pitch)]
    return strokes + [circle(OUTLINE, hole, 3.5) for hole in holes] + cross(centre, 12)


def oval_flange():
    centre, boss, lobe, apart = (50, 30), 22, 9, 32
    sine = (boss - lobe) / apart
    cosine = math.sqrt(1 - sine * sine)
    at = {(side, up): [(centre[0] + side * (offset + radius * sine), centre[1] - up * radius * cosine)
                       for offset, radius in ((0, boss), (apart, lobe))] for side in (-1, 1) for up in (-1, 1)}
    turn = {radius: f"A{radius} {radius} 0 0 1 " for radius in (boss, lobe)}
    outline = path(OUTLINE, f"M{pair(at[-1, 1][1])}", f"L{pair(at[-1, 1][0])}", turn[boss] + pair(at[1, 1][0]),
                   f"L{pair(at[1, 1][1])}", turn[lobe] + pair(at[1, -1][1]), f"L{pair(at[1, -1][0])}",
                   turn[boss] + pair(at[-1, -1][0]), f"L{pair(at[-1, -1][1])}", turn[lobe] + pair(at[-1, 1][1]), fill=BODY)
    strokes = [outline, circle(OUTLINE, centre, 12)]
    strokes += [circle(OUTLINE, (centre[0] + side * apart, centre[1]), 4) for side in (-1, 1)]
    return strokes + [line(CENTRE, (5, 30), (95, 30)), line(CENTRE, (50, 4), (50, 56))]


# ---- Links -----------------------------------------------------------------------------------------------------------

LEFT_BOSS, RIGHT_BOSS = ((26, 30), 20, 9), ((78, 30), 14, 6)


def joint(shape):
    """Where the upper joint leaves the left boss and meets the right one, and how it runs."""
    (lx, y), left, _ = LEFT_BOSS
    (rx, _), right, _ = RIGHT_BOSS
    if shape == "taper":
        ends = [(lx + math.sqrt(left * left - 100), y - 10), (rx - math.sqrt(right * right - 36), y - 6)]
        return ends, "L"
    if shape == "flush":
        sine = (right - left) / (rx - lx)
        cosine = math.sqrt(1 - sine * sine)
        return [(x - r * sine, y - r * cosine) for x, r in ((lx, left), (rx, right))], "L"
    radius, apart = 30, rx - lx
    along = (apart ** 2 + (left + radius) ** 2 - (right + radius) ** 2) / (2 * apart)
    up = math.sqrt((left + radius) ** 2 - along ** 2)
    ends = [(x + (lx + along - x) * r / (r + radius), y - up * r / (r + radius)) for x, r in ((lx, left), (rx, right))]
    return ends, f"A{radius} {radius} 0 0 0 "


def link(shape):
    (start, end), way = joint(shape)
    below = [(x, 60 - y) for x, y in (start, end)]
    outline = path(OUTLINE, f"M{pair(start)}", way + pair(end), f"A{RIGHT_BOSS[1]} {RIGHT_BOSS[1]} 0 1 1 {pair(below[1])}",
                   way + pair(below[0]), f"A{LEFT_BOSS[1]} {LEFT_BOSS[1]} 0 1 1 {pair(start)}", fill=BODY)
    strokes = [outline]
    for centre, _, hole in (LEFT_BOSS, RIGHT_BOSS):
        strokes += [circle(OUTLINE, centre, hole), *cross(centre, 1.4 * hole)]
    return strokes


# ---- Duct ------------------------------------------------------------------------------------------------------------

def duct():
    """Plan above, side view below: what length, width, offset and height are measured on."""
    left, right, along, radius, foot, top = 18, 62, 32, 6, 56, 40
    side = [(left, foot), (along - radius, top), (along + radius, top), (right, foot)]
    strokes = [polygon(OUTLINE, side, fill=BODY), polygon(THREAD, ((right, foot), (along, top), (left, foot)), closed=False)]
    plan = ((left, 4), (right, 4), (right, 34), (left, 34))
    strokes += [polygon(OUTLINE, plan, fill=BODY), circle(OUTLINE, (along, 19), radius)]
    strokes += [line(THREAD, corner, (along + sx * radius * 0.7, 19 + sy * radius * 0.7))
                for corner, sx, sy in zip(plan, (-1, 1, 1, -1), (-1, -1, 1, 1))]
    end = [(94, 4), (80, 19 - radius), (80, 19 + radius), (94, 34)]
    strokes += [polygon(OUTLINE, end, fill=BODY)]
    return strokes + [line(CENTRE, (14, 19), (98, 19)), line(CENTRE, (40, 2), (40, 58)), line(CENTRE, (along, 9), (along, 48))]


# ---- Walls -----------------------------------------------------------------------------------------------------------

def wall_direction(clockwise):
    """A room seen from above, and an arrow round it."""
    side = 1 if clockwise else -1
    way = [(50 + side * x, y) for x, y in ((-13, 39), (-13, 21), (13, 21), (13, 39), (-4, 39))]
    barbs = [(way[-1][0] + side * 5, way[-1][1] + reach) for reach in (-3, 3)]
    faces = [polygon(OUTLINE, ((x, y), (100 - x, y), (100 - x, 60 - y), (x, 60 - y)), fill=fill)
             for x, y, fill in ((20, 5, BODY), (28, 13, 'fill="none"'))]
    return faces + [polygon(ARROW, way, closed=False), polygon(ARROW, (barbs[0], way[-1], barbs[1]), closed=False)]


# ---- The files -------------------------------------------------------------------------------------------------------

def pictures():
    for kind, slotted in (("hexagon", False), ("slotted", True)):
        for shape in ("rounded", "flat_base", "flat"):
            yield f"nut_{kind}_{shape}", nut_side(slotted, shape)
        yield f"nut_{kind}_plan", nut_plan(slotted)
    for side, outwards in (("left", -1), ("right", 1)):
        for shape in ("snap", "pan", "mushroom", "flat", "countersunk"):
            yield f"rivet_{side}_{shape}", rivet_head(shape, outwards)
    for head in ("cylindrical", "countersunk", "rounded", "rounded_countersunk"):
        yield f"screw_{head}", screw_head(head)
    yield "screw_set", set_screw()
    for shape in ("hexagon", "slot", "cross"):
        yield f"key_{shape}", key(shape)
    yield "flange_round", round_flange()
    yield "flange_oval", oval_flange()
    yield "flange_triangular", triangular_flange()
    for shape in ("taper", "fillet", "flush"):
        yield f"link_{shape}", link(shape)
    yield "shaft_stepped", shaft()
    yield "duct_views", duct()
    yield "wall_clockwise", wall_direction(True)
    yield "wall_anticlockwise", wall_direction(False)
    yield from annotation_pictures()


def svg(strokes):
    body = "\n".join(strokes)
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="100" height="60" viewBox="0 0 100 60" stroke-linejoin="round">\n'
            f"{body}\n</svg>\n")


def main():
    check = "--check" in sys.argv[1:]
    FOLDER.mkdir(exist_ok=True)
    for name, strokes in pictures():
        path_of = FOLDER / f"{name}.svg"
        content = svg(strokes)
        if not check:
            path_of.write_text(content, encoding="ascii")
        elif not path_of.exists() or path_of.read_text(encoding="ascii") != content:
            sys.exit(f"{path_of}: differs from what {Path(__file__).name} makes; run it and commit the result")


if __name__ == "__main__":
    main()

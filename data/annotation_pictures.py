"""The pictures of welds, finishes and tolerances, from the very symbols that are drawn."""
import math
from pathlib import Path

from picture_strokes import BODY, MATERIAL, OUTLINE, circle, line, number, pair, path, polygon

SYMBOLS = Path(__file__).resolve().parent / "symbols"


def symbol_lines(name):
    """The statements of each symbol of a symbol file, those that are upturned left out."""
    symbols, lines = {}, []
    for text in (SYMBOLS / f"{name}.sym").read_text(encoding="ascii").splitlines():
        words = text.partition("#")[0].split()
        if words[:1] == ["symbol"]:
            lines = symbols[words[1]] = []
        elif words and words[0] in ("line", "closed", "circle", "arc"):
            lines.append((words[0], [float(word) for word in words[1:]]))
    return symbols


def symbol_strokes(lines, at, size):
    """A symbol with its origin at a point of the picture, `size` to a millimetre."""
    def on(x, y):
        return at[0] + size * x, at[1] - size * y

    strokes = []
    for word, figures in lines:
        if word in ("line", "closed"):
            points = [on(*figures[i:i + 2]) for i in range(0, len(figures), 2)]
            strokes.append(polygon(OUTLINE, points, closed=word == "closed", fill=BODY if word == "closed" else 'fill="none"'))
        elif word == "circle":
            strokes.append(circle(OUTLINE, on(*figures[:2]), size * figures[2]))
        else:
            x, y, radius, start, end = figures
            ends = [on(x + radius * math.cos(math.radians(a)), y + radius * math.sin(math.radians(a))) for a in (start, end)]
            large = int((end - start) % 360 > 180)
            strokes.append(path(OUTLINE, f"M{pair(ends[0])}", f"A{number(size * radius)} {number(size * radius)} 0 {large} 0 {pair(ends[1])}"))
    return strokes


CONTOURS = ("FLUSH", "CONVEX", "CONCAVE")


def turned_over(word, figures):
    """A statement of a symbol mirrored in the reference line."""
    if word in ("line", "closed"):
        return word, [-figure if i % 2 else figure for i, figure in enumerate(figures)]
    if word == "circle":
        return word, [figures[0], -figures[1], figures[2]]
    x, y, radius, start, end = figures
    return word, [x, -y, radius, -end, -start]


def weld(name, lines, above):
    """On the reference line, on the other side of the joint above it and on the arrow side below it."""
    level = 57 if above else 3
    turned = above != (name in CONTOURS)
    strokes = [turned_over(*statement) for statement in lines] if turned else lines
    return [line(MATERIAL, (20, level), (80, level)), *symbol_strokes(strokes, (50, level), 11)]


def cell(lines):
    """A symbol of a cell of 10 mm that fills the picture's height."""
    return symbol_strokes(lines, (22, 58), 5.6)


def finish_scope(general):
    """A small mark with the circle of all around, or with one in brackets behind it."""
    tip, unit = (24 if general else 38, 48), 3
    corner = (tip[0] + 8.484 * unit, tip[1] - 12 * unit)
    strokes = [polygon(OUTLINE, ((tip[0] - 2.828 * unit, tip[1] - 4 * unit), tip, corner), closed=False)]
    if not general:
        return [*strokes, line(OUTLINE, corner, (corner[0] + 24, corner[1])), circle(OUTLINE, corner, 1.6 * unit)]
    strokes += [path(OUTLINE, f"M{number(x)} 9", f"A30 30 0 0 {sweep} {number(x)} 51") for x, sweep in ((52, 0), (91, 1))]
    return [*strokes, polygon(OUTLINE, ((56, 36), (64, 48), (89.5, 12)), closed=False)]


def finish(removal):
    tip, unit = (42, 57), 4.5
    short, long_end = (tip[0] - 2.828 * unit, tip[1] - 4 * unit), (tip[0] + 8.484 * unit, tip[1] - 12 * unit)
    strokes = [polygon(OUTLINE, (short, tip, long_end), closed=False)]
    if removal == "machined":
        strokes.append(line(OUTLINE, short, (tip[0] + 2.828 * unit, short[1])))
    if removal == "unmachined":
        strokes.append(circle(OUTLINE, (tip[0], tip[1] - 3.2 * unit), 1.84 * unit))
    return strokes


def annotation_pictures():
    for name, lines in symbol_lines("MechWelds").items():
        if name not in ("SITE", "ALL_ROUND"):
            yield f"weld_{name.lower()}", weld(name, lines, above=False)
            yield f"weld_{name.lower()}_above", weld(name, lines, above=True)
    for name, lines in symbol_lines("MechSurfaceFinish").items():
        yield name.lower().replace("sf_", "lay_"), cell(lines)
    for name, lines in symbol_lines("MechTolerances").items():
        if not name.startswith("TS__") and name not in ("TS_DATUM", "TS_CENTRELINE", "TS_PROJECTED"):
            yield name.lower().replace("ts_", "tolerance_"), cell(lines)
    for removal in ("any", "machined", "unmachined"):
        yield f"finish_{removal}", finish(removal)
    for scope in ("all_around", "general"):
        yield f"finish_{scope}", finish_scope(scope == "general")

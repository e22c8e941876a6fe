"""The inks and strokes that the pictures of the dialogs are made of."""
import math

OUTLINE = 'stroke="#3f7fbf" stroke-width="1.6"'
BODY = 'fill="#3f7fbf" fill-opacity="0.16"'
THREAD = 'stroke="#3f7fbf" stroke-width="0.8"'
CENTRE = 'stroke="#c26a2b" stroke-width="0.7" stroke-dasharray="7 1.6 1.2 1.6"'
ARROW = 'stroke="#c26a2b" stroke-width="1.4"'
MATERIAL = 'stroke="#7a7f87" stroke-width="0.9"'

TAN30 = math.tan(math.radians(30))
COS30 = math.cos(math.radians(30))


def number(value):
    text = f"{value:.2f}".rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


def pair(point):
    return f"{number(point[0])} {number(point[1])}"


def path(ink, *commands, fill='fill="none"'):
    return f'<path {fill} {ink} d="{" ".join(commands)}"/>'


def polygon(ink, points, closed=True, fill='fill="none"'):
    start, *rest = points
    return path(ink, f"M{pair(start)}", *(f"L{pair(point)}" for point in rest), *(["Z"] if closed else []), fill=fill)


def line(ink, start, end):
    return polygon(ink, (start, end), closed=False)


def circle(ink, centre, radius, fill='fill="none"'):
    return f'<circle {fill} {ink} cx="{number(centre[0])}" cy="{number(centre[1])}" r="{number(radius)}"/>'


def bow_to(start, end, rise):
    """An arc over the middle of a level chord, `rise` above it; below it where that is negative."""
    half = abs(end[0] - start[0]) / 2
    radius = (half * half + rise * rise) / (2 * abs(rise))
    over = (end[0] > start[0]) == (rise > 0)
    return f"A{number(radius)} {number(radius)} 0 {int(abs(rise) > half)} {int(over)} {pair(end)}"


def thread_arc(centre, radius):
    at = [(centre[0] + radius * math.cos(math.radians(a)), centre[1] - radius * math.sin(math.radians(a))) for a in (70, 20)]
    return path(THREAD, f"M{pair(at[0])}", f"A{number(radius)} {number(radius)} 0 1 0 {pair(at[1])}")


def cross(centre, reach):
    return [line(CENTRE, (centre[0] - reach, centre[1]), (centre[0] + reach, centre[1])),
            line(CENTRE, (centre[0], centre[1] - reach), (centre[0], centre[1] + reach))]


def regular(centre, corner, start=0):
    angles = (math.radians(start + 60 * i) for i in range(6))
    return [(centre[0] + corner * math.cos(a), centre[1] - corner * math.sin(a)) for a in angles]

"""General plans by script, to DXF, against shapely and ezdxf making the same of the same lines.

    township_against_shapely.py BATCH [--quick]

Our side is the whole program: start, script, tracing, texts in their groups, table, DXF. The peers' side is finding the
erven by shapely, the texts of each boundary or erf by ezdxf, and saving; reading the lines is not counted for them.
The memory is that of a run which writes no DXF: what script, drawing and command take.
"""

import math
import pathlib
import random
import tempfile
import time

import rows

shapely_geometry = rows.needed("shapely.geometry")
shapely_ops = rows.needed("shapely.ops")
shapely_tree = rows.needed("shapely.strtree")
ezdxf = rows.needed("ezdxf")

HEAD = """setting "SG_DEFAULTS" "SG_GenPlanFile" "General Plan.ini"
parameter unit 1000
parameter scale 500
parameter coordinateSystem 0
parameter areaUnit 8
"""
CONFIRMED = 'dialog "*"\n  press "OK"\n'


def town(along):
    """A line for each side of erven whose corners wander, and a point in each erf."""
    chance = random.Random(11)
    corners = [[(round(across * 20 + chance.uniform(-6, 6), 3), round(up * 30 + chance.uniform(-6, 6), 3))
                for across in range(along + 1)] for up in range(along + 1)]
    sides = [(corners[up][across], corners[up][across + 1]) for up in range(along + 1) for across in range(along)]
    sides += [(corners[up][across], corners[up + 1][across]) for up in range(along) for across in range(along + 1)]
    insides = []
    for up in range(along):
        for across in range(along):
            around = [corners[up + n // 2][across + n % 2] for n in range(4)]
            insides.append(tuple(round(sum(values) / 4, 4) for values in zip(*around)))
    return sides, insides


def lines(sides):
    return "".join(f"draw line {a[0]} {a[1]} {b[0]} {b[1]}\n" for a, b in sides)


def dimensions(sides, insides):
    numbers = "".join(f'draw text {x} {y} 25 "{n + 1}"\n' for n, (x, y) in enumerate(insides))
    return f'{HEAD}{lines(sides)}layer "STAND_NO"\n{numbers}layer "0"\nrun SG_MultiSurveyDims\n{CONFIRMED}'


def areas(sides, insides):
    points = "".join(f"point {x} {y}\n" + ("accept\n" if n else 'text "1"\n') for n, (x, y) in enumerate(insides))
    return f'{HEAD}{lines(sides)}run SG_AreaTable\n{CONFIRMED}point -100 0\nreply "Horizontal"\n{points}space\n'


def bearing(a, b):
    seconds = round(math.degrees(math.atan2(b[0] - a[0], b[1] - a[1])) % 360 * 360) * 10
    return f"{seconds // 3600}°{seconds // 60 % 60:02d}'{seconds % 60:02d}\""


def found(sides):
    return list(shapely_ops.polygonize([shapely_geometry.LineString(side) for side in sides]))


def dimensions_by_peers(sides, insides, space):
    met = set()
    for erf in found(sides):
        ring = list(erf.exterior.coords)
        for a, b in zip(ring, ring[1:]):
            if (a, b) in met or (b, a) in met:
                continue
            met.add((a, b))
            angle = math.degrees(math.atan2(b[1] - a[1], b[0] - a[0]))
            upright = (angle + 90) % 180 - 90
            text = f"{math.dist(a, b):.2f}\\P{bearing(a, b)}"
            space.add_mtext(text, dxfattribs={
                "insert": ((a[0] + b[0]) / 2, (a[1] + b[1]) / 2), "rotation": upright, "char_height": 1.25,
                "attachment_point": 2, "layer": "SURV_DIMS"})


def areas_by_peers(sides, insides, space):
    erven = found(sides)
    tree = shapely_tree.STRtree(erven)
    for number, place in enumerate(insides):
        point = shapely_geometry.Point(place)
        erf = next(erf for erf in tree.query(point) if erf.contains(point))
        for text, at in ((str(number + 1), erf.centroid.coords[0]), (str(number + 1), (-105, number * -1.65)),
                         (f"{erf.area:.0f}", (-120, number * -1.65))):
            space.add_text(text, dxfattribs={"insert": at, "height": 1.25})


def by_peers(draw, sides, insides, path):
    start = time.perf_counter()
    document = ezdxf.new("R2010", setup=True)
    draw(sides, insides, document.modelspace())
    for a, b in sides:
        document.modelspace().add_line(a, b)
    document.saveas(path)
    return time.perf_counter() - start


TASKS = (("dimensionsToDxf", dimensions, dimensions_by_peers), ("areasToDxf", areas, areas_by_peers))


def measured(batch, name, along, script, draw):
    sides, insides = town(along)
    with tempfile.TemporaryDirectory() as folder_name:
        folder = pathlib.Path(folder_name)
        for file, end in (("town", 'export "town.dxf"\n'), ("unwritten", "")):
            (folder / f"{file}.scr").write_text(script(sides, insides) + end, encoding="utf-8")
        ours = min(rows.seconds([batch, "run", folder / "town.scr", "-o", folder / "out"]) for _ in range(3))
        memory = rows.megabytes([batch, "run", folder / "unwritten.scr", "-o", folder / "out"])
        peers = by_peers(draw, sides, insides, folder / "peer.dxf")
    return {**rows.row(name, len(insides), ours, shapely_and_ezdxf=peers), "megabytes": memory}


def main():
    (batch,), quick = rows.arguments()
    rows.show([measured(batch, name, along, script, draw)
               for name, script, draw in TASKS for along in ([50] if quick else [50, 100, 200])])


if __name__ == "__main__":
    main()

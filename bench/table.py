"""Makes the table of benchmarks out of what the programs printed."""

import math
import statistics

SIZE = "size"
OURS = "ours"
MEMORY = "megabytes"
PEER = "peer "


def family(name):
    """The benchmark of "nearest/loaded/62500/iterations:1", without its sizes."""
    words = name.split("/")
    return "/".join(word for word in words if not (word.isdigit() or ":" in word))


def medians(runs):
    """Rows of several runs of one program, made one a benchmark and size: ratios are those of one run each."""
    taken = {}
    for rows in runs:
        for row in rows:
            if row.get("run_type", "iteration") == "iteration" and OURS in row:
                taken.setdefault((family(row["name"]), row[SIZE]), []).append(row)
    result = {}
    for (name, size), rows in taken.items():
        peers = {}
        for key in [key for key in rows[0] if key.startswith(PEER)]:
            peers[key.removeprefix(PEER)] = {
                "seconds": statistics.median(row[key] for row in rows),
                "ratio": statistics.median(row[OURS] / row[key] for row in rows),
            }
        figures = {SIZE: size, OURS: statistics.median(row[OURS] for row in rows), "peers": peers}
        if MEMORY in rows[0]:
            figures[MEMORY] = max(row[MEMORY] for row in rows)
        result.setdefault(name, []).append(figures)
    for rows in result.values():
        rows.sort(key=lambda row: row[SIZE])
    return result


def growth(rows):
    """The power of the size with which our time grows, by least squares of the logarithms; None for one size."""
    points = [(math.log(row[SIZE]), math.log(row[OURS])) for row in rows]
    if len({x for x, _ in points}) < 2:
        return None
    middle = [statistics.fmean(values) for values in zip(*points)]
    across = sum((x - middle[0]) ** 2 for x, _ in points)
    return sum((x - middle[0]) * (y - middle[1]) for x, y in points) / across


def duration(seconds):
    for unit, size in (("s", 1), ("ms", 1e-3), ("µs", 1e-6)):
        if seconds >= size * 0.9995:
            return f"{seconds / size:.3g} {unit}"
    return f"{seconds * 1e9:.3g} ns"


def short(number):
    return f"{number:.2f}" if 0.095 <= number < 9.95 else f"{number:.2g}" if number < 0.095 else f"{number:.0f}"


def asked(figure, rows):
    """Pairs of what is asked, in words, and whether it is met."""
    ratios = [row["peers"][figure.peer]["ratio"] for row in rows] if figure.peer else []
    power = growth(rows)
    if figure.ratio is not None:
        yield f"ratio ≤ {short(figure.ratio)}", max(ratios) <= figure.ratio
    if figure.seconds is not None:
        yield f"≤ {duration(figure.seconds)}", max(row[OURS] for row in rows) <= figure.seconds
    if figure.over is not None:
        above = max(row[OURS] - row["peers"][figure.peer]["seconds"] for row in rows)
        yield f"peer + {duration(figure.over)}", above <= figure.over
    if figure.megabytes is not None:
        most = max(row[MEMORY] for row in rows)
        yield f"≤ {figure.megabytes:g} MB ({most:.0f} MB)", most <= figure.megabytes
    if figure.growth is not None and power is not None:
        yield f"growth ≤ {figure.growth:g}", power <= figure.growth


HEAD = ("figure", "sizes", "time at the largest", "peer or bound", "ratio at each size", "growth", "asked", "met")


def line(figure, measured, failures):
    """A figure's cells. `measured`: rows by benchmark; `failures`: why a program gave none."""
    rows = measured.get(figure.benchmark, [])
    if not rows:
        reason = failures.get(figure.program, "its program said nothing of it")
        return (figure.title, figure.counted, f"not measured: {reason}", figure.peer or "–", "–", "–", "–", "–")
    sizes = " / ".join(f"{row[SIZE]:,.0f}" for row in rows)
    cells = [figure.title, f"{sizes} {figure.counted}", duration(rows[-1][OURS])]
    if figure.peer and any(figure.peer not in row["peers"] for row in rows):
        return (*cells, f"{figure.peer}: missing here", "–", "–", "–", "–")
    limits = list(asked(figure, rows))
    power = growth(rows)
    return (*cells, figure.peer or "–",
            " / ".join(short(row["peers"][figure.peer]["ratio"]) for row in rows) if figure.peer else "–",
            "one size" if power is None else f"{power + 0.0:.2f}" + ("" if len(rows) > 2 else " (two sizes)"),
            ", ".join(text for text, _ in limits) or "–",
            ", ".join("yes" if met else "**no**" for _, met in limits) or "–")


def table(figures, measured, failures):
    lines = [HEAD, ("---",) * len(HEAD), *(line(figure, measured, failures) for figure in figures)]
    return "\n".join("| " + " | ".join(cells) + " |" for cells in lines) + "\n"


def replaced(text, begin, end, content):
    """The text with what stands between two marks replaced."""
    head, found, rest = text.partition(begin)
    _, ended, tail = rest.partition(end)
    if not found or not ended:
        raise ValueError(f"the marks {begin} and {end} are missing")
    return head + begin + "\n\n" + content + "\n" + end + tail

#!/usr/bin/python3
"""Makes "ISO Mechspecs.ini" from the tables beside it; with --check only compares.

The file is committed so that a copy of the data folder works without running anything.
"""
import sys
from decimal import ROUND_HALF_UP, Decimal
from pathlib import Path
from types import SimpleNamespace

DATA = Path(__file__).resolve().parent
CATALOGUE = DATA / "ISO Mechspecs.ini"

# How deep a thread is cut on both sides together, in pitches. The basic triangle is cos 30 degrees of the pitch high;
# a screw's root lies 17/24 of that below the crest, a nut's crest 5/8.
SCREW_THREAD_DEPTH = Decimal("1.22687")
NUT_THREAD_DEPTH = Decimal("1.08253")

CYLINDRICAL, COUNTERSUNK, ROUNDED, _, SET_SCREW = range(5)
DRILLED, TAPPED, DOWEL = range(3)
THROUGH, BLIND = range(2)
SNAP, SUNK = 0, 4


def read_tables(path):
    """The tables of a file by name, rows and lengths; a row that does not fit its columns is an error."""
    tables = {}
    table = None
    for number, line in enumerate(path.read_text(encoding="ascii").splitlines(), 1):
        words = line.partition("#")[0].split()
        if not words:
            continue
        if words[0].startswith("[") or table is None:
            table = SimpleNamespace(columns=[], rows=[], lengths=[])
            tables[words[0].strip("[]") if words[0].startswith("[") else ""] = table
            if words[0].startswith("["):
                continue
        if words[0] == "columns":
            table.columns = words[1:]
        elif words[0] == "lengths":
            table.lengths = [Decimal(word) for word in words[1:]]
        elif len(words) == len(table.columns):
            table.rows.append(SimpleNamespace(**dict(zip(table.columns, map(Decimal, words)))))
        else:
            sys.exit(f"{path}:{number}: a row takes {len(table.columns)} figures, got {len(words)}")
    return tables


def record(name, *fields):
    """Lengths with three decimals, list indexes as they are."""
    texts = (str(f) if isinstance(f, int) else str(f.quantize(Decimal("0.001"), ROUND_HALF_UP)) for f in fields)
    return ",".join((name, *texts))


def sized(table):
    """Every size of a table in every length in which it is made."""
    for size in table.rows:
        for length in table.lengths:
            if getattr(size, "from") <= length <= size.to:
                yield size, length


def screw_minor(size):
    return size.d - SCREW_THREAD_DEPTH * size.pitch


# ---- Bolts and screws ------------------------------------------------------------------------------------------------

def partial_thread_length(size, length):
    """The reference length of thread of ISO 4014."""
    allowance = 6 if length <= 125 else 12 if length <= 200 else 25
    return 2 * size.d + allowance


def bolt(name, size, length, thread_length):
    return record(name, size.s, size.k, size.d, length, thread_length, screw_minor(size))


def bolts(tables):
    table = tables[""]
    for size in table.rows:
        for length in table.lengths:
            name = f"M{size.d}x{length}"
            if getattr(size, "from") <= length <= size.to:
                yield bolt(name, size, length, partial_thread_length(size, length))
            if size.full <= length <= size.whole:
                yield bolt(name + "F", size, length, length)


def screws(tables):
    for size, length in sized(tables["cap"]):
        shank = length - size.b if length >= size.partial else Decimal(0)
        yield record(f"M{size.d}x{length}", size.dk, size.k, size.d, length, shank, screw_minor(size), size.d, size.s,
                     CYLINDRICAL, 0)
    for size, length in sized(tables["countersunk"]):
        shank = length - size.b - size.k if length >= size.partial else Decimal(0)
        yield record(f"M{size.d}x{length}CSK", size.dk, size.k, size.d, length - size.k, shank, screw_minor(size), size.d,
                     size.s, COUNTERSUNK, 0)
    for size, length in sized(tables["button"]):
        yield record(f"M{size.d}x{length}BH", size.dk, size.k, size.d, length, Decimal(0), screw_minor(size), size.d,
                     size.s, ROUNDED, 0)
    # Without a head: its diameter is the thread's, its height makes the centre line end above the screw.
    for size, length in sized(tables["set"]):
        yield record(f"M{size.d}x{length}SET", size.d, size.d / 4, size.d, length, Decimal(0), screw_minor(size), size.d,
                     size.s, SET_SCREW, 0)


# ---- Nuts ------------------------------------------------------------------------------------------------------------

def nut(name, size, height, washer=Decimal(0), slot=(Decimal(0), Decimal(0)), slotted=0, shape=0):
    minor = size.d - NUT_THREAD_DEPTH * size.pitch
    return record(name, size.s, height, size.d, size.dw, minor, washer, *slot, slotted, shape)


def nuts(tables):
    for table, word in (("regular", ""), ("thin", "THIN")):
        for size in tables[table].rows:
            yield nut(f"M{size.d}{word}", size, size.m)
        for size in tables[table].rows:
            yield nut(f"M{size.d}{word}WF", size, size.m - size.c, washer=size.c, shape=1)
    for size in tables["castle"].rows:
        yield nut(f"M{size.d}CASTLE", size, size.m, slot=(size.n, size.m - size.w), slotted=1)


# ---- Holes -----------------------------------------------------------------------------------------------------------

def hole(name, diameter, length, kind, reach, thread=Decimal(0), thread_length=Decimal(0), sink=Decimal(0),
         bore=Decimal(0)):
    return record(name, diameter, thread, length, sink, kind, reach, bore, thread_length)


def trimmed(number):
    """4.50 as 4.5, 15.0 as 15."""
    return f"{number.normalize():f}"


def tapped_holes(sizes):
    for size in sizes:
        for depth in (size.d * 3 / 2, size.d * 2):
            yield hole(f"M{size.d}x{trimmed(depth)}TAP", size.drill, depth + size.runout, TAPPED, BLIND, size.d, depth)
        yield hole(f"M{size.d}TAPTHRU", size.drill, size.d * 2, TAPPED, THROUGH, size.d, size.d * 2)


def holes(tables):
    sizes = tables["screws"].rows
    medium = {size.d: size.medium for size in sizes}
    yield from tapped_holes(sizes)
    for size in sizes:
        for word, diameter in (("CLR", size.medium), ("CLRF", size.fine), ("CLRC", size.coarse)):
            yield hole(f"M{size.d}{word}", diameter, size.d * 2, DRILLED, THROUGH)
    for size in tables["counterbores"].rows:
        yield hole(f"M{size.d}CB", medium[size.d], size.depth + size.d, DRILLED, THROUGH, sink=size.depth, bore=size.bore)
    for size in tables["countersinks"].rows:
        clearance = medium[size.d]
        yield hole(f"M{size.d}CSK", clearance, size.d * 2, DRILLED, THROUGH, sink=(size.sink - clearance) / 2)
    for size in tables["dowels"].rows:
        yield hole(f"{size.d}DOWEL", size.d, size.d * 2, DOWEL, THROUGH)


# ---- Rivets ----------------------------------------------------------------------------------------------------------

def rivets(tables):
    kinds = (("snap", "SNAP", SNAP, Decimal("1.5")), ("countersunk", "CSK", SUNK, Decimal("0.6")))
    for table, word, head, closing in kinds:
        for size in tables[table].rows:
            for length in (size.short, size.middle, size.long):
                joined = length - closing * size.d
                yield record(f"{size.d}x{length}{word}", size.d, size.k, size.dk, head, joined, size.k, size.dk, head)


# ---- Flanges ---------------------------------------------------------------------------------------------------------

RATINGS = {"pn6": "PN6", "pn10": "PN10", "pn16": "PN16", "pn25": "PN25", "pn40": "PN40", "class150": "CL150",
           "class300": "CL300"}


def flanges(tables):
    bores = {size.dn: size.bore for size in tables["bores"].rows}
    for table, rating in RATINGS.items():
        for size in tables[table].rows:
            bore = getattr(size, "bore", None) or bores[size.dn]
            # Corners that hold the bolt hole, where it becomes an oval or a triangular flange.
            yield record(f"DN{size.dn} {rating}", size.D1, bore, 2 * size.H2, size.H2, size.PCD, int(size.n))
    for size in tables["oval"].rows:
        yield record(f"OVAL {size.bore}", size.D1, size.bore, size.corner, size.H2, size.PCD, 2)
    for size in tables["triangular"].rows:
        outside = size.PCD + 3 * size.H2 / 2  # that of a round or oval flange, should it become one
        yield record(f"TRI {size.bore}", outside, size.bore, size.corner, size.H2, size.PCD, 3)


# ---- Gears -----------------------------------------------------------------------------------------------------------

BORE_SHARE = Decimal("0.35")  # of the root circle
ROOT_DEPTH = Decimal("2.5")  # modules, on both sides together


def keyway(bore):
    """Width, and depth from the chord that it leaves of the bore."""
    size = next(row for row in read_tables(DATA / "tables" / "keyways.txt")[""].rows if row.over < bore <= row.to)
    chord = ((bore / 2) ** 2 - (size.b / 2) ** 2).sqrt()
    return size.b, size.t2 + bore / 2 - chord


def gears(tables):
    for module in (size.m for size in tables[""].rows):
        for teeth in tables["teeth"].lengths:
            carried = BORE_SHARE * module * (teeth - ROOT_DEPTH)
            bore = max((bore for bore in tables["bores"].lengths if bore <= carried), default=Decimal(0))
            key = keyway(bore) if bore else (Decimal(0), Decimal(0))
            name, *sizes = record(f"M{module} Z{teeth}", int(teeth), module, bore, *key).split(",")
            # As its dialog stores it: the pressure angle with one decimal, the key with six.
            yield ",".join((name, "20.0", *sizes[:3], *(size + "000" for size in sizes[3:])))


# ---- Links -----------------------------------------------------------------------------------------------------------

def links(tables):
    none = Decimal(0)
    for size in tables["rod"].rows:
        yield record(f"ROD {size.L}", size.D1, size.H1, size.L, size.D2, size.H2, size.T1, size.T2, none, size.F1, size.F2, 0)
    for size in tables["lever"].rows:
        yield record(f"LEVER {size.L}", size.D1, size.H1, size.L, size.D2, size.H2, *[none] * 5, 2)
    for size in tables["bell"].rows:
        yield record(f"BELL {size.L}", size.D1, size.H1, size.L, size.D2, size.H2, none, none, size.R, none, none, 1)


# ---- Shafts ----------------------------------------------------------------------------------------------------------

FILLET, CHAMFER = range(2)


def shaft_ends(size):
    return [(CHAMFER, Decimal(1), size.D, size.L, CHAMFER, Decimal(0))]


def stepped_shaft(size):
    """Symmetrical; fillets lie at the smaller side of a step, chamfers at the larger one of the seats."""
    edge, none = (CHAMFER, Decimal(1)), (CHAMFER, Decimal(0))
    fillet = (FILLET, size.R)
    left = [(*edge, size.D1, size.L1, *fillet), (*edge, size.D2, size.L2, *fillet)]
    right = [(*s[4:], *s[2:4], *s[:2]) for s in reversed(left)]
    return left + [(*none, size.D3, size.L3, *none)] + right


def all_shafts(tables):
    yield "EMPTY SHAFT", []
    for size in tables["motor"].rows:
        yield f"MOTOR {size.D}x{size.L}", shaft_ends(size)
    for size in tables["stepped"].rows:
        yield f"STEPPED {size.D1}-{size.D2}-{size.D3}", stepped_shaft(size)


def shafts(tables):
    return (name for name, sections in all_shafts(tables))


def shaft_sections(tables):
    for name, sections in all_shafts(tables):
        if sections:
            lines = (record(f"Sec{n}=", *section).replace("=,", "=") for n, section in enumerate(sections, 1))
            yield "\n".join((f"[{name}]", *lines))


# ---- The file --------------------------------------------------------------------------------------------------------

# Place in the frame, key of a record, table, maker.
SECTIONS = (
    ("@bolts@", "Bolt", "hex_bolts.txt", bolts),
    ("@screws@", "Bolt", "socket_screws.txt", screws),
    ("@nuts@", "Nut", "nuts.txt", nuts),
    ("@holes@", "Hole", "holes.txt", holes),
    ("@rivets@", "Bolt", "rivets.txt", rivets),
    ("@shafts@", "Bolt", "shafts.txt", shafts),
    ("@gears@", "Bolt", "gears.txt", gears),
    ("@links@", "Bolt", "links.txt", links),
    ("@flanges@", "Flange", "flanges.txt", flanges),
)


def catalogue():
    """The whole file as bytes, with the line ends that Windows editors expect."""
    text = (DATA / "tables" / "mechspecs_frame.txt").read_text(encoding="ascii")
    for place, key, table, maker in SECTIONS:
        records = maker(read_tables(DATA / "tables" / table))
        text = text.replace(place, "\n".join(f"{key}{n}={line}" for n, line in enumerate(records, 1)))
    sections = shaft_sections(read_tables(DATA / "tables" / "shafts.txt"))
    text = text.replace("@shaft_sections@", "\n\n".join(sections))
    return text.replace("\n", "\r\n").encode("cp1252")


def main():
    content = catalogue()
    if "--check" in sys.argv[1:]:
        if not CATALOGUE.exists() or CATALOGUE.read_bytes() != content:
            sys.exit(f"{CATALOGUE}: differs from its tables; run {Path(__file__).name} and commit the result")
        return
    CATALOGUE.write_bytes(content)
    print(f"{CATALOGUE}: {len(content)} bytes")


if __name__ == "__main__":
    main()

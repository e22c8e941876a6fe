#!/usr/bin/python3
"""Makes "ISO Mechspecs.ini" from the tables beside it; with --check only compares.

The file is committed so that a copy of the data folder works without running anything.
"""
import sys
from decimal import ROUND_HALF_UP, Decimal
from pathlib import Path
from typing import NamedTuple

DATA = Path(__file__).resolve().parent
CATALOGUE = DATA / "ISO Mechspecs.ini"

# The root lies 17/24 of the basic triangle's height below the crest, on both sides, and that height is
# cos 30 degrees of the pitch.
MINOR_DIAMETER_DEPTH = Decimal("1.22687")


class Size(NamedTuple):
    """One row of the table of hexagon bolts."""
    diameter: Decimal
    pitch: Decimal
    across_flats: Decimal
    head_height: Decimal
    shortest_full: Decimal
    shortest: Decimal
    longest: Decimal


class Bolt(NamedTuple):
    size: Size
    length: Decimal
    full_thread: bool

    def name(self):
        return f"M{self.size.diameter}x{self.length}" + ("F" if self.full_thread else "")

    def thread_length(self):
        """The reference length of thread of ISO 4014; ISO 4017 is threaded up to the head."""
        if self.full_thread:
            return self.length
        allowance = 6 if self.length <= 125 else 12 if self.length <= 200 else 25
        return 2 * self.size.diameter + allowance

    def record(self):
        minor_diameter = self.size.diameter - MINOR_DIAMETER_DEPTH * self.size.pitch
        fields = (self.size.across_flats, self.size.head_height, self.size.diameter, self.length,
                  self.thread_length(), minor_diameter)
        rounded = (field.quantize(Decimal("0.001"), ROUND_HALF_UP) for field in fields)
        return ",".join((self.name(), *map(str, rounded)))


def read_table(path):
    """The sizes and the series of lengths; a row that does not fit its head is an error."""
    sizes, lengths = [], []
    for number, line in enumerate(path.read_text(encoding="ascii").splitlines(), 1):
        words = line.partition("#")[0].split()
        if not words:
            continue
        if words[0] == "lengths":
            lengths = [Decimal(word) for word in words[1:]]
        elif len(words) == len(Size._fields):
            sizes.append(Size(*map(Decimal, words)))
        else:
            sys.exit(f"{path}:{number}: a size takes {len(Size._fields)} figures, got {len(words)}")
    return sizes, lengths


def bolts(sizes, lengths):
    for size in sizes:
        for length in lengths:
            if size.shortest_full <= length <= size.longest:
                yield Bolt(size, length, full_thread=length < size.shortest)


def catalogue():
    """The whole file as bytes, with the line ends that Windows editors expect."""
    sizes, lengths = read_table(DATA / "tables" / "hex_bolts.txt")
    records = [f"Bolt{n}={bolt.record()}" for n, bolt in enumerate(bolts(sizes, lengths), 1)]
    frame = (DATA / "tables" / "mechspecs_frame.txt").read_text(encoding="ascii")
    return frame.replace("@bolts@", "\n".join(records)).replace("\n", "\r\n").encode("cp1252")


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

"""From the start of the batch tool to its first drawing on disk, against an empty Qt program.

    startup_against_qt.py BATCH EMPTY_QT

The drawing is one bolt through its dialog, written as DXF. Prints the medians of alternating runs.
"""

import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

RUNS = 41
SCRIPT = """setting "MechanicalTools" "SpecFile" "ISO Mechspecs.ini"
run MechDrawBolts
dialog "Mechanical Ardenix - Hex Bolts"
  press "OK"
point 0 0
menu "No Rotation"
space
export "bolt.dxf"
"""


def milliseconds(command):
    start = time.perf_counter()
    subprocess.run(command, check=True, capture_output=True, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})
    return (time.perf_counter() - start) * 1000


def main():
    batch, empty = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    ours, bound = [], []
    with tempfile.TemporaryDirectory() as name:
        script = pathlib.Path(name) / "bolt.scr"
        script.write_text(SCRIPT, encoding="utf-8")
        for _ in range(RUNS):
            ours.append(milliseconds([batch, "run", script, "-o", name]))
            bound.append(milliseconds([empty]))
    ours, bound = statistics.median(ours), statistics.median(bound)
    print(f"first drawing {ours:.1f} ms, empty Qt program {bound:.1f} ms, difference {ours - bound:+.1f} ms")


if __name__ == "__main__":
    main()

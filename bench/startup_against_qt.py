"""From the start of the batch tool to its first drawing on disk, against an empty Qt program.

    startup_against_qt.py BATCH EMPTY_QT [--quick]

The drawing is one bolt through its dialog, written as DXF. Tells the medians of alternating runs.
"""

import os
import pathlib
import statistics
import tempfile

import rows

SCRIPT = """setting "MechanicalTools" "SpecFile" "ISO Mechspecs.ini"
run MechDrawBolts
dialog "Mechanical Ardenix - Hex Bolts"
  press "OK"
point 0 0
menu "No Rotation"
space
export "bolt.dxf"
"""


def main():
    (batch, empty), quick = rows.arguments()
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
    ours, bound = [], []
    with tempfile.TemporaryDirectory() as name:
        script = pathlib.Path(name) / "bolt.scr"
        script.write_text(SCRIPT, encoding="utf-8")
        for _ in range(11 if quick else 61):
            ours.append(rows.seconds([batch, "run", script, "-o", name], env=environment))
            bound.append(rows.seconds([empty], env=environment))
    rows.show([rows.row("firstDrawing", 1, statistics.median(ours), empty_Qt_program=statistics.median(bound))])


if __name__ == "__main__":
    main()

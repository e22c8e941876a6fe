"""A list of sections loaded, its quotas made to total 100.0000 and saved, against Python's csv and decimal.

    quotas_against_python.py BATCH [--quick]

Our side is the whole program: start, script, dialog, files. The peer's side is its reading, arithmetic and writing alone.
"""

import csv
import decimal
import pathlib
import random
import tempfile
import time

import rows

SCRIPT = '''setting "SG_DEFAULTS" "SG_SectionalFile" "Sectional Plan.ini"
parameter coordinateSystem 0
run SG_SectionEditor
dialog "*"
  press "OK"
run SG_SectionMgr
dialog "Section Manager"
  press "Load"
  file "sections.csv"
  press "Adjust PQ's"
  press "Largest remainder"
  press "Save"
  file "saved.csv"
  press "OK"
'''


def by_python(folder):
    """Rounded to four decimals; what is left goes to those that rounding cut or raised most."""
    with open(folder / "sections.csv", newline="", encoding="ascii") as file:
        lines = [row for row in csv.reader(file) if len(row) == 5]
    areas = [decimal.Decimal(row[3]) for row in lines]
    total = sum(areas)
    unit = decimal.Decimal("0.0001")
    exact = [area / total * 100 for area in areas]
    quotas = [share.quantize(unit) for share in exact]
    left = 100 - sum(quotas)
    step = unit.copy_sign(left)
    by_need = sorted(range(len(lines)), key=lambda n: (exact[n] - quotas[n]) * step, reverse=True)
    for n in by_need[:int(abs(left) / unit)]:
        quotas[n] += step
    with open(folder / "peer.csv", "w", newline="", encoding="ascii") as file:
        csv.writer(file).writerows([*row[:4], quota] for row, quota in zip(lines, quotas))


def measured(batch, sections):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        chance = random.Random(sections)
        areas = [chance.randrange(20, 400) for _ in range(sections // 2)]
        lines = (f"{n},{n % 9},,{area},0\n" for n, area in enumerate(areas + areas, 1))  # no area is unique
        (folder / "sections.csv").write_text("".join(lines), encoding="ascii")
        (folder / "x.scr").write_text(SCRIPT, encoding="ascii")
        ours = min(rows.seconds([batch, "run", "x.scr", "-o", f"out{n}"], cwd=folder) for n in range(3))
        start = time.perf_counter()
        by_python(folder)
        return rows.row("quotas", sections, ours, csv_and_decimal=time.perf_counter() - start)


(batch_tool,), is_quick = rows.arguments()
rows.show([measured(pathlib.Path(batch_tool).resolve(), n) for n in ((1000,) if is_quick else (10_000, 50_000, 100_000))])

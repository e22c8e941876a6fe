#!/usr/bin/python3
"""Tells from gcovr's JSON what of each folder ran, and which functions and lines nothing reached.

    coverage_report.py FILE [FOLDER...]     lists what is missed in these folders alone
"""

import collections
import json
import pathlib
import re
import sys


def ranges(lines):
    """"12", "14-16", ... for a rising list of numbers."""
    runs = []
    for line in lines:
        if runs and line == runs[-1][1] + 1:
            runs[-1][1] = line
        else:
            runs.append([line, line])
    return [str(first) if first == last else f"{first}-{last}" for first, last in runs]


def unreached(functions):
    """Line and name of those that never ran: without lambdas, and templates as one."""
    counts = collections.Counter()
    for function in functions:
        name = re.sub(r"\(anonymous namespace\)::", "", function["name"])
        if "{lambda" in name or name.endswith("::tr(char const*, char const*, int)"):
            continue
        while "<" in name:
            shorter = re.sub(r"<[^<>]*>", "", name)
            if shorter == name:
                break
            name = shorter
        counts[function["lineno"], name.split("(")[0].split(" ")[-1]] += function["execution_count"]
    return sorted(key for key, count in counts.items() if count == 0)


def share(part, whole):
    return f"{100 * part / whole:5.1f} %" if whole else "    - %"


def main():
    files = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))["files"]
    wanted = [folder.rstrip("/") for folder in sys.argv[2:]]
    folders = collections.defaultdict(collections.Counter)
    missed = []
    for file in files:
        folder = str(pathlib.PurePath(file["file"]).parent)
        lines = [line for line in file["lines"] if not line.get("gcovr/noncode")]
        branches = [branch["count"] > 0 for line in lines for branch in line["branches"]]
        folders[folder].update(lines=len(lines), ran=sum(line["count"] > 0 for line in lines), branches=len(branches),
                               taken=sum(branches))
        functions = unreached(file.get("functions", []))
        never = [line["line_number"] for line in lines if line["count"] == 0]
        if (never or functions) and (not wanted or folder in wanted):
            missed.append((file["file"], never, functions))
    print("folder                lines      ran   branches    taken")
    total = collections.Counter()
    for folder, counts in sorted(folders.items()):
        total.update(counts)
        print(f"{folder:18} {counts['lines']:8} {share(counts['ran'], counts['lines'])} {counts['branches']:10} "
              f"{share(counts['taken'], counts['branches'])}")
    print(f"{'all':18} {total['lines']:8} {share(total['ran'], total['lines'])} {total['branches']:10} "
          f"{share(total['taken'], total['branches'])}")
    for name, never, functions in missed:
        print(f"\n{name}: {len(never)} lines: {', '.join(ranges(never))}")
        for line, function in functions:
            print(f"  {line} {function}")


if __name__ == "__main__":
    main()

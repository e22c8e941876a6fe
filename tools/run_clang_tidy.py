#!/usr/bin/python3
"""Runs clang-tidy over the tracked sources of a build, and only over what changed since it last passed.

  run_clang_tidy.py BUILD_DIR [--no-cache]

The build compiles file by file, as the dev preset does. It need not be built; what it has not compiled is
examined each time.

A file is known by the hash of what its verdict depends on: its bytes, the project's headers that the build
saw it include, its compile command, the checks and clang-tidy itself. Files that passed leave a mark under
BUILD_DIR/tidy; a mark is nothing but that hash, so a change anywhere makes a new one.
"""
import argparse
import hashlib
import json
import os
import re
import shlex
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from typing import NamedTuple

ROOT = Path(__file__).resolve().parents[1]

# What g++ knows and clang does not.
GCC_ONLY = re.compile(r"-f(no-)?(sanitize|stack-clash)\S*|-Wno-maybe-uninitialized|-fconcepts\S*|-fno-gnu-unique|-Winvalid-pch")


class Unit(NamedTuple):
    source: Path
    object: str
    command: str
    directory: str


# So many sources are read at once; more would wait for the slowest.
BATCH_SIZE = 8

# What is shipped is linted; tests and benchmarks have the compiler's warnings, the sanitizers and the
# formatter, and linting them would double the time of the whole check.
UNLINTED = ("tests/", "bench/", "fuzz/")


def tracked_sources():
    listed = subprocess.run(["git", "-C", ROOT, "ls-files", "-z", "*.cpp"], capture_output=True, text=True, check=True)
    return {ROOT / name for name in listed.stdout.split("\0") if name and not name.startswith(UNLINTED)}


def units_of(build):
    """One unit a tracked source; a source compiled for several targets counts once."""
    tracked = tracked_sources()
    units = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        source = Path(entry["directory"], entry["file"]).resolve()
        if source in tracked:
            units.setdefault(source, Unit(source, entry.get("output", ""), entry["command"], entry["directory"]))
    return [units[source] for source in sorted(units)]


def headers_by_object(build):
    """The project's headers that each object was last compiled with, as ninja noted them."""
    listed = subprocess.run(["ninja", "-C", build, "-t", "deps"], capture_output=True, text=True, check=True)
    headers, current = {}, []
    for line in listed.stdout.splitlines():
        if line and not line.startswith(" "):
            current = headers.setdefault(line.partition(":")[0], [])
        elif line.strip():
            path = Path(os.path.normpath(build / line.strip()))
            if path.is_relative_to(ROOT) and path.suffix == ".h":
                current.append(path)
    return headers


def object_of(unit):
    words = shlex.split(unit.command)
    return unit.object or words[words.index("-o") + 1]


def fingerprint(unit, headers, common):
    """None where the build has not compiled the unit, so that nothing is known of its headers."""
    known = headers.get(object_of(unit))
    if known is None:
        return None
    digest = hashlib.sha256(common)
    digest.update(unit.command.encode())
    for path in sorted({unit.source, *known}):
        digest.update(path.as_posix().encode() + b"\0" + (path.read_bytes() if path.exists() else b"") + b"\0")
    return digest.hexdigest()


def arguments_of(unit):
    """The compile command without compiler, input, output and precompiled header, and without what only g++ takes."""
    words = shlex.split(unit.command)[1:]
    while "-include" in words:
        at = words.index("-include")
        del words[at:at + 2]
    for flag in ("-o", "-c"):
        at = words.index(flag)
        del words[at:at + 2]
    return [word for word in words if not GCC_ONLY.fullmatch(word)]


class Batch(NamedTuple):
    """Sources of one folder and command, read together: most of the time goes into headers that they share."""
    units: tuple
    text: Path  # includes them one after another


def batches_of(units, folder):
    alike = {}
    for unit in units:
        alike.setdefault((unit.source.parent, tuple(arguments_of(unit)), unit.directory), []).append(unit)
    batches = []
    for several in alike.values():
        for at in range(0, len(several), BATCH_SIZE):
            chosen = several[at:at + BATCH_SIZE]
            batches.append(Batch(tuple(chosen), folder / f"batch_{len(batches)}.cpp"))
    return sorted(batches, key=lambda batch: -len(batch.units))


def run_tidy(source, unit):
    done = subprocess.run(["clang-tidy", "--quiet", source, "--", *arguments_of(unit)],
                          cwd=unit.directory, capture_output=True, text=True, stdin=subprocess.DEVNULL)
    return done.stdout.strip() or (done.stderr.strip() if done.returncode else "")


def goes_together(batch):
    """Whether the sources compile as one: names that each keeps to itself may clash."""
    batch.text.write_text("".join(f'#include "{unit.source}"\n' for unit in batch.units))
    unit = batch.units[0]
    done = subprocess.run(["clang++", "-fsyntax-only", "-w", *arguments_of(unit), batch.text],
                          cwd=unit.directory, capture_output=True, stdin=subprocess.DEVNULL)
    return done.returncode == 0


def examine(batch):
    """The complaints of clang-tidy about a batch by source, "" where there are none, and the seconds taken."""
    began = time.monotonic()
    first = batch.units[0]
    if len(batch.units) == 1:
        return {first: run_tidy(first.source, first)}, time.monotonic() - began
    if goes_together(batch) and not run_tidy(batch.text, first):
        return {unit: "" for unit in batch.units}, time.monotonic() - began
    half = len(batch.units) // 2
    complaints = {}
    for part, name in ((batch.units[:half], "a"), (batch.units[half:], "b")):
        complaints |= examine(Batch(part, batch.text.with_stem(batch.text.stem + name)))[0]
    return complaints, time.monotonic() - began


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=Path)
    parser.add_argument("--no-cache", action="store_true", help="examine every file")
    options = parser.parse_args()
    build = options.build.resolve()
    marks = build / "tidy"
    marks.mkdir(exist_ok=True)

    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
    common = version + (ROOT / ".clang-tidy").read_bytes() + Path(__file__).read_bytes()
    headers = headers_by_object(build)
    units = units_of(build)
    if not units:
        sys.exit(f"clang-tidy: {build}/compile_commands.json names no tracked source")
    prints = {unit: fingerprint(unit, headers, common) for unit in units}
    passed = [] if options.no_cache else [unit for unit in units if prints[unit] and (marks / prints[unit]).exists()]
    changed = [unit for unit in units if unit not in set(passed)]

    failures, slowest = 0, (0.0, None)
    batches = batches_of(changed, marks)
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for batch, (found, seconds) in zip(batches, pool.map(examine, batches)):
            slowest = max(slowest, (seconds, str(batch.units[0].source.relative_to(ROOT))))
            for unit, complaints in found.items():
                if complaints:
                    failures += 1
                    print(complaints, flush=True)
                elif prints[unit]:
                    (marks / prints[unit]).touch()
    print(f"clang-tidy: {len(changed)} files examined, {len(passed)} unchanged, {failures} with complaints"
          + (f"; slowest {slowest[0]:.1f} s {slowest[1]}" if slowest[1] else ""))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())

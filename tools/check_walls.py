#!/usr/bin/python3
"""Checks the walls between the folders: what a file includes, and what the module asks of its host.

  check_walls.py [--root DIR] [--module libardenix.so]

A folder may include itself and what stands below it, never what stands beside or above, except where the
table below puts folders into one room. Prints a line a violation and ends with 1 when there is one.
"""
import argparse
import re
import subprocess
import sys
from pathlib import Path
from typing import NamedTuple


class Room(NamedTuple):
    """Folders of one library at one level; those of a shared room may include each other."""
    folders: tuple
    may_use: tuple  # rooms below, each by one folder; what those may use is not passed on
    libraries: tuple  # names in LIBRARIES that may be included besides the standard library
    shared: bool = True


STANDARD_ONLY = ()
SYSTEM = ("posix",)
HOST_BELOW_WINDOW = ("host/drawing", "host/core", "host/files/dxf/write")
HOST = HOST_BELOW_WINDOW + ("host/window", "host/tools", "host/scripts")

ROOMS = (
    # The seam, and the module above it. The module knows its host through the seam alone.
    Room(("frame/host",), (), STANDARD_ONLY),
    Room(("frame",), ("frame/host",), SYSTEM),  # its platform layer binds the help viewer at run time
    Room(("frame/drafting",), ("frame", "frame/host"), STANDARD_ONLY),
    Room(("mech", "arch"), ("frame/drafting", "frame", "frame/host"), STANDARD_ONLY, shared=False),
    Room(("survey", "survey/sheet"), ("frame/drafting", "frame", "frame/host"), STANDARD_ONLY),
    Room(("survey/plan", "survey/sectional"), ("survey", "frame/drafting", "frame", "frame/host"), STANDARD_ONLY,
         shared=False),
    Room(("frame/entry",), ("mech", "survey", "survey/plan", "frame", "frame/host"), STANDARD_ONLY),
    # The host. It knows the seam that it implements and no command.
    Room(("host/drawing", "host/geometry"), ("frame/host",), ("boost",)),
    Room(("host/files/dxf",), ("frame/host", "host/drawing", "host/core"), STANDARD_ONLY),
    Room(("host/files/dxf/read", "host/files/dxf/write"), ("frame/host", "host/drawing", "host/core", "host/files/dxf"),
         SYSTEM, shared=False),  # the scanner looks at sixteen bytes at a time
    Room(("host/files", "host/core"), ("frame/host", "host/drawing", "host/files/dxf/read", "host/files/dxf/write"), SYSTEM + ("sqlite",)),
    Room(("host/window", "host/macros"), ("frame/host",) + HOST_BELOW_WINDOW, SYSTEM),
    Room(("host/tools",), ("frame/host", "host/window") + HOST_BELOW_WINDOW, STANDARD_ONLY),
    Room(("host/scripts",), ("frame/host", "host/window", "host/tools") + HOST_BELOW_WINDOW, SYSTEM),
    Room(("render",), ("frame/host",) + HOST, SYSTEM + ("qt",)),
    Room(("batch",), ("frame/host", "render") + HOST, SYSTEM + ("qt", "cli11")),
    Room(("desktop",), ("frame/host", "render") + HOST, SYSTEM + ("qt",)),
)

# Folders of checks may look at everything; data holds none of ours.
FREE_FOLDERS = ("tests", "bench", "fuzz")

# Include patterns of libraries from outside; a header that matches none belongs to the standard library
# when it has neither a slash nor a dot, and to the system otherwise.
LIBRARIES = {
    "boost": re.compile(r"boost/"),
    "sqlite": re.compile(r"sqlite3\.h$"),
    "qt": re.compile(r"(Qt\w*/)?Q[A-Za-z]\w*$|qt?\w+\.h$|Qt\w*/"),
    "cli11": re.compile(r"CLI/"),
    "posix": re.compile(r".*[./]"),
}

# The R-tree costs seconds of compile time wherever its headers come in.
ONE_FILE_LIBRARY = "boost"

INCLUDE = re.compile(r'^\s*#\s*(?:include|include_next|import)\s*([<"])([^>"]+)[>"]')
STANDARD_SYMBOL = re.compile(r"@@?(GLIBC|GLIBCXX|CXXABI|GCC|LIBC)_|^(__gmon_start__|_ITM_\w+|__cxa_finalize|_DYNAMIC)$")
EXPORTED_CLASS = re.compile(r"\b(?:class|struct)\s+BREVAN_API\s+(\w+)")
EXPORTED_FUNCTION = re.compile(r"^\s*BREVAN_API\s+[^;(]*?\b(\w+)\s*\(", re.MULTILINE)


def top_folder(file):
    """The folder of the table in which a file lies, directly or deeper, or None."""
    known = {folder for room in ROOMS for folder in room.folders}
    return next((parent.as_posix() for parent in file.parents if parent.as_posix() in known), None)


def room_of(folder):
    return next((room for room in ROOMS if folder in room.folders), None)


def library_of(header):
    return next((name for name, pattern in LIBRARIES.items() if pattern.match(header)), None)


def source_files(root):
    """Tracked files and new ones that git does not ignore; every file where there is no repository."""
    listed = subprocess.run(["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            capture_output=True, text=True)
    names = listed.stdout.split("\0") if listed.returncode == 0 else map(str, root.rglob("*"))
    paths = (root / name for name in names)
    return sorted(path.relative_to(root) for path in paths if path.suffix in (".h", ".cpp") and path.is_file())


def refusal_of_own(room, folder, target):
    """Why a file of the folder may not include the project's file, or None."""
    other = top_folder(target)
    below = room_of(other)
    if below is None:
        return f"{target.parent.as_posix()}/ has no place in the table of levels"
    if other == folder or (below is room and room.shared):
        return None
    if below is room:
        return f"{folder}/ and {other}/ stand side by side and know nothing of each other"
    if not any(used in below.folders for used in room.may_use):
        return f"{folder}/ may use {', '.join(room.may_use) or 'the standard library only'}"
    return None


def refusal_of_library(room, folder, header):
    library = library_of(header)
    if library is None or library in room.libraries:
        return None
    return f"{folder}/ may use the standard library{''.join(', ' + name for name in room.libraries)} only"


def includes_of(path):
    for number, line in enumerate(path.read_text(encoding="utf-8", errors="replace").splitlines(), 1):
        if found := INCLUDE.match(line):
            yield number, found[1] == '"', found[2]


def refusal(root, room, folder, quoted, header):
    if not quoted:
        return refusal_of_library(room, folder, header)
    if not (root / header).is_file():
        return "no such file; own headers are included by their path from the project's root"
    return refusal_of_own(room, folder, Path(header))


def check_includes(root):
    """A line for every include across a wall."""
    violations, one_file = [], []
    for source in source_files(root):
        if source.parts[0] in FREE_FOLDERS:
            continue
        folder = top_folder(source)
        room = room_of(folder)
        if room is None:
            violations.append(f"{source}:1: {source.parent.as_posix()}/ has no place in the table of levels")
            continue
        includes = list(includes_of(root / source))
        for number, quoted, header in includes:
            if reason := refusal(root, room, folder, quoted, header):
                violations.append(f'{source}:{number}: includes "{header}": {reason}')
        if any(not quoted and library_of(header) == ONE_FILE_LIBRARY for _, quoted, header in includes):
            one_file.append(str(source))
    if len(one_file) > 1:
        violations.append(f"{', '.join(one_file)}: {ONE_FILE_LIBRARY} belongs into one file")
    return violations


def seam_names(root):
    """Classes and functions that the host offers the module, as the headers of the seam mark them."""
    text = "\n".join(path.read_text(encoding="utf-8") for path in sorted((root / "frame/host").glob("*.h")))
    return set(EXPORTED_CLASS.findall(text)), set(EXPORTED_FUNCTION.findall(text))


def symbol_belongs_to_seam(symbol, classes, functions):
    name = re.sub(r"^(typeinfo|vtable|typeinfo name|VTT) for ", "", symbol)
    unqualified = re.split(r"[(\[]", name)[0].split("::")
    if len(unqualified) == 1 and unqualified[0] in functions:
        return True
    return any(part in classes for part in unqualified[:2])


def check_module(root, module):
    """A line for every symbol that the module expects from anywhere but the seam and the standard library."""
    listed = subprocess.run(["nm", "-DC", "--undefined-only", module], capture_output=True, text=True)
    if listed.returncode != 0:
        return [f"{module}: its symbols cannot be read: {listed.stderr.strip()}"]
    classes, functions = seam_names(root)
    symbols = (line.split(maxsplit=1)[1] for line in listed.stdout.splitlines() if line.strip())
    return [f"{module}: asks for {symbol}, which frame/host does not offer" for symbol in symbols
            if not STANDARD_SYMBOL.search(symbol) and not symbol_belongs_to_seam(symbol, classes, functions)]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--root", type=Path, default=Path(__file__).resolve().parents[1])
    parser.add_argument("--module", type=Path, help="also check the undefined symbols of the built module")
    options = parser.parse_args()
    violations = check_includes(options.root)
    if options.module:
        violations += check_module(options.root, options.module)
    print("\n".join(violations) or "walls: nothing crosses one")
    return 1 if violations else 0


if __name__ == "__main__":
    sys.exit(main())

"""The words that readers know, as dictionaries for libFuzzer, taken from the tables in the code that define them."""

import re
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

# Where a target's words stand: files, and an expression whose group is a word.
TABLES = {
    "macro": [("host/macros/command_table.cpp", r'^ +\{"([A-Z]+)"'), ("host/macros/command_table.cpp", r"key:(\w+)")],
    "script": [("host/scripts/script_player.cpp", r'^ +\{"(\w+)", \d'), ("host/window/dialog_operations.cpp", r'^ +\{Verb::\w+, "(\w+)",'),
               ("host/scripts/plain_primitives.cpp", r'\{"(\w+)", \d'), ("host/macros/command_table.cpp", r'^ +\{"([A-Z]+)"'),
               ("host/tools/drawing_tools.cpp", r'^ +\{"(\w+)"'), ("tests/host/window/every_control.h", r'caption = "&?([^"]+)"')],
    "dxf": [("host/files/dxf/read/entity_reader.cpp", r'^ +\{"(\w+)", &Reader'), ("host/files/dxf/read/reader.cpp", r'"(\$?[A-Z]+)"'),
            ("host/files/dxf/own_notes.cpp", r'"(BREVAN \w+)"'), ("host/files/dxf/write/tables.cpp", r'"([$*A-Za-z]+)"')],
    "symbol": [("host/files/symbol_text.cpp", r'\{"(\w+)", \d'), ("host/files/symbol_text.cpp", r'!= "(\w+)"')],
    "survey": [("survey/control_listings.cpp", r'"([^"\\./]+)"'), ("survey/text_row.cpp", r'"(_\w+_)"')],
    "ini": [],
    "quote": [("survey/text_row.cpp", r'"(_\w+_)"')],
    "path": [("host/core/path_names.cpp", r'"(con|nul|aux|com|lpt)"')],
    "record": [],
    "store": [("mech/definition_kinds.cpp", r'\.section = "([^"]+)"'), ("mech/definition_kinds.cpp", r'\.keyPrefix = "([^"]+)"'),
              ("arch/spec_store.h", r'= "([A-Z_]+)"'), ("arch/spec_store.cpp", r'\{k\w+, "(\w+)"')],
}
# What no table holds: marks and numbers at the ends of ranges.
NUMBERS = ["0", "1", "-1", "1e308", "1e400", "5e-324", "nan", "inf", "1,5", "2147483648", "4294967297", "0.001"]
MARKS = {
    "macro": ['"Y"', '"N"', "[0,0]", "[@1,1]", "[#]", "#", '""', "!"],
    "script": ['"', '\\"', "#", "point 0 0", "space", "escape", "accept"],
    "dxf": ["0\n", "999\n", "%%d", "%%u", "\\U+20AC", "\\P", "^J", "{\\f", "AC1015", "AC1024", "*Model_Space", "1071"],
    "symbol": ["\n", " 0 0 1 1", "#"],
    "survey": ["   RSA   ", ",", "  "],
    "ini": ["[", "]", "=", ";", "\r\n", "\r", "\xef\xbb\xbf", "[Section]"],
    "quote": ['"', '""', "\\", "%%", "%%u", "%%%", "\\U+0041", "^J", "{%}", "\\P", "\\N", "\r\n", "#", "%%176", "../", "CON"],
    "path": ["../", "..", "./", "/", "\\", "C:", "leads_out", "secret.ini", "plan.ini", "Sub", "stays", "loop", "\0", "\n", "kept.ini"],
    "record": [",", ",,"],
    "store": ["[", "]\n", "=", "1=", "2=", "TRIG", "TSM", "TRIGTSM", ",1,2"],
}


def words(target):
    found = set(MARKS.get(target, []))
    for file, expression in TABLES.get(target, []):
        rows = re.findall(expression, (ROOT / file).read_text(encoding="utf-8"), re.MULTILINE)
        if not rows:
            raise SystemExit(f"{file} has no word of {target} any more: {expression}")
        found.update(rows)
    return sorted(found) + (NUMBERS if found else [])


def write(target, folder):
    """The target's dictionary; None for a target whose input is no text."""
    if not words(target):
        return None
    folder.mkdir(parents=True, exist_ok=True)
    path = folder / f"{target}.dict"
    path.write_text("".join(f'"{escaped(word)}"\n' for word in words(target)), encoding="ascii")
    return path


def escaped(word):
    return "".join(c if " " <= c <= "~" and c not in '"\\' else f"\\x{ord(c):02X}" for c in word)

"""Locales that write 1.5 as 1,5 and the small I as another letter, made for the tests alone."""

import functools
import shutil
import subprocess
import tempfile

from fault_program import SECONDS, amount

LOCALES = ("de_DE", "tr_TR", "af_ZA")[:amount(3, 2)]
COMPILED = tempfile.TemporaryDirectory(prefix="brevan-locales-")


@functools.cache
def reason_to_skip():
    if shutil.which("localedef") is None:
        return "localedef is not installed"
    for name in LOCALES:
        # It warns of what other systems lack, and ends with 1 for that.
        subprocess.run(["localedef", "-c", "-i", name, "-f", "UTF-8", f"{COMPILED.name}/{name}.UTF-8"], capture_output=True,
                       check=False, timeout=SECONDS)
        shown = subprocess.run(["locale", "decimal_point"], capture_output=True, check=False, env=environment_of(name), timeout=SECONDS)
        # Some versions of the system give South Africa a full stop.
        if shown.stderr or (shown.stdout.strip() != b"," and name != "af_ZA"):
            return f"the locale {name} cannot be made here (package locales)"
    return ""


def environment_of(name):
    return {"LC_ALL": f"{name}.UTF-8", "LANG": f"{name}.UTF-8", "LOCPATH": COMPILED.name, "PATH": "/usr/bin:/bin"}

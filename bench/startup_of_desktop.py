"""From the start of the desktop until its window is there, and until it has done what was typed into it.

    startup_of_desktop.py DESKTOP [--quick]

Runs it under Xvfb with settings of its own, alternating with a run that only tells its version, which is what loading
the program and its toolkit takes. The first start, which also copies the libraries to their own place, is left out.
What is typed draws a line, and is done once the file kept for recovery is there. Both end with what this script
itself needs to look (xdotool, some 10 ms), the second also with its fourteen keystrokes, 12 ms each.
"""

import os
import pathlib
import shutil
import statistics
import subprocess
import tempfile
import time

import rows

LIMIT = 20.0


def until(what, probe):
    end = time.perf_counter() + LIMIT
    while not (answer := probe()):
        if time.perf_counter() > end:
            raise SystemExit(f"waited {LIMIT} s for {what}")
    return answer


def start(desktop, environment):
    """Seconds until the window is there, and until it has done what was typed."""
    def xdotool(*words):
        return subprocess.run(["xdotool", *words], env=environment, text=True, capture_output=True, check=False,
                              timeout=LIMIT).stdout.split()

    kept = pathlib.Path(environment["XDG_CONFIG_HOME"]) / "brevan" / "recovery"
    began = time.perf_counter()
    program = subprocess.Popen([desktop], env=environment, stderr=subprocess.DEVNULL)
    try:
        window = until("the window", lambda: xdotool("search", "--onlyvisible", "--name", "Drawing1 - Brevan"))[0]
        shown = time.perf_counter() - began
        xdotool("windowfocus", window, "key", *"line", "Return", "0", "comma", "0", "Return", "9", "comma", "9",
                "Return", "Escape")
        until("the typed commands", lambda: list(kept.glob("*.drg")))
        return shown, time.perf_counter() - began
    finally:
        program.kill()
        program.wait()
        for file in kept.glob("*"):
            file.unlink()


def main():
    (desktop,), quick = rows.arguments()
    for tool in ("Xvfb", "xdotool"):
        if shutil.which(tool) is None:
            rows.lacking(tool)
    readable, writable = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(writable), "-screen", "0", "1400x900x24", "-noreset"],
                              pass_fds=[writable], stderr=subprocess.DEVNULL)
    os.close(writable)
    with open(readable, encoding="ascii") as answer, tempfile.TemporaryDirectory() as home:
        environment = {**os.environ, "DISPLAY": ":" + answer.readline().strip(), "QT_QPA_PLATFORM": "xcb",
                       "XDG_CONFIG_HOME": home + "/config", "XDG_DATA_HOME": home + "/data",
                       "XDG_RUNTIME_DIR": home}
        try:
            start(desktop, environment)
            runs, loading = [], []
            for _ in range(3 if quick else 15):
                runs.append(start(desktop, environment))
                loading.append(rows.seconds([desktop, "--version"], env=environment))
        finally:
            server.terminate()
            server.wait()
    bound = statistics.median(loading)
    rows.show([rows.row(what, 1, statistics.median(times), loading_alone=bound)
               for what, times in zip(("window", "lineDrawn"), zip(*runs))])


if __name__ == "__main__":
    main()

"""The rows of Python benchmarks, in the form of the C++ ones."""

import importlib
import json
import os
import subprocess
import sys
import time


def arguments():
    """The programs given, and whether only the smallest size is wanted."""
    words = [word for word in sys.argv[1:] if word != "--quick"]
    return words, len(words) + 1 < len(sys.argv)


def row(name, size, ours, **peers):
    return {"name": f"{name}/{size}", "size": size, "ours": ours,
            **{"peer " + peer.replace("_", " "): seconds for peer, seconds in peers.items()}}


def show(rows):
    print(json.dumps({"benchmarks": rows}))


def needed(name):
    """A module of a peer; ends the benchmark, saying so, where it is not installed."""
    try:
        return importlib.import_module(name)
    except ImportError:
        lacking(name)


def lacking(what):
    print(json.dumps({"missing": what}))
    raise SystemExit(0)


def taken(command):
    """Seconds of a program from start to end, and its memory at the most, in megabytes."""
    start = time.perf_counter()
    program = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    said = program.stderr.read()
    _, status, used = os.wait4(program.pid, 0)
    program.returncode = os.waitstatus_to_exitcode(status)
    if program.returncode != 0:
        raise subprocess.CalledProcessError(program.returncode, command, stderr=said)
    return time.perf_counter() - start, used.ru_maxrss / 1024


def seconds(command, **options):
    start = time.perf_counter()
    subprocess.run(command, check=True, capture_output=True, **options)
    return time.perf_counter() - start

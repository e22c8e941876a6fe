"""The rows of Python benchmarks, in the form of the C++ ones."""

import importlib
import json
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


def megabytes(command):
    """The memory that a program takes at the most. A small one starts it: a child counts what its parent held."""
    starter = ("import resource, subprocess, sys\n"
               "subprocess.run(sys.argv[1:], check=True, capture_output=True)\n"
               "print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)")
    done = subprocess.run([sys.executable, "-c", starter, *command], check=True, capture_output=True, text=True)
    return int(done.stdout) / 1024


def seconds(command, **options):
    start = time.perf_counter()
    subprocess.run(command, check=True, capture_output=True, **options)
    return time.perf_counter() - start

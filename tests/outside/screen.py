"""The real desktop on a display of its own, with real keys and a real mouse."""

import fcntl
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

BATCH = pathlib.Path(sys.argv[1]).resolve()
DESKTOP = BATCH.parent / "brevan"
PATIENCE = 20  # seconds that one step may take; a sanitizer's build is slow
BOLTS = "Mechanical Ardenix - Hex Bolts"


def until(what, probe):
    """The first answer of the probe that is not empty."""
    end = time.monotonic() + PATIENCE
    while True:
        answer = probe()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError(f"waited {PATIENCE} s for {what}")
        time.sleep(0.02)


class Display:
    """A screen without a window manager, with its keyboard and mouse."""

    def __init__(self):
        readable, writable = os.pipe()
        with open(os.devnull, "wb") as nowhere:
            # Without -noreset the server throws everybody out whenever its only client leaves, as xdotool does.
            self.server = subprocess.Popen(["Xvfb", "-displayfd", str(writable), "-screen", "0", "1400x900x24",
                                            "-noreset", "-nolisten", "tcp"], pass_fds=[writable], stderr=nowhere)
        os.close(writable)
        with open(readable, encoding="ascii") as answer:
            self.name = ":" + answer.readline().strip()
        if self.name == ":":
            raise AssertionError("Xvfb did not start")

    def close(self):
        self.server.terminate()
        self.server.wait(PATIENCE)

    def run(self, *words):
        return subprocess.run(["xdotool", *map(str, words)], env={**os.environ, "DISPLAY": self.name}, text=True,
                              capture_output=True, check=False, timeout=PATIENCE)

    def xdotool(self, *words):
        return self.run(*words).stdout

    def windows(self):
        """Those shown: title and box (x, y, width, height) by number."""
        # A search that meets a window just going away breaks off.
        search = until("the list of windows", lambda: [
            done for done in [self.run("search", "--onlyvisible", "--name", ".*")] if done.returncode == 0])[0]
        found = {}
        for window in search.stdout.split():
            rows = dict(row.split("=") for row in self.xdotool("getwindowgeometry", "--shell", window).split())
            title = self.xdotool("getwindowname", window).strip()
            if title and "WIDTH" in rows:  # the screen itself has no title
                found[window] = (title, tuple(int(rows[key]) for key in ("X", "Y", "WIDTH", "HEIGHT")))
        return found

    def window(self, title):
        """The box of the window with such a title; None where there is none."""
        boxes = [box for name, box in self.windows().values() if name.startswith(title)]
        return boxes[0] if boxes else None

    def popup(self):
        """The box of the menu that is open."""
        boxes = [box for name, box in self.windows().values() if name == "Brevan" and box[3] < 600]
        return boxes[0] if boxes else None

    def focus(self, title):
        """Gives the keyboard to a window, as a window manager does with a new one."""
        for window, (name, _) in self.windows().items():
            if name.startswith(title):
                self.xdotool("windowfocus", "--sync", window)

    def type(self, text):
        self.xdotool("type", "--delay", 4, text)

    def key(self, *keys):
        self.xdotool("key", "--delay", 4, *keys)

    def click(self, x, y, button=1):
        self.xdotool("mousemove", x, y, "click", button)


class DesktopTest(unittest.TestCase):
    """With settings, libraries and recovery files of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.kept_folder = self.folder / "config" / "brevan" / "recovery"
        self.screen = Display()
        self.addCleanup(self.screen.close)
        self.program = None
        self.addCleanup(self.kill)

    def start(self, **more):
        environment = {**os.environ, "DISPLAY": self.screen.name, "QT_QPA_PLATFORM": "xcb", "LC_ALL": "C.UTF-8",
                       "XDG_CONFIG_HOME": str(self.folder / "config"), "XDG_DATA_HOME": str(self.folder / "data"),
                       "XDG_RUNTIME_DIR": str(self.folder),
                       "ASAN_OPTIONS": "detect_leaks=0", **more}  # the system's message bus leaks
        for name in ("WAYLAND_DISPLAY", "QT_SCALE_FACTOR", "QT_STYLE_OVERRIDE"):
            environment.pop(name, None)
        with open(self.folder / "said.txt", "ab") as said:
            self.program = subprocess.Popen([DESKTOP], env=environment, stdout=said, stderr=said)
        until("the window", lambda: self.screen.window("Drawing1"))
        self.screen.focus("Drawing1")

    def run_typed(self, text, title):
        """Types a command, and waits for the dialog that it opens."""
        self.screen.type(text)
        self.screen.key("Return")
        until(title, lambda: self.screen.window(title))
        self.screen.focus(title)

    def take_offer(self):
        """Of the drawings that the last session kept."""
        until("the offer", self.screen.popup)
        self.screen.focus("Brevan")
        self.screen.key("Return")

    def kill(self):
        if self.program is not None and self.program.poll() is None:
            self.program.send_signal(signal.SIGKILL)
            self.program.wait(PATIENCE)

    def session(self):
        """The name under which the running program keeps its work: that of the file it holds locked. None before."""
        for lock in self.kept_folder.glob("*.lock"):
            with open(lock, "rb") as file:
                try:
                    fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
                except BlockingIOError:
                    return lock.stem
        return None

    def kept_files(self):
        """With the times of their last change."""
        try:
            name = self.session()
            return {file: file.stat().st_mtime_ns for file in self.kept_folder.glob(f"{name}-*")} if name else {}
        except FileNotFoundError:
            return {}

    def kept(self):
        """What the running program has kept, as the JSON of its drawing; None while it cannot be read."""
        copies = self.folder / "copies"
        shutil.rmtree(copies, ignore_errors=True)
        copies.mkdir()
        before = self.kept_files()
        try:
            for file in before:
                shutil.copy(file, copies)
        except FileNotFoundError:  # a journal that was just done with
            return None
        drawings = list(copies.glob("*.drg"))
        if len(drawings) != 1 or self.kept_files() != before:
            return None
        done = subprocess.run([BATCH, "convert", drawings[0], copies / "kept.json"], capture_output=True, check=False,
                              timeout=PATIENCE)
        return json.loads((copies / "kept.json").read_text("utf-8")) if done.returncode == 0 else None

    def until_kept(self, what, holds):
        def probe():
            kept = self.kept()
            return kept if kept and holds(kept) else None

        return until(what, probe)

    def bolt(self, place):
        screen = self.screen
        self.run_typed("MechDrawBolts", BOLTS)
        screen.key("Return")
        until("the dialog's end", lambda: not screen.window(BOLTS))
        place()
        until("the menu of rotations", screen.popup)
        screen.key("1")
        until("the menu's end", lambda: not screen.popup())
        screen.key("space")

    def bolt_by_keys(self, at="60,60"):
        def place():
            self.screen.type(at)
            self.screen.key("Return")

        self.bolt(place)


def missing():
    """The programs that are not installed, as a sentence; empty where all are there."""
    names = [program for program in ("Xvfb", "xdotool") if shutil.which(program) is None]
    return f"{' and '.join(names)} must be installed: tools/install_dependencies.sh test" if names else ""

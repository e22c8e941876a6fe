"""The desktop as a person meets it: the real program on a display of its own, real keys, a real mouse, and a kill."""

import itertools
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
MENUS_BEFORE_COMMANDS = 5  # File, Edit, View, Draw, Modify
ONE_BOLT = """setting "MechanicalTools" "SpecFile" "ISO Mechspecs.ini"
run MechDrawBolts
dialog "Mechanical Ardenix - Hex Bolts"
  press "OK"
point 60 60
menu "No Rotation"
space
export "bolt.json"
"""


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


def points(primitive):
    return [value for value in primitive.values() if isinstance(value, list) and len(value) == 2]


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

    def move(self, x, y):
        self.xdotool("mousemove", x, y)

    def click(self, x, y, button=1):
        self.xdotool("mousemove", x, y, "click", button)


class Desktop(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.kept_folder = self.folder / "config" / "brevan" / "recovery"
        self.screen = Display()
        self.addCleanup(self.screen.close)
        self.program = None
        self.addCleanup(self.kill)

    def start(self):
        environment = {**os.environ, "DISPLAY": self.screen.name, "QT_QPA_PLATFORM": "xcb", "LC_ALL": "C.UTF-8",
                       "XDG_CONFIG_HOME": str(self.folder / "config"), "XDG_DATA_HOME": str(self.folder / "data"),
                       "XDG_RUNTIME_DIR": str(self.folder)}
        for name in ("WAYLAND_DISPLAY", "QT_SCALE_FACTOR", "QT_STYLE_OVERRIDE"):
            environment.pop(name, None)
        with open(self.folder / "said.txt", "ab") as said:
            self.program = subprocess.Popen([DESKTOP], env=environment, stdout=said, stderr=said)
        until("the window", lambda: self.screen.window("Drawing1"))

    def kill(self):
        if self.program is not None and self.program.poll() is None:
            self.program.send_signal(signal.SIGKILL)
            self.program.wait(PATIENCE)

    def kept_files(self):
        """With the times of their last change."""
        try:
            return {file: file.stat().st_mtime_ns for file in self.kept_folder.glob(f"{self.program.pid}-*")}
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

    def bolt_of_a_script(self):
        (self.folder / "bolt.scr").write_text(ONE_BOLT, encoding="utf-8")
        subprocess.run([BATCH, "run", "bolt.scr", "-o", "out"], cwd=self.folder, check=True, timeout=PATIENCE)
        return json.loads((self.folder / "out" / "bolt.json").read_text("utf-8"))

    def bolt_by_keys(self):
        screen = self.screen
        screen.type("MechDrawBolts")
        screen.key("Return")
        until("the bolts' dialog", lambda: screen.window(BOLTS))
        screen.key("Return")
        until("the dialog's end", lambda: not screen.window(BOLTS))
        screen.type("60,60")
        screen.key("Return")
        until("the menu of rotations", screen.popup)
        screen.key("1")
        until("the menu's end", lambda: not screen.popup())
        screen.key("space")

    def bolt_by_mouse(self):
        screen = self.screen
        # Along the menu bar with a menu open: each menu has a place of its own.
        screen.click(14, 9)
        menu = until("a menu", screen.popup)
        places = {menu[0]}
        for x in itertools.count(14, 12):
            if len(places) > MENUS_BEFORE_COMMANDS:
                break
            self.assertLess(x, 800, "the menu bar ends before the commands")
            screen.move(x, 9)
            time.sleep(0.03)
            menu = screen.popup() or menu
            places.add(menu[0])
        rows = [row.split("\t") for row in
                subprocess.run([BATCH, "commands"], capture_output=True, text=True, check=True).stdout.splitlines()]
        names = [row[0] for row in rows if row[1] == "mechanical"]
        x, y, _, height = until("the commands' menu", screen.popup)
        screen.click(x + 40, y + round(height * (names.index("MechDrawBolts") + 0.5) / len(names)))
        x, y, width, height = until("the bolts' dialog", lambda: screen.window(BOLTS))
        # OK is the first button from the left in the last row.
        for across in range(16, width, 24):
            screen.click(x + across, y + height - 22)
            time.sleep(0.03)
            if not screen.window(BOLTS):
                break
        screen.click(640, 300)
        x, y, _, _ = until("the menu of rotations", screen.popup)
        screen.click(x + 30, y + 12)
        until("the menu's end", lambda: not screen.popup())
        screen.click(400, 400, 3)

    def test_bolts_by_keys_and_by_mouse_outlive_a_kill(self):
        wanted = self.bolt_of_a_script()
        self.start()
        self.screen.focus("Drawing1")
        self.bolt_by_keys()
        one = self.until_kept("the bolt by keys", lambda kept: kept["primitives"])
        self.assertEqual(one, wanted)

        self.bolt_by_mouse()
        count = len(one["primitives"])
        both = self.until_kept("the bolt by mouse", lambda kept: len(kept["primitives"]) == 2 * count)
        self.assertEqual(both["primitives"][:count], one["primitives"])
        shifts = [(round(to[0] - at[0], 6), round(to[1] - at[1], 6))
                  for before, after in zip(both["primitives"], both["primitives"][count:], strict=False)
                  for at, to in zip(points(before), points(after), strict=True)]
        self.assertEqual(len(set(shifts)), 1, "the second bolt is the first one, moved")
        self.assertNotEqual(shifts[0], (0.0, 0.0))
        self.screen.key("ctrl+z")
        self.assertEqual(self.until_kept("undo", lambda kept: len(kept["primitives"]) == count), one)
        self.screen.key("ctrl+shift+z")
        self.assertEqual(self.until_kept("redo", lambda kept: len(kept["primitives"]) == 2 * count), both)

        self.kill()
        self.start()
        until("the offer", self.screen.popup)
        self.screen.key("Return")
        self.assertEqual(self.until_kept("the recovered drawing", lambda kept: kept["primitives"]), both)
        self.assertEqual(len(list(self.kept_folder.glob("*.drg"))), 1, "the old file goes once the new one is there")
        self.assertIsNone(self.program.poll())


if __name__ == "__main__":
    missing = [program for program in ("Xvfb", "xdotool") if shutil.which(program) is None]
    if missing:
        sys.exit(f"{' and '.join(missing)} must be installed: tools/install_dependencies.sh test")
    unittest.main(argv=sys.argv[:1])

"""The desktop as a person meets it: the real program on a display of its own, real keys, a real mouse."""

import itertools
import json
import subprocess
import sys
import time
import unittest

from screen import BATCH, BOLTS, PATIENCE, DesktopTest, missing, until

MENUS_BEFORE_COMMANDS = 5  # File, Edit, View, Draw, Modify


class Desktop(DesktopTest):
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

    def test_enter_in_an_open_list_chooses_and_no_more(self):
        screen = self.screen
        self.start()
        self.run_typed("MechDrawBolts", BOLTS)
        screen.key("alt+Down")  # the list of definitions has the focus
        until("the list", lambda: len(screen.windows()) > 2)
        screen.key("Down", "Return")
        until("the list's end", lambda: len(screen.windows()) <= 2)
        time.sleep(0.5)
        self.assertTrue(screen.window(BOLTS), "Enter went on to the dialog's OK")
        screen.key("Return")
        until("the dialog's end", lambda: not screen.window(BOLTS))

    def replayed(self):
        """The recorded session, saved from the menu and played without a window from settings as they ship."""
        screen = self.screen
        screen.key("alt+f")
        until("the menu", screen.popup)
        screen.key("c")
        until("the file dialog", lambda: screen.window("Save Recorded Script"))
        screen.focus("Save Recorded Script")
        screen.key("ctrl+a")
        screen.type(str(self.folder / "recorded.scr"))
        screen.key("Return")
        until("the script", (self.folder / "recorded.scr").exists)
        with open(self.folder / "recorded.scr", "a", encoding="utf-8") as script:
            script.write('export "again.json"\n')
        done = subprocess.run([BATCH, "run", self.folder / "recorded.scr", "-o", self.folder], capture_output=True,
                              text=True, check=False, timeout=PATIENCE)
        self.assertEqual(done.returncode, 0, done.stderr)
        return json.loads((self.folder / "again.json").read_text("utf-8"))

    def test_a_recorded_session_replays(self):
        screen = self.screen
        self.start()
        screen.key("alt+l")
        screen.type("Cover")
        screen.key("Return")
        self.bolt_by_keys("60,60")
        self.bolt_by_keys("90,60")
        low = self.until_kept("two bolts", lambda kept: len({item["groupId"] for item in kept["primitives"]}) == 2)
        screen.focus("Drawing1")
        screen.key("ctrl+a")
        for typed in ("move", "0,0", "0,500"):
            screen.type(typed)
            screen.key("Return")

        def lines(kept):
            return [item["p1"] for item in kept["primitives"] if item["type"] == "line"]

        wanted = [[x, y + 500] for x, y in lines(low)]
        kept = self.until_kept("bolts that moved", lambda kept: lines(kept) == wanted)
        self.assertEqual({item["layer"] for item in kept["primitives"]}, {"Cover"})
        self.assertEqual(self.replayed()["primitives"], kept["primitives"])

    def drag_and_delete(self, start, end):
        """As slowly as a hand: a drag that begins before the window has come to rest is none."""
        time.sleep(1)
        self.screen.drag(start, end)
        time.sleep(1)
        self.screen.key("Delete")
        time.sleep(1)

    def test_windows_select_whole_parts(self):
        self.start()
        self.bolt_by_mouse()
        bolt = self.until_kept("the bolt", lambda kept: kept["primitives"])["primitives"]
        self.assertEqual({primitive["groupId"] for primitive in bolt}, {bolt[0]["groupId"]})
        for _ in range(8):
            self.screen.click(640, 300, 4)  # the wheel: the bolt is larger than the windows
        left, right = (620, 285), (660, 315)
        self.drag_and_delete(left, right)  # no part is selected, so that items are asked for
        self.screen.key("Escape")
        self.drag_and_delete(right, left)
        self.until_kept("an empty drawing", lambda kept: not kept["primitives"])
        self.screen.key("ctrl+z")
        again = self.until_kept("undo", lambda kept: kept["primitives"])
        self.assertEqual(again["primitives"], bolt)


if __name__ == "__main__":
    if missing():
        sys.exit(missing())
    unittest.main(argv=sys.argv[:1])

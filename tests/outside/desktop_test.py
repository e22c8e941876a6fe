"""The desktop as a person meets it: the real program on a display of its own, real keys, a real mouse."""

import json
import subprocess
import sys
import unittest

from screen import BATCH, PATIENCE, DesktopTest, missing, until


class Desktop(DesktopTest):
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
        self.bolt(lambda: screen.click(640, 300))
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


if __name__ == "__main__":
    if missing():
        sys.exit(missing())
    unittest.main(argv=sys.argv[:1])

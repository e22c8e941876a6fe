"""The desktop on a display that goes away, and in a session that ends, while a dialog is open. Needs Xvfb and xdotool; where
they are missing it says so and is skipped (exit status 77).

    display_test.py BATCH
"""

import signal

from fault_program import amount, main
from screen import BOLTS, PATIENCE, DesktopTest, Display, missing, until

ADD = "Ardenix - Add New Item"


signal.signal(signal.SIGHUP, signal.SIG_DFL)  # a suite under nohup ignores it, and so would what it starts


class Ends(DesktopTest):
    """Each leaves the program no time; what was drawn before is offered at the next start."""

    def lose_display(self):
        self.screen.server.kill()
        self.screen.server.wait(PATIENCE)

    def test_within_dialogs(self):
        ends = [("display lost", (BOLTS,), self.lose_display, 1)]
        for number in (signal.SIGTERM, signal.SIGHUP)[:amount(2, 1)]:
            ends.append((number.name, (BOLTS, ADD), lambda number=number: self.program.send_signal(number), -number))
        self.start()
        self.bolt_by_keys()
        drawn = self.until_kept("the bolt", lambda kept: kept["primitives"])
        for what, dialogs, end, code in ends:
            with self.subTest(what):
                self.run_typed("MechDrawBolts", BOLTS)
                if ADD in dialogs:
                    self.screen.key("Tab", "space")
                    until(ADD, lambda: self.screen.window(ADD))
                end()
                self.assertEqual(self.program.wait(PATIENCE), code)
                if self.screen.server.poll() is not None:
                    self.screen = Display()
                    self.addCleanup(self.screen.close)
                self.start()
                self.take_offer()
                self.assertEqual(self.until_kept("the drawing after " + what, lambda kept: kept["primitives"]), drawn)


if __name__ == "__main__":
    main(missing)

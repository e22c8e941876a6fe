"""The desktop in locales that write 1.5 as 1,5 and the small I as another letter: what it writes is the same to the byte. Needs
Xvfb, xdotool and localedef; where they are missing it says so and is skipped (exit status 77).

    desktop_locales_test.py BATCH
"""

import contextlib
import shutil
import time

import locales
from fault_program import main
from screen import PATIENCE, DesktopTest, missing, until


class Locales(DesktopTest):
    TOOLKITS_OWN = "QtProject.conf"  # what its choosers remember, and so how often one was tried
    FILES = ("x.drg", "x.dxf", "x.svg", "x.pdf", "x.png", "x.json")

    def choose(self, window, keys, title, path):
        """Opens the chooser and types the path, again where a list of completions swallowed some of the keys."""
        for _ in range(3):
            self.screen.focus(window)
            self.screen.key(keys)
            with contextlib.suppress(AssertionError):
                until(title, lambda: self.screen.window(title))
                break
        for _ in range(3):
            self.screen.focus(title)
            time.sleep(0.2)
            self.screen.key("ctrl+a")
            self.screen.type(str(path))
            self.screen.key("Return")
            with contextlib.suppress(AssertionError):
                until("the chooser's end", lambda: not self.screen.window(title))
                break
        until(path, path.exists)

    def drawn(self, environment):
        """All that a session writes: numbers typed with a full stop, files written through the choosers."""
        self.start(**environment)
        self.bolt_by_keys("60.5,-60.25")
        for macro in ('SELECTLAYER "0"', "ROTATE [1.5,2.25] \"Y\" 33.125", 'NEWLAYER "iI"', "SCALE [0.5,0.25] \"N\" 1.5 1.5"):
            self.screen.type(macro)
            self.screen.key("Return")
        out = self.folder / "out"
        out.mkdir(exist_ok=True)
        for name in self.FILES:
            drawing = name.endswith("drg")
            self.choose("Drawing1" if drawing else "x.drg", "ctrl+shift+s" if drawing else "ctrl+e",
                        "Save As" if drawing else "Export", out / name)
        self.screen.focus("x.drg")
        self.screen.key("ctrl+q")
        self.assertEqual(self.program.wait(PATIENCE), 0)
        self.assertEqual(list(self.kept_folder.glob("*")), [], "a session that ended well left something to recover")
        shutil.rmtree(self.kept_folder)
        written = {path.relative_to(self.folder): path.read_bytes() for folder in (out, self.folder / "config", self.folder / "data")
                   for path in folder.rglob("*") if path.is_file() and path.name != self.TOOLKITS_OWN}
        for path in written:
            (self.folder / path).unlink()
        return written

    def test_what_is_written_is_the_same(self):
        wanted = self.drawn({})
        for locale in locales.LOCALES:
            found = self.drawn(locales.environment_of(locale))
            self.assertEqual(set(found), set(wanted), locale)
            for name, content in wanted.items():
                self.assertTrue(found[name] == content, f"{name} differs in {locale}")


if __name__ == "__main__":
    main(lambda: missing() or locales.reason_to_skip())

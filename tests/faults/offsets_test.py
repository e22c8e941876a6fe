"""The examples of every family of commands, drawn far from the origin, where few digits or none are left for lengths.

    offsets_test.py BATCH
"""

import json
import re
import shutil

from fault_program import EXAMPLES, FaultTest, amount, main

# How many of a statement's words, from which one on, are coordinates.
COORDINATES = {"point": (1, 2), "draw line": (2, 4), "draw circle": (2, 2), "draw arc": (2, 6), "draw text": (2, 2),
               "draw symbol": (3, 2), "sheet": (3, 2), "view": (1, 2)}


def moved(line, offset):
    """A statement with its coordinates moved; what it expects is left out, since it may name them."""
    words = line.split(" ")
    if words[0] == "macro":
        return re.sub(r"\[([^],]+),([^],]+)\]", lambda at: f"[{float(at[1]) + offset!r},{float(at[2]) + offset!r}]", line)
    if line.lstrip().startswith("expect "):
        return "# " + line
    first, count = COORDINATES.get(" ".join(words[:2]) if words[0] == "draw" else words[0], (1, 0))
    for place in range(first, min(first + count, len(words))):
        words[place] = repr(float(words[place]) + offset)
    return " ".join(words)


class Offsets(FaultTest):
    def played(self, script, offset):
        """What the moved example draws, and what was said where it draws nothing."""
        shutil.copytree(script.parent, self.folder, dirs_exist_ok=True)
        text = script.read_text(encoding="utf-8")
        done = self.play("".join(moved(line, offset) + "\n" for line in text.splitlines()))
        if done.returncode != 0:
            self.assertRefused(done, (1,), "x.scr:")
            return None
        drawn = (self.out / f"{script.stem}.json").read_text(encoding="utf-8")
        self.assertNotRegex(drawn, r"[:,\[]-?(nan|inf)")
        return [(primitive["type"], primitive["layer"], primitive["group"]) for primitive in json.loads(drawn)["primitives"]]

    def test_examples_far_away(self):
        scripts = sorted(EXAMPLES.glob("*/*.scr"))
        drawn = 0
        for script in self.random.sample(scripts, amount(len(scripts), 3)):
            with self.subTest(script.stem):
                there = self.played(script, 0.0)
                self.assertTrue(there)
                # A power of two and a whole number of everything: the very same drawing, moved.
                self.assertEqual(self.played(script, float(1 << 24)), there)
                for offset in (1e12, -1e15, 1e17, 1e300):
                    drawn += bool(self.played(script, offset))
        self.assertGreater(drawn, 0, "all of them are refused")


if __name__ == "__main__":
    main()

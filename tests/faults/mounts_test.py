"""File systems that are full or read-only. Needs a mount of the test's own; where that is not allowed it says so and is
skipped (exit status 77).

    mounts_test.py BATCH
"""

import shutil
import subprocess

from fault_program import BATCH, SECONDS, FaultTest, main
from writers import ALL

# What is mounted goes with the namespace; what it held at the end is copied out.
INSIDE = """mount -t tmpfs -o size={size} none "$1" && cp -a "$2"/. "$1" && {then} || exit 99
folder=$1 seen=$3; shift 3
"$@"; code=$?
cp -a "$folder"/. "$seen"; exit $code"""
UNSHARE = ("unshare", "--mount", "--map-root-user")


def reason_to_skip():
    if shutil.which("unshare") is None:
        return "unshare is not installed"
    done = subprocess.run([*UNSHARE, "sh", "-c", "mount -t tmpfs none /mnt"], capture_output=True, text=True, check=False,
                          timeout=SECONDS)
    return "" if done.returncode == 0 else "no file system may be mounted here: " + done.stderr.strip()


class Mounts(FaultTest):
    def mounted(self, writer, size, then):
        """Runs the writer with "out" being such a file system; what it held before and after."""
        before, seen = self.folder / "before", self.folder / "seen"
        for path in (before, seen):
            shutil.rmtree(path, ignore_errors=True)
            path.mkdir()
        writer.prepare(self)
        shutil.copytree(self.out, before, dirs_exist_ok=True)
        words = writer.command(self)
        shell = INSIDE.format(size=size, then=then)
        done = subprocess.run([*UNSHARE, "sh", "-c", shell, "sh", self.out, before, seen, BATCH, *words], cwd=self.folder,
                              env=self.environment(), capture_output=True, check=False, timeout=SECONDS)
        self.assertNotEqual(done.returncode, 99, done.stderr)
        return done, *({p.name: p.read_bytes() for p in folder.iterdir() if p.is_file() and p.name != "filler"}
                       for folder in (before, seen))

    def test_nothing_can_be_written(self):
        self.sample_drawing()
        for then, reason in (('{ cat /dev/zero >"$1/filler" 2>/dev/null; true; }', "No space left on device"),
                             ('mount -o remount,ro "$1"', "Read-only file system")):
            for writer in ALL:
                with self.subTest(writer.name, reason=reason):
                    done, before, after = self.mounted(writer, "1m", then)
                    self.assertRefused(done, (1, 4), reason)
                    self.assertEqual(after, before)

    def test_full_half_way(self):
        self.sample_drawing()
        for writer in ALL:
            with self.subTest(writer.name):
                then = '{ cat /dev/zero >"$1/filler" 2>/dev/null; truncate -s -4096 "$1/filler"; }'
                done, before, after = self.mounted(writer, "1m", then)
                if done.returncode == 0:
                    self.assertNotEqual(after, before)  # it fitted into a page
                else:
                    self.assertRefused(done, (1, 4), "No space left on device")
                    self.assertEqual(after, before)


if __name__ == "__main__":
    main(reason_to_skip)

"""What a disk may hold after the power failed: the system calls that a program made, replayed with whatever was not yet
brought to the disk kept, lost or torn.

What counts as durable is what the system promises and no more: the bytes of a file once that file was synchronised, a
name that was made, changed or removed once its folder was. Of the rest each operation may have reached the disk or not.
"""

import pathlib


class File:
    def __init__(self, durable=b""):
        self.durable = durable
        self.pending = []  # (offset, bytes) of a write, (size, None) of a cut

    @staticmethod
    def changed(content, place, data):
        if data is None:
            return content[:place].ljust(place, b"\0")
        return content[:place].ljust(place, b"\0") + data + content[place + len(data):]

    def synchronise(self):
        for place, data in self.pending:
            self.durable = self.changed(self.durable, place, data)
        self.pending = []

    def after_cut(self, keep, tear):
        content = self.durable
        for place, data in self.pending:
            if keep():
                content = self.changed(content, place, data if data is None else tear(data))
        return content


class Disk:
    """The files below a folder; before anything is done to them all are durable."""

    def __init__(self, folder):
        self.start = {str(path): (path.stat().st_ino, path.read_bytes())
                      for path in pathlib.Path(folder).rglob("*") if path.is_file()}

    def after_cut(self, operations, random, variants):
        """States in which the disk may be found: nothing pending kept, all of it, and so many by chance."""
        state = _State(self.start)
        for operation in operations:
            state.apply(*operation)
        yield state.left(lambda: False, lambda data: data)
        yield state.left(lambda: True, lambda data: data)
        for _ in range(variants):
            yield state.left(lambda: random.random() < 0.5, lambda data: data[:random.randrange(len(data) + 1)])


    def versions(self, operations, path):
        """The contents that come whole into the place of a file, by renaming, one after another."""
        state = _State(self.start)
        for operation in operations:
            state.apply(*operation)
            if operation[0] == "rename" and operation[1][1] == path:
                yield state.left(lambda: True, lambda data: data)[path]


class _State:
    def __init__(self, start):
        self.files = {inode: File(content) for inode, content in start.values()}
        self.durable = {path: self.files[inode] for path, (inode, _) in start.items()}
        self.names = dict(self.durable)
        self.pending = []  # (folder, what is done to a map of names)

    def apply(self, what, words, data):
        getattr(self, "on_" + what)(*words, *([data] if what == "write" else []))

    def on_create(self, path, inode):
        file = self.files[int(inode)] = File()
        self.rename_later(path, lambda names: names.__setitem__(path, file))

    def on_rename(self, old, new):
        file = self.names.get(old)
        if file is None:
            return  # came from elsewhere

        def act(names):
            names.pop(old, None)
            names[new] = file

        self.rename_later(new, act)

    def on_remove(self, path):
        self.rename_later(path, lambda names: names.pop(path, None))

    def on_mkdir(self, path):
        """Folders are taken to be there: a file in a lost folder is lost by its own name already."""

    def on_write(self, inode, place, data):
        if int(inode) in self.files:
            self.files[int(inode)].pending.append((int(place), data))

    def on_truncate(self, inode, size):
        if int(inode) in self.files:
            self.files[int(inode)].pending.append((int(size), None))

    def on_sync(self, inode, path):
        if int(inode) in self.files and path in self.names:
            self.files[int(inode)].synchronise()
            return
        later = []
        for folder, act in self.pending:
            if folder == path.rstrip("/"):
                act(self.durable)
            else:
                later.append((folder, act))
        self.pending = later

    def rename_later(self, path, act):
        act(self.names)
        self.pending.append((str(pathlib.PurePath(path).parent), act))

    def left(self, keep, tear):
        names = dict(self.durable)
        for _, act in self.pending:
            if keep():
                act(names)
        contents = {}
        return {path: contents.setdefault(id(file), file.after_cut(keep, tear)) for path, file in names.items()}


def read_log(path):
    """The operations of a log of fault_calls: (what, words, bytes)."""
    counts = {"create": 2, "rename": 2, "remove": 1, "mkdir": 1, "write": 2, "truncate": 2, "sync": 2}
    log = pathlib.Path(path).read_bytes()
    place, operations = 0, []

    def word():
        nonlocal place
        end = log.index(b"\0", place)
        text, place = log[place:end].decode("utf-8", "surrogateescape"), end + 1
        return text

    while place < len(log):
        what = word()
        words = [word() for _ in range(counts[what])]
        size = int(word())
        operations.append((what, words, log[place:place + size]))
        place += size
    return operations

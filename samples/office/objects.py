"""Objects of the OBJECTS section: dictionaries, records and what hangs on them."""


def _links(xdict, reactor):
    tags = []
    if xdict:
        tags += [(102, "{ACAD_XDICTIONARY"), (360, xdict), (102, "}")]
    if reactor:
        tags += [(102, "{ACAD_REACTORS"), (330, reactor), (102, "}")]
    return tags


class Record:
    """An object with free contents, owned by a dictionary."""

    def __init__(self, kind, handle, owner, contents):
        self.kind, self.handle, self.owner, self.contents = kind, handle, owner, contents
        self.xdict = 0

    def tags(self):
        yield (0, self.kind)
        yield (5, self.handle)
        yield from _links(self.xdict, self.owner)
        yield (330, self.owner)
        yield from self.contents


class Dictionary:
    """Keys to handles. A hard one owns its entries; an extension dictionary names no reactor."""

    def __init__(self, drawing, owner, hard=False, extension=False):
        self.drawing, self.owner, self.hard, self.extension = drawing, owner, hard or extension, extension
        self.handle = drawing.take_handle()
        self.entries, self.xdata = [], []
        self.kind, self.tail = "DICTIONARY", []
        drawing.objects.append(self)

    def add(self, key, kind, contents):
        """A new record under a key."""
        record = Record(kind, self.drawing.take_handle(), self.handle, contents)
        self.entries.append((key, record.handle))
        self.drawing.objects.append(record)
        return record

    def add_xrecord(self, key, contents):
        return self.add(key, "XRECORD", [(100, "AcDbXrecord"), (280, 1), *contents])

    def add_dictionary(self, key, hard=False):
        child = Dictionary(self.drawing, self.handle, hard=hard)
        self.entries.append((key, child.handle))
        return child

    def tags(self):
        yield (0, self.kind)
        yield (5, self.handle)
        yield from _links(0, 0 if self.extension else self.owner)
        yield (330, self.owner)
        yield (100, "AcDbDictionary")
        if self.hard:
            yield (280, 1)
        yield (281, 1)
        for key, handle in self.entries:
            yield (3, key)
            yield (360 if self.hard else 350, handle)
        yield from self.tail
        yield from self.xdata


def extension_dictionary(drawing, owner):
    """The extension dictionary of an object or layer, made on first use."""
    if not owner.xdict:
        made = Dictionary(drawing, owner.handle, extension=True)
        owner.xdict = made.handle
        drawing.extensions[owner.handle] = made
    return drawing.extensions[owner.handle]

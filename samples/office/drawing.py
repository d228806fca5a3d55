"""A drawing in memory: tables, blocks, layouts and dictionaries, written as an ASCII file of the year 2018."""

from .header import class_tags, header_tags
from .objects import Dictionary, Record
from .tables import APPIDS, LINETYPES, table_tags
from .tags import encode


class Block:
    """A block, or the space of a layout."""

    def __init__(self, drawing, name, is_sheet=False):
        self.drawing, self.name, self.is_sheet = drawing, name, is_sheet
        self.handle, self.begin, self.end = (drawing.take_handle() for _ in range(3))
        self.layout = 0
        self.entities, self.attributes = [], []
        drawing.blocks[name] = self


class Table:
    def __init__(self, drawing, name):
        self.name, self.handle, self.xdict = name, drawing.take_handle(), 0


class Drawing:
    """Handles are given out in the order of creation, so equal programs give equal files."""

    def __init__(self, layers):
        self._next = 1
        self.layers = layers
        self.blocks, self.objects, self.extensions = {}, [], {}
        names = ("BLOCK_RECORD", "LAYER", "STYLE", "LTYPE", "VIEW", "UCS", "APPID", "DIMSTYLE", "VPORT")
        self.tables = {name: Table(self, name) for name in names}
        self.linetypes = {name: self.take_handle() for name in LINETYPES}
        self.appids = {name: self.take_handle() for name in APPIDS}
        self.style, self.dimstyle, self.vport = (self.take_handle() for _ in range(3))
        self.root = Dictionary(self, 0)
        self._make_dictionaries()
        for layer in layers.values():
            layer.handle = self.take_handle()
        self.model = Block(self, "*Model_Space")
        self.extents = (0, 0, 1, 1)

    def take_handle(self):
        self._next += 1
        return self._next - 1

    @property
    def handle_seed(self):
        return self._next

    def _make_dictionaries(self):
        self.root.add_dictionary("ACAD_COLOR")
        self.root.add_dictionary("ACAD_GROUP")
        self.layouts = self.root.add_dictionary("ACAD_LAYOUT")
        materials = self.root.add_dictionary("ACAD_MATERIAL")
        for name in ("ByBlock", "ByLayer", "Global"):
            material = materials.add(name, "MATERIAL", [(100, "AcDbMaterial"), (1, name)])
        self.material = material.handle
        lines = self.root.add_dictionary("ACAD_MLINESTYLE")
        lines.add("Standard", "MLINESTYLE", _mline_style())
        self.root.add_dictionary("ACAD_PLOTSETTINGS")
        styles = self.root.add_dictionary("ACAD_PLOTSTYLENAME")
        styles.kind = "ACDBDICTIONARYWDFLT"
        self.plot_style = styles.add("Normal", "ACDBPLACEHOLDER", []).handle
        styles.tail = [(100, "AcDbDictionaryWithDefault"), (340, self.plot_style)]
        self.variables = self.root.add_dictionary("AcDbVariableDictionary")

    def set_variable(self, name, value):
        self.variables.add(name, "DICTIONARYVAR", [(100, "DictionaryVariables"), (280, 0), (1, value)])

    def add_layout(self, name, block, contents):
        """A layout of a space; `contents` are the groups after the name."""
        record = self.layouts.add(name, "LAYOUT", contents)
        block.layout = record.handle
        return record

    def count(self, kind):
        return sum(1 for item in self.objects if isinstance(item, Record) and item.kind == kind)

    def tags(self):
        yield from header_tags(self)
        yield from class_tags(self)
        yield from _section("TABLES", table_tags(self))
        yield from _section("BLOCKS", self._block_tags())
        yield from _section("ENTITIES", self._entity_tags())
        yield from _section("OBJECTS", (tag for item in self.objects for tag in item.tags()))
        yield (0, "EOF")

    def _block_tags(self):
        for block in self.blocks.values():
            sheet = [(67, 1)] if block.is_sheet else []
            owned = [(330, block.handle), (100, "AcDbEntity"), *sheet, (8, "0")]
            flags = 2 if block.attributes else 0
            yield from [(0, "BLOCK"), (5, block.begin), *owned, (100, "AcDbBlockBegin"), (2, block.name), (70, flags)]
            yield from [(10, 0), (20, 0), (30, 0), (3, block.name), (1, "")]
            if block not in self._main_spaces():
                for entity in block.entities:
                    yield from entity
            yield from [(0, "ENDBLK"), (5, block.end), *owned, (100, "AcDbBlockEnd")]

    def _main_spaces(self):
        # The other sheets keep their entities in BLOCKS.
        return (self.model, self.blocks["*Paper_Space"])

    def _entity_tags(self):
        for space in self._main_spaces():
            for entity in space.entities:
                yield from entity

    def write(self, path):
        with open(path, "wb") as file:
            file.write(encode(self.tags()))


def _section(name, tags):
    yield from [(0, "SECTION"), (2, name)]
    yield from tags
    yield (0, "ENDSEC")


def _mline_style():
    tags = [(100, "AcDbMlineStyle"), (2, "STANDARD"), (70, 0), (3, ""), (62, 256), (51, 90), (52, 90), (71, 2)]
    for offset in (0.5, -0.5):
        tags += [(49, offset), (62, 256), (6, "BYLAYER")]
    return tags

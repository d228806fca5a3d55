"""Drawing entities into a block or a space."""

from math import cos, radians, sin

from .tags import point

# Group 72 and 73 of a text by its alignment.
_ALIGNMENTS = {"left": (0, 0), "center": (1, 0), "right": (2, 0), "middle": (1, 2), "right-middle": (2, 2), "left-middle": (0, 2)}


class Pen:
    """Draws on one layer of one block."""

    def __init__(self, block, layer):
        self.block, self.layer = block, layer

    def on(self, layer):
        return Pen(self.block, layer)

    def add(self, kind, subclasses, properties=()):
        """One entity; the handle it got."""
        drawing = self.block.drawing
        if self.layer not in drawing.layers:
            raise KeyError(f"there is no layer {self.layer}")
        handle = drawing.take_handle()
        head = [(0, kind), (5, handle), (330, self.block.handle), (100, "AcDbEntity")]
        if self.block.is_sheet:
            head.append((67, 1))
        self.block.entities.append([*head, (8, self.layer), *properties, *subclasses])
        return handle

    def line(self, x0, y0, x1, y1):
        self.add("LINE", [(100, "AcDbLine"), *point(10, x0, y0, 0), *point(11, x1, y1, 0)])

    def polyline(self, corners, closed=False, width=0):
        """Corners are (x, y) or (x, y, bulge)."""
        tags = [(100, "AcDbPolyline"), (90, len(corners)), (70, 1 if closed else 0), (43, width)]
        for corner in corners:
            tags += point(10, corner[0], corner[1])
            if len(corner) > 2 and corner[2]:
                tags.append((42, corner[2]))
        self.add("LWPOLYLINE", tags)

    def box(self, x0, y0, x1, y1):
        self.polyline([(x0, y0), (x1, y0), (x1, y1), (x0, y1)], closed=True)

    def rounded_box(self, x0, y0, x1, y1, radius):
        bulge = 0.414214  # a quarter turn
        self.polyline(
            [
                (x0 + radius, y0), (x1 - radius, y0, bulge), (x1, y0 + radius), (x1, y1 - radius, bulge),
                (x1 - radius, y1), (x0 + radius, y1, bulge), (x0, y1 - radius), (x0, y0 + radius, bulge),
            ],
            closed=True,
        )

    def circle(self, x, y, radius):
        self.add("CIRCLE", [(100, "AcDbCircle"), *point(10, x, y, 0), (40, radius)])

    def arc(self, x, y, radius, start, end):
        """Counter-clockwise, angles in degrees."""
        circle = [(100, "AcDbCircle"), *point(10, x, y, 0), (40, radius)]
        self.add("ARC", [*circle, (100, "AcDbArc"), (50, start), (51, end)])

    def ellipse(self, x, y, half_width, half_height):
        major, ratio = (half_width, 0), half_height / half_width
        if ratio > 1:
            major, ratio = (0, half_height), half_width / half_height
        self.add(
            "ELLIPSE",
            [(100, "AcDbEllipse"), *point(10, x, y, 0), *point(11, *major, 0), *point(210, 0, 0, 1), (40, ratio),
             (41, 0), (42, 6.283185)],
        )

    def text(self, x, y, height, words, align="left", rotation=0):
        self.add("TEXT", _text_tags(x, y, height, words, align, rotation) + [(100, "AcDbText")] + _vertical(73, align))

    def mtext(self, x, y, height, words, width):
        """Paragraphs, hung from the upper left corner."""
        self.add(
            "MTEXT",
            [(100, "AcDbMText"), *point(10, x, y, 0), (40, height), (41, width), (71, 1), (72, 5), (1, words),
             (7, "Standard"), (73, 1), (44, 1.0)],
        )

    def attribute_definition(self, x, y, height, tag, align="left"):
        definition = [(100, "AcDbAttributeDefinition"), (280, 0), (3, tag.capitalize()), (2, tag), (70, 0), (73, 0)]
        tail = _vertical(74, align) + [(280, 1)]
        self.add("ATTDEF", _text_tags(x, y, height, "", align, 0) + definition + tail)
        self.block.attributes.append((tag, self.layer, x, y, height, align))

    def hatch(self, outlines, pattern="SOLID", families=()):
        """Solid, or line families of (angle, spacing); outlines that run clockwise are holes."""
        tags = [(100, "AcDbHatch"), *point(10, 0, 0, 0), *point(210, 0, 0, 1), (2, pattern)]
        tags += [(70, 0 if families else 1), (71, 0), (91, len(outlines))]
        for outline in outlines:
            tags += [(92, 3 if _is_counter_clockwise(outline) else 2), (72, 0), (73, 1), (93, len(outline))]
            for x, y in outline:
                tags += point(10, x, y)
            tags.append((97, 0))
        tags += [(75, 0), (76, 1)]
        if families:
            tags += [(52, 0), (41, 1), (77, 0), (78, len(families))]
        for angle, spacing in families:
            across = radians(angle + 90)
            tags += [(53, angle), (43, 0), (44, 0), (45, spacing * cos(across)), (46, spacing * sin(across)), (79, 0)]
        tags += [(98, 1), *point(10, 0, 0)]
        self.add("HATCH", tags)

    def insert(self, name, x, y, rotation=0, scale=(1, 1), values=None):
        """A block; `values` fill its attributes by tag."""
        drawing = self.block.drawing
        source = drawing.blocks[name]
        tags = [(100, "AcDbBlockReference")]
        if values:
            tags.append((66, 1))
        tags += [(2, name), *point(10, x, y, 0)]
        if scale != (1, 1):
            tags += [(41, scale[0]), (42, scale[1]), (43, 1)]
        if rotation:
            tags.append((50, rotation))
        insert = self.add("INSERT", tags)
        if not values:
            return
        if rotation or scale != (1, 1):
            raise ValueError("attributes of a turned block are not placed here")
        for tag, layer, dx, dy, height, align in source.attributes:
            layer = self.layer if layer == "0" else layer
            text = _text_tags(x + dx, y + dy, height, values[tag], align, 0)
            attribute = [(100, "AcDbAttribute"), (280, 0), (2, tag), (70, 0), (73, 0), *_vertical(74, align), (280, 1)]
            self._append_to(insert, "ATTRIB", layer, text + attribute)
        self._append_to(insert, "SEQEND", self.layer, [])

    def _append_to(self, owner, kind, layer, tags):
        handle = self.block.drawing.take_handle()
        head = [(0, kind), (5, handle), (330, owner), (100, "AcDbEntity")]
        if self.block.is_sheet:
            head.append((67, 1))
        self.block.entities.append([*head, (8, layer), *tags])


def _text_tags(x, y, height, words, align, rotation):
    horizontal, vertical = _ALIGNMENTS[align]
    tags = [(100, "AcDbText"), *point(10, x, y, 0), (40, height), (1, words)]
    if rotation:
        tags.append((50, rotation))
    tags.append((7, "Standard"))
    if horizontal or vertical:
        tags += [(72, horizontal), *point(11, x, y, 0)]
    return tags


def _vertical(code, align):
    vertical = _ALIGNMENTS[align][1]
    return [(code, vertical)] if vertical else []


def _is_counter_clockwise(outline):
    return sum(x0 * y1 - x1 * y0 for (x0, y0), (x1, y1) in zip(outline, outline[1:] + outline[:1])) > 0

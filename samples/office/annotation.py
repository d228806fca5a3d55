"""Grid, dimensions, room tags and marks."""

from . import building as b
from .pen import Pen


def draw_annotation(drawing):
    pen = Pen(drawing.model, "A-ANNO-DIMS")
    _grid(pen)
    _dimensions(pen)
    _room_tags(pen)
    _marks(pen)


def _grid(pen):
    lines, bubbles = pen.on("S-GRID"), pen.on("S-GRID-IDEN")
    for name, x in b.AXES_X.items():
        lines.line(x, -3300, x, 17300)
        bubbles.insert("GRID-BUBBLE", x, 17750, values={"AXIS": name})
    for name, y in b.AXES_Y.items():
        lines.line(-3300, y, 45000, y)
        bubbles.insert("GRID-BUBBLE", -3750, y, values={"AXIS": name})


def _chain(pen, positions, at, upright=False):
    """A dimension line with a tick and an extension line at every position, a figure between two."""
    place = (lambda along, across: (across, along)) if upright else (lambda along, across: (along, across))
    pen.line(*place(positions[0] - 150, at), *place(positions[-1] + 150, at))
    for position in positions:
        pen.line(*place(position, at - 180), *place(position, at + 180))
        x, y = place(position, at)
        pen.polyline([(x - 95, y - 95), (x + 95, y + 95)], width=25)
    for start, end in zip(positions, positions[1:]):
        x, y = place((start + end) / 2, at)
        figure = f"{round(end - start)}"
        if upright:
            pen.text(x - 80, y, 200, figure, "center", rotation=90)
        else:
            pen.text(x, y + 80, 200, figure, "center")


def _dimensions(pen):
    xs, ys = list(b.AXES_X.values()), list(b.AXES_Y.values())
    openings = sorted({edge for window in b.WINDOWS if window.rotation == 0 for edge in (window.opening[0], window.opening[2])})
    _chain(pen, [b.OUTER[0], *openings, b.OUTER[2]], -1200)
    _chain(pen, xs, -2000)
    _chain(pen, [b.OUTER[0], b.OUTER[2]], -2800)
    _chain(pen, ys, -1300, upright=True)
    _chain(pen, [b.OUTER[1], b.OUTER[3]], -2400, upright=True)
    sides = sorted({edge for window in b.WINDOWS if window.rotation == 90 for edge in (window.opening[1], window.opening[3])})
    _chain(pen, [b.OUTER[1], *sides, b.OUTER[3]], 44700, upright=True)


def _room_tags(pen):
    for room in b.ROOMS:
        x, y = room.tag or room.middle
        values = {"NUMBER": room.number, "NAME": room.name, "AREA": f"{room.area:.1f} m\u00b2"}
        tag = "ROOM-TAG" if room.use in ("office", "meeting") else "ROOM-TAG-SMALL"
        pen.on("A-AREA-IDEN").insert(tag, x, y, values=values)


def _marks(pen):
    section = pen.on("A-ANNO-SECT")
    section.polyline([(19200, -3900), (19200, 18100)])
    marks = pen.on("A-ANNO-SYMB")
    marks.insert("SECTION-MARK", 19200, -4200, values={"SECTION": "A", "SHEET": "301"})
    marks.insert("SECTION-MARK", 19200, 18500, values={"SECTION": "A", "SHEET": "301"})
    marks.insert("NORTH", 47300, 16300)
    pen.on("A-ANNO-NPLT").text(45300, 3000, 250, "Check the fire door at axis 7")
    pen.on("A-ANNO-NPLT").text(45300, 2600, 250, "with the stair supplier.")

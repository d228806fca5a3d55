"""Walls, doors, windows, stair and lifts of the floor."""

from . import building as b
from .geometry import corners, outlines, rectangle
from .pen import Pen


def draw_shell(drawing):
    pen = Pen(drawing.model, "A-WALL-EXTR")
    _fill_rooms(pen)
    _structure(pen)
    _walls(pen)
    _toilet_cubicles(pen.on("A-WALL-TOIL"))
    _openings(pen)
    _stair(pen.on("A-FLOR-STRS"))
    _lifts(pen.on("A-FLOR-EVTR"))
    _tiles(pen.on("A-FLOR-PATT"))


def _fill_rooms(pen):
    fill, border = pen.on("A-AREA-FILL"), pen.on("A-AREA-BNDY")
    for room in b.ROOMS:
        if room.use in ("office", "meeting"):
            fill.hatch([corners(room.box)])
        border.polyline(corners(room.box), closed=True)


def _structure(pen):
    for column in b.COLUMNS:
        pen.on("S-COLS-PATT").hatch([corners(column)])
        pen.on("S-COLS").polyline(corners(column), closed=True)
    beams = pen.on("S-BEAM")
    for x in b.AXES_X.values():
        for side in (-125, 125):
            beams.line(x + side, 175, x + side, 6425)
            beams.line(x + side, 9175, x + side, 15425)
    edge = rectangle(-430, -430, 43630, 16030)
    pen.on("S-SLAB-EDGE").polyline(corners(edge), closed=True)
    holes = pen.on("S-SLAB-OPEN")
    for box in (*b.LIFT_SHAFTS, rectangle(21225, 14000, 21937.5, 15550)):
        holes.polyline(corners(box), closed=True)
        x0, y0, x1, y1 = box
        holes.line(x0, y0, x1, y1)
        holes.line(x0, y1, x1, y0)


def _cuts(material):
    return [door.opening for door in b.DOORS if door.material == material]


def _walls(pen):
    windows = [window.opening for window in b.WINDOWS]
    outer = outlines([b.OUTER], [b.INNER, *windows, *_cuts("outer"), *b.COLUMNS])
    core = outlines(b.CORE, [*_cuts("core"), *b.LIFT_DOORS, *b.COLUMNS])
    partitions = outlines(b.PARTITIONS, [*_cuts("partition"), *b.CORE, *b.COLUMNS])
    glass = outlines([b.GLASS_WALL], [*_cuts("glass"), *b.COLUMNS])
    pattern = pen.on("A-WALL-PATT")
    pattern.hatch(outer, "ANSI31", [(45, 90)])
    pattern.hatch(core)
    for layer, loops in (
        ("A-WALL-EXTR", outer),
        ("A-WALL-CORE", core),
        ("A-WALL-PRTN", partitions),
        ("A-WALL-GLAZ", glass),
    ):
        for loop in loops:
            pen.on(layer).polyline(loop, closed=True)
    _mullions(pen.on("A-WALL-GLAZ"))


def _mullions(pen):
    """Posts every 1.2 m and the pane between them."""
    x0, y0, x1, y1 = b.GLASS_WALL
    taken = _cuts("glass") + b.COLUMNS
    free = lambda x: all(x + 30 <= box[0] or x - 30 >= box[2] or box[1] > y1 or box[3] < y0 for box in taken)
    posts = [x for x in (x0 + 30 + 1190 * k for k in range(15)) if x < x1 and free(x)]
    for x in posts:
        pen.box(x - 25, y0, x + 25, y1)
    for start, end in zip(posts, posts[1:]):
        if end - start < 1300 and all(free(start + (end - start) * k / 8) for k in range(9)):
            pen.line(start + 25, 6600, end - 25, 6600)


def _toilet_cubicles(pen):
    # Women: four along the west wall. Men: two along the outer one.
    depth, width = 23412.5, 1022
    for number in range(4):
        y = 11562.5 + width * number
        if number:
            pen.box(22162.5, y - 15, depth, y + 15)
        _front(pen, along_y=True, at=depth, start=y, width=width)
    for number in range(2):
        x = 24562.5 + 987.5 * number
        if number:
            pen.box(x - 15, 14150, x + 15, 15650)
        _front(pen, along_y=False, at=14150, start=x, width=987.5)


def _front(pen, along_y, at, start, width):
    """The front of a cubicle: two panels, and a door that opens outwards."""
    gap = (width - 650) / 2
    for a, c in ((start, start + gap), (start + width - gap, start + width)):
        pen.box(*((at, a, at + 30, c) if along_y else (a, at - 30, c, at)))
    if along_y:
        pen.insert("DOOR-650", at + 30, start + gap, rotation=90, scale=(1, -1))
    else:
        pen.insert("DOOR-650", start + gap, at - 30, scale=(1, -1))


def _openings(pen):
    for window in b.WINDOWS:
        pen.on("A-GLAZ").insert(window.block, *window.at, rotation=window.rotation)
    for door in b.DOORS:
        pen.on("A-DOOR").insert(door.block, *door.hinge, rotation=door.rotation, scale=door.scale)
        x, y = door.middle
        x0, y0, x1, y1 = door.opening
        shift = (0, -700 if door.scale[1] > 0 else 700) if x1 - x0 > y1 - y0 else (-700, 0)
        pen.on("A-DOOR-IDEN").insert("DOOR-TAG", x + shift[0], y + shift[1], values={"NUMBER": door.number})


def _stair(pen):
    x0, _, x1, _ = b.STAIR
    start, tread, count = 11100, 280, 10
    end = start + tread * count
    for left, right in ((x0, x0 + 1300), (x1 - 1300, x1)):
        for step in range(count + 1):
            pen.line(left, start + step * tread, right, start + step * tread)
    well = (x0 + 1300, x1 - 1300)
    pen.box(well[0], start - 60, well[1], end + 60)
    pen.box(well[0] + 45, start - 15, well[1] - 45, end + 15)
    # The walking line: up on the left, around, cut off on the right.
    pen.circle(x0 + 650, start, 60)
    pen.polyline([(x0 + 650, start + 60), (x0 + 650, end + 700), (x1 - 650, end + 700), (x1 - 650, start + 4 * tread)])
    pen.polyline([(x1 - 770, start + 4 * tread + 260), (x1 - 650, start + 4 * tread), (x1 - 530, start + 4 * tread + 260)])
    y = start + 3 * tread
    for shift in (0, 90):
        middle = (x1 - 650, y + shift)
        pen.polyline([(x1 - 1300, y - 250 + shift), (middle[0] - 60, middle[1] - 20), (middle[0] - 30, middle[1] + 110),
                      (middle[0] + 30, middle[1] - 110), (middle[0] + 60, middle[1] + 20), (x1, y + 250 + shift)])
    pen.text(x0 + 650, start - 330, 180, "UP", "center")


def _lifts(pen):
    for shaft, door in zip(b.LIFT_SHAFTS, b.LIFT_DOORS):
        x0, y0, x1, y1 = shaft
        car = (x0 + 190, y0 + 120, x1 - 190, y0 + 1560)
        pen.box(*car)
        pen.line(car[0], car[1], car[2], car[3])
        pen.line(car[0], car[3], car[2], car[1])
        pen.box(x0 + 340, y1 - 300, x1 - 340, y1 - 120)
        middle = (door[0] + door[2]) / 2
        for left, right, y in ((door[0] - 330, middle, door[3] - 60), (middle, door[2] + 330, door[3] - 60)):
            pen.box(left, y, right, y + 40)


def _tiles(pen):
    for number in ("2.13", "2.14", "2.15"):
        room = next(room for room in b.ROOMS if room.number == number)
        pen.hatch([corners(room.box)], "NET", [(0, 300), (90, 300)])

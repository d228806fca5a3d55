"""The second floor: axes, walls, openings, doors and rooms. Millimetres; axis 1/A is the origin."""

from dataclasses import dataclass

from .geometry import rectangle

AXES_X = {str(number + 1): number * 7200 for number in range(7)}
AXES_Y = {"A": 0, "B": 6600, "C": 9000, "D": 15600}
OUTER = rectangle(-415, -415, 43615, 16015)
INNER = rectangle(-50, -50, 43250, 15650)
COLUMN = 350
# Where the core carries.
_WITHOUT_COLUMN = {"3C", "3D", "4C"}

CORRIDOR_SOUTH = (6525, 6675)
CORRIDOR_NORTH = (8925, 9075)

COLUMNS = [
    rectangle(x - COLUMN / 2, y - COLUMN / 2, x + COLUMN / 2, y + COLUMN / 2)
    for number, x in AXES_X.items()
    for letter, y in AXES_Y.items()
    if number + letter not in _WITHOUT_COLUMN
]

CORE = [
    rectangle(14275, 8875, 14525, 15650),
    rectangle(17275, 8875, 17525, 15650),
    rectangle(20875, 8875, 21125, 15650),
    rectangle(14275, 8875, 21125, 9125),
    rectangle(17525, 15450, 20875, 15650),
    rectangle(17525, 13100, 20875, 13300),
    rectangle(19100, 13100, 19300, 15650),
]
LIFT_SHAFTS = [rectangle(17525, 13300, 19100, 15450), rectangle(19300, 13300, 20875, 15450)]
LIFT_DOORS = [rectangle(17862.5, 13100, 18762.5, 13300), rectangle(19637.5, 13100, 20537.5, 13300)]
STAIR = rectangle(14525, 9125, 17275, 15650)


def _cross_walls(xs, y0, y1):
    return [rectangle(x - 62.5, y0, x + 62.5, y1) for x in xs]


PARTITIONS = [
    rectangle(-50, CORRIDOR_SOUTH[0], 12000, CORRIDOR_SOUTH[1]),
    rectangle(28800, CORRIDOR_SOUTH[0], 43250, CORRIDOR_SOUTH[1]),
    rectangle(-50, CORRIDOR_NORTH[0], 14275, CORRIDOR_NORTH[1]),
    rectangle(21125, CORRIDOR_NORTH[0], 43250, CORRIDOR_NORTH[1]),
    *_cross_walls((7200, 12000, 28800, 33600, 38400), -50, 6675),
    *_cross_walls((4800, 9600, 22100, 24500, 26600, 28800, 33600, 36000, 38400), 9000, 15650),
    rectangle(22100, 11437.5, 26600, 11562.5),
    rectangle(26600, 11337.5, 28800, 11462.5),
]
GLASS_WALL = rectangle(12062.5, 6550, 28737.5, 6650)


@dataclass
class Door:
    """An opening in a wall and the leaf in it."""

    number: str
    block: str
    opening: tuple  # the box cut out of the wall
    hinge: tuple
    rotation: float = 0
    scale: tuple = (1, 1)
    material: str = "partition"

    @property
    def middle(self):
        x0, y0, x1, y1 = self.opening
        return ((x0 + x1) / 2, (y0 + y1) / 2)


def _south(number, x, width=1010, hinge="left", wall=CORRIDOR_SOUTH, **more):
    """A door in a wall along x that opens towards -y."""
    at, scale = (x, (1, -1)) if hinge == "left" else (x + width, (-1, -1))
    return Door(number, f"DOOR-{width}", rectangle(x, wall[0], x + width, wall[1]), (at, wall[0]), scale=scale, **more)


def _north(number, x, width=1010, hinge="left", wall=CORRIDOR_NORTH, **more):
    """A door in a wall along x that opens towards +y."""
    at, scale = (x, (1, 1)) if hinge == "left" else (x + width, (-1, 1))
    return Door(number, f"DOOR-{width}", rectangle(x, wall[0], x + width, wall[1]), (at, wall[1]), scale=scale, **more)


def _double(number, x, width, wall, direction, material):
    face = wall[1] if direction > 0 else wall[0]
    box = rectangle(x, wall[0], x + width, wall[1])
    return Door(number, f"DOOR-DBL-{width}", box, (x, face), scale=(1, direction), material=material)


_CORE_WALL = (8875, 9125)
_TOILET_WALL = (11437.5, 11562.5)

DOORS = [
    _south("201", 5700, hinge="right"),
    _south("202", 10600, hinge="right"),
    _south("203A", 12600, wall=(6550, 6650), material="glass"),
    _double("203B", 18600, 1800, (6550, 6650), -1, "glass"),
    _south("203C", 27100, hinge="right", wall=(6550, 6650), material="glass"),
    _south("204", 29400),
    _south("205", 36900, hinge="right"),
    _south("206", 38900),
    _north("207", 3400, hinge="right"),
    _north("208", 5200),
    _north("209", 10000),
    _north("210", 15395, wall=_CORE_WALL, material="core"),
    _double("211", 18200, 2000, _CORE_WALL, 1, "core"),
    _south("212", 21230, width=760, wall=CORRIDOR_NORTH),
    _north("213", 22560, width=885),
    _north("213A", 23500, width=760, hinge="right", wall=_TOILET_WALL),
    _north("214", 25400, width=885, hinge="right"),
    _north("214A", 25500, width=760, hinge="right", wall=_TOILET_WALL),
    _south("215", 27500, wall=CORRIDOR_NORTH, hinge="right"),
    Door("216", "DOOR-885", rectangle(28737.5, 12300, 28862.5, 13185), (28862.5, 12300), rotation=90, scale=(1, -1)),
    _north("217", 29400),
    _north("218", 34300),
    _north("219", 36900),
    _north("220", 38900),
    Door("221", "DOOR-1010", rectangle(43250, 7295, 43615, 8305), (43615, 7295), rotation=90, scale=(1, -1), material="outer"),
]


@dataclass
class Window:
    block: str
    opening: tuple
    at: tuple
    rotation: float


def _windows():
    found = []
    for number in range(18):
        x = 1200 + 2400 * number
        found.append(Window("WINDOW-1800", rectangle(x - 900, -415, x + 900, -50), (x, -415), 0))
        if 17400 < x < 28800:
            continue  # the lifts have none, the toilets small ones
        found.append(Window("WINDOW-1800", rectangle(x - 900, 15650, x + 900, 16015), (x, 16015), 180))
    for x in (23300, 25550, 27700):
        found.append(Window("WINDOW-900", rectangle(x - 450, 15650, x + 450, 16015), (x, 16015), 180))
    for y in (2100, 4500, 11100, 13500):
        found.append(Window("WINDOW-1800", rectangle(-415, y - 900, -50, y + 900), (-415, y), 270))
        found.append(Window("WINDOW-1800", rectangle(43250, y - 900, 43615, y + 900), (43615, y), 90))
    found.append(Window("WINDOW-1200", rectangle(-415, 7200, -50, 8400), (-415, 7800), 270))
    return found


WINDOWS = _windows()


@dataclass
class Room:
    number: str
    name: str
    box: tuple  # clear of walls
    use: str
    tag: tuple = None  # where its tag stands; the middle without one

    @property
    def area(self):
        x0, y0, x1, y1 = self.box
        return (x1 - x0) * (y1 - y0) / 1e6

    @property
    def middle(self):
        x0, y0, x1, y1 = self.box
        return ((x0 + x1) / 2, (y0 + y1) / 2)


_SOUTH = (-50, 6525)
_NORTH = (9075, 15650)


def _room(number, name, x0, x1, depth, use, tag=None):
    return Room(number, name, rectangle(x0, depth[0], x1, depth[1]), use, tag)


ROOMS = [
    _room("2.01", "CONFERENCE", -50, 7137.5, _SOUTH, "meeting", (1400, 5700)),
    _room("2.02", "PROJECT TEAM", 7262.5, 11937.5, _SOUTH, "office", (9000, 5700)),
    _room("2.03", "OPEN OFFICE", 12062.5, 28737.5, (-50, 6550), "office", (17600, 5550)),
    _room("2.04", "MEETING", 28862.5, 33537.5, _SOUTH, "meeting", (32000, 5700)),
    _room("2.05", "ACCOUNTS", 33662.5, 38337.5, _SOUTH, "office", (35300, 5700)),
    _room("2.06", "DESIGN", 38462.5, 43250, _SOUTH, "office", (41400, 5700)),
    _room("2.07", "PLANNING", -50, 4737.5, _NORTH, "office", (1600, 9850)),
    _room("2.08", "SURVEY", 4862.5, 9537.5, _NORTH, "office", (7900, 9850)),
    _room("2.09", "TENDERING", 9662.5, 14275, _NORTH, "office", (12600, 9850)),
    Room("2.10", "STAIR 1", STAIR, "circulation", (16830, 10350)),
    _room("2.11", "LIFT LOBBY", 17525, 20875, (9125, 13100), "circulation", (19200, 11700)),
    _room("2.12", "RISER", 21125, 22037.5, _NORTH, "service", (21580, 11400)),
    _room("2.13", "WOMEN", 22162.5, 24437.5, _NORTH, "sanitary", (23500, 10550)),
    _room("2.14", "MEN", 24562.5, 26537.5, _NORTH, "sanitary", (25600, 10550)),
    _room("2.15", "ACC. WC", 26662.5, 28737.5, (9075, 11337.5), "sanitary", (27600, 10150)),
    _room("2.16", "STORE", 26662.5, 28737.5, (11462.5, 15650), "service"),
    _room("2.17", "KITCHEN", 28862.5, 33537.5, _NORTH, "meeting", (32000, 9850)),
    _room("2.18", "IT", 33662.5, 35937.5, _NORTH, "service", (34800, 10900)),
    _room("2.19", "COPYING", 36062.5, 38337.5, _NORTH, "service", (37200, 10900)),
    _room("2.20", "DIRECTOR", 38462.5, 43250, _NORTH, "office", (41500, 9850)),
    Room("2.21", "CORRIDOR", rectangle(-50, 6675, 43250, 8925), "circulation", (8400, 7800)),
]

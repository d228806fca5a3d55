"""Electrical, mechanical, plumbing and fire services."""

from . import building as b
from .geometry import steps_between
from .pen import Pen


def draw_services(drawing):
    pen = Pen(drawing.model, "E-LITE")
    _ceiling(pen)
    _lighting(pen)
    _power_and_data(pen)
    _ventilation(pen)
    _heating(pen)
    _water(pen)
    _fire_protection(pen)


def _rooms(*uses):
    return [room for room in b.ROOMS if room.use in uses]


def _ceiling(pen):
    grid = pen.on("A-CLNG-GRID")
    for room in _rooms("office", "meeting"):
        x0, y0, x1, y1 = room.box
        middle = room.middle
        for k in range(-int((x1 - x0) / 1200) - 1, int((x1 - x0) / 1200) + 2):
            x = middle[0] + 600 * k
            if x0 < x < x1:
                grid.line(x, y0, x, y1)
        for k in range(-int((y1 - y0) / 1200) - 1, int((y1 - y0) / 1200) + 2):
            y = middle[1] + 600 * k
            if y0 < y < y1:
                grid.line(x0, y, x1, y)


def _lighting(pen):
    circuits, switches = pen.on("E-LITE-CIRC"), pen.on("E-LITE-SWCH")
    for room in _rooms("office", "meeting"):
        x0, y0, x1, y1 = room.box
        columns = steps_between(x0, x1, 2400)
        # The strip along the corridor is left to the room's tag.
        rows = steps_between(y0 + 1500, y1 - 200, 1700) if y0 > 8000 else steps_between(y0 + 200, y1 - 1500, 1700)
        for y in rows:
            for x in columns:
                pen.insert("LIGHT-PANEL", x, y)
            circuits.polyline([(x, y) for x in columns])
        circuits.polyline([(columns[0], y) for y in rows])
    for room in _rooms("sanitary", "service"):
        x0, y0, x1, y1 = room.box
        for y in steps_between(y0, y1, 2000):
            pen.insert("LIGHT-DOWN", room.middle[0], y)
    corridor = steps_between(-50, 43250, 2400)
    for x in corridor:
        pen.insert("LIGHT-DOWN", x, 6980)
    circuits.polyline([(corridor[0], 6980), (corridor[-1], 6980)])
    for y in (9900, 14700):
        pen.insert("LIGHT-PANEL", 15900, y)
    for x in (18300, 20100):
        pen.insert("LIGHT-DOWN", x, 11000)
    for door in b.DOORS:
        if door.block == "DOOR-1010" and door.material != "outer":
            x0, y0, x1, y1 = door.opening
            upwards = door.scale[1] > 0
            # On the handle side, inside the room.
            x = x1 + 200 if door.scale[0] > 0 else x0 - 200
            switches.insert("SWITCH", x, y1 + 60 if upwards else y0 - 60, scale=(1, 1 if upwards else -1))
    escape = pen.on("E-LITE-EMER")
    for x, rotation in ((2400, 0), (9000, 0), (15900, 90), (24000, 180), (33600, 0), (42600, 0)):
        escape.insert("LIGHT-ESCAPE", x, 8300, rotation=rotation)
    escape.insert("LIGHT-ESCAPE", 19100, 6200, rotation=90)


def _power_and_data(pen):
    outlets, data = pen.on("E-POWR-OUTL"), pen.on("E-DATA")
    for room in _rooms("office", "meeting"):
        if room.number == "2.03":
            continue
        x0, y0, x1, y1 = room.box
        north = y0 > 8000
        y, rotation = (y1, 180) if north else (y0, 0)
        for x in steps_between(x0, x1, 2400):
            outlets.insert("SOCKET", x - 130, y, rotation=rotation)
            data.insert("DATA-OUTLET", x + 130, y, rotation=rotation)
        for x, turn in ((x0, 270), (x1, 90)):
            for height in steps_between(y0 + 500, y1 - 500, 2800):
                outlets.insert("SOCKET", x, height, rotation=turn)
    boxes = pen.on("E-POWR-FLOR")
    for x in (14100, 18300, 22500, 26700):
        for y in (1200, 2850, 4300):
            boxes.insert("FLOOR-BOX", x, y)
    for x in (2400, 4600):
        boxes.insert("FLOOR-BOX", x, 2700)
    for x in steps_between(0, 43200, 7200):
        outlets.insert("SOCKET", x, 8925, rotation=180)
        pen.on("E-DATA-WLAN").insert("ACCESS-POINT", x + 1500, 7500)
    panels = pen.on("E-POWR-PANL")
    panels.insert("DISTRIBUTION", 21237, 9800, rotation=270)
    panels.insert("DISTRIBUTION", 35937, 11900, rotation=90)
    tray = pen.on("E-POWR-TRAY")
    tray.box(600, 8450, 42700, 8750)
    for x in range(1200, 42700, 600):
        tray.line(x, 8450, x, 8750)
    tray.box(21400, 8750, 21700, 13500)


def _duct(pen, x0, y0, x1, y1):
    pen.box(x0, y0, x1, y1)


def _ventilation(pen):
    supply, outlets, back = pen.on("M-DUCT-SUPP"), pen.on("M-DIFF"), pen.on("M-DUCT-RETN")
    _duct(supply, 1500, 7000, 21500, 7500)
    _duct(supply, 21500, 7050, 42300, 7450)
    _duct(supply, 21250, 7500, 21650, 14600)
    _duct(back, 1500, 7900, 42300, 8300)
    _duct(back, 21680, 8300, 21980, 15000)
    for room in _rooms("office", "meeting"):
        x0, y0, x1, y1 = room.box
        north = y0 > 8000
        middle = room.middle[1]
        for x in steps_between(x0, x1, 4800):
            start = 7500 if north else 7000
            if north and not 21000 < x < 21700:
                start = 7450 if x > 21500 else 7500
            elif not north and x > 21500:
                start = 7050
            near = middle - 300 if north else middle + 300
            _duct(supply, x - 125, min(start, near), x + 125, max(start, near))
            outlets.insert("DIFFUSER", x, middle)
            # Air leaves the room near its door.
            exhaust = y0 + 600 if north else y1 - 600
            back.insert("DIFFUSER", x + 900, exhaust)
            back.line(x + 900, exhaust + (-300 if north else 300), x + 900, 8300 if north else 7900)


def _heating(pen):
    radiators, pipes = pen.on("M-RADI"), pen.on("M-PIPE-HEAT")
    for window in b.WINDOWS:
        if window.block != "WINDOW-1800":
            continue
        x, y = window.at
        if window.rotation == 0:
            radiators.insert("RADIATOR-1600", x, -30)
        elif window.rotation == 180:
            radiators.insert("RADIATOR-1600", x, 15630, rotation=180)
        elif window.rotation == 270:
            radiators.insert("RADIATOR-1600", -30, y, rotation=270)
        else:
            radiators.insert("RADIATOR-1600", 43230, y, rotation=90)
    for shift in (0, 60):
        pipes.polyline([(21700, 14800), (21700, 8800 + shift), (200 - shift, 8800 + shift), (200 - shift, 130 - shift),
                        (43000 + shift, 130 - shift), (43000 + shift, 15470 + shift), (29200, 15470 + shift)])


def _water(pen):
    cold, hot, drain = pen.on("P-PIPE-COLD"), pen.on("P-PIPE-HOTW"), pen.on("P-PIPE-DRAN")
    cold.circle(21850, 14200, 50)
    hot.circle(21850, 14000, 40)
    drain.circle(21850, 14600, 75)
    cold.polyline([(21850, 14200), (22240, 14200), (22240, 9450), (24640, 9450), (24640, 15570), (26460, 15570), (26460, 11900)])
    cold.polyline([(24640, 9300), (28660, 9300), (28660, 10600)])
    hot.polyline([(21850, 14000), (22300, 14000), (22300, 9520), (24700, 9520), (24700, 10700)])
    hot.polyline([(24700, 9520), (27300, 9520), (27300, 11250)])
    drain.polyline([(21850, 14600), (22420, 14600), (22420, 12073)])
    drain.polyline([(22420, 14600), (24860, 15300), (26044, 15300)])
    drain.polyline([(24860, 15300), (24860, 9900)])
    drain.polyline([(26044, 15300), (28400, 15300), (28400, 10600)])


def _fire_protection(pen):
    detectors, sprinklers = pen.on("F-DETC"), pen.on("F-SPRN")
    for room in _rooms("office", "meeting", "service"):
        x0, y0, x1, y1 = room.box
        for x in steps_between(x0, x1, 7000):
            detectors.insert("SMOKE-DETECTOR", x + (600 if x1 - x0 > 2500 else 0), room.middle[1] + 700)
    for x in steps_between(-50, 43250, 7200):
        detectors.insert("SMOKE-DETECTOR", x, 7800 + 450)
    for room in _rooms("office", "meeting"):
        x0, y0, x1, y1 = room.box
        for x in steps_between(x0, x1, 3000):
            for y in steps_between(y0, y1, 3000):
                sprinklers.insert("SPRINKLER", x, y)
    for x, y, rotation in ((12000, 6675, 0), (27000, 8925, 180), (42000, 6675, 0), (18000, 9125, 0)):
        pen.on("F-EXTI").insert("EXTINGUISHER", x, y, rotation=rotation)
    _compartments(pen.on("F-WALL-RATE"))
    _escape_routes(pen.on("F-ESCP"))


def _compartments(pen):
    pen.polyline([(14400, 15650), (14400, 9000), (21000, 9000), (21000, 15650)])
    pen.polyline([(17400, 9000), (17400, 15650)])
    pen.polyline([(33600, 9000), (33600, 15650), (36000, 15650), (36000, 9000)], closed=True)


def _escape_routes(pen):
    """Walking lines with an arrow head at the exit."""
    for corners in (
        [(700, 7300), (15500, 7300), (15900, 7700), (15900, 10000)],
        [(18600, 3900), (19500, 5000), (19500, 6900), (19100, 7300), (16300, 7300)],
        [(24000, 7300), (44300, 7300)],
        [(37400, 5000), (37400, 6900), (37800, 7300)],
        [(3900, 12000), (3900, 7700), (4300, 7300)],
    ):
        pen.polyline(corners)
        (x0, y0), (x1, y1) = corners[-2:]
        length = ((x1 - x0) ** 2 + (y1 - y0) ** 2) ** 0.5
        dx, dy = (x1 - x0) / length * 320, (y1 - y0) / length * 320
        tip = [(x1, y1), (x1 - dx - dy * 0.35, y1 - dy + dx * 0.35), (x1 - dx + dy * 0.35, y1 - dy - dx * 0.35)]
        pen.polyline(tip, closed=True)

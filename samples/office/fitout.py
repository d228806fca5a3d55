"""Furniture, equipment and sanitary fixtures."""

from math import cos, radians, sin

from .pen import Pen


def draw_fitout(drawing):
    pen = Pen(drawing.model, "A-FURN-DESK")
    _meeting_rooms(pen)
    _team_rooms(pen)
    _open_office(pen)
    _director(pen)
    _kitchen(pen)
    _service_rooms(pen)
    _toilets(pen.on("P-FIXT-SANR"))


def _workplace(pen, x, y, rotation, desk="DESK-1600"):
    """A desk and its chair; at rotation 0 the person sits to the south and looks north."""
    pen.on("A-FURN-DESK").insert(desk, x, y, rotation=rotation)
    back = radians(rotation - 90)
    # Chairs are never quite in line.
    turn = (round(x / 100) * 7 + round(y / 100) * 13) % 5 * 8 - 16
    reach = 700 if desk == "DESK-1600" else 800
    pen.on("A-FURN-CHAR").insert("CHAIR-TASK", x + reach * cos(back), y + reach * sin(back), rotation=(rotation + turn) % 360)


def _pair(pen, x, y, upright=True):
    """Two desks face to face."""
    if upright:
        _workplace(pen, x - 400, y, 270)
        _workplace(pen, x + 400, y, 90)
    else:
        _workplace(pen, x, y - 400, 0)
        _workplace(pen, x, y + 400, 180)


def _cupboards(pen, x, y, rotation, count, block="CUPBOARD-1200", width=1200):
    """A row along a wall, from (x, y) on in the direction of the rotation."""
    along = radians(rotation)
    for number in range(count):
        reach = width * (number + 0.5)
        pen.on("A-FURN-STOR").insert(block, x + reach * cos(along), y + reach * sin(along), rotation=rotation)


def _chairs(pen, places, block="CHAIR-VISITOR"):
    for x, y, rotation in places:
        pen.on("A-FURN-CHAR").insert(block, x, y, rotation=rotation)


def _plants(pen, *places):
    for x, y in places:
        pen.on("A-FURN-PLNT").insert("PLANT", x, y)


def _table_with_chairs(pen, block, x, y, length, depth, per_side):
    pen.insert(block, x, y)
    gap = length / per_side
    for number in range(per_side):
        at = x - length / 2 + gap * (number + 0.5)
        _chairs(pen, [(at, y - depth / 2 - 220, 0), (at, y + depth / 2 + 220, 180)])
    _chairs(pen, [(x - length / 2 - 330, y, 270), (x + length / 2 + 330, y, 90)])


def _meeting_rooms(pen):
    _table_with_chairs(pen, "TABLE-4800", 3500, 2700, 4800, 1500, 6)
    _cupboards(pen, 2000, 5900, 0, 2)
    _plants(pen, (350, 350), (6750, 350))
    _table_with_chairs(pen, "TABLE-2400", 31200, 2600, 2400, 1200, 3)
    pen.on("A-FURN-STOR").insert("CUPBOARD-1200", 33520, 3200, rotation=90)
    _plants(pen, (29250, 400))


def _team_rooms(pen):
    for x, y in ((8700, 1600), (8700, 3200), (10800, 1600), (10800, 3200)):
        _workplace(pen, x, y, 90 if x > 9000 else 270)
    _cupboards(pen, 7262, 5700, 270, 1)
    _cupboards(pen, 11937, 4700, 90, 1)
    _plants(pen, (9750, 450))
    for x in (36000,):
        _pair(pen, x, 1600)
        _pair(pen, x, 3200)
    _cupboards(pen, 38337, 1000, 90, 2)
    _cupboards(pen, 33662, 4000, 270, 2)
    _pair(pen, 40100, 1500)
    _workplace(pen, 42300, 3700, 90)
    _cupboards(pen, 38462, 5600, 270, 2)
    _plants(pen, (42850, 350), (42850, 6150))
    for x in (2300, 7300, 12000):
        _pair(pen, x, 13300)
    for x in (4737, 9537, 14275):
        _cupboards(pen, x, 10700, 90, 2)
    for x in (350, 5200, 10000):
        _plants(pen, (x, 15250))


def _open_office(pen):
    for x in (14100, 18300, 22500, 26700):
        _pair(pen, x, 1200)
        _pair(pen, x, 2850)
    for x in (16200, 20400, 24600):
        for y in (600, 1800):
            pen.on("A-FURN-STOR").insert("CUPBOARD-1200", x, y + 600, rotation=90)
            pen.on("A-FURN-STOR").insert("CUPBOARD-1200", x, y + 600, rotation=270)
        _plants(pen, (x, 3450))
    pen.insert("TABLE-ROUND", 15700, 5000)
    _chairs(pen, [(15700, 4250, 0), (15700, 5750, 180), (14950, 5000, 270), (16450, 5000, 90)])
    seats = pen.on("A-FURN-CHAR")
    seats.insert("SOFA-1900", 23700, 5900)
    seats.insert("ARMCHAIR", 22000, 4900, rotation=90)
    seats.insert("ARMCHAIR", 25400, 4900, rotation=270)
    pen.rounded_box(23100, 4550, 24300, 5050, 80)
    _plants(pen, (12450, 350), (28350, 350), (22300, 6150), (25100, 6150))


def _director(pen):
    _workplace(pen, 40900, 13700, 0, "DESK-2000")
    _chairs(pen, [(40500, 14600, 180), (41300, 14600, 180)])
    _cupboards(pen, 39200, 15150, 0, 1, "CUPBOARD-800", 800)
    pen.insert("TABLE-ROUND", 42300, 11100)
    _chairs(pen, [(42300, 10350, 0), (42300, 11850, 180), (41550, 11100, 270)])
    _cupboards(pen, 38462, 13900, 270, 2)
    _plants(pen, (42850, 15250), (42850, 9450))


def _kitchen(pen):
    counter = pen.on("A-FURN-STOR")
    counter.polyline([(33537, 10600), (32937, 10600), (32937, 15050), (30400, 15050), (30400, 15650)])
    equipment = pen.on("A-EQPM")
    equipment.insert("SINK", 33237, 12200, rotation=90)
    equipment.insert("HOB", 33237, 13700, rotation=90)
    equipment.insert("REFRIGERATOR", 30080, 15330)
    pen.insert("TABLE-2400", 31000, 12600, rotation=90)
    _chairs(pen, [(30180, 11900, 270), (30180, 12600, 270), (30180, 13300, 270)])
    _chairs(pen, [(31820, 11900, 90), (31820, 12600, 90), (31820, 13300, 90)])
    _plants(pen, (29300, 15200))


def _service_rooms(pen):
    equipment = pen.on("A-EQPM")
    for x in (34150, 34800, 35450):
        equipment.insert("RACK", x, 13300)
    equipment.box(33700, 14900, 34600, 15600)
    equipment.text(34150, 15180, 140, "COOLING", "center")
    equipment.insert("COPIER", 37200, 14900)
    _cupboards(pen, 38337, 11400, 90, 2)
    _cupboards(pen, 36062, 13800, 270, 2)
    _cupboards(pen, 26662, 15500, 270, 3)
    _cupboards(pen, 27200, 11462, 0, 1)


def _toilets(pen):
    for number in range(4):
        pen.insert("TOILET", 22162, 11562 + 1022 * (number + 0.5), rotation=270)
    for y in (9600, 10300, 11000):
        pen.insert("WASHBASIN", 22162, y, rotation=270)
    for x in (25056, 26044):
        pen.insert("TOILET", x, 15650, rotation=180)
    for y in (12100, 12800, 13500):
        pen.insert("URINAL", 26537, y, rotation=90)
    for y in (9900, 10700):
        pen.insert("WASHBASIN", 24562, y, rotation=270)
    pen.insert("TOILET", 28737, 10600, rotation=90)
    pen.insert("WASHBASIN", 27300, 11337, rotation=180)
    for y in (10250, 10950):
        pen.insert("GRAB-RAIL", 28450, y)
    pen.on("A-ANNO-NPLT").circle(27600, 10150, 750)
    pen.insert("WASHBASIN", 28500, 15650, rotation=180)

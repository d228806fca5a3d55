"""Symbols of the building: doors, windows, furniture, fixtures. Millimetres; what lies on layer 0
takes the layer of the insert."""

from .drawing import Block
from .pen import Pen


def _door(pen, width):
    """Hinge in the origin, opening along +x, leaf opened towards +y."""
    pen.box(0, 0, 40, width)
    pen.on("A-DOOR-SWNG").arc(0, 0, width, 0, 90)


def _double_door(pen, width):
    half = width / 2
    _door(pen, half)
    pen.box(width - 40, 0, width, half)
    pen.on("A-DOOR-SWNG").arc(width, 0, half, 90, 180)


def _window(pen, width):
    """Centred on x; y runs from the outer face to the inner one, 365 mm."""
    half = width / 2
    pen.box(-half, 110, -half + 60, 180)
    pen.box(half - 60, 110, half, 180)
    if width > 1000:
        pen.box(-30, 110, 30, 180)
    pen.line(-half + 60, 138, half - 60, 138)
    pen.line(-half + 60, 152, half - 60, 152)
    sill = pen.on("A-GLAZ-SILL")
    sill.polyline([(-half, 110), (-half, 0), (-half - 30, 0), (-half - 30, -40), (half + 30, -40), (half + 30, 0), (half, 0), (half, 110)])
    sill.polyline([(-half, 180), (-half, 385), (half, 385), (half, 180)])


def _desk(pen, width, depth):
    """Centred; who works at it sits at -y."""
    x, y = width / 2, depth / 2
    pen.rounded_box(-x, -y, x, y, 40)
    pen.box(-300, y - 190, 300, y - 150)
    pen.box(-90, y - 230, 90, y - 110)
    pen.box(-230, -y + 120, 210, -y + 260)
    pen.circle(x - 120, y - 100, 40)


def _task_chair(pen):
    pen.rounded_box(-240, -220, 240, 240, 90)
    pen.polyline([(-230, -270, 0.3), (230, -270)])
    pen.polyline([(-200, -220, 0.25), (200, -220)])
    pen.polyline([(-290, -120), (-290, 140)])
    pen.polyline([(290, -120), (290, 140)])


def _visitor_chair(pen):
    pen.rounded_box(-220, -200, 220, 220, 60)
    pen.polyline([(-220, -240, 0.2), (220, -240)])


def _boat_table(pen, width, depth):
    x, y = width / 2, depth / 2
    pen.polyline([(-x, -y * 0.8, 0.08), (x, -y * 0.8, 0.2), (x, y * 0.8, 0.08), (-x, y * 0.8, 0.2)], closed=True)
    pen.box(-x * 0.4, -60, x * 0.4, 60)


def _round_table(pen, radius):
    pen.circle(0, 0, radius)
    pen.circle(0, 0, 60)


def _cupboard(pen, width, depth):
    """Its back along y = 0."""
    pen.box(-width / 2, 0, width / 2, depth)
    pen.line(-width / 2, 0, width / 2, depth)
    pen.line(0, depth, 0, depth - 40)


def _sofa(pen, width, depth=850):
    x = width / 2
    pen.rounded_box(-x, -depth / 2, x, depth / 2, 80)
    pen.rounded_box(-x + 150, -depth / 2, x - 150, depth / 2 - 200, 60)
    pen.line(0, -depth / 2, 0, depth / 2 - 200)


def _plant(pen):
    pen.circle(0, 0, 160)
    for bulge in (0.35, -0.35):
        pen.polyline([(-280, 0, bulge), (280, 0)])
        pen.polyline([(0, -280, bulge), (0, 280)])
        pen.polyline([(-200, -200, bulge), (200, 200)])
        pen.polyline([(-200, 200, bulge), (200, -200)])


def _copier(pen):
    pen.rounded_box(-420, -350, 420, 350, 30)
    pen.box(-330, -120, 330, 280)
    pen.box(-560, -180, -420, 180)


def _refrigerator(pen):
    pen.box(-300, -300, 300, 300)
    pen.line(-300, -260, 300, -260)
    pen.text(0, 0, 180, "REF", "middle")


def _rack(pen):
    pen.box(-300, -500, 300, 500)
    pen.line(-300, -500, 300, 500)
    pen.line(-300, 500, 300, -500)


def _sink(pen):
    pen.rounded_box(-400, -220, 400, 220, 40)
    pen.rounded_box(-360, -180, 0, 180, 60)
    pen.circle(-180, 0, 30)
    for x in (60, 140, 220, 300):
        pen.line(x, -170, x, 170)


def _hob(pen):
    pen.box(-290, -250, 290, 250)
    for x, y, radius in ((-140, -110, 80), (140, -110, 100), (-140, 120, 100), (140, 120, 80)):
        pen.circle(x, y, radius)


def _toilet(pen):
    """Its back to the wall along y = 0."""
    pen.rounded_box(-190, 0, 190, 150, 30)
    pen.ellipse(0, 370, 180, 230)
    pen.ellipse(0, 380, 125, 170)


def _washbasin(pen):
    pen.polyline([(-275, 0), (275, 0), (275, 280, 0.35), (-275, 280)], closed=True)
    pen.ellipse(0, 210, 190, 130)
    pen.circle(0, 60, 25)


def _urinal(pen):
    pen.polyline([(-180, 0), (180, 0), (180, 120, 0.8), (-180, 120)], closed=True)
    pen.ellipse(0, 150, 100, 80)


def _grab_rail(pen):
    pen.box(-300, 0, 300, 35)


def _panel_light(pen):
    pen.box(-600, -150, 600, 150)
    pen.line(-600, 0, 600, 0)


def _downlight(pen):
    pen.circle(0, 0, 110)
    pen.line(-110, 0, 110, 0)
    pen.line(0, -110, 0, 110)


def _escape_sign(pen):
    pen.box(-220, -110, 220, 110)
    pen.polyline([(-140, 0), (100, 0)])
    pen.polyline([(30, 60), (120, 0), (30, -60)])


def _switch(pen):
    pen.circle(0, 0, 60)
    pen.polyline([(42, 42), (170, 170), (215, 125)])


def _socket(pen):
    """On the wall along y = 0."""
    pen.arc(0, 130, 100, 180, 360)
    pen.line(-100, 130, 100, 130)
    pen.line(0, 0, 0, 30)
    pen.line(-40, 175, 40, 175)


def _data_outlet(pen):
    pen.polyline([(-90, 200), (90, 200), (0, 50)], closed=True)
    pen.line(0, 0, 0, 50)


def _floor_box(pen):
    pen.box(-150, -150, 150, 150)
    pen.box(-110, -110, 110, 110)
    pen.line(-110, 0, 110, 0)


def _access_point(pen):
    pen.circle(0, 0, 50)
    for radius in (120, 190):
        pen.arc(0, 0, radius, 45, 135)
        pen.arc(0, 0, radius, 225, 315)


def _distribution_board(pen):
    pen.box(-400, 0, 400, 200)
    pen.polyline([(-400, 0), (400, 200)])


def _smoke_detector(pen):
    pen.circle(0, 0, 120)
    pen.text(0, 0, 130, "S", "middle")


def _sprinkler(pen):
    pen.circle(0, 0, 70)
    pen.line(-50, -50, 50, 50)
    pen.line(-50, 50, 50, -50)


def _extinguisher(pen):
    pen.circle(0, 90, 90)
    pen.text(0, 90, 90, "FE", "middle")


def _diffuser(pen):
    pen.box(-300, -300, 300, 300)
    pen.box(-180, -180, 180, 180)
    pen.line(-300, -300, 300, 300)
    pen.line(-300, 300, 300, -300)


def _radiator(pen, width):
    pen.box(-width / 2, 0, width / 2, 100)
    pen.line(-width / 2, 50, width / 2, 50)


def _grid_bubble(pen):
    pen.circle(0, 0, 450)
    pen.attribute_definition(0, 0, 420, "AXIS", "middle")


def _room_tag(pen, size):
    pen.box(-2.1 * size, -0.1 * size, 2.1 * size, 1.6 * size)
    pen.attribute_definition(0, 0.75 * size, size, "NUMBER", "middle")
    pen.attribute_definition(0, -size, 1.1 * size, "NAME", "middle")
    pen.attribute_definition(0, -2.5 * size, 0.8 * size, "AREA", "middle")


def _door_tag(pen):
    pen.circle(0, 0, 230)
    pen.attribute_definition(0, 0, 150, "NUMBER", "middle")


def _section_mark(pen):
    pen.circle(0, 0, 400)
    pen.polyline([(-400, 0), (400, 0)])
    pen.polyline([(-560, -100), (0, 560), (560, -100)])
    pen.attribute_definition(0, 180, 240, "SECTION", "middle")
    pen.attribute_definition(0, -180, 180, "SHEET", "middle")


def _north_arrow(pen):
    pen.circle(0, 0, 900)
    pen.polyline([(0, 900), (-420, -640), (0, -300), (420, -640)], closed=True)
    pen.hatch([[(0, 900), (-420, -640), (0, -300)]])
    pen.text(0, 1150, 450, "N", "center")


_SYMBOLS = {
    **{f"DOOR-{width}": lambda pen, width=width: _door(pen, width) for width in (650, 760, 885, 1010)},
    **{f"DOOR-DBL-{width}": lambda pen, width=width: _double_door(pen, width) for width in (1800, 2000)},
    **{f"WINDOW-{width}": lambda pen, width=width: _window(pen, width) for width in (900, 1200, 1800)},
    "DESK-1600": lambda pen: _desk(pen, 1600, 800),
    "DESK-2000": lambda pen: _desk(pen, 2000, 1000),
    "CHAIR-TASK": _task_chair,
    "CHAIR-VISITOR": _visitor_chair,
    "TABLE-4800": lambda pen: _boat_table(pen, 4800, 1500),
    "TABLE-2400": lambda pen: _boat_table(pen, 2400, 1200),
    "TABLE-ROUND": lambda pen: _round_table(pen, 550),
    "CUPBOARD-1200": lambda pen: _cupboard(pen, 1200, 430),
    "CUPBOARD-800": lambda pen: _cupboard(pen, 800, 430),
    "SOFA-1900": lambda pen: _sofa(pen, 1900),
    "ARMCHAIR": lambda pen: _sofa(pen, 850),
    "PLANT": _plant,
    "COPIER": _copier,
    "REFRIGERATOR": _refrigerator,
    "RACK": _rack,
    "SINK": _sink,
    "HOB": _hob,
    "TOILET": _toilet,
    "WASHBASIN": _washbasin,
    "URINAL": _urinal,
    "GRAB-RAIL": _grab_rail,
    "LIGHT-PANEL": _panel_light,
    "LIGHT-DOWN": _downlight,
    "LIGHT-ESCAPE": _escape_sign,
    "SWITCH": _switch,
    "SOCKET": _socket,
    "DATA-OUTLET": _data_outlet,
    "FLOOR-BOX": _floor_box,
    "ACCESS-POINT": _access_point,
    "DISTRIBUTION": _distribution_board,
    "SMOKE-DETECTOR": _smoke_detector,
    "SPRINKLER": _sprinkler,
    "EXTINGUISHER": _extinguisher,
    "DIFFUSER": _diffuser,
    "RADIATOR-1600": lambda pen: _radiator(pen, 1600),
    "GRID-BUBBLE": _grid_bubble,
    "ROOM-TAG": lambda pen: _room_tag(pen, 200),
    "ROOM-TAG-SMALL": lambda pen: _room_tag(pen, 125),
    "DOOR-TAG": _door_tag,
    "SECTION-MARK": _section_mark,
    "NORTH": _north_arrow,
}


def define_symbols(drawing):
    for name, draw in _SYMBOLS.items():
        draw(Pen(Block(drawing, name), "0"))

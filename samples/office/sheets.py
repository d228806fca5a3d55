"""The two sheets: frames, title blocks, viewports and what each viewport hides."""

from dataclasses import dataclass

from .drawing import Block
from .pen import Pen
from .tags import point

WIDTH, HEIGHT = 841, 594  # A1


@dataclass
class Viewport:
    """A window into the model: its box on the sheet, the model point in its middle, and its scale."""

    title: str
    box: tuple
    centre: tuple
    scale: int
    hides: tuple = ()  # beginnings of layer names
    handle: int = 0


PLAN = Viewport(
    "SECOND FLOOR", (30, 222, 821, 574), (21600, 7400), 75,
    hides=("A-CLNG", "E-LITE", "E-POWR-TRAY", "F-DETC", "F-SPRN", "M-D", "M-PIPE", "P-PIPE", "S-BEAM"),
)
SANITARY = Viewport(
    "SANITARY CORE", (30, 40, 330, 205), (21300, 12330), 50,
    hides=("E-", "F-ESCP", "M-D", "M-PIPE", "A-CLNG", "S-GRID", "A-ANNO-SECT"),
)
WORKPLACES = Viewport(
    "OPEN OFFICE", (345, 40, 625, 205), (19000, 3600), 50,
    hides=("E-LITE", "E-POWR-TRAY", "F-", "M-", "A-CLNG", "P-PIPE", "A-ANNO-SECT"),
)
LIGHTING = Viewport(
    "LIGHTING", (30, 310, 575, 560), (22250, 7000), 100,
    hides=("A-FURN", "A-EQPM", "A-FLOR-PATT", "E-POWR", "E-DATA", "F-ESCP", "M-", "P-", "A-ANNO-DIMS", "A-ANNO-NPLT"),
)
POWER = Viewport(
    "POWER AND DATA", (30, 40, 575, 290), (22250, 7000), 100,
    hides=("A-CLNG", "E-LITE", "F-", "M-", "P-", "A-ANNO-DIMS", "A-FLOR-PATT", "A-ANNO-NPLT"),
)

_NOTES = (
    "All sizes in millimetres; check them on site.\\P"
    "Partitions: studs, two boards each side, 42 dB.\\P"
    "Doors to stair and lobby: fire door, 30 minutes, self-closing.\\P"
    "Glass partition: laminated, 37 dB, with a band at eye height.\\P"
    "Suspended ceiling at 2.75 m, in the corridor at 2.50 m."
)
_LEGEND = (
    ("LIGHT-PANEL", "E-LITE", 0.008, "Panel luminaire, 36 W"),
    ("LIGHT-DOWN", "E-LITE", 0.03, "Downlight, 12 W"),
    ("LIGHT-ESCAPE", "E-LITE-EMER", 0.02, "Escape sign, own battery"),
    ("SWITCH", "E-LITE-SWCH", 0.03, "Switch"),
    ("SOCKET", "E-POWR-OUTL", 0.03, "Socket outlet, double"),
    ("FLOOR-BOX", "E-POWR-FLOR", 0.03, "Floor box, 4 sockets, 4 data"),
    ("DATA-OUTLET", "E-DATA", 0.03, "Data outlet, 2 ports"),
    ("ACCESS-POINT", "E-DATA-WLAN", 0.03, "Wireless access point"),
    ("DISTRIBUTION", "E-POWR-PANL", 0.01, "Distribution board"),
    ("SMOKE-DETECTOR", "F-DETC", 0.03, "Smoke detector"),
)


def draw_sheets(drawing):
    """Both layouts; the viewports get their handles."""
    define_title_block(drawing)
    plan = Block(drawing, "*Paper_Space", is_sheet=True)
    services = Block(drawing, "*Paper_Space0", is_sheet=True)
    _model_layout(drawing)
    _sheet(drawing, plan, "A-201 Floor plan", 1, (PLAN, SANITARY, WORKPLACES))
    _sheet(drawing, services, "E-201 Lighting and power", 2, (LIGHTING, POWER))
    common = {"PROJECT": "RIVERSIDE OFFICES", "CLIENT": "North Quay Estates", "DATE": "2024-03-18", "DRAWN": "K. Lund",
              "CHECKED": "M. Oda", "REVISION": "B"}
    _title(plan, {**common, "TITLE": "Second floor plan", "NUMBER": "A-201", "SCALE": "1:75, 1:50"}, (641, 20))
    _title(services, {**common, "TITLE": "Lighting, power and data", "NUMBER": "E-201", "SCALE": "1:100"}, (641, 20))
    notes = Pen(plan, "A-ANNO-NOTE")
    notes.text(645, 196, 4, "NOTES")
    notes.mtext(645, 188, 2.8, _NOTES, 172)
    _legend(Pen(services, "A-ANNO-NOTE"))


def define_title_block(drawing):
    """180 by 90, its lower left corner the origin."""
    pen = Pen(Block(drawing, "TITLE-BLOCK"), "A-ANNO-TTLB")
    pen.polyline([(0, 0), (180, 0), (180, 90), (0, 90)], closed=True, width=0.5)
    for y in (15, 30, 50, 70):
        pen.line(0, y, 180, y)
    for x in (60, 120):
        pen.line(x, 0, x, 30)
    pen.line(120, 30, 120, 50)
    texts = pen.on("A-ANNO-TTLB-TEXT")
    fields = {
        "PROJECT": (3, 73, 6), "CLIENT": (3, 53, 5), "TITLE": (3, 33, 6), "NUMBER": (123, 33, 8), "SCALE": (3, 17.5, 4),
        "DATE": (63, 17.5, 4), "REVISION": (123, 17.5, 4), "DRAWN": (3, 2.5, 4), "CHECKED": (63, 2.5, 4),
    }
    captions = {
        "PROJECT": (3, 85), "CLIENT": (3, 65), "TITLE": (3, 45), "NUMBER": (123, 45), "SCALE": (3, 26), "DATE": (63, 26),
        "REVISION": (123, 26), "DRAWN": (3, 11), "CHECKED": (63, 11),
    }
    for tag, (x, y) in captions.items():
        texts.text(x, y, 2, tag.capitalize())
    texts.text(123, 11, 2, "Sheet size")
    texts.text(123, 2.5, 4, "A1")
    for tag, (x, y, height) in fields.items():
        texts.attribute_definition(x, y, height, tag)


def _title(block, values, at):
    pen = Pen(block, "A-ANNO-TTLB")
    pen.insert("TITLE-BLOCK", *at, values=values)
    pen.box(0, 0, WIDTH, HEIGHT)
    pen.polyline([(20, 10), (831, 10), (831, 584), (20, 584)], closed=True, width=0.7)


def _sheet(drawing, block, name, order, viewports):
    overall = _viewport(block, 1, (-40, -30, WIDTH + 40, HEIGHT + 30), (WIDTH / 2, HEIGHT / 2), 1, ())
    for number, viewport in enumerate(viewports, start=2):
        viewport.handle = _viewport(block, number, viewport.box, viewport.centre, viewport.scale, viewport.hides)
        titles = Pen(block, "A-ANNO-TTLB-TEXT")
        x0, y0 = viewport.box[:2]
        titles.text(x0 + 2, y0 - 9, 5, viewport.title)
        titles.text(x0 + 108, y0 - 9, 3.5, f"1:{viewport.scale}", "right")
        titles.line(x0, y0 - 11.5, x0 + 110, y0 - 11.5)
    drawing.add_layout(name, block, _layout_contents(name, order, block, overall, (0, 0, WIDTH, HEIGHT)))


def _viewport(block, number, box, centre, scale, hides):
    """A VIEWPORT entity; number 1 is the sheet itself. The stacking order follows the number."""
    drawing = block.drawing
    x0, y0, x1, y1 = box
    tags = [(100, "AcDbViewport"), *point(10, (x0 + x1) / 2, (y0 + y1) / 2, 0), (40, x1 - x0), (41, y1 - y0)]
    tags += [(68, number), (69, number), *point(12, *centre), *point(13, 0, 0), *point(14, 10, 10), *point(15, 10, 10)]
    tags += [*point(16, 0, 0, 1), *point(17, 0, 0, 0), (42, 50), (43, 0), (44, 0), (45, (y1 - y0) * scale), (50, 0), (51, 0), (72, 1000)]
    tags += [(331, layer.handle) for name, layer in drawing.layers.items() if name.startswith(hides) and hides]
    tags += [(90, 32 if number == 1 else 32 | 16384), (1, ""), (281, 0), (71, 1), (74, 0)]
    tags += [*point(110, 0, 0, 0), *point(111, 1, 0, 0), *point(112, 0, 1, 0), (79, 0), (146, 0), (170, 0)]
    return Pen(block, "0" if number == 1 else "A-ANNO-VPRT").add("VIEWPORT", tags)


def _plot_settings(model):
    tags = [(100, "AcDbPlotSettings"), (1, ""), (2, "none_device"), (4, "ISO_A1_(841.00_x_594.00_MM)"), (6, "")]
    tags += [(code, 0) for code in (40, 41, 42, 43)] + [(44, WIDTH), (45, HEIGHT)]
    tags += [(code, 0) for code in (46, 47, 48, 49, 140, 141)] + [(142, 1), (143, 1), (70, 1712 if model else 688)]
    return [*tags, (72, 1), (73, 0), (74, 5), (7, ""), (75, 16), (76, 0), (77, 2), (78, 300), (147, 1), (148, 0), (149, 0)]


def _layout_contents(name, order, block, viewport, extents):
    x0, y0, x1, y1 = extents
    tags = [*_plot_settings(order == 0), (100, "AcDbLayout"), (1, name), (70, 0), (71, order)]
    tags += [*point(10, x0, y0), *point(11, x1, y1), *point(12, 0, 0, 0), *point(14, x0, y0, 0), *point(15, x1, y1, 0)]
    tags += [(146, 0), *point(13, 0, 0, 0), *point(16, 1, 0, 0), *point(17, 0, 1, 0), (76, 0)]
    return [*tags, (330, block.handle), (331, viewport)]


def _model_layout(drawing):
    contents = _layout_contents("Model", 0, drawing.model, drawing.vport, drawing.extents)
    drawing.add_layout("Model", drawing.model, contents)


def _legend(pen):
    pen.text(590, 546, 5, "LEGEND")
    pen.line(590, 542, 820, 542)
    for row, (block, layer, scale, words) in enumerate(_LEGEND):
        y = 528 - row * 16
        pen.on(layer).insert(block, 604, y, scale=(scale, scale))
        pen.text(622, y - 2, 4, words)
    pen.mtext(
        590, 350, 3,
        "Switches 1.05 m, outlets 0.30 m above the floor.\\PWalls are shown in grey on the lighting plan; the colours "
        "belong to that viewport alone.\\PCircuits are numbered on the board schedules.", 226,
    )

"""What hangs on layers beside their properties: filters, states, overrides per viewport, the
reconciled marks."""

from .objects import extension_dictionary
from .sheets import LIGHTING, POWER

# Layers added after the others were last looked through.
UNRECONCILED = ("E-DATA-WLAN", "F-WALL-RATE")
MARKED_UNRECONCILED = ("A-WALL-DEMO",)

ALPHA_BASE = 0x02000000


def add_layer_data(drawing):
    _reconciled(drawing)
    _overrides(drawing)
    table = extension_dictionary(drawing, drawing.tables["LAYER"])
    _filters(drawing, table.add_dictionary("ACLYDICTIONARY"))
    table.add_dictionary("ACAD_LAYERFILTERS")
    _states(drawing, table.add_dictionary("ACAD_LAYERSTATES"))
    drawing.set_variable("LAYEREVAL", "1")
    drawing.set_variable("LAYERNOTIFY", "0")


def _reconciled(drawing):
    for name, layer in drawing.layers.items():
        if name in UNRECONCILED or name == "Defpoints":
            continue
        mark = 0 if name in MARKED_UNRECONCILED else 1
        extension_dictionary(drawing, layer).add_xrecord("ADSK_XREC_LAYER_RECONCILED", [(290, mark)])


def _signed(value):
    return value - (1 << 32) if value >= 1 << 31 else value


def _override(drawing, name, kind, blocks):
    """One record for a property; a block per viewport."""
    keys = {"COLOR": ("COLOR", 420), "LINEWT": ("LINEWT", 91), "ALPHA": ("ALPHA", 440), "LINETYPE": ("LINETYPE", 343)}
    word, code = keys[kind]
    contents = []
    for viewport, value in blocks:
        contents += [(102, f"{{ADSK_LYR_{word}_OVERRIDE"), (335, viewport.handle), (code, value), (102, "}")]
    record = extension_dictionary(drawing, drawing.layers[name])
    record.add_xrecord(f"ADSK_XREC_LAYER_{word}_OVR", contents)


def _overrides(drawing):
    grey = _signed(0xC28A9096)
    for name in ("A-WALL-EXTR", "A-WALL-CORE", "A-WALL-PRTN", "A-DOOR", "A-GLAZ"):
        _override(drawing, name, "COLOR", [(LIGHTING, grey)])
    # By index as well as by RGB, and two viewports in one record.
    _override(drawing, "A-WALL-GLAZ", "COLOR", [(LIGHTING, grey), (POWER, _signed(0xC3000008))])
    _override(drawing, "A-CLNG-GRID", "COLOR", [(LIGHTING, _signed(0xC3000000 | 9))])
    _override(drawing, "A-WALL-CORE", "LINEWT", [(LIGHTING, 18)])
    _override(drawing, "E-POWR-OUTL", "LINEWT", [(POWER, 35)])
    _override(drawing, "A-FURN-DESK", "ALPHA", [(POWER, ALPHA_BASE + 127)])
    _override(drawing, "E-POWR-TRAY", "LINETYPE", [(POWER, drawing.linetypes["DASHED"])])


def _filters(drawing, dictionary):
    dictionary.xdata = [(1001, "ACAD"), (1000, "<All")]
    keys = iter(f"*A{number}" for number in range(1, 100))

    def add(parent, kind, name, contents):
        return parent.add_xrecord(next(keys), [(1, kind), (90, 1), (300, name), *contents])

    def group(parent, name, *beginnings):
        members = [(330, layer.handle) for layer in drawing.layers.values() if layer.name.startswith(beginnings)]
        return add(parent, "AcLyLayerGroup", name, members)

    def rule(parent, name, expression):
        return add(parent, "AcLyLayerFilter", name, [(301, expression)])

    def below(record):
        return extension_dictionary(drawing, record).add_dictionary("ACLYDICTIONARY", hard=False)

    shell = below(group(dictionary, "Building shell", "A-WALL", "A-DOOR", "A-GLAZ", "S-COLS"))
    group(shell, "Walls", "A-WALL")
    rule(shell, "Thick lines", 'LINEWEIGHT=="0.50" OR LINEWEIGHT=="0.60"')
    group(dictionary, "For the furniture supplier", "A-FURN", "A-EQPM", "A-WALL-PRTN", "A-WALL-GLAZ")
    electrical = below(rule(dictionary, "Electrical", 'NAME=="E-*"'))
    rule(electrical, "Lighting", 'NAME=="E-LITE*"')
    rule(electrical, "Power and data", 'NAME=="E-POWR*" OR NAME=="E-DATA*"')
    rule(dictionary, "Not plotted", 'PLOTTABLE=="False"')
    rule(dictionary, "Locked or off", 'LOCKED=="True" OR OFF=="True"')


def _states(drawing, dictionary):
    for name, description, hidden in (
        ("Architecture", "Floor plan without services", ("E-", "F-", "M-", "P-", "A-CLNG")),
        ("Services", "Electrical, mechanical, plumbing and fire", ("A-FURN", "A-AREA", "A-FLOR-PATT", "A-ANNO")),
    ):
        contents = [(91, 2047), (301, description), (290, 0), (302, "0")]
        for layer in drawing.layers.values():
            contents += _state_of(drawing, layer, layer.name.startswith(hidden))
        dictionary.add_xrecord(name, contents)


def _state_of(drawing, layer, off):
    flags = (1 if off or "off" in layer.state else 0) | (0 if "noplot" in layer.state else 8)
    flags |= sum(bit for word, bit in (("frozen", 2), ("locked", 4), ("newvp", 16)) if word in layer.state)
    tags = [(330, layer.handle), (90, flags), (62, layer.index), (370, layer.lineweight)]
    tags += [(331, drawing.linetypes[layer.linetype]), (1, f"Color_{layer.index}"), (440, layer.packed_transparency)]
    if layer.rgb:
        red, green, blue = layer.rgb
        tags.append((92, _signed(0xC2000000 | red << 16 | green << 8 | blue)))
    return tags

"""The TABLES section."""

from .tags import point

# Description, and dash lengths with gaps negative.
LINETYPES = {
    "ByBlock": ("", []),
    "ByLayer": ("", []),
    "Continuous": ("Solid line", []),
    "CENTER": ("Center ____ _ ____ _ ____ _ ____", [31.75, -6.35, 6.35, -6.35]),
    "CENTER2": ("Center (.5x) ___ _ ___ _ ___", [19.05, -3.175, 3.175, -3.175]),
    "DASHDOT": ("Dash dot __ . __ . __ . __ .", [12.7, -6.35, 0, -6.35]),
    "DASHED": ("Dashed __ __ __ __ __ __ __", [12.7, -6.35]),
    "DASHED2": ("Dashed (.5x) _ _ _ _ _ _ _ _", [6.35, -3.175]),
    "HIDDEN": ("Hidden __ __ __ __ __ __ __", [6.35, -3.175]),
    "PHANTOM": ("Phantom ____ _ _ ____ _ _ __", [31.75, -6.35, 6.35, -6.35, 6.35, -6.35]),
}
APPIDS = ["ACAD", "AcAecLayerStandard", "AcCmTransparency"]


def table_tags(drawing):
    yield from _table(drawing, "VPORT", [_viewport(drawing)])
    yield from _table(drawing, "LTYPE", _linetypes(drawing))
    yield from _table(drawing, "LAYER", [_layer(drawing, layer) for layer in drawing.layers.values()])
    yield from _table(drawing, "STYLE", [_style(drawing)])
    yield from _table(drawing, "VIEW", [])
    yield from _table(drawing, "UCS", [])
    yield from _table(drawing, "APPID", _appids(drawing))
    yield from _table(drawing, "DIMSTYLE", [_dimstyle(drawing)], [(100, "AcDbDimStyleTable"), (71, 1)])
    yield from _table(drawing, "BLOCK_RECORD", [_block_record(drawing, block) for block in drawing.blocks.values()])


def _table(drawing, name, records, tail=()):
    table = drawing.tables[name]
    yield from [(0, "TABLE"), (2, name), (5, table.handle)]
    yield from _extension(table)
    yield from [(330, 0), (100, "AcDbSymbolTable"), (70, len(records)), *tail]
    for record in records:
        yield from record
    yield (0, "ENDTAB")


def _extension(owner):
    return [(102, "{ACAD_XDICTIONARY"), (360, owner.xdict), (102, "}")] if owner.xdict else []


def _head(drawing, table, handle, kind, extension=()):
    code = 105 if table == "DIMSTYLE" else 5
    owner = drawing.tables[table].handle
    return [(0, table), (code, handle), *extension, (330, owner), (100, "AcDbSymbolTableRecord"), (100, kind)]


def _viewport(drawing):
    x0, y0, x1, y1 = drawing.extents
    tags = _head(drawing, "VPORT", drawing.vport, "AcDbViewportTableRecord")
    tags += [(2, "*Active"), (70, 0), *point(10, 0, 0), *point(11, 1, 1), *point(12, (x0 + x1) / 2, (y0 + y1) / 2)]
    tags += [*point(13, 0, 0), *point(14, 100, 100), *point(15, 100, 100), *point(16, 0, 0, 1), *point(17, 0, 0, 0)]
    tags += [(40, max(y1 - y0, (x1 - x0) / 1.8) * 1.04), (41, 1.8), (42, 50), (43, 0), (44, 0), (50, 0), (51, 0)]
    tags += [(71, 0), (72, 1000), (73, 1), (74, 3), (75, 0), (76, 0), (77, 0), (78, 0)]
    return tags


def _linetypes(drawing):
    for_each = []
    for name, (description, dashes) in LINETYPES.items():
        tags = _head(drawing, "LTYPE", drawing.linetypes[name], "AcDbLinetypeTableRecord")
        tags += [(2, name), (70, 0), (3, description), (72, 65), (73, len(dashes)), (40, sum(map(abs, dashes)))]
        for dash in dashes:
            tags += [(49, dash), (74, 0)]
        for_each.append(tags)
    return for_each


def _layer(drawing, layer):
    tags = _head(drawing, "LAYER", layer.handle, "AcDbLayerTableRecord", _extension(layer))
    bits = (("frozen", 1), ("newvp", 2), ("locked", 4))
    tags += [(2, layer.name), (70, sum(bit for word, bit in bits if word in layer.state))]
    tags.append((62, -layer.index if "off" in layer.state else layer.index))
    if layer.rgb:
        red, green, blue = layer.rgb
        tags.append((420, red << 16 | green << 8 | blue))
    tags.append((6, layer.linetype))
    if "noplot" in layer.state:
        tags.append((290, 0))
    tags += [(370, layer.lineweight), (390, drawing.plot_style), (347, drawing.material), (348, 0)]
    if layer.description:
        # The first string is empty wherever such a record was seen.
        tags += [(1001, "AcAecLayerStandard"), (1000, ""), (1000, layer.description)]
    if layer.transparency:
        tags += [(1001, "AcCmTransparency"), (1071, layer.packed_transparency)]
    return tags


def _style(drawing):
    tags = _head(drawing, "STYLE", drawing.style, "AcDbTextStyleTableRecord")
    tags += [(2, "Standard"), (70, 0), (40, 0), (41, 1), (50, 0), (71, 0), (42, 250), (3, "arial.ttf"), (4, "")]
    return tags


def _appids(drawing):
    return [
        [*_head(drawing, "APPID", handle, "AcDbRegAppTableRecord"), (2, name), (70, 0)]
        for name, handle in drawing.appids.items()
    ]


def _dimstyle(drawing):
    tags = _head(drawing, "DIMSTYLE", drawing.dimstyle, "AcDbDimStyleTableRecord")
    return [*tags, (2, "Standard"), (70, 0), (40, 75), (41, 2.5), (340, drawing.style)]


def _block_record(drawing, block):
    tags = _head(drawing, "BLOCK_RECORD", block.handle, "AcDbBlockTableRecord")
    return [*tags, (2, block.name), (340, block.layout), (70, 4), (280, 1), (281, 0)]

"""HEADER and CLASSES."""

from .tags import point

# The dates are those of the project, not of the run: the file is the same every time.
_DRAWN = 2460388.4375
_EDITED = 2460402.6875

_VARIABLES = [
    ("$ORTHOMODE", 70, 0), ("$REGENMODE", 70, 1), ("$FILLMODE", 70, 1), ("$QTEXTMODE", 70, 0), ("$MIRRTEXT", 70, 0),
    ("$LTSCALE", 40, 30), ("$ATTMODE", 70, 1), ("$TEXTSIZE", 40, 250), ("$TEXTSTYLE", 7, "Standard"),
    ("$CLAYER", 8, "A-WALL-PRTN"), ("$CELTYPE", 6, "ByLayer"), ("$CECOLOR", 62, 256), ("$CELTSCALE", 40, 1),
    ("$DIMSTYLE", 2, "Standard"), ("$LUNITS", 70, 2), ("$LUPREC", 70, 0), ("$AUNITS", 70, 0), ("$AUPREC", 70, 1),
    ("$ANGBASE", 50, 0), ("$ANGDIR", 70, 0), ("$PDMODE", 70, 0), ("$PDSIZE", 40, 0), ("$TDCREATE", 40, _DRAWN),
    ("$TDUPDATE", 40, _EDITED), ("$TILEMODE", 70, 1), ("$MAXACTVP", 70, 64), ("$PLINEGEN", 70, 1),
    ("$PSLTSCALE", 70, 0), ("$TREEDEPTH", 70, 3020), ("$CMLSTYLE", 2, "STANDARD"), ("$CMLJUST", 70, 0),
    ("$CMLSCALE", 40, 1), ("$VISRETAIN", 70, 1), ("$MEASUREMENT", 70, 1), ("$CELWEIGHT", 370, -1), ("$ENDCAPS", 280, 0),
    ("$JOINSTYLE", 280, 0), ("$LWDISPLAY", 290, 1), ("$INSUNITS", 70, 4), ("$XEDIT", 290, 1), ("$CEPSNTYPE", 380, 0),
    ("$PSTYLEMODE", 290, 1), ("$EXTNAMES", 290, 1),
    ("$FINGERPRINTGUID", 2, "{5E0F7C1A-3B92-4D57-9C46-2A61D08E7F13}"),
    ("$VERSIONGUID", 2, "{91B4D2E6-7A05-4C38-8F1D-6E3502C9AB74}"),
]


def header_tags(drawing):
    x0, y0, x1, y1 = drawing.extents
    yield from [(0, "SECTION"), (2, "HEADER")]
    yield from [(9, "$ACADVER"), (1, "AC1032"), (9, "$ACADMAINTVER"), (90, 6)]
    yield from [(9, "$DWGCODEPAGE"), (3, "ANSI_1252")]
    yield from [(9, "$INSBASE"), *point(10, 0, 0, 0)]
    yield from [(9, "$EXTMIN"), *point(10, x0, y0, 0), (9, "$EXTMAX"), *point(10, x1, y1, 0)]
    yield from [(9, "$LIMMIN"), *point(10, x0, y0), (9, "$LIMMAX"), *point(10, x1, y1)]
    for name, code, value in _VARIABLES:
        yield from [(9, name), (code, value)]
    yield from [(9, "$HANDSEED"), (5, drawing.handle_seed), (0, "ENDSEC")]


def class_tags(drawing):
    kinds = [
        ("ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault", 0, 1),
        ("ACDBPLACEHOLDER", "AcDbPlaceHolder", 0, drawing.count("ACDBPLACEHOLDER")),
        ("DICTIONARYVAR", "AcDbDictionaryVar", 0, drawing.count("DICTIONARYVAR")),
        ("LAYOUT", "AcDbLayout", 0, drawing.count("LAYOUT")),
        ("MATERIAL", "AcDbMaterial", 1153, drawing.count("MATERIAL")),
    ]
    yield from [(0, "SECTION"), (2, "CLASSES")]
    for record, kind, flags, count in kinds:
        yield from [(0, "CLASS"), (1, record), (2, kind), (3, "ObjectDBX Classes"), (90, flags), (91, count)]
        yield from [(280, 0), (281, 0)]
    yield (0, "ENDSEC")

#!/usr/bin/env python3
"""Writes the seeds of the drawing fuzzers: small drawings that between them hold every kind of record that the
reader looks into. Usage: tools/make_fuzz_corpus.py [FOLDER], fuzz/corpus by default."""

import struct
import sys
from pathlib import Path

BINARY_HEAD = bytes.fromhex("4175746f4341442042696e617279204458460d0a1a00")
# Group codes by the form of their value in binary drawings; all others are texts.
FORMS = [
    (range(10, 60), "<d"), (range(60, 80), "<h"), (range(90, 100), "<i"), (range(110, 150), "<d"),
    (range(160, 170), "<q"), (range(170, 180), "<h"), (range(210, 240), "<d"), (range(270, 290), "<h"),
    (range(290, 300), "<b"), (range(370, 390), "<h"), (range(400, 410), "<h"), (range(420, 430), "<i"),
    (range(440, 460), "<i"), (range(460, 470), "<d"), (range(1010, 1060), "<d"), (range(1060, 1071), "<h"),
    (range(1071, 1072), "<i"),
]
CHUNKS = {*range(310, 320), 1004}


def groups(*items):
    """Groups from code, value, code, value ..."""
    return list(zip(items[0::2], items[1::2]))


def section(name, *parts):
    return groups(0, "SECTION", 2, name) + sum(parts, []) + groups(0, "ENDSEC")


def table(name, handle, *records):
    return groups(0, "TABLE", 2, name, 5, handle, 330, "0", 100, "AcDbSymbolTable", 70, len(records)) + sum(
        records, []) + groups(0, "ENDTAB")


def record(kind, handle, owner, subclass, *items):
    return groups(0, kind, 5, handle, 330, owner, 100, "AcDbSymbolTableRecord", 100, subclass) + groups(*items)


def entity(kind, handle, layer, subclass, *items):
    return groups(0, kind, 5, handle, 330, "20", 100, "AcDbEntity", 8, layer, 100, subclass) + groups(*items)


def header(version, page):
    return section("HEADER", groups(
        9, "$ACADVER", 1, version, 9, "$DWGCODEPAGE", 3, page, 9, "$HANDSEED", 5, "FFF", 9, "$CLAYER", 8, "Walls",
        9, "$TILEMODE", 70, 1, 9, "$INSBASE", 10, 0.0, 20, 0.0, 30, 0.0))


def full(version="AC1018", page="ANSI_1252", name="W\u00e4nde \\U+0421"):
    """Tables, a block, entities, a sheet, dictionaries, filters, a state, overrides."""
    layer = "AcDbLayerTableRecord"
    tables = section(
        "TABLES",
        table("LTYPE", "1", record("LTYPE", "11", "1", "AcDbLinetypeTableRecord", 2, "Continuous", 70, 0, 3, "", 72, 65, 73,
                                   0, 40, 0.0),
              record("LTYPE", "12", "1", "AcDbLinetypeTableRecord", 2, "DASHED", 70, 0, 3, "- -", 72, 65, 73, 2, 40, 0.75, 49,
                     0.5, 74, 0, 49, -0.25, 74, 0)),
        groups(0, "TABLE", 2, "LAYER", 5, "2", 102, "{ACAD_XDICTIONARY", 360, "80", 102, "}", 330, "0", 100,
               "AcDbSymbolTable", 70, 3),
        record("LAYER", "13", "2", layer, 2, "0", 70, 0, 62, 7, 6, "Continuous", 370, -3, 390, "F"),
        groups(0, "LAYER", 5, "14", 102, "{ACAD_XDICTIONARY", 360, "70", 102, "}", 330, "2", 100, "AcDbSymbolTableRecord",
               100, layer, 2, "Walls", 70, 4, 62, -30, 420, 16744192, 430, "BOOK$RED", 6, "DASHED", 290, 0, 370, 35,
               390, "F", 1001, "AcAecLayerStandard", 1000, "", 1000, "a^Jb", 1001, "AcCmTransparency", 1071, 33554559),
        record("LAYER", "15", "2", layer, 2, name, 70, 1, 62, 3, 6, "Continuous", 370, -3, 390, "F"),
        groups(0, "ENDTAB"),
        table("APPID", "3", record("APPID", "16", "3", "AcDbRegAppTableRecord", 2, "AcAecLayerStandard", 70, 0)),
        table("BLOCK_RECORD", "4",
              record("BLOCK_RECORD", "20", "4", "AcDbBlockTableRecord", 2, "*Model_Space", 340, "60"),
              record("BLOCK_RECORD", "21", "4", "AcDbBlockTableRecord", 2, "*Paper_Space", 340, "61"),
              record("BLOCK_RECORD", "22", "4", "AcDbBlockTableRecord", 2, "DOOR", 340, "0")))
    blocks = section("BLOCKS", *(
        groups(0, "BLOCK", 5, f"3{i}", 330, f"2{i}", 100, "AcDbEntity", 8, "0", 100, "AcDbBlockBegin", 2, block, 70, 0, 10,
               0.0, 20, 0.0, 30, 0.0, 3, block, 1, "")
        + (entity("LINE", "40", "Walls", "AcDbLine", 10, 0.0, 20, 0.0, 11, 1.0, 21, 1.0) if i == 2 else [])
        + groups(0, "ENDBLK", 5, f"3{i + 5}", 330, f"2{i}", 100, "AcDbEntity", 8, "0", 100, "AcDbBlockEnd")
        for i, block in enumerate(("*Model_Space", "*Paper_Space", "DOOR"))))
    entities = section(
        "ENTITIES",
        entity("LINE", "50", name, "AcDbLine", 10, 0.5, 20, 0.0, 11, 1e10, 21, -1.0, 1001, "AcAecLayerStandard", 1003,
               "Walls", 1005, "14", 1004, "00FF"),
        entity("INSERT", "51", "Walls", "AcDbBlockReference", 66, 1, 2, "DOOR", 10, 1.0, 20, 1.0),
        entity("ATTRIB", "52", "Walls", "AcDbText", 10, 0.0, 20, 0.0, 40, 1.0, 1, "^ \\M+195C7\\U+D83C\\U+DFE0"),
        entity("SEQEND", "53", "0", "AcDbEntity"),
        groups(0, "VIEWPORT", 5, "54", 330, "21", 100, "AcDbEntity", 67, 1, 8, "0", 100, "AcDbViewport", 10, 5.0, 20, 5.0,
               40, 10.0, 41, 8.0, 68, 2, 69, 2, 331, "14", 90, 32864))
    dictionary = lambda handle, owner, *entries: groups(  # noqa: E731
        0, "DICTIONARY", 5, handle, 330, owner, 100, "AcDbDictionary", 280, 1, 281, 1, *entries)
    xrecord = lambda handle, owner, *data: groups(  # noqa: E731
        0, "XRECORD", 5, handle, 102, "{ACAD_REACTORS", 330, owner, 102, "}", 330, owner, 100, "AcDbXrecord", 280, 1, *data)
    sheet = lambda handle, title, order, block: groups(  # noqa: E731
        0, "LAYOUT", 5, handle, 330, "64", 100, "AcDbPlotSettings", 1, "", 7, "a.ctb", 100, "AcDbLayout", 1, title, 70, 1,
        71, order, 330, block, 331, "54")
    objects = section(
        "OBJECTS", dictionary("63", "0", 3, "ACAD_LAYOUT", 350, "64"),
        dictionary("64", "63", 3, "Model", 350, "60", 3, "Sheet", 350, "61"),
        sheet("60", "Model", 0, "20"), sheet("61", "Sheet", 1, "21"),
        dictionary("70", "14", 3, "ADSK_XREC_LAYER_COLOR_OVR", 360, "71", 3, "ADSK_XREC_LAYER_RECONCILED", 360, "72"),
        xrecord("71", "70", 102, "{ADSK_LYR_COLOR_OVERRIDE", 335, "54", 420, -1023410175, 102, "}"),
        xrecord("72", "70", 290, 1),
        dictionary("80", "2", 3, "ACLYDICTIONARY", 360, "81", 3, "ACAD_LAYERSTATES", 360, "84"),
        dictionary("81", "80", 3, "*A1", 360, "82", 3, "*A2", 360, "83"),
        xrecord("82", "81", 1, "AcLyLayerGroup", 90, 1, 300, "Group", 330, "14", 330, "15"),
        xrecord("83", "81", 290, 1, 1, "AcLyLayerFilter", 90, 1, 300, "Red", 301, 'COLOR=="1"'),
        dictionary("84", "80", 3, "As drawn", 360, "85"),
        xrecord("85", "84", 91, 2047, 301, "", 290, 1, 302, "Walls", 330, "14", 90, 0, 62, 30, 370, 35, 331, "12", 440, 0),
        xrecord("86", "63", 160, 1 << 40, 40, 1.5, 310, "0A0B0C", 340, "D9B071D01A0ACD1C"))
    return header(version, page) + section("CLASSES") + tables + blocks + entities + objects + groups(0, "EOF")


def oldest():
    """The layer table and entities, without handles; a viewport that names its frozen layers."""
    return section("HEADER", groups(9, "$ACADVER", 1, "AC1009", 9, "$CLAYER", 8, "WALLS")) + section(
        "TABLES", groups(0, "TABLE", 2, "LAYER", 70, 1, 0, "LAYER", 2, "WALLS", 70, 65, 62, -3, 6, "CONTINUOUS", 0, "ENDTAB")
    ) + section("ENTITIES", groups(
        0, "LINE", 8, "WALLS", 10, 0.0, 20, 0.0, 11, 1.0, 21, 1.0, 999, "a remark", 0, "VIEWPORT", 8, "GHOST", 67, 1, 10, 0.0,
        20, 0.0, 40, 1.0, 41, 1.0, 68, 1, 69, 1, 1001, "ACAD", 1000, "MVIEW", 1002, "{", 1070, 16, 1002, "{", 1003, "WALLS",
        1002, "}", 1002, "}")) + groups(0, "EOF")


def text(tags, charset, end="\n", padded=False):
    lines = []
    for code, value in tags:
        number = isinstance(value, int)
        lines += [str(code).rjust(3) if padded else str(code), str(value).rjust(6) if padded and number else str(value)]
    return end.join([*lines, ""]).encode(charset)


def value_bytes(code, value, charset):
    for codes, form in FORMS:
        if code in codes:
            return struct.pack(form, value)
    if code in CHUNKS:
        chunk = bytes.fromhex(value)
        return bytes([len(chunk)]) + chunk
    return str(value).encode(charset) + b"\0"


def binary(tags, charset, code_bytes):
    def code_of(code):
        if code_bytes == 2:
            return struct.pack("<H", code)
        return bytes([code]) if code < 255 else b"\xff" + struct.pack("<H", code)

    return BINARY_HEAD + b"".join(code_of(code) + value_bytes(code, value, charset) for code, value in tags)


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent / "fuzz" / "corpus"
    drawings = {
        "2004": (full(), "cp1252"),
        "2000-japanese": (full("AC1015", "ANSI_932", "\u58c1\u30bf"), "cp932"),
        "2018": (full("AC1032", "ANSI_1252", "W\u00e4nde \U0001F3E0"), "utf-8"),
        "oldest": (oldest(), "ascii"),
        "empty": (section("HEADER") + section("ENTITIES") + groups(0, "EOF"), "ascii"),
    }
    for name, (tags, charset) in drawings.items():
        files = {
            f"dxf_text/{name}.dxf": text(tags, charset),
            f"dxf_binary/{name}.dxf": binary(tags, charset, 1 if name == "oldest" else 2),
        }
        if name in ("2004", "oldest"):
            files[f"dxf_text/{name}-padded.dxf"] = text(groups(999, "by hand") + tags, charset, "\r\n", True)
            files[f"dxf_binary/{name}-other-codes.dxf"] = binary(tags, charset, 2 if name == "oldest" else 1)
        for path, contents in files.items():
            (folder / path).parent.mkdir(parents=True, exist_ok=True)
            (folder / path).write_bytes(contents)


if __name__ == "__main__":
    main()

#include "support/drawings/DrawingText.h"

namespace {

QByteArray hex(quint64 handle)
{
    return QByteArray::number(handle, 16).toUpper();
}

QByteArray table(const QByteArray& name, const QByteArray& handle, const QByteArray& records)
{
    return DrawingText::groups({"0", "TABLE", "2", name, "5", handle, "330", "0", "100",
                                "AcDbSymbolTable", "70", "1"})
        + records + DrawingText::groups({"0", "ENDTAB"});
}

QByteArray section(const QByteArray& name, const QByteArray& body)
{
    return DrawingText::groups({"0", "SECTION", "2", name}) + body
        + DrawingText::groups({"0", "ENDSEC"});
}

QByteArray linetype(const QByteArray& name, const QByteArray& handle, const QByteArray& dashes)
{
    return DrawingText::groups({"0",   "LTYPE",
                                "5",   handle,
                                "330", "20",
                                "100", "AcDbSymbolTableRecord",
                                "100", "AcDbLinetypeTableRecord",
                                "2",   name,
                                "70",  "0",
                                "3",   "",
                                "72",  "65",
                                "73",  "0"})
        + dashes;
}

QByteArray layerRecord(const DrawingText::Layer& layer, quint64 handle)
{
    return DrawingText::groups({"0",   "LAYER",
                                "5",   hex(handle),
                                "330", "2",
                                "100", "AcDbSymbolTableRecord",
                                "100", "AcDbLayerTableRecord",
                                "2",   layer.name,
                                " 70", QByteArray::number(layer.flags).rightJustified(6),
                                " 62", QByteArray::number(layer.colour).rightJustified(6),
                                "  6", "Continuous",
                                "370", "    -3"})
        + layer.more;
}

QByteArray viewport(quint64 handle, const QByteArray& number, const QByteArray& more)
{
    return DrawingText::groups({"0",   "VIEWPORT",     "5",  hex(handle), "330", "51",
                                "100", "AcDbEntity",   "67", "1",         "8",   "0",
                                "100", "AcDbViewport", "10", "5.0",       "20",  "5.0",
                                "30",  "0.0",          "40", "10.0",      "41",  "8.0",
                                "68",  number,         "69", number,      "12",  "0.0",
                                "22",  "0.0",          "45", "20.0"})
        + more + DrawingText::groups({"90", "32864"});
}

QByteArray layout(const QByteArray& handle, const QByteArray& name, const QByteArray& order,
                  const QByteArray& block)
{
    return DrawingText::groups(
        {"0",  "LAYOUT", "5",  handle,       "330", "61",         "100", "AcDbPlotSettings",
         "1",  "",       "7",  "office.ctb", "100", "AcDbLayout", "1",   name,
         "70", "1",      "71", order,        "330", block});
}

QByteArray blockRecord(const QByteArray& handle, const QByteArray& name,
                       const QByteArray& layoutHandle)
{
    return DrawingText::groups({"0", "BLOCK_RECORD", "5", handle, "330", "1", "100",
                                "AcDbSymbolTableRecord", "100", "AcDbBlockTableRecord", "2", name,
                                "340", layoutHandle});
}

QByteArray block(const QByteArray& handle, const QByteArray& owner, const QByteArray& name)
{
    return DrawingText::groups({"0",   "BLOCK", "5",   handle,
                                "330", owner,   "100", "AcDbEntity",
                                "8",   "0",     "100", "AcDbBlockBegin",
                                "2",   name,    "70",  "0",
                                "10",  "0.0",   "20",  "0.0",
                                "30",  "0.0",   "3",   name,
                                "1",   ""})
        + DrawingText::groups({"0", "ENDBLK", "5", handle + "E", "330", owner, "100", "AcDbEntity",
                               "8", "0", "100", "AcDbBlockEnd"});
}

QByteArray dictionary(const QByteArray& handle, const QByteArray& owner, const QByteArray& entries)
{
    return DrawingText::groups(
               {"0", "DICTIONARY", "5", handle, "330", owner, "100", "AcDbDictionary", "281", "1"})
        + entries;
}

} // namespace

QByteArray DrawingText::groups(std::initializer_list<QByteArray> codesAndValues)
{
    QByteArray text;
    for (const QByteArray& line : codesAndValues)
        text += line + '\n';
    return text;
}

QByteArray DrawingText::withLayers(const QList<Layer>& layers, const QByteArray& lineEnd)
{
    QByteArray records = layerRecord({"0"}, kFirstLayer);
    QByteArray lines;
    for (qsizetype i = 0; i < layers.size(); ++i) {
        records += layerRecord(layers[i], kFirstLayer + 1 + static_cast<quint64>(i));
        if (i + 1 < layers.size())
            lines += groups({"0",   "LINE",
                             "5",   hex(0x1000 + static_cast<quint64>(i)),
                             "330", "50",
                             "100", "AcDbEntity",
                             "8",   layers[i].name,
                             "100", "AcDbLine",
                             "10",  "0.0",
                             "20",  "0.0",
                             "30",  "0.0",
                             "11",  "1.0",
                             "21",  QByteArray::number(i) + ".5",
                             "31",  "0.0"});
    }
    QByteArray text =
        section("HEADER",
                groups({"9",  "$ACADVER",  "1",   "AC1018", "9", "$DWGCODEPAGE", "3",  "ANSI_1252",
                        "9",  "$HANDSEED", "5",   "FFFFF",  "9", "$CLAYER",      "8",  "0",
                        "9",  "$TILEMODE", " 70", "     1", "9", "$INSBASE",     "10", "0.0",
                        "20", "0.0",       "30",  "0.0"}));
    text += section("CLASSES", {});
    text += section("TABLES",
                    table("LTYPE", "20",
                          linetype("ByLayer", "21", groups({"40", "0.0"}))
                              + linetype("Continuous", "22", groups({"40", "0.0"}))
                              + linetype("DASHED", "23",
                                         groups({"40", "0.75", "49", "0.5", "74", "0", "49",
                                                 "-0.25", "74", "0"})))
                        + table("LAYER", "2", records)
                        + table("BLOCK_RECORD", "1",
                                blockRecord("50", "*Model_Space", "62")
                                    + blockRecord("51", "*Paper_Space", "63")
                                    + blockRecord("52", "*Paper_Space0", "64")));
    text += section("BLOCKS",
                    block("53", "50", "*Model_Space") + block("54", "51", "*Paper_Space")
                        + block("55", "52", "*Paper_Space0"));
    text += section("ENTITIES",
                    lines + viewport(kOverallViewport, "1", {})
                        + viewport(kFirstViewport, "2", groups({"331", hex(kFirstLayer + 1)}))
                        + viewport(kSecondViewport, "3", {}));
    text += section("OBJECTS",
                    dictionary("60", "0", groups({"3", "ACAD_LAYOUT", "350", "61"}))
                        + dictionary("61", "60",
                                     groups({"3", "Sheet B", "350", "64", "3", "Model", "350", "62",
                                             "3", "Sheet A", "350", "63"}))
                        + layout("62", "Model", "0", "50") + layout("63", "Sheet A", "1", "51")
                        + layout("64", "Sheet B", "2", "52"));
    text += groups({"0", "EOF"});
    return lineEnd == "\n" ? text : text.replace("\n", lineEnd);
}

QByteArray DrawingText::withPlotStyles(QByteArray text)
{
    text.replace("9\n$TILEMODE", "9\n$PSTYLEMODE\n290\n0\n9\n$TILEMODE");
    text.replace("3\nACAD_LAYOUT\n", "3\nACAD_PLOTSTYLENAME\n350\n80\n3\nACAD_LAYOUT\n");
    text.replace("0\nENDSEC\n0\nEOF",
                 groups({"0",   "DICTIONARY",
                         "5",   "80",
                         "330", "60",
                         "100", "AcDbDictionary",
                         "281", "1",
                         "3",   "Normal",
                         "350", "81",
                         "3",   "Thin",
                         "350", "82",
                         "0",   "ACDBPLACEHOLDER",
                         "5",   "81",
                         "330", "80",
                         "0",   "ACDBPLACEHOLDER",
                         "5",   "82",
                         "330", "80"})
                     + "0\nENDSEC\n0\nEOF");
    return text;
}

QByteArray DrawingText::old(const QList<Layer>& layers)
{
    QByteArray records;
    QByteArray lines;
    for (const Layer& layer : layers) {
        records += groups({"0", "LAYER", "2", layer.name, "70", QByteArray::number(layer.flags),
                           "62", QByteArray::number(layer.colour), "6", "CONTINUOUS"});
        lines += groups(
            {"0", "LINE", "8", layer.name, "10", "0.0", "20", "0.0", "11", "1.0", "21", "1.0"});
    }
    return section("TABLES",
                   groups({"0", "TABLE", "2", "LAYER", "70", "1"}) + records
                       + groups({"0", "ENDTAB"}))
        + section("ENTITIES", lines) + groups({"0", "EOF"});
}

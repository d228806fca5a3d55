#include "OperationDrawing.h"

#include "database/objects/OdDbEntity.h"

#include <gtest/gtest.h>

namespace {

QByteArray entity(const char* type, const char* handle, const char* owner, const char* layer,
                  const QByteArray& more = {})
{
    return DrawingText::groups(
               {"0", type, "5", handle, "330", owner, "100", "AcDbEntity", "8", layer})
        + more;
}

QByteArray viewport(const char* handle, const char* status, const char* number)
{
    return entity(
        "VIEWPORT", handle, "52", "0",
        DrawingText::groups({"100", "AcDbViewport", "10", "5.0", "20", "5.0", "30", "0.0", "40",
                             "10.0", "41", "8.0", "68", status, "69", number, "90", "32864"}));
}

void replaceOnce(QByteArray& text, const QByteArray& before, const QByteArray& after)
{
    const qsizetype at = text.indexOf(before);
    ASSERT_GE(at, 0) << before.constData();
    text.replace(at, before.size(), after);
}

/// Takes the lines that lie on every layer out.
void removeLines(QByteArray& text)
{
    const qsizetype first = text.indexOf("0\nLINE\n5\n1000\n");
    text.remove(first, text.indexOf("0\nVIEWPORT\n") - first);
}

void addEntities(QByteArray& text)
{
    replaceOnce(
        text, "2\nENTITIES\n",
        "2\nENTITIES\n" + entity("LINE", "200", "50", "Line") + entity("INSERT", "204", "50", "0")
            + entity("ATTRIB", "205", "204", "Attribute") + entity("SEQEND", "206", "204", "0"));
    replaceOnce(text, "0\nENDBLK\n5\n53E\n330\n50\n100\nAcDbEntity\n8\n0\n",
                "0\nENDBLK\n5\n53E\n330\n50\n100\nAcDbEntity\n8\nFramed\n");
    replaceOnce(text, "0\nENDBLK\n5\n55E\n",
                entity("CIRCLE", "207", "52", "InBlock") + viewport("B1", "1", "1")
                    + viewport("B2", "1", "2") + viewport("B3", "2", "3") + "0\nENDBLK\n5\n55E\n");
    const qsizetype third = text.indexOf("0\nVIEWPORT\n5\nA3\n");
    text.replace(text.indexOf("8\n0\n", third), 4, "8\nBorder\n");
}

QByteArray drawing()
{
    QList<DrawingText::Layer> layers = {{"Defpoints"},  {"Current"},   {"Frozen", 1}, {"Locked", 4},
                                        {"Off", 0, -3}, {"x|Far", 16}, {"Line"},      {"InBlock"},
                                        {"Attribute"},  {"Border"},    {"Framed"},    {"Unused"},
                                        {"Spare"}};
    for (DrawingText::Layer& layer : layers)
        layer.more = DrawingText::groups({"390", "81"});
    QByteArray text = DrawingText::withLayers(layers);
    removeLines(text);
    addEntities(text);
    text = DrawingText::withPlotStyles(text);
    replaceOnce(text, "9\n$CLAYER\n8\n0\n", "9\n$CLAYER\n8\nCurrent\n");
    return text;
}

QByteArray sound(const OdDbDatabase& database)
{
    EXPECT_EQ(database.audit().join(QLatin1Char('\n')).toStdString(), "");
    return drawingBytes(database);
}

} // namespace

OperationDrawing::OperationDrawing()
    : m_database(host.open(readDrawing(drawing(), QStringLiteral("operations.dxf"))))
{ }

std::vector<OdDbObjectId> OperationDrawing::ids(std::initializer_list<const char*> layers) const
{
    std::vector<OdDbObjectId> found;
    for (const char* name : layers)
        found.push_back(id(name));
    return found;
}

OdDbLayerTableRecordPtr OperationDrawing::layer(const char* name) const
{
    return layer_drawing::read(m_database, name);
}

OdDbLayerTableRecordPtr OperationDrawing::edited(const char* name) const
{
    return layer_drawing::write(m_database, name);
}

OdDbObjectId OperationDrawing::viewport(quint64 handle) const
{
    return m_database.getOdDbObjectId(OdDbHandle(handle));
}

OdDbObjectId OperationDrawing::linetype(const char* name) const
{
    return m_database.table(OdDbTableKind::Linetype).getAt(QString::fromUtf8(name));
}

bool OperationDrawing::isFrozenIn(quint64 handle, const char* name) const
{
    return viewport(handle).safeOpenObject<OdDbViewport>()->isLayerFrozenInViewport(id(name));
}

void OperationDrawing::enterSheet() const
{
    m_database.setCTAB(QStringLiteral("Sheet A"));
    m_database.setActiveViewport(viewport(0xA2));
}

void OperationDrawing::override_(const char* name, quint64 handle) const
{
    const auto opened = edited(name);
    const OdDbObjectId there = viewport(handle);
    opened->setColor(OdCmColor::fromIndex(1), there);
    opened->setLinetypeObjectId(linetype("DASHED"), there);
    opened->setLineWeight(50, there);
    opened->setPlotStyleName(QStringLiteral("Thin"), there);
    opened->setTransparency(OdDbLayerTableRecord::transparencyFromPercent(50), there);
}

LayerOutcome OperationDrawing::changing(const Operation& operation)
{
    m_database.endUndoRecord();
    const QByteArray before = sound(m_database);
    const qsizetype records = host.historyNames.size();
    LayerOutcome outcome = operation();
    const QByteArray after = sound(m_database);
    EXPECT_FALSE(outcome.isEmpty());
    EXPECT_TRUE(before != after);
    EXPECT_EQ(host.historyNames.size(), records + 1);
    EXPECT_TRUE(m_database.undo());
    EXPECT_TRUE(before == sound(m_database)) << "undone";
    EXPECT_TRUE(m_database.redo());
    EXPECT_TRUE(after == sound(m_database)) << "redone";
    return outcome;
}

LayerOutcome OperationDrawing::idle(const Operation& operation)
{
    m_database.endUndoRecord();
    const QByteArray before = sound(m_database);
    const qsizetype records = host.historyNames.size();
    const auto stamp = m_database.editStamp();
    LayerOutcome outcome = operation();
    EXPECT_TRUE(outcome.isEmpty());
    EXPECT_TRUE(before == sound(m_database));
    EXPECT_EQ(stamp, m_database.editStamp());
    EXPECT_EQ(host.historyNames.size(), records);
    return outcome;
}

QStringList refusedNames(const LayerOutcome& outcome)
{
    QStringList names;
    for (const LayerRefusal& refusal : outcome.refused)
        names << layer_drawing::name(refusal.layer);
    return names;
}

QStringList changedNames(const LayerOutcome& outcome)
{
    return layer_drawing::names(outcome.changed);
}

QStringList texts(std::initializer_list<const char*> utf8)
{
    QStringList list;
    for (const char* text : utf8)
        list << QString::fromUtf8(text);
    return list;
}

#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingCodec.h"
#include "io/DrawingFile.h"
#include "io/files/WrittenBytes.h"
#include "support/drawings/DrawingText.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class DxfWriting : public testing::Test
{
protected:
    void read(const QByteArray& bytes)
    {
        m_bytes = bytes;
        m_database = readDrawing(bytes, QStringLiteral("writing.dxf"));
    }
    OdDbLayerTableRecordPtr write(const char* name) const
    {
        return m_database->layerTable()
            .getAt(QString::fromLatin1(name))
            .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    }
    /// Lines that differ, as "old -> new"; an added or removed line shows as one empty side.
    QStringList changedLines() const
    {
        const QList<QByteArray> before = m_bytes.split('\n');
        const QList<QByteArray> after = drawingBytes(*m_database).split('\n');
        qsizetype head = 0;
        while (head < before.size() && head < after.size() && before[head] == after[head])
            ++head;
        qsizetype tail = 0;
        while (tail < before.size() - head && tail < after.size() - head
               && before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
            ++tail;
        QStringList changes;
        const qsizetype olds = before.size() - head - tail;
        const qsizetype news = after.size() - head - tail;
        for (qsizetype i = 0; i < std::max(olds, news); ++i) {
            const QByteArray was = i < olds ? before[head + i] : QByteArray();
            const QByteArray is = i < news ? after[head + i] : QByteArray();
            if (was != is)
                changes.append(QString::fromLatin1(was + " -> " + is));
        }
        return changes;
    }

    QByteArray m_bytes;
    std::unique_ptr<OdDbDatabase> m_database;
};

TEST_F(DxfWriting, AnUneditedDrawingHasTheSameBytesWhateverItsLineEnds)
{
    for (const char* lineEnd : {"\n", "\r\n"}) {
        read("999\nmade by hand\n" + DrawingText::withLayers({{"Walls"}, {"Doors"}}, lineEnd)
             + "\x1a");
        EXPECT_EQ(drawingBytes(*m_database), m_bytes);
    }
}

TEST_F(DxfWriting, FreezingChangesOneLineAndKeepsItsPadding)
{
    read(DrawingText::withLayers({{"Walls", 4}}));
    write("Walls")->setIsFrozen(true);
    EXPECT_EQ(changedLines(), QStringList{QStringLiteral("     4 ->      5")});
}

TEST_F(DxfWriting, UnknownFlagBitsStay)
{
    read(DrawingText::withLayers({{"Walls", 64}}));
    write("Walls")->setVPDFLT(true);
    EXPECT_EQ(changedLines(), QStringList{QStringLiteral("    64 ->     66")});
}

TEST_F(DxfWriting, OffIsTheSignOfTheColourAsWritten)
{
    // The index beside a true colour is kept, nearest or not.
    read(DrawingText::withLayers({{"Walls", 0, 99, DrawingText::groups({"420", " 16744192"})}}));
    write("Walls")->setIsOff(true);
    EXPECT_EQ(changedLines(), QStringList{QStringLiteral("    99 ->    -99")});
}

TEST_F(DxfWriting, NoPlotIsAddedBehindTheLinetype)
{
    read(DrawingText::withLayers({{"Walls"}}, "\r\n"));
    write("Walls")->setIsPlottable(false);
    QByteArray expected = m_bytes;
    const qsizetype at = expected.indexOf("  6\r\nContinuous\r\n", expected.indexOf("Walls")) + 17;
    expected.insert(at, "290\r\n     0\r\n");
    EXPECT_EQ(drawingBytes(*m_database), expected);
    write("Walls")->setIsPlottable(true);
    EXPECT_EQ(drawingBytes(*m_database), m_bytes) << "back to where it was";
}

TEST_F(DxfWriting, ColoursLinetypesAndLineweightsReadBackAsWritten)
{
    read(DrawingText::withLayers(
        {{"Walls"}, {"Doors", 0, 3, DrawingText::groups({"420", "   123456"})}}));
    write("Walls")->setColor(OdCmColor::fromRgb(255, 127, 0));
    write("Walls")->setLineWeight(35);
    write("Walls")->setLinetypeObjectId(
        m_database->table(OdDbTableKind::Linetype).getAt(QStringLiteral("dashed")));
    write("Doors")->setColor(OdCmColor::fromIndex(5));
    const auto again = readDrawing(drawingBytes(*m_database), QStringLiteral("again.dxf"));
    for (const char* name : {"Walls", "Doors"}) {
        const auto now =
            again->layerTable().getAt(QString::fromLatin1(name)).openObject<OdDbLayerTableRecord>();
        EXPECT_EQ(now->color(), write(name)->color());
        EXPECT_EQ(now->lineWeight(), write(name)->lineWeight());
        EXPECT_EQ(now->linetypeObjectId().getHandle(), write(name)->linetypeObjectId().getHandle());
    }
    EXPECT_FALSE(drawingBytes(*m_database).contains("   123456"));
}

TEST_F(DxfWriting, CurrentLayerAndTabGoToTheHeader)
{
    read(DrawingText::withLayers({{"Walls"}}));
    m_database->setCLAYER(write("Walls")->objectId());
    m_database->setTILEMODE(false);
    EXPECT_EQ(changedLines(),
              (QStringList{QStringLiteral("0 -> Walls"), QStringLiteral("     1 ->      0")}));
}

TEST_F(DxfWriting, ASaveReplacesTheFileAndReportsTheRecords)
{
    read(DrawingText::withLayers({{"Walls"}, {"Doors"}}));
    write("Walls")->setIsLocked(true);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("plan.dxf"));
    const SaveReport report = writeDrawing(*m_database, path);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), drawingBytes(*m_database));
    EXPECT_EQ(report.recordsChanged, 1u);
    EXPECT_EQ(report.bytes, static_cast<quint64>(file.size()));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("plan.dxf")});
}

TEST_F(DxfWriting, ASaveThatFailsOrIsCancelledLeavesTheOldFile)
{
    read(DrawingText::withLayers({{"Walls"}}));
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("plan.dxf"));
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    EXPECT_THROW(writeDrawing(*m_database, path, [](quint64, quint64) { return false; }), OdError);
    EXPECT_THROW(writeDrawing(*m_database, folder.path()), OdError_FileAccess);
    EXPECT_THROW(writeDrawing(*m_database, folder.filePath(QStringLiteral("missing/plan.dxf"))),
                 OdError_FileAccess);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(DxfWriting, AChangedRecordThatDoesNotReadBackAsMeantIsNoticed)
{
    read(DrawingText::withLayers({{"Walls"}, {"Doors"}}));
    write("Walls")->setDescription(QStringLiteral("load bearing"));
    m_database->layerTable().add(QStringLiteral("Added"));
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("plan.dxf"));
    writeDrawing(*m_database, path);
    const DrawingSource& source = DrawingSource::of(*m_database);
    const DrawingPieces pieces = source.write(*m_database);
    ASSERT_EQ(pieces.changed.size(), 3u) << "a layer, a new one, the count of their table";
    EXPECT_NO_THROW(source.verify(*m_database, pieces, WrittenBytes(path)));

    for (const char* word : {"load bearing", "Added", "AcDbLayerTableRecord\n2\nWalls"}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray whole = file.readAll();
        file.close();
        QByteArray damaged = whole;
        const qsizetype at = damaged.indexOf(word) + QByteArrayView(word).size() - 1;
        damaged[at] = damaged[at] == 'x' ? 'y' : 'x';
        const QString other = folder.filePath(QStringLiteral("damaged.dxf"));
        QFile out(other);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(damaged);
        out.close();
        EXPECT_THROW(source.verify(*m_database, pieces, WrittenBytes(other)), OdError_FileAccess)
            << word;
    }
}

} // namespace

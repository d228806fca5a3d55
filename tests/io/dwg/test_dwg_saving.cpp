#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingCodec.h"
#include "io/DrawingFile.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/DwgParts.h"
#include "io/dwg/support/LayerEdits.h"
#include "io/files/WrittenBytes.h"
#include "support/drawings/DrawingDigest.h"
#include "support/drawings/SharedDrawings.h"

#include <QRegularExpression>
#include <QTemporaryFile>

#include <gtest/gtest.h>
#include <set>

namespace {

struct Saved
{
    QByteArray bytes;
    SaveReport report;
};

Saved saved(const OdDbDatabase& drawing)
{
    const DrawingSource& source = DrawingSource::of(drawing);
    DrawingPieces pieces = source.write(drawing);
    Saved result;
    for (const QByteArrayView part : pieces.parts)
        result.bytes.append(part.data(), part.size());
    QTemporaryFile file;
    EXPECT_TRUE(file.open());
    EXPECT_EQ(file.write(result.bytes), result.bytes.size());
    file.close();
    source.verify(drawing, pieces, WrittenBytes(file.fileName()));
    result.report = pieces.report;
    return result;
}

/// The records of the old file that are not of those types, but were changed, are lost or new.
QStringList unexpected(const QStringList& different, const QList<QByteArray>& types)
{
    QStringList found = different;
    found.removeIf([&](const QString& record) {
        return types.contains(record.section(QLatin1Char(' '), 0, 0).toLatin1());
    });
    return found;
}

class DwgSaving : public testing::TestWithParam<const char*>
{
public:
    /// Where all versions were tried, each edit had something to do in one of them.
    static void TearDownTestSuite()
    {
        if (s_drawings < std::size(DwgFiles::kWritable))
            return;
        for (const char* type :
             {"GROUP", "BLOCK_RECORD", "LAYOUT", "VX", "SORTENTSTABLE", "DIMSTYLE"})
            EXPECT_TRUE(s_cleared.contains(type)) << type;
        for (const LayerEdit& edit : layerEdits())
            EXPECT_TRUE(s_effective.contains(edit.name)) << edit.name;
        for (const LayerEdit& edit : undoingEdits())
            EXPECT_TRUE(s_effective.contains(edit.name)) << edit.name;
    }

protected:
    void SetUp() override
    {
        const QString name = QString::fromLatin1(GetParam());
        if (!DwgFiles::isMade(name))
            KEST_GTEST_NEEDS_DRAWINGS();
        m_bytes = DwgFiles::bytes(name);
        ASSERT_FALSE(m_bytes.isEmpty());
    }

    /// Makes each edit, looks at what is saved, and takes the edit back.
    void tryEdits(const QByteArray& bytes, const std::vector<LayerEdit>& edits)
    {
        const auto drawing = readDrawing(bytes, QStringLiteral("before.dwg"));
        const DwgParts before(bytes);
        const QStringList dangling = before.dangling();
        const QStringList start = drawingDigest(*drawing);
        const bool trueColours = before.file().version() >= DrawingVersion::V2004;
        for (const LayerEdit& edit : edits) {
            if (edit.needsTrueColours && !trueColours)
                continue;
            SCOPED_TRACE(edit.name);
            drawing->startUndoRecord();
            edit.edit(*drawing);
            drawing->endUndoRecord();
            try {
                lookAt(before, dangling, *drawing, start, edit);
            } catch (const OdError& error) {
                ADD_FAILURE() << error.what();
            }
            drawing->undo();
            EXPECT_EQ(digestDifference(start, drawingDigest(*drawing)), "");
        }
        EXPECT_TRUE(saved(*drawing).bytes == bytes) << "with all edits taken back";
    }

private:
    static void lookAt(const DwgParts& before, const QStringList& danglingBefore,
                       const OdDbDatabase& drawing, const QStringList& start, const LayerEdit& edit)
    {
        EXPECT_EQ(drawing.audit(), QStringList());
        const Saved now = saved(drawing);
        EXPECT_EQ(now.report.notKept, QStringList());
        const DwgParts after(now.bytes);
        EXPECT_EQ(after.faults(), QStringList());
        if (after.records().size() != before.records().size()) {
            QStringList dangling = after.dangling();
            dangling.removeIf(
                [&](const QString& reference) { return danglingBefore.contains(reference); });
            EXPECT_EQ(dangling, QStringList());
        }
        const QStringList different = DwgParts::different(before, after);
        EXPECT_EQ(unexpected(different, edit.types), QStringList());
        if (edit.records >= 0) {
            EXPECT_EQ(different.size(), edit.records)
                << different.join(QLatin1Char(' ')).toStdString();
        }
        const auto again = readDrawing(now.bytes, QStringLiteral("again.dwg"));
        EXPECT_EQ(again->audit(), QStringList());
        EXPECT_EQ(DwgFiles::faults(*again), QStringList());
        const QStringList wanted = drawingDigest(drawing);
        EXPECT_EQ(digestDifference(wanted, drawingDigest(*again)), "");
        // An edit that leaves everything as it was would prove nothing.
        const bool counts = wanted != start || !different.isEmpty();
        EXPECT_TRUE(counts || mayHaveNothingTo(edit, drawing));
        if (counts)
            s_effective.insert(edit.name);
    }

    /// What some drawings lack; see TearDownTestSuite().
    static bool mayHaveNothingTo(const LayerEdit& edit, const OdDbDatabase& drawing)
    {
        const QByteArrayView name(edit.name);
        return (drawing.store().viewports().empty()
                && (name.contains("viewport") || name.contains("override")))
            || name == "entity on another layer" || name == "other layout current";
    }

protected:
    QByteArray m_bytes;
    static inline std::set<QByteArray> s_effective; ///< edits that changed a drawing at least
    /// Types of records that were changed, for they named something that was erased.
    static inline std::set<QByteArray> s_cleared;
    static inline std::size_t s_drawings = 0; ///< that both tests were done with
};

TEST_P(DwgSaving, EachKindOfEditChangesItsRecordsOnlyAndIsReadAgain)
{
    tryEdits(m_bytes, layerEdits());
}

TEST_P(DwgSaving, WhatWasAddedIsChangedAndTakenAwayAgain)
{
    const auto drawing = readDrawing(m_bytes, QStringLiteral("plain.dwg"));
    addProofs(*drawing);
    ++s_drawings;
    tryEdits(saved(*drawing).bytes, undoingEdits());
}

/// Erases all entities of a type that stand in a layout.
void eraseAll(OdDbDatabase& drawing, RecordType type)
{
    const ObjectStore& store = drawing.store();
    std::set<quint32> spaces;
    for (const OdDbObjectId layout : drawing.layouts())
        spaces.insert(layout.safeOpenObject<OdDbLayout>()->getBlockTableRecordId().slot());
    for (quint32 slot = 0; slot < store.fileRecords(); ++slot) {
        if (store.type(slot) == type && spaces.contains(store.owner(slot)))
            drawing.idOfSlot(slot).safeOpenObject<OdDbEntity>(OdDb::kForWrite)->erase();
    }
}

/// References that other programs check, to what is not there.
QStringList lost(const DwgParts& parts)
{
    return parts.dangling().filter(
        QRegularExpression(QStringLiteral(": (member|use|viewport|sorted|reactor) ")));
}

TEST_P(DwgSaving, WhatIsErasedIsNoMemberAndNoUse)
{
    const DwgParts before(m_bytes);
    EXPECT_EQ(lost(before).filter(QStringLiteral("sorted")), QStringList());
    for (const RecordType type :
         {RecordType::Insert, RecordType::Viewport, RecordType::LwPolyline, RecordType::Dimension})
    {
        const auto drawing = readDrawing(m_bytes, QStringLiteral("before.dwg"));
        eraseAll(*drawing, type);
        const Saved now = saved(*drawing);
        const DwgParts after(now.bytes);
        EXPECT_EQ(after.faults(), QStringList());
        EXPECT_EQ(now.report.notKept, QStringList());
        QStringList dangling = lost(after);
        for (const QString& known : lost(before))
            dangling.removeAll(known);
        EXPECT_EQ(dangling.join(QLatin1Char('\n')).toStdString(), "") << static_cast<int>(type);
        for (const QString& record : DwgParts::different(before, after)) {
            if (after.records().contains(
                    record.section(QLatin1Char(' '), 1).toULongLong(nullptr, 16)))
                s_cleared.insert(record.section(QLatin1Char(' '), 0, 0).toLatin1());
        }
        EXPECT_EQ(readDrawing(now.bytes, QStringLiteral("again.dwg"))->audit(), QStringList());
    }
}

std::string testName(const testing::TestParamInfo<const char*>& file)
{
    return DwgFiles::testName(QString::fromLatin1(file.param));
}

INSTANTIATE_TEST_SUITE_P(Versions, DwgSaving, testing::ValuesIn(DwgFiles::kWritable), testName);
INSTANTIATE_TEST_SUITE_P(Made, DwgSaving, testing::ValuesIn(DwgFiles::kMade), testName);

TEST(DwgPlotStyles, OfALayerAndOfItsOverridesAreSaved)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const auto drawing = readDrawing(SharedDrawings::file(
        QStringLiteral("lendres+CAD-Support-Files__Named_PS_Plotting_Templates.dwt")));
    const auto root = drawing->getNamedObjectsDictionaryId().safeOpenObject<OdDbDictionary>();
    const auto styles =
        root->getAt(QStringLiteral("ACAD_PLOTSTYLENAME")).safeOpenObject<OdDbDictionary>();
    const OdDbObjectId id = drawing->layerTable().records().back();
    const auto layer = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    QStringList names;
    for (const DictionaryEntry& entry : styles->entries()) {
        if (entry.key != layer->plotStyleName())
            names << entry.key;
    }
    ASSERT_GE(names.size(), 1);
    const OdDbObjectId viewport = drawing->idOfSlot(drawing->store().viewports().back());
    const QString before = layer->plotStyleName();
    layer->setPlotStyleName(names.back());
    layer->setPlotStyleName(before, viewport);
    const Saved now = saved(*drawing);
    EXPECT_EQ(now.report.notKept, QStringList());
    const auto again = readDrawing(now.bytes, QStringLiteral("again.dwt"));
    const auto there = again->layerTable().records().back().safeOpenObject<OdDbLayerTableRecord>();
    EXPECT_EQ(there->plotStyleName(), names.back());
    EXPECT_EQ(there->plotStyleName(again->idOfSlot(again->store().viewports().back())), before);
    EXPECT_EQ(again->audit(), QStringList());
}

} // namespace

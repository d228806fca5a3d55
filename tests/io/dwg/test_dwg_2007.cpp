#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/OdError.h"
#include "io/DrawingFile.h"
#include "io/dwg/container/DwgFile.h"
#include "support/drawings/DrawingDigest.h"
#include "support/drawings/SharedDrawings.h"

#include <QFile>

#include <gtest/gtest.h>
#include <random>

namespace {

constexpr qsizetype kHeadAt = 0x80;
constexpr qsizetype kFirstPage = 0x480;

QString dwgPath()
{
    return SharedDrawings::file(QStringLiteral("LibreDWG+libredwg__example_2007.dwg"));
}

QByteArray dwgBytes()
{
    QFile file(dwgPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::unique_ptr<OdDbDatabase> dxfTwin()
{
    return readDrawing(SharedDrawings::file(QStringLiteral("LibreDWG+libredwg__example_2007.dxf")));
}

std::unique_ptr<DwgFile> opened(const QByteArray& bytes)
{
    return DwgFile::open(FileImage::copyOf(bytes, QStringLiteral("made.dwg")));
}

/// What is said of a drawing, but for header variables: a DXF has others than a DWG.
QStringList digest(const OdDbDatabase& drawing)
{
    QStringList lines = drawingDigest(drawing);
    lines.removeIf([](const QString& line) { return line.startsWith(QLatin1Char('$')); });
    return lines;
}

TEST(Dwg2007, LayersUsesViewportsAndFiltersAreThoseOfTheTwin)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const auto dwg = readDrawing(dwgPath());
    EXPECT_EQ(dwg->audit(), QStringList());
    const QStringList found = digest(*dwg);
    EXPECT_GE(found.filter(QStringLiteral("layer ")).size(), 2);
    EXPECT_EQ(found.join(QLatin1Char('\n')).toStdString(),
              digest(*dxfTwin()).join(QLatin1Char('\n')).toStdString());
}

TEST(Dwg2007, LayoutsAreThoseOfTheTwin)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const auto names = [](const OdDbDatabase& drawing) {
        QStringList lines;
        for (const OdDbObjectId id : drawing.layouts()) {
            const auto layout = id.safeOpenObject<OdDbLayout>();
            lines << QStringLiteral("%1 %2 %3 %4")
                         .arg(layout->getLayoutName())
                         .arg(layout->getTabOrder())
                         .arg(layout->getCurrentStyleSheet())
                         .arg(layout->getViewportArray().size());
        }
        return lines;
    };
    const auto dwg = readDrawing(dwgPath());
    EXPECT_GE(names(*dwg).size(), 3);
    EXPECT_EQ(names(*dwg), names(*dxfTwin()));
}

TEST(Dwg2007, EveryEntityIsOfTheTypeAndOnTheLayerOfItsTwin)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const auto dwg = readDrawing(dwgPath());
    const auto dxf = dxfTwin();
    const auto layer = [](OdDbObjectId id) {
        return id.safeOpenObject<OdDbEntity>()
            ->layerId()
            .safeOpenObject<OdDbLayerTableRecord>()
            ->getName();
    };
    const ObjectStore& store = dwg->store();
    int compared = 0;
    for (quint32 slot = 0; slot < store.fileRecords(); ++slot) {
        const OdDbObjectId twin = dxf->getOdDbObjectId(OdDbHandle(store.handle(slot)));
        if (!store.has(slot, ObjectStore::kEntity) || twin.isNull())
            continue;
        SCOPED_TRACE(QString::number(store.handle(slot), 16).toStdString());
        EXPECT_EQ(store.typeName(slot), dxf->store().typeName(twin.slot()));
        if (!dxf->store().has(twin.slot(), ObjectStore::kEntity)) {
            // In a DXF, begin and end of a block are none.
            EXPECT_TRUE(store.typeName(slot).contains("BLK")
                        || store.typeName(slot) == QByteArray("BLOCK"));
            continue;
        }
        EXPECT_EQ(layer(dwg->idOfSlot(slot)), layer(twin));
        ++compared;
    }
    EXPECT_GT(compared, 200);
}

TEST(Dwg2007, AllItsCheckBytesAndSumsHold)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    // One sentence alone: that such a drawing cannot be written.
    EXPECT_EQ(opened(dwgBytes())->faults().size(), 1);
}

TEST(Dwg2007, AnEditedDrawingIsNotSavedAndSaysWhy)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const auto drawing = readDrawing(dwgPath());
    EXPECT_TRUE(writingRefusal(*drawing).contains(QLatin1String("version 2007")))
        << writingRefusal(*drawing).toStdString();
    drawing->startUndoRecord();
    drawing->getLayerZeroId().safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsOff(true);
    drawing->endUndoRecord();
    try {
        drawingBytes(*drawing);
        ADD_FAILURE() << "it was saved";
    } catch (const OdError& error) {
        EXPECT_EQ(error.code(), OdResult::CantWriteFile);
        EXPECT_TRUE(error.description().contains(QLatin1String("layer states"))) << error.what();
    }
}

TEST(Dwg2007, AFlippedCheckByteIsToldAndTheSectionsStayWhatTheyAre)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    QByteArray bytes = dwgBytes();
    const auto sound = opened(bytes);
    constexpr qsizetype kLastCheckByte = kHeadAt + 3 * 255 - 1;
    bytes[kLastCheckByte] = static_cast<char>(bytes[kLastCheckByte] ^ 0x10);
    const auto file = opened(bytes);
    EXPECT_EQ(file->faults().size(), 2);
    for (const DwgSection section :
         {DwgSection::Header, DwgSection::Classes, DwgSection::ObjectMap, DwgSection::Objects})
    {
        EXPECT_FALSE(file->section(section).isEmpty());
        EXPECT_TRUE(file->section(section) == sound->section(section));
    }
}

/// Whether the file opens, for reading only; an error other than that of a damaged drawing fails
/// the test.
bool opens(const QByteArray& bytes)
{
    try {
        return !opened(bytes)->faults().isEmpty();
    } catch (const OdError& error) {
        EXPECT_EQ(error.code(), OdResult::InvalidDrawing) << error.what();
        EXPECT_FALSE(error.description().isEmpty());
        return false;
    }
}

TEST(Dwg2007, CutOffFilesAreRefused)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const QByteArray bytes = dwgBytes();
    // The section map is the last but one of the pages, in front of its copy.
    constexpr qsizetype kBehindSectionMap = 0x1B00;
    for (qsizetype size = 6; size < kFirstPage + 0x800; size += 41)
        EXPECT_FALSE(opens(bytes.first(size))) << size;
    for (qsizetype size = kFirstPage; size < bytes.size() - kBehindSectionMap; size += 9001)
        EXPECT_FALSE(opens(bytes.first(size))) << size;
    EXPECT_TRUE(opens(bytes));
}

TEST(Dwg2007, FlippedBytesAreNoticedWhereverTheyCount)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const QByteArray bytes = dwgBytes();
    std::mt19937 random(20070101);
    int told = 0;
    int refused = 0;
    const auto flipIn = [&](qsizetype from, qsizetype end, int rounds) {
        for (int i = 0; i < rounds; ++i) {
            QByteArray flipped = bytes;
            const auto at = static_cast<qsizetype>(
                from + static_cast<qsizetype>(random() % static_cast<quint32>(end - from)));
            flipped[at] = static_cast<char>(flipped[at] ^ (1 << random() % 8));
            try {
                const auto file = opened(flipped);
                EXPECT_GE(file->faults().size(), 1);
                told += file->faults().size() > 1 ? 1 : 0;
            } catch (const OdError& error) {
                EXPECT_EQ(error.code(), OdResult::InvalidDrawing) << error.what();
                ++refused;
            }
        }
    };
    // Heads: all their bytes are coded. Page map, its copies in the blocks: so are those.
    constexpr int kRounds = 100;
    flipIn(kHeadAt, kHeadAt + 3 * 255, kRounds);
    flipIn(kFirstPage, kFirstPage + 4 * 255, kRounds);
    EXPECT_EQ(told + refused, 2 * kRounds);
    EXPECT_GT(told, 0);
    EXPECT_GT(refused, 0);
    // Maps and pages elsewhere.
    told = refused = 0;
    flipIn(0x4C000, bytes.size(), kRounds);
    EXPECT_GT(told, kRounds / 3);
    EXPECT_GT(told + refused, kRounds / 2);
}

TEST(Dwg2007, ManyWrongBytesNeitherCrashNorHang)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const QByteArray bytes = dwgBytes();
    std::mt19937 random(424242);
    int read = 0;
    constexpr int kRounds = 40;
    for (int round = 0; round < kRounds; ++round) {
        QByteArray damaged = bytes;
        // Half of the rounds leave head and page map, so that more of the file is reached.
        const qsizetype from = round % 2 == 0 ? kHeadAt : kFirstPage + 0x800;
        const int flips = 1 << round % 10;
        const auto span = static_cast<quint32>(bytes.size() - from);
        for (int i = 0; i < flips; ++i)
            damaged[from + static_cast<qsizetype>(random() % span)] = static_cast<char>(random());
        try {
            const auto drawing = readDrawing(damaged, QStringLiteral("damaged.dwg"));
            drawingDigest(*drawing);
            ++read;
        } catch (const OdError& error) {
            EXPECT_FALSE(error.description().isEmpty());
        }
    }
    EXPECT_GT(read, 0);
    EXPECT_LT(read, kRounds);
}

} // namespace

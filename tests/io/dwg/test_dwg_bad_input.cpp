#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/GroupCursor.h"
#include "io/DrawingFile.h"
#include "io/dwg/support/BrokenDwg.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/DwgMaker.h"
#include "io/dwg/support/DwgParts.h"
#include "io/dwg/support/MadeHandles.h"
#include "support/drawings/SharedDrawings.h"

#include <gtest/gtest.h>
#include <random>

using namespace BrokenDwg;

namespace {

struct Outcomes
{
    int refused = 0;
    int readOnly = 0;
};

template <class Break>
Outcomes tryAll(int tries, unsigned seed, const Break& breakIt)
{
    Outcomes outcomes;
    std::mt19937 random(seed);
    for (const QByteArray& whole : smallFiles()) {
        for (int i = 0; i < tries; ++i) {
            QByteArray bytes = whole;
            breakIt(bytes, random, i);
            switch (outcome(bytes)) {
            case Outcome::Refused:
                ++outcomes.refused;
                break;
            case Outcome::ReadOnly:
                ++outcomes.readOnly;
                break;
            default:
                break;
            }
        }
    }
    return outcomes;
}

TEST(DwgBadInput, FilesThatBreakOffAreRefusedOrOpenedForReading)
{
    // A reader has no use for what stands behind the maps: the second header of a flat file, the
    // copy of the head of one with pages.
    constexpr int kLengths = 40;
    constexpr int kTail = 4;
    for (const QByteArray& whole : smallFiles()) {
        for (int i = 0; i < kLengths; ++i) {
            const Outcome found = outcome(whole.first(whole.size() * i / kLengths));
            EXPECT_TRUE(found != Outcome::Sound || i >= kLengths - kTail) << i;
        }
        for (qsizetype length = 0; length < 0x200; length += 7)
            EXPECT_EQ(outcome(whole.first(length)), Outcome::Refused) << length;
    }
}

TEST(DwgBadInput, FlippedBytesNeverCrash)
{
    const Outcomes found = tryAll(60, 11, [](QByteArray& bytes, std::mt19937& random, int i) {
        for (int flips = 1 + i % 4; flips > 0; --flips) {
            char& byte = bytes.data()[place(bytes, random)];
            byte = static_cast<char>(byte ^ (1 << random() % 8));
        }
    });
    EXPECT_GT(found.refused + found.readOnly, 100);
    EXPECT_GT(found.readOnly, 20);
}

TEST(DwgBadInput, NumbersBlownUpNeverCrash)
{
    const Outcomes found = tryAll(60, 12, [](QByteArray& bytes, std::mt19937& random, int i) {
        constexpr qsizetype kHead = 0x180;
        const qsizetype at =
            i % 2 == 0 ? place(bytes.first(kHead), random) : place(bytes.chopped(8), random);
        for (int k = 0; k < 4; ++k)
            bytes.data()[at + k] = static_cast<char>(k == 3 && i % 3 == 0 ? 0x7F : 0xFF);
    });
    EXPECT_GT(found.refused, 20);
}

TEST(DwgBadInput, AWrongSumOpensForReadingOnlyAndSaysWhy)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    QByteArray bytes = DwgFiles::bytes(QStringLiteral("LibreDWG+libredwg__example_2000.dwg"));
    {
        // The last byte of a record is one of its sum; in a flat file it stands as it is.
        const DwgParts parts(bytes);
        ASSERT_EQ(parts.faults(), QStringList());
        const QByteArrayView record = parts.records().begin()->second;
        const qsizetype end = record.data() + record.size() - parts.file().image().begin();
        bytes.data()[end - 1] = static_cast<char>(~bytes[end - 1]);
    }
    const auto drawing = readDrawing(bytes, QStringLiteral("broken.dwg"));
    ASSERT_EQ(DwgFiles::faults(*drawing).size(), 1);
    EXPECT_TRUE(DwgFiles::faults(*drawing)[0].contains(QStringLiteral("is damaged")));
    EXPECT_TRUE(drawing->loadNotes().contains(DwgFiles::faults(*drawing)[0]));
    EXPECT_EQ(outcome(bytes), Outcome::ReadOnly);
}

/// Freezes or thaws each layer, saves, and looks for that in what was saved. False where that is
/// refused in words.
bool editsAreKept(OdDbDatabase& drawing)
{
    const OdDbLayerTable& layers = drawing.layerTable();
    for (const OdDbObjectId id : layers.records()) {
        const auto layer = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
        layer->setIsFrozen(!layer->isFrozen());
    }
    std::unique_ptr<OdDbDatabase> again;
    try {
        again = readDrawing(drawingBytes(drawing), QStringLiteral("again.dwg"));
    } catch (const OdError& error) {
        EXPECT_TRUE(error.description().endsWith(QLatin1Char('.'))) << error.what();
        return false;
    }
    EXPECT_EQ(DwgFiles::faults(*again), QStringList());
    EXPECT_EQ(again->layerTable().records().size(), layers.records().size());
    for (const OdDbObjectId id : layers.records()) {
        const auto before = id.safeOpenObject<OdDbLayerTableRecord>();
        const auto after = again->idOfSlot(again->store().find(id.getHandle().value()))
                               .openObject<OdDbLayerTableRecord>();
        EXPECT_TRUE(after && after->isFrozen() == before->isFrozen())
            << before->getName().toStdString();
    }
    return true;
}

TEST(DwgBadInput, TurnedBitsUnderRightSumsNeverMisplaceAnEdit)
{
    constexpr int kTries = 80;
    std::mt19937 random(14);
    int kept = 0;
    int readOnly = 0;
    for (const DrawingVersion version : MadeDrawing::kVersions) {
        const MadeDrawing made = MadeDrawing::sample(version);
        for (int i = 0; i < kTries; ++i) {
            SCOPED_TRACE(i);
            DwgMaker maker(made);
            // One time of two a layer.
            maker.damage(i % 2 == 0 ? random()
                                    : maker.partOf(MadeRecords::layerHandle(random() % 5)),
                         random(), static_cast<quint8>(1u << random() % 8));
            const QByteArray bytes = maker.bytes();
            if (outcome(bytes) != Outcome::Sound) {
                ++readOnly;
                continue;
            }
            kept += editsAreKept(*readDrawing(bytes, QStringLiteral("turned.dwg"))) ? 1 : 0;
        }
    }
    EXPECT_GT(kept, 100);
    EXPECT_GT(readOnly, 50);
}

TEST(DwgBadInput, OneRecordIsNotTwoTables)
{
    for (const DrawingVersion version : MadeDrawing::kVersions) {
        MadeDrawing made = MadeDrawing::sample(version);
        made.references = {{"*STYLE", MadeHandle::LayerControl}};
        const QByteArray bytes = DwgMaker(made).bytes();
        EXPECT_EQ(outcome(bytes), Outcome::ReadOnly);
        const auto drawing = readDrawing(bytes, QStringLiteral("twice.dwg"));
        EXPECT_EQ(DwgFiles::faults(*drawing),
                  QStringList(QStringLiteral("The table with the handle 2 is missing.")));
        EXPECT_EQ(drawing->layerTable().records().size(), made.layers.size());
        EXPECT_EQ(drawing->audit(), QStringList());
    }
}

TEST(DwgBadInput, ALayerWhoseValuesRunOverItsEndOpensForReadingOnly)
{
    // Its sum is right; its name tells a length that it does not have.
    const MadeDrawing made = MadeDrawing::sample(DrawingVersion::V2004);
    DwgMaker maker(made);
    constexpr std::size_t kLength = 10;
    maker.damage(maker.partOf(MadeRecords::layerHandle(2)), kLength, 0x80);
    EXPECT_EQ(outcome(maker.bytes()), Outcome::ReadOnly);
    const auto drawing = readDrawing(maker.bytes(), QStringLiteral("long.dwg"));
    EXPECT_EQ(DwgFiles::faults(*drawing),
              QStringList(QStringLiteral("The record with the handle 42 is damaged.")));
}

TEST(DwgBadInput, ExtendedDataThatRunOverTheirEndHideNoOthers)
{
    // Those of another application, with a text that is longer than they are, before the
    // transparency.
    const MadeDrawing made = MadeDrawing::sample(DrawingVersion::V2013);
    const LayerState& wanted = made.layers[1].state;
    DwgMaker maker(made);
    const std::size_t layer = maker.partOf(MadeRecords::layerHandle(1));
    maker.damage(layer, 8, 0x0A); // the handle of the application
    maker.damage(layer, 12, 0x31); // the length of the text
    const QString description = QStringLiteral("another one");
    const auto find = [&](const OdDbDatabase& drawing, OdDb::OpenMode mode) {
        return drawing.layerTable().getAt(wanted.name).safeOpenObject<OdDbLayerTableRecord>(mode);
    };
    const auto drawing = readDrawing(maker.bytes(), QStringLiteral("over.dwg"));
    ASSERT_EQ(DwgFiles::faults(*drawing), QStringList());
    EXPECT_EQ(find(*drawing, OdDb::kForRead)->description(), QString());
    EXPECT_EQ(find(*drawing, OdDb::kForRead)->transparency(), wanted.transparency);
    find(*drawing, OdDb::kForWrite)->setDescription(description);
    const auto again = readDrawing(drawingBytes(*drawing), QStringLiteral("again.dwg"));
    EXPECT_EQ(find(*again, OdDb::kForRead)->description(), description);
    EXPECT_EQ(find(*again, OdDb::kForRead)->transparency(), wanted.transparency);
}

TEST(DwgBadInput, OlderVersionsAreRefusedInWords)
{
    QByteArray bytes = DwgMaker::sample(DrawingVersion::V2000);
    for (const char* version : {"AC1.50", "AC2.10", "AC1004", "AC1009"}) {
        bytes.replace(0, 6, version);
        try {
            (void)readDrawing(bytes, QStringLiteral("old.dwg"));
            ADD_FAILURE() << version << " was read";
        } catch (const OdError& error) {
            EXPECT_TRUE(error.description().contains(QStringLiteral("version that cannot be read")))
                << error.what();
        }
    }
}

TEST(DwgBadInput, EditsOfTheOldestVersionsAreRefusedInWords)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const QByteArray bytes = DwgFiles::bytes(QStringLiteral("LibreDWG+libredwg__example_r14.dwg"));
    const auto drawing = readDrawing(bytes, QStringLiteral("old.dwg"));
    EXPECT_TRUE(drawingBytes(*drawing) == bytes);
    drawing->getLayerZeroId().safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsOff(true);
    try {
        (void)drawingBytes(*drawing);
        ADD_FAILURE() << "it was written";
    } catch (const OdError& error) {
        EXPECT_TRUE(error.description().contains(QStringLiteral("cannot be saved")))
            << error.what();
    }
}

} // namespace

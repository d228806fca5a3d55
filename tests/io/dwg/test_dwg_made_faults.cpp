// Files that are whole by their sums, and still not what they should be: they open for reading
// only.

#include "database/drawing/OdDbDatabase.h"
#include "database/store/HeaderVariables.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/values/OdError.h"
#include "io/DrawingCodec.h"
#include "io/DrawingFile.h"
#include "io/dwg/bits/BitReader.h"
#include "io/dwg/bits/Checksums.h"
#include "io/dwg/container/Lz77.h"
#include "io/dwg/container/PageForm.h"
#include "io/dwg/container/PagedFile.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/DwgMaker.h"
#include "io/dwg/support/DwgParts.h"
#include "io/dwg/support/MadeHandles.h"

#include <gtest/gtest.h>

namespace {

using namespace PageForm;

std::unique_ptr<OdDbDatabase> opened(const QByteArray& bytes)
{
    return readDrawing(bytes, QStringLiteral("made.dwg"));
}

/// The sentences for which a drawing was opened for reading only, joined.
QString faultsOf(const QByteArray& file)
{
    const auto drawing = opened(file);
    EXPECT_THROW((void)drawingBytes(*drawing), OdError);
    return DwgFiles::faults(*drawing).join(QLatin1Char(' '));
}

std::string versionName(const testing::TestParamInfo<DrawingVersion>& version)
{
    return "AC" + std::to_string(static_cast<int>(version.param));
}

class MadePages : public testing::TestWithParam<DrawingVersion>
{
protected:
    QByteArray whole = DwgMaker::sample(GetParam());
    PagedFile file{FileImage::copyOf(whole, QStringLiteral("whole.dwg")), GetParam()};

    /// The file with other bytes in the first page of a section, in the room that it has.
    QByteArray withPage(const char* section, const QByteArray& packed) const
    {
        const PagedFile::SectionPage& part = file.find(section)->pages.front();
        const PagedFile::Page* place = file.page(part.number);
        EXPECT_LE(packed.size(), file.packedPage(part).bytes.size());
        const auto at = static_cast<qsizetype>(place->offset);
        QByteArray head =
            maskedPageHead(QByteArrayView(whole).sliced(at, kDataHead), place->offset);
        const quint32 sum = Checksums::page(packed);
        put(head, 8, static_cast<quint32>(packed.size()));
        put(head, kDataSum, sum);
        put(head, kDataHeadSum, headSum(head, kDataHeadSum, sum));
        QByteArray result = whole;
        result.replace(at, kDataHead, maskedPageHead(head, place->offset));
        return result.replace(at + kDataHead, packed.size(), packed);
    }
};

TEST_P(MadePages, APageThatEndsTooEarlyOpensItForReadingOnly)
{
    const QByteArray classes = file.unpacked(*file.find("AcDb:Classes"));
    EXPECT_EQ(DwgFiles::faults(*opened(withPage("AcDb:Classes", Lz77::pack(classes)))),
              QStringList())
        << "not as long as a page, but as the section";
    EXPECT_TRUE(faultsOf(withPage("AcDb:Classes", Lz77::pack(classes.chopped(1))))
                    .contains(QStringLiteral("ends too early")));
}

TEST_P(MadePages, APageThatCannotBeUnpackedMattersWhereASaveNeedsIt)
{
    const QByteArray broken("\x00\x00\x00\x00", 4);
    EXPECT_EQ(faultsOf(withPage("AcDb:AuxHeader", broken)),
              QStringLiteral("The section AcDb:AuxHeader is damaged."));
    // One setting cannot be told then, nor changed.
    const QString name = QStringLiteral("$MEASUREMENT");
    EXPECT_EQ(opened(whole)->header().value(name), QStringLiteral("1"));
    const auto without = opened(withPage("AcDb:Template", broken));
    EXPECT_EQ(DwgFiles::faults(*without), QStringList());
    EXPECT_EQ(without->header().value(name), QString());
    without->setHeaderVariable(name, 70, QStringLiteral("1"));
    EXPECT_EQ(
        DrawingSource::of(*without).write(*without).report.notKept,
        QStringList(QStringLiteral("The setting MEASUREMENT cannot be changed in DWG drawings.")));
    EXPECT_EQ(DwgFiles::faults(*opened(withPage("AcDb:ObjFreeSpace", broken))), QStringList());
    EXPECT_THROW((void)opened(withPage("AcDb:Handles", broken)), OdError_InvalidDrawing);
}

TEST_P(MadePages, ABrokenPreviewIsCopiedAsItIsWhereverItComesToStand)
{
    QByteArray broken = whole;
    const auto place = word<quint32>(whole.constData() + 0x0D);
    broken[place + 4] = static_cast<char>(broken[place + 4] ^ 1);
    const auto drawing = opened(broken);
    ASSERT_EQ(DwgFiles::faults(*drawing), QStringList());
    for (int i = 0; i < 200; ++i)
        drawing->layerTable().add(QStringLiteral("layer that moves the preview %1").arg(i));
    const QByteArray saved = drawingBytes(*drawing);
    const auto now = word<quint32>(saved.constData() + 0x0D);
    EXPECT_NE(now, place);
    EXPECT_EQ(saved.sliced(now, 60), broken.sliced(place, 60));
}

TEST_P(MadePages, AMissingPageOpensItForReadingOnly)
{
    // Its number in the page map becomes one that nothing asks for.
    const PagedFile::Page& mapPage = file.pages().back();
    const auto at = static_cast<qsizetype>(mapPage.offset);
    QByteArray map(8 * static_cast<qsizetype>(file.pages().size()), '\0');
    const auto packedSize = word<quint32>(whole.constData() + at + 8);
    ASSERT_EQ(Lz77::unpack(QByteArrayView(whole).sliced(at + kSystemHead, packedSize), map.data(),
                           map.size()),
              map.size());
    const int number = file.find("AcDb:ObjFreeSpace")->pages.front().number;
    put(map, 8 * (number - 1), 99);
    const QByteArray page = systemPage(kPageMapType, map);
    ASSERT_EQ(page.size(), static_cast<qsizetype>(mapPage.size));
    EXPECT_EQ(faultsOf(QByteArray(whole).replace(at, page.size(), page)),
              QStringLiteral("Page %1 of the section AcDb:ObjFreeSpace is missing.").arg(number));
}

INSTANTIATE_TEST_SUITE_P(Versions, MadePages,
                         testing::Values(DrawingVersion::V2004, DrawingVersion::V2010,
                                         DrawingVersion::V2013, DrawingVersion::V2018),
                         versionName);

class MadeFaults : public testing::TestWithParam<DrawingVersion>
{ };

TEST_P(MadeFaults, ABlockWhoseBeginningIsNowhereOpensItForReadingOnly)
{
    const MadeDrawing drawing = MadeDrawing::sample(GetParam());
    const DwgMaker maker(drawing);
    const DwgParts parts(maker.bytes());
    const auto bytes = static_cast<std::size_t>(parts.records().at(MadeHandle::ModelSpace).size());
    int found = 0;
    for (std::size_t place = 0; place < 2 * bytes; ++place) {
        DwgMaker damaged(drawing);
        damaged.damage(damaged.partOf(MadeHandle::ModelSpace), place / 2,
                       place % 2 == 0 ? 0x10 : 0x01);
        try {
            const auto read = opened(damaged.bytes());
            const QString faults = DwgFiles::faults(*read).join(QLatin1Char(' '));
            if (!faults.contains(QStringLiteral("has entities, but no beginning")))
                continue;
            ++found;
            EXPECT_THROW((void)drawingBytes(*read), OdError);
        } catch (const OdError_InvalidDrawing&) {
        }
    }
    EXPECT_GT(found, 0);
}

TEST_P(MadeFaults, ADrawingWithoutARootGetsOne)
{
    MadeDrawing odd = MadeDrawing::sample(GetParam());
    odd.references["*NAMED"] = 0;
    const auto drawing = opened(DwgMaker(odd).bytes());
    ASSERT_TRUE(drawing->getNamedObjectsDictionaryId().isNull());
    ASSERT_EQ(DwgFiles::faults(*drawing), QStringList());
    drawing->setDictionaryVariable(QStringLiteral("LAYEREVAL"), QStringLiteral("1"));
    const auto again = opened(drawingBytes(*drawing));
    EXPECT_EQ(again->dictionaryVariable(QStringLiteral("LAYEREVAL")), QStringLiteral("1"));
    EXPECT_EQ(again->audit(), QStringList());
}

TEST_P(MadeFaults, WhatIsDrawnOnTheSheetStandsInPaperSpace)
{
    const auto drawing = opened(DwgMaker::sample(GetParam()));
    const OdDbObjectId drawn = drawing->addEntity(
        "CIRCLE", {{10, "1"}, {20, "2"}, {30, "0"}, {40, "3"}},
        drawing->idOfSlot(
            drawing->table(OdDbTableKind::Block).getAt(QStringLiteral("*Paper_Space")).slot()),
        drawing->getCLAYER());
    const QByteArray saved = drawingBytes(*drawing);
    const DwgParts parts(saved);
    DwgRecord record(parts.format(), parts.records().at(drawn.getHandle().value()));
    ASSERT_TRUE(record.open(0));
    DwgHead head;
    DwgEntityHead entity;
    record.readHead(head, entity);
    EXPECT_EQ(entity.space, DwgEntityHead::Space::Paper);
    EXPECT_EQ(head.owner, 0u);
}

INSTANTIATE_TEST_SUITE_P(Versions, MadeFaults, testing::ValuesIn(MadeDrawing::kVersions),
                         versionName);

TEST(DwgHandles, HaveUpTo64BitsInTheObjectMap)
{
    ObjectMap map = ObjectMap::read(ObjectMap::spelled({{1, 2}, {~quint64(0) - 1, 3}}));
    EXPECT_TRUE(map.complete && map.sumsHold);
    ASSERT_EQ(map.entries.size(), 2u);
    EXPECT_EQ(map.entries[1].handle, ~quint64(0) - 1);
    QByteArray tooLong = QByteArray(9, '\xFF') + '\x02' + QByteArray(BitReader::kPadding, '\0');
    BitReader reader(tooLong);
    reader.modularChar();
    EXPECT_TRUE(reader.hasFailed());
}

} // namespace

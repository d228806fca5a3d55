#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/values/OdError.h"
#include "io/DrawingCodec.h"
#include "io/DrawingFile.h"
#include "io/dwg/bits/Checksums.h"
#include "io/dwg/container/PageForm.h"
#include "io/dwg/container/PagedFile.h"
#include "io/dwg/sections/HeaderSection.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/DwgMaker.h"
#include "io/dwg/support/DwgParts.h"

#include <gtest/gtest.h>

namespace {

using MadeSums = testing::TestWithParam<DrawingVersion>;
using MadeSumsOfPages = testing::TestWithParam<DrawingVersion>;

constexpr qsizetype kPreviewAt = 0x0D;

std::unique_ptr<OdDbDatabase> opened(const QByteArray& bytes)
{
    return readDrawing(bytes, QStringLiteral("made.dwg"));
}

std::string versionName(const testing::TestParamInfo<DrawingVersion>& version)
{
    return "AC" + std::to_string(static_cast<int>(version.param));
}

/// Edits that need a new record, whose handle raises the next free one.
QByteArray savedWithALayerMore(const QByteArray& file)
{
    const auto drawing = opened(file);
    drawing->layerTable().add(QStringLiteral("one more"));
    return drawingBytes(*drawing);
}

QByteArray sectionBytes(const DwgParts& parts, const char* name, int number)
{
    const std::unique_ptr<DwgFile> file = DwgFile::open(parts.file().sharedImage());
    if (auto* paged = dynamic_cast<PagedFile*>(file.get()))
        return paged->unpacked(*paged->find(name));
    return dynamic_cast<FlatFile&>(*file).locatedBytes(number).toByteArray();
}

TEST_P(MadeSums, ASaveTellsTheNextFreeHandleEverywhere)
{
    const DwgParts before(DwgMaker::sample(GetParam()));
    const quint64 added = before.records().rbegin()->first + 1;
    const QByteArray saved = savedWithALayerMore(DwgMaker::sample(GetParam()));
    const DwgParts after(saved);
    EXPECT_EQ(after.faults(), QStringList());
    ASSERT_EQ(after.records().rbegin()->first, added);
    const MadeSections sections(after.format());
    EXPECT_EQ(HeaderSection(after.file(), after.format()).reference(QStringLiteral("$HANDSEED")),
              added + 1);
    EXPECT_TRUE(sectionBytes(before, "AcDb:AuxHeader", FlatFile::kAuxHeader)
                == sections.auxHeader(added));
    EXPECT_TRUE(sectionBytes(after, "AcDb:AuxHeader", FlatFile::kAuxHeader)
                == sections.auxHeader(added + 1));
}

TEST_P(MadeSums, ASaveKeepsTheSectionsThatNothingChanged)
{
    const DwgParts before(DwgMaker::sample(GetParam()));
    const DwgParts after(savedWithALayerMore(DwgMaker::sample(GetParam())));
    constexpr std::pair<const char*, int> kKept[] = {
        {"AcDb:Classes", 1}, {"AcDb:Template", 4}, {"AcDb:ObjFreeSpace", 3}};
    for (const auto& [name, number] : kKept)
        EXPECT_EQ(sectionBytes(before, name, number), sectionBytes(after, name, number)) << name;
}

TEST(MadeSumsOfAFlatFile, ASaveWritesTheHeadAndTheSecondHeaderForTheNewPlaces)
{
    const QByteArray saved = savedWithALayerMore(DwgMaker::sample(DrawingVersion::V2000));
    const DwgParts parts(saved);
    const auto& file = dynamic_cast<const FlatFile&>(parts.file());
    const auto end = static_cast<qsizetype>(FlatFile::kLocatorsAt
                                            + file.locators().size() * FlatFile::kLocatorSize);
    EXPECT_EQ(PageForm::word<quint16>(saved.constData() + end),
              Checksums::crc16(QByteArrayView(saved).first(end)));
    // Behind the last section stands the second header, as one of these places would be made.
    qsizetype last = 0;
    for (const FlatFile::Locator& locator : file.locators())
        last = std::max(last, static_cast<qsizetype>(locator.offset + locator.size));
    const quint64 seed = HeaderSection(file, parts.format()).reference(QStringLiteral("$HANDSEED"));
    const MadeSections sections(parts.format());
    EXPECT_TRUE(saved.sliced(last)
                == sections.secondHeader(static_cast<quint64>(last), file.locators(), seed));
    EXPECT_NE(saved.size(), DwgMaker::sample(DrawingVersion::V2000).size());
    const auto preview = PageForm::word<quint32>(saved.constData() + kPreviewAt);
    EXPECT_TRUE(saved.sliced(preview).startsWith(MadeSections::preview(preview)));
}

TEST_P(MadeSumsOfPages, ASaveWritesTheHeadAndItsCopyForTheNewPlaces)
{
    using namespace PageForm;
    const QByteArray saved = savedWithALayerMore(DwgMaker::sample(GetParam()));
    const auto at = static_cast<qsizetype>(kHeadAt);
    QByteArray head = maskedHead(QByteArrayView(saved).sliced(at, kHeadSize));
    EXPECT_TRUE(saved.endsWith(saved.sliced(at, kHeadSize)));
    EXPECT_EQ(word<quint64>(head.constData() + kHeadCopyAddress),
              static_cast<quint64>(saved.size() - kHeadSize));
    const auto sum = word<quint32>(head.constData() + kHeadSum);
    put<quint32>(head, kHeadSum, 0);
    EXPECT_EQ(Checksums::crc32(head), sum);

    PagedFile file(FileImage::copyOf(saved, QStringLiteral("saved.dwg")), GetParam());
    const PagedFile::Page& map = file.pages().back();
    EXPECT_EQ(word<quint64>(head.constData() + kPageMapAddress) + kFirstPage, map.offset);
    EXPECT_EQ(word<qint32>(head.constData() + kPageMapNumber), map.number);
    EXPECT_EQ(word<quint32>(head.constData() + kPages), file.pages().size());
    EXPECT_EQ(word<quint64>(head.constData() + kLastPageEnd) + kFirstPage, map.offset + map.size);
    EXPECT_EQ(map.offset + map.size, static_cast<quint64>(saved.size() - kHeadSize));
    // Every section can be unpacked, those too that the reader of drawings leaves alone.
    for (const PagedFile::Section& section : file.sections())
        EXPECT_EQ(file.unpacked(section).size(), static_cast<qsizetype>(section.size));
    EXPECT_EQ(file.faults(), QStringList());
    const auto preview = word<quint32>(saved.constData() + kPreviewAt);
    EXPECT_TRUE(saved.sliced(preview).startsWith(MadeSections::preview(preview)));
}

/// The sentences for which a drawing was opened for reading only, joined.
QString faultsOf(const QByteArray& file)
{
    const auto drawing = opened(file);
    EXPECT_THROW((void)drawingBytes(*drawing), OdError);
    EXPECT_EQ(drawing->loadNotes(), DwgFiles::faults(*drawing));
    return DwgFiles::faults(*drawing).join(QLatin1Char(' '));
}

TEST_P(MadeSumsOfPages, EncryptedOrSignedItOpensForReadingOnly)
{
    const QString sentence = QStringLiteral("Parts of it are encrypted or signed.");
    MadeDrawing marked = MadeDrawing::sample(GetParam());
    marked.isEncrypted = true;
    EXPECT_EQ(faultsOf(DwgMaker(marked).bytes()), sentence);
    MadeDrawing withSection = MadeDrawing::sample(GetParam());
    for (const char* name : {"AcDb:Security", "AcDb:Signature"}) {
        withSection.moreSection = name;
        EXPECT_EQ(faultsOf(DwgMaker(withSection).bytes()), sentence) << name;
    }
    withSection.moreSection = "AcDb:Other";
    EXPECT_EQ(DwgFiles::faults(*opened(DwgMaker(withSection).bytes())), QStringList());
    MadeDrawing withMark = MadeDrawing::sample(GetParam());
    withMark.encryptedSection = "AcDb:Classes";
    EXPECT_EQ(faultsOf(DwgMaker(withMark).bytes()),
              QStringLiteral("The section AcDb:Classes is marked as encrypted."));
}

TEST_P(MadeSumsOfPages, OneWrongSumOpensItForReadingOnly)
{
    using namespace PageForm;
    const QByteArray whole = DwgMaker::sample(GetParam());
    const PagedFile file(FileImage::copyOf(whole, QStringLiteral("whole.dwg")), GetParam());
    const auto with = [&](quint64 wrong) {
        QByteArray broken = whole;
        char& byte = broken.data()[wrong];
        byte = static_cast<char>(byte ^ 1);
        return faultsOf(broken);
    };
    const auto offset = [&](QByteArrayView section) {
        return file.page(file.find(section)->pages.front().number)->offset;
    };
    // The head is masked by adding bits, which leaves one turned bit one turned bit.
    EXPECT_TRUE(with(kHeadAt + kHeadSum).contains(QStringLiteral("second head")));
    EXPECT_TRUE(with(file.pages().back().offset + kSystemSum).contains(QStringLiteral("the map")));
    for (const QByteArrayView section : kSectionNames) {
        if (section == kSectionNames[static_cast<std::size_t>(DwgSection::Template)])
            continue; // nothing but a setting
        EXPECT_TRUE(with(offset(section) + kDataSum).contains(QStringLiteral("the page")));
        EXPECT_TRUE(with(offset(section) + kDataHeadSum).contains(QStringLiteral("the page")));
    }
}

TEST(MadeSumsOfAFlatFile, OneWrongSumOpensItForReadingOnly)
{
    const QByteArray whole = DwgMaker::sample(DrawingVersion::V2000);
    const DwgParts parts(whole);
    const auto& file = dynamic_cast<const FlatFile&>(parts.file());
    const auto with = [&](qsizetype wrong) {
        QByteArray broken = whole;
        broken.data()[wrong] = static_cast<char>(broken[wrong] ^ 1);
        return faultsOf(broken);
    };
    constexpr int kMark = 16;
    const FlatFile::Locator& header = file.locators()[0];
    EXPECT_TRUE(with(header.offset + header.size - kMark - 1)
                    .contains(QStringLiteral("header variables is damaged")));
    const FlatFile::Locator& classes = file.locators()[1];
    EXPECT_TRUE(with(classes.offset + classes.size - kMark - 1)
                    .contains(QStringLiteral("classes is damaged")));
    constexpr qsizetype kSumOfHead = 0x19 + 6 * 9;
    EXPECT_TRUE(with(kSumOfHead).contains(QStringLiteral("sum of the file's head")));
    const FlatFile::Locator& map = file.locators()[2];
    EXPECT_TRUE(with(map.offset + map.size - 1).contains(QStringLiteral("object map")));
    for (const auto& [handle, record] : parts.records()) {
        const qsizetype end = record.data() + record.size() - file.image().begin();
        EXPECT_TRUE(with(end - 1).contains(
            QStringLiteral("handle %1 is damaged").arg(QString::number(handle, 16).toUpper())));
    }
}

TEST(MadeSumsOfAFlatFile, ASectionAmongTheRecordsOpensItForReadingOnly)
{
    QByteArray file = DwgMaker::sample(DrawingVersion::V2000);
    const DwgParts parts(file);
    const QByteArrayView record = std::next(parts.records().begin())->second;
    constexpr qsizetype kTemplate = 0x19 + 4 * 9;
    constexpr qsizetype kSumOfHead = 0x19 + 6 * 9;
    PageForm::put(file, kTemplate + 1,
                  static_cast<quint32>(record.data() - parts.file().image().begin()));
    PageForm::put(file, kSumOfHead, Checksums::crc16(QByteArrayView(file).first(kSumOfHead)));
    EXPECT_EQ(faultsOf(file), QStringLiteral("The section 4 stands among the records."));
}

TEST(MadeSumsOfAFlatFile, TwoHandlesOfOneRecordOpenItForReadingOnly)
{
    QByteArray file = DwgMaker::sample(DrawingVersion::V2000);
    const DwgParts parts(file);
    const FlatFile::Locator map = dynamic_cast<const FlatFile&>(parts.file()).locators()[2];
    std::vector<ObjectMap::Entry> entries =
        ObjectMap::read(parts.file().section(DwgSection::ObjectMap)).entries;
    entries.back().offset = entries[entries.size() - 2].offset;
    const QByteArray spelled = ObjectMap::spelled(entries);
    ASSERT_LE(spelled.size(), static_cast<qsizetype>(map.size));
    constexpr qsizetype kMap = 0x19 + 2 * 9;
    constexpr qsizetype kSumOfHead = 0x19 + 6 * 9;
    file.replace(map.offset, spelled.size(), spelled);
    PageForm::put(file, kMap + 5, static_cast<quint32>(spelled.size()));
    PageForm::put(file, kSumOfHead, Checksums::crc16(QByteArrayView(file).first(kSumOfHead)));
    EXPECT_TRUE(
        faultsOf(file).contains(QStringLiteral("Two handles of the object map name one record.")));
}

TEST(MadeSumsOfAFlatFile, ASecondHeaderThatCannotBeReadStaysAndIsTold)
{
    QByteArray file = DwgMaker::sample(DrawingVersion::V2000);
    const QByteArray end = QByteArray::fromHex("2B84DE31D76C6040");
    const qsizetype at = file.lastIndexOf(end);
    ASSERT_GT(at, 0);
    file[at] = 0;
    const auto drawing = opened(file);
    drawing->layerTable().add(QStringLiteral("one more"));
    const DrawingPieces pieces = DrawingSource::of(*drawing).write(*drawing);
    ASSERT_EQ(pieces.report.notKept.size(), 1);
    EXPECT_TRUE(pieces.report.notKept[0].startsWith(QStringLiteral("The second header")));
}

TEST_P(MadeSumsOfPages, DamageInASectionThatIsNotReadStaysDamage)
{
    QByteArray damaged = DwgMaker::sample(GetParam());
    const auto preview = [](const PagedFile& file) {
        return file.packedPage(file.find("AcDb:Preview")->pages.front());
    };
    {
        const PagedFile file(FileImage::copyOf(damaged, QStringLiteral("whole.dwg")), GetParam());
        const qsizetype at = preview(file).bytes.data() - file.image().begin();
        damaged[at] = static_cast<char>(damaged[at] ^ 1);
    }
    const QByteArray saved = savedWithALayerMore(damaged);
    const PagedFile before(FileImage::copyOf(damaged, QStringLiteral("before.dwg")), GetParam());
    const PagedFile after(FileImage::copyOf(saved, QStringLiteral("after.dwg")), GetParam());
    EXPECT_TRUE(preview(after).bytes == preview(before).bytes);
    EXPECT_EQ(preview(after).sum, preview(before).sum);
    EXPECT_NE(preview(after).sum, Checksums::page(preview(after).bytes));
}

INSTANTIATE_TEST_SUITE_P(Versions, MadeSums, testing::ValuesIn(MadeDrawing::kVersions),
                         versionName);
INSTANTIATE_TEST_SUITE_P(Versions, MadeSumsOfPages,
                         testing::Values(DrawingVersion::V2004, DrawingVersion::V2010,
                                         DrawingVersion::V2013, DrawingVersion::V2018),
                         versionName);

} // namespace

// Saved files against facts of the format that the reader does not insist on, as files of other
// programs have them; bits are read here without the codec's own tables of values.

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "database/states/LayerStates.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "io/DrawingCodec.h"
#include "io/DrawingFile.h"
#include "io/dwg/container/Lz77.h"
#include "io/dwg/container/PageForm.h"
#include "io/dwg/container/PagedFile.h"
#include "io/dwg/records/FreeRecords.h"
#include "io/dwg/records/TableRecords.h"
#include "io/dwg/sections/PreviewSection.h"
#include "io/dwg/sections/TemplateSection.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/DwgMaker.h"
#include "io/dwg/support/DwgParts.h"
#include "io/dwg/write/KeptBits.h"
#include "support/drawings/SharedDrawings.h"

#include <gtest/gtest.h>

namespace {

const QString kLayer = QStringLiteral("a layer more");
const QString kState = QStringLiteral("B state");
const QString kOtherState = QStringLiteral("a state");

/// Each kind of new record that names a text, and a changed setting.
QByteArray savedWithMore(const QByteArray& file)
{
    const auto drawing = readDrawing(file, QStringLiteral("before.dwg"));
    drawing->layerTable().add(kLayer);
    LayerStates(*drawing).add(kState, {});
    LayerStates(*drawing).add(kOtherState, {});
    drawing->setHeaderVariable(QStringLiteral("$LTSCALE"), 40, QStringLiteral("2.5"));
    return drawingBytes(*drawing);
}

class DwgForm : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        if (!DwgFiles::isMade(QString::fromLatin1(GetParam())))
            KEST_GTEST_NEEDS_DRAWINGS();
        m_bytes = savedWithMore(DwgFiles::bytes(QString::fromLatin1(GetParam())));
        m_parts = std::make_unique<DwgParts>(m_bytes);
    }
    bool isFlat() const { return m_parts->format().version < DrawingVersion::V2004; }
    /// Behind the head of the layer that was added.
    DwgRecord newLayer() const
    {
        const auto drawing = readDrawing(m_bytes, QStringLiteral("after.dwg"));
        const OdDbObjectId layer = drawing->layerTable().getAt(kLayer);
        DwgRecord record(m_parts->format(), m_parts->records().at(layer.getHandle().value()));
        DwgHead head;
        EXPECT_TRUE(record.open(0));
        record.readHead(head);
        return record;
    }

    QByteArray m_bytes;
    std::unique_ptr<DwgParts> m_parts;
};

TEST_P(DwgForm, PagesUnpackToTheSizeOfAPage)
{
    if (isFlat())
        GTEST_SKIP() << "a file without pages";
    const auto& file = dynamic_cast<const PagedFile&>(m_parts->file());
    int pages = 0;
    for (const PagedFile::Section& section : file.sections()) {
        for (const PagedFile::SectionPage& part : section.pages) {
            const QByteArrayView packed = file.packedPage(part).bytes;
            QByteArray plain(2 * static_cast<qsizetype>(section.pageSize), Qt::Uninitialized);
            const qsizetype size = section.compressed
                ? Lz77::unpack(packed, plain.data(), plain.size())
                : packed.size();
            const bool isWhole = section.compressed || section.name != "AcDb:Preview";
            if (isWhole && (section.name != "AcDb:SummaryInfo" || section.compressed)) {
                EXPECT_EQ(size, static_cast<qsizetype>(section.pageSize))
                    << section.name.constData();
            }
            ++pages;
        }
    }
    EXPECT_GE(pages, 5);
}

TEST_P(DwgForm, TheMapsEndWithAnEmptyHead)
{
    if (isFlat())
        GTEST_SKIP() << "a file without maps of pages";
    const QByteArray head = PageForm::maskedHead(QByteArrayView(m_bytes).sliced(
        static_cast<qsizetype>(PageForm::kHeadAt), PageForm::kHeadSize));
    const auto& file = dynamic_cast<const PagedFile&>(m_parts->file());
    const auto at = [&](quint64 offset) { return m_bytes.constData() + offset; };
    const quint64 pageMap = PageForm::word<quint64>(head.constData() + PageForm::kPageMapAddress)
        + PageForm::kFirstPage;
    const PagedFile::Page* sectionMap =
        file.page(PageForm::word<qint32>(head.constData() + PageForm::kSectionMapNumber));
    ASSERT_NE(sectionMap, nullptr);
    for (const auto& [offset, type] : {std::pair(pageMap, PageForm::kPageMapType),
                                       std::pair(sectionMap->offset, PageForm::kSectionMapType)})
    {
        ASSERT_EQ(PageForm::word<quint32>(at(offset)), type);
        const quint64 end =
            offset + PageForm::kSystemHead + PageForm::word<quint32>(at(offset + 8));
        const quint32 words[] = {type, 0, 0, 2, 0};
        for (std::size_t i = 0; i < std::size(words); ++i)
            EXPECT_EQ(PageForm::word<quint32>(at(end + 4 * i)), words[i]) << i;
    }
    // No gaps, so nothing of the tree that they form.
    for (const int field : {0x18, 0x1C, 0x20, 0x3C, 0x64})
        EXPECT_EQ(PageForm::word<quint32>(head.constData() + field), 0u) << field;
}

TEST_P(DwgForm, ADefaultLineweightIsNumber31)
{
    DwgRecord record = newLayer();
    const TableRecords::Layer layer = TableRecords::layer(record);
    record.data.seek(layer.flagsAt.begin);
    constexpr int kPlotted = 16;
    EXPECT_EQ(record.data.bitShort(), 31 << 5 | kPlotted);
}

TEST_P(DwgForm, TextsUpTo2004CountTheZeroBehindThem)
{
    DwgRecord record = newLayer();
    if (record.since(DrawingVersion::V2007))
        GTEST_SKIP() << "texts of this version have none";
    EXPECT_EQ(record.data.bitShort(), kLayer.size() + 1);
    EXPECT_EQ(record.data.bytes(static_cast<quint32>(kLayer.size() + 1)), kLayer.toLatin1() + '\0');
    EXPECT_TRUE(record.data.bit()) << "is referred to";
}

TEST_P(DwgForm, DictionariesAreInTheOrderOfTheirKeys)
{
    const auto drawing = readDrawing(m_bytes, QStringLiteral("after.dwg"));
    bool seen = false;
    for (const auto& [handle, bytes] : m_parts->records()) {
        if (m_parts->typeOf(handle) != "DICTIONARY")
            continue;
        DwgRecord record(m_parts->format(), bytes);
        DwgHead head;
        ASSERT_TRUE(record.open(0));
        record.readHead(head);
        QStringList keys;
        for (const KeyedHandle& entry : FreeRecords::dictionary(record).entries)
            keys << entry.key.toLower();
        seen |= keys.contains(kState.toLower()) && keys.contains(kOtherState.toLower());
        EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()))
            << keys.join(QLatin1Char(' ')).toStdString();
    }
    EXPECT_TRUE(seen);
}

std::string fileName(const testing::TestParamInfo<const char*>& file)
{
    return DwgFiles::testName(QString::fromLatin1(file.param));
}
INSTANTIATE_TEST_SUITE_P(Made, DwgForm, testing::ValuesIn(DwgFiles::kMade), fileName);
INSTANTIATE_TEST_SUITE_P(Real, DwgForm, testing::ValuesIn(DwgFiles::kWritable), fileName);

TEST(DwgLineweights, HaveOneNumberEach)
{
    constexpr qint16 kWeights[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                   53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
    for (int number = 0; number < 24; ++number) {
        EXPECT_EQ(dwgLineWeight(number), kWeights[number]);
        EXPECT_EQ(dwgLineWeightNumber(kWeights[number]), number);
    }
    EXPECT_EQ(dwgLineWeightNumber(-1), 29);
    EXPECT_EQ(dwgLineWeightNumber(-2), 30);
    EXPECT_EQ(dwgLineWeightNumber(-3), 31);
    EXPECT_EQ(dwgLineWeightNumber(52), 12) << "the nearest";
    for (const int number : {24, 28, 31})
        EXPECT_EQ(dwgLineWeight(number), -3);
}

TEST(DwgPreview, ItsPicturesAreListedByTheirNewPlaces)
{
    QByteArray preview("\x1F\x25\x6D\x07\xD4\x36\x28\x28\x9D\x57\xCA\x3F\x9D\x44\x10\x2B", 16);
    preview += QByteArray::fromHex("64000000"
                                   "02"
                                   "01E701000050000000"
                                   "020702000060000000"
                                   "FF");
    const QByteArray moved = PreviewSection::movedList(preview, 0x20);
    EXPECT_EQ(moved.sliced(16).toHex(),
              "640000000201070200005000000002270200006"
              "0000000");
    EXPECT_EQ(PreviewSection::movedList(moved, -0x20), preview.chopped(1));
    // Nothing is moved that has no place, nor what the size does not hold.
    QByteArray odd = preview;
    odd.replace(22, 4, QByteArray(4, '\0'));
    EXPECT_EQ(PreviewSection::movedList(odd, 0x20).sliced(22, 4), QByteArray(4, '\0'));
    odd.replace(16, 4, QByteArray("\x10\0\0\0", 4));
    EXPECT_TRUE(PreviewSection::movedList(odd, 0x20).isEmpty());
    EXPECT_TRUE(PreviewSection::movedList(preview.chopped(2), 1).isEmpty());
    EXPECT_TRUE(PreviewSection::movedList(preview.first(20), 1).isEmpty());
    EXPECT_TRUE(PreviewSection::movedList(preview.sliced(1), 1).isEmpty());
}

/// Where the preview stands, and how far behind that its pictures do.
std::vector<quint32> picturesOf(const QByteArray& file)
{
    constexpr qsizetype kAddress = 0x0D;
    constexpr qsizetype kCount = 20;
    std::vector<quint32> places = {PageForm::word<quint32>(file.constData() + kAddress)};
    const QByteArrayView preview = QByteArrayView(file).sliced(places.front());
    EXPECT_TRUE(preview.startsWith("\x1F\x25\x6D\x07"));
    for (int i = 0; i < preview[kCount]; ++i)
        places.push_back(PageForm::word<quint32>(preview.data() + kCount + 2 + 9 * i)
                         - places.front());
    return places;
}

TEST(DwgPreview, ItsPicturesAreWhereItSays)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    int pictures = 0;
    for (const QString& path : DwgFiles::readable()) {
        const auto drawing = readDrawing(path);
        if (!DwgFiles::faults(*drawing).isEmpty()
            || !DrawingSource::of(*drawing).refusal().isEmpty())
            continue;
        SCOPED_TRACE(path.toStdString());
        const QByteArray before = drawingBytes(*drawing);
        const std::vector<quint32> there = picturesOf(before);
        const std::vector<quint32> after = picturesOf(savedWithMore(before));
        EXPECT_TRUE(std::equal(there.begin() + 1, there.end(), after.begin() + 1, after.end()));
        pictures += static_cast<int>(there.size()) - 1;
    }
    EXPECT_GT(pictures, 5);
}

TEST(DwgTemplate, TellsTheUnitsBehindItsDescription)
{
    QByteArray section = QByteArray::fromHex("0300"
                                             "414243"
                                             "0100");
    EXPECT_EQ(TemplateSection::measurement(section), 1);
    EXPECT_TRUE(TemplateSection::setMeasurement(section, 0));
    EXPECT_EQ(section.toHex(), "03004142430000");
    EXPECT_EQ(TemplateSection::measurement(QByteArray::fromHex("00000100")), 1);
    EXPECT_EQ(TemplateSection::measurement(QByteArray::fromHex("0200"
                                                               "41004200"
                                                               "0100")),
              1);
    for (const char* odd : {"", "000001", "0400414243", "FFFF0000"}) {
        QByteArray bytes = QByteArray::fromHex(odd);
        EXPECT_EQ(TemplateSection::measurement(bytes), std::nullopt) << odd;
        EXPECT_FALSE(TemplateSection::setMeasurement(bytes, 1)) << odd;
    }
}

TEST(KeptBits, NewEntriesStandWhereTheOrderOfKeysHasThem)
{
    const auto entries = [](std::initializer_list<const char*> keys) {
        std::vector<KeyedHandle> list;
        for (const char* key : keys)
            list.push_back({QString::fromLatin1(key), 1});
        return list;
    };
    const auto keys = [](const std::vector<KeyedHandle>& list) {
        QString text;
        for (const KeyedHandle& entry : list)
            text += entry.key + QLatin1Char(' ');
        return text;
    };
    EXPECT_EQ(keys(KeptBits::inKeyOrder(entries({"b", "D", "a", "E", "C"}), entries({"b", "D"}))),
              QStringLiteral("a b C D E "));
    // One that is in another order stays so.
    EXPECT_EQ(keys(KeptBits::inKeyOrder(entries({"z", "b", "m", "q"}), entries({"z", "b"}))),
              QStringLiteral("m q z b "));
    EXPECT_EQ(keys(KeptBits::inKeyOrder(entries({"b"}), entries({"a", "b"}))),
              QStringLiteral("b "));
    EXPECT_EQ(keys(KeptBits::inKeyOrder(entries({"*A2", "*A10"}), {})),
              QStringLiteral("*A10 *A2 "));
}

} // namespace

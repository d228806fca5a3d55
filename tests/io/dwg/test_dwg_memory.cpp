#include "database/values/OdError.h"
#include "io/DrawingFile.h"
#include "io/dwg/container/Lz77.h"
#include "io/dwg/container/PageForm.h"
#include "io/dwg/container/PagedFile.h"
#include "io/dwg/support/BrokenDwg.h"
#include "io/dwg/support/DwgMaker.h"
#include "support/PeakMemory.h"

#include <gtest/gtest.h>

using namespace BrokenDwg;

namespace {

TEST(DwgMemory, BrokenFilesNeedNoMoreThanASmallMultipleOfTheFile)
{
    if (!PeakMemory().isKnown())
        GTEST_SKIP() << "the memory in use cannot be told here";
    constexpr std::int64_t kMultiple = 24;
    constexpr std::int64_t kBesides = 4 << 20; // of the allocator and of tables of fixed size
    std::mt19937 random(13);
    for (const QByteArray& whole : smallFiles()) {
        for (int i = 0; i < 30; ++i) {
            QByteArray bytes = whole;
            for (qsizetype at = place(bytes.first(0x100), random); i > 0 && at < bytes.size();
                 at += 1 + static_cast<qsizetype>(random() % 20000))
                bytes.data()[at] = static_cast<char>(random());
            const PeakMemory peak;
            outcome(bytes);
            EXPECT_LT(peak.grown(), kMultiple * whole.size() + kBesides) << i;
        }
    }
}

/// The file with another size for each of the sections that are read.
QByteArray withSectionSizes(QByteArray bytes, quint64 size)
{
    using namespace PageForm;
    const PagedFile file(FileImage::copyOf(bytes, QStringLiteral("small.dwg")),
                         DrawingVersion::V2010);
    for (const PagedFile::Page& page : file.pages()) {
        char* const head = bytes.data() + page.offset;
        if (word<quint32>(head) != kSectionMapType)
            continue;
        QByteArray map(word<qint32>(head + 4), '\0');
        const QByteArrayView packed(head + kSystemHead, word<qint32>(head + 8));
        EXPECT_EQ(Lz77::unpack(packed, map.data(), map.size()), map.size());
        for (const QByteArrayView name : kSectionNames) {
            const qsizetype at = map.indexOf(name.toByteArray() + '\0');
            EXPECT_GE(at, 0);
            put<quint64>(map, at - (kSectionHead - kNameSize), size);
        }
        const QByteArray again = Lz77::pack(map);
        EXPECT_LE(again.size(), static_cast<qsizetype>(page.size) - kSystemHead);
        std::copy(again.begin(), again.end(), head + kSystemHead);
        put<quint32>(bytes, static_cast<qsizetype>(page.offset) + 8,
                     static_cast<quint32>(again.size()));
    }
    return bytes;
}

TEST(DwgMemory, SectionsThatWouldBeTooMuchTogetherAreRefused)
{
    const QByteArray small = DwgMaker::sample(DrawingVersion::V2010);
    const auto whole = static_cast<quint64>(small.size());
    const quint64 half = 32 * whole + (1 << 19); // of the most that is taken
    try {
        readDrawing(withSectionSizes(small, half), QStringLiteral("small.dwg"));
        FAIL() << "it was read";
    } catch (const OdError& error) {
        EXPECT_TRUE(error.description().contains(QStringLiteral("that cannot be"))) << error.what();
    }
    // One of them alone could be.
    EXPECT_EQ(outcome(withSectionSizes(small, 2 * whole)), Outcome::ReadOnly);
}

} // namespace

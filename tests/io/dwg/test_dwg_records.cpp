#include "io/dwg/container/FlatFile.h"
#include "io/dwg/container/PagedFile.h"
#include "io/dwg/records/DwgRecord.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/DwgParts.h"
#include "io/dwg/write/RecordPatch.h"
#include "io/dwg/write/file/FlatFileWriter.h"
#include "io/dwg/write/file/PagedFileWriter.h"
#include "support/drawings/SharedDrawings.h"

#include <gtest/gtest.h>

namespace {

QByteArray joined(const DrawingPieces& pieces)
{
    QByteArray bytes;
    for (const QByteArrayView part : pieces.parts)
        bytes.append(part.data(), part.size());
    return bytes;
}

TEST(DwgRecords, GoThroughAPatchWithoutEditsAsTheyAre)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    std::size_t passed = 0;
    for (const QString& path : DwgFiles::readable()) {
        SCOPED_TRACE(path.toStdString());
        const DwgParts parts(DwgFiles::bytes(path));
        EXPECT_EQ(parts.faults(), QStringList());
        // Edits of older versions are refused.
        if (parts.file().version() < DrawingVersion::V2000)
            continue;
        const DwgClasses classes(parts.file(), parts.format());
        QStringList changed;
        for (const auto& [handle, bytes] : parts.records()) {
            DwgRecord record(parts.format(), bytes);
            ASSERT_TRUE(record.open(0));
            DwgHead head;
            DwgEntityHead entity;
            if (classes.isEntity(record.type()))
                record.readHead(head, entity);
            else
                record.readHead(head);
            if (RecordPatch(record).result() == bytes)
                ++passed;
            else
                changed << QString::number(handle, 16);
        }
        EXPECT_EQ(changed.join(QLatin1Char(' ')).toStdString(), "");
    }
    EXPECT_GT(passed, 40000u);
}

/// The same bytes for a section, to be put in anew: the file is built again although nothing of it
/// changed.
void expectSameSections(const QByteArray& bytes)
{
    const auto file = DwgFile::open(FileImage::copyOf(bytes, QStringLiteral("whole.dwg")));
    QByteArray built;
    if (auto* paged = dynamic_cast<PagedFile*>(file.get())) {
        PagedFileWriter writer(*paged);
        const PagedFile::Section* header = paged->find("AcDb:Header");
        ASSERT_TRUE(header);
        writer.replace("AcDb:Header", paged->unpacked(*header));
        built = joined(writer.result());
        const auto again = DwgFile::open(FileImage::copyOf(built, QStringLiteral("again.dwg")));
        auto& other = dynamic_cast<PagedFile&>(*again);
        EXPECT_EQ(other.faults(), QStringList());
        ASSERT_EQ(other.sections().size(), paged->sections().size());
        for (const PagedFile::Section& section : paged->sections()) {
            const PagedFile::Section* there = other.find(section.name);
            ASSERT_TRUE(there) << section.name.constData();
            if (section.encrypted == 1)
                continue;
            EXPECT_TRUE(other.unpacked(*there) == paged->unpacked(section))
                << section.name.constData();
        }
        return;
    }
    const auto& flat = dynamic_cast<const FlatFile&>(*file);
    FlatFileWriter writer(flat);
    const int header = static_cast<int>(DwgSection::Header);
    writer.replace(header, flat.locatedBytes(header).toByteArray());
    EXPECT_TRUE(joined(writer.result()) == bytes);
}

TEST(DwgContainers, BuiltAnewWithTheSameSectionsHoldTheSame)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    for (const QString& path : DwgFiles::readable()) {
        SCOPED_TRACE(path.toStdString());
        // Older versions are never built anew.
        const QByteArray bytes = DwgFiles::bytes(path);
        if (dwgVersion(bytes) >= DrawingVersion::V2000)
            expectSameSections(bytes);
    }
}

} // namespace

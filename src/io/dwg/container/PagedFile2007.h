#pragma once

#include "io/dwg/container/CodedBlocks2007.h"
#include "io/dwg/container/DwgFile.h"

#include <QHash>

#include <array>
#include <vector>

/// A DWG file of version 2007, for reading only: heads and maps are compressed and coded against
/// errors, and so are the pages of its sections.
///
/// All that is unpacked is checked by the code's check bytes, pages of sections by their sums too.
/// The 64-bit check values beside them are not looked at.
class PagedFile2007 final : public DwgFile
{
public:
    explicit PagedFile2007(const std::shared_ptr<const FileImage>& image);

    QByteArrayView section(DwgSection section) const override;

private:
    /// What the head says of a map.
    struct Map
    {
        quint64 packedSize;
        quint64 size;
        quint64 copies; ///< how often its bytes stand one behind the other in the coded blocks
    };
    struct Place
    {
        quint64 offset; ///< in the file
        quint64 size;
    };
    struct SectionPage
    {
        quint64 start; ///< in the section
        quint64 number;
        quint64 size; ///< unpacked
        quint64 packedSize; ///< the same where it is not packed
        quint64 sum;
    };
    struct Section
    {
        QByteArray name;
        quint64 size;
        quint64 encrypted; ///< 0: no
        quint64 coding;
        std::vector<SectionPage> pages;
    };

    void readHead();
    void readPageMap(quint64 offset, const Map& form);
    void readSectionMap(const Place& place, const Map& form);
    qsizetype readSection(const QByteArray& map, qsizetype at, Section& section) const;
    const Place& page(quint64 number) const;
    QByteArray map(quint64 offset, const Map& form);
    QByteArray coded(CodedBlocks2007::Kind kind, quint64 offset, quint64 size);
    QByteArray unpack(const Section& section);
    void unpackPage(const Section& section, const SectionPage& part, char* out);

    QHash<quint64, Place> m_pages;
    std::array<QByteArray, kDwgSections> m_unpacked; ///< by DwgSection
};

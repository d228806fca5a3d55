#pragma once

#include "io/dwg/container/DwgFile.h"

#include <QHash>

#include <array>
#include <optional>
#include <vector>

/// A DWG file of the versions 2004 and 2010 to 2018: sections are cut into pages, which are
/// compressed and found through a map of pages and a map of sections.
class PagedFile final : public DwgFile
{
public:
    PagedFile(const std::shared_ptr<const FileImage>& image, DrawingVersion version);

    QByteArrayView section(DwgSection section) const override;

    static constexpr qsizetype kPadding = 16;

    struct Page
    {
        int number;
        quint64 offset; ///< in the file, of its header
        quint32 size; ///< in the file, header and padding included
    };
    struct SectionPage
    {
        int number;
        quint32 packedSize;
        quint64 start; ///< in the section
    };
    struct Section
    {
        QByteArray name;
        quint64 size;
        quint32 pageSize; ///< unpacked
        bool compressed;
        int id;
        int encrypted; ///< 1: yes
        QByteArray head; ///< the entry of the section map without its pages
        std::vector<SectionPage> pages;
    };
    const std::vector<Page>& pages() const { return m_pages; }
    const std::vector<Section>& sections() const { return m_sections; }
    const Section* find(QByteArrayView name) const;
    /// The bytes of a section. Raises OdError_InvalidDrawing.
    QByteArray unpacked(const Section& section) const;
    /// The same of a section that has no fault; nothing for another.
    std::optional<QByteArray> sound(const Section& section) const;
    /// The same without a copy, of a section that is read; of others nothing.
    QByteArrayView kept(const Section& section) const;
    const Page* page(int number) const;
    /// The first bytes of the section map, with the number of sections.
    const QByteArray& sectionMapHead() const { return m_sectionMapHead; }
    /// A page as the file has it, behind its head, and the sum in that, which need not be right.
    struct PackedPage
    {
        QByteArrayView bytes;
        quint32 sum;
    };
    PackedPage packedPage(const SectionPage& part) const;

private:
    void readHead();
    void readSections();
    /// A save that adds a record writes it anew.
    void requireAuxHeader();
    void readPageMap(quint64 offset);
    void readSectionMap(quint64 offset);
    const char* readSection(const char* at, const char* end);
    QByteArray systemPage(quint64 offset, quint32 type);
    [[noreturn]] void failForSize(const Section& section) const;
    /// With padding for a BitReader behind; what is wrong with it goes to `faults`.
    QByteArray unpack(const Section& section, QStringList& faults) const;
    void unpackPage(const Section& section, const SectionPage& part, char* out,
                    QStringList& faults) const;

    std::vector<Page> m_pages;
    QHash<int, std::size_t> m_pageIndex;
    std::vector<Section> m_sections;
    QByteArray m_sectionMapHead;
    int m_sectionMapPage = 0;
    quint64 m_pageMapAt = 0;
    std::array<QByteArray, kDwgSections> m_unpacked;
};

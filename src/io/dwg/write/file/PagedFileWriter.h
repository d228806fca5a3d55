#pragma once

#include "io/DrawingCodec.h"
#include "io/dwg/container/PagedFile.h"

#include <QByteArray>

#include <map>
#include <vector>

/// Builds a paged file anew, with some sections replaced: pages whose bytes stay are copied packed
/// as they are; maps, addresses and check sums follow.
class PagedFileWriter
{
public:
    explicit PagedFileWriter(const PagedFile& file)
        : m_file(file)
    { }

    void replace(QByteArrayView section, const QByteArray& bytes)
    {
        m_replaced[section.toByteArray()] = bytes;
    }
    bool isEmpty() const { return m_replaced.empty(); }
    DrawingPieces result();

private:
    /// A stretch of the image that stands in the new file.
    struct Copy
    {
        quint64 image;
        qsizetype file;
        qsizetype size;
    };

    void addSection(const PagedFile::Section& section);
    /// The preview lists its pictures by their place in the file.
    void movePreview(const PagedFile::Section& section);
    /// The page will stand where the new file ends now.
    void noteMove(const PagedFile::SectionPage& part);
    PagedFile::SectionPage addPage(const PagedFile::Section& section, quint64 start,
                                   const PagedFile::PackedPage& page);
    void fill();
    QByteArray sectionMap() const;
    QByteArray pageMap() const;
    void finishHeads(quint64 mapEnd);
    void moveAddress(qsizetype field);
    DrawingPieces pieces();

    const PagedFile& m_file;
    std::map<QByteArray, QByteArray> m_replaced;
    QByteArray m_out;
    std::vector<PagedFile::Page> m_pages;
    std::map<int, PagedFile::Section> m_sections; ///< by their place in the section map
    std::map<quint64, quint64> m_moved; ///< new places of pages by the old ones
    std::vector<Copy> m_copies;
};

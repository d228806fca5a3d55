#pragma once

#include "database/streams/OdStreamBuf.h"

#include <cstddef>
#include <memory>
#include <vector>

class OdMemoryStream;
using OdMemoryStreamPtr = OdSmartPtr<OdMemoryStream>;

/// A stream in memory, in pages of one size: growing never moves bytes that are there.
class OdMemoryStream : public OdStreamBuf
{
public:
    /// Raises OdError with InvalidInput for a page size of 0.
    static OdMemoryStreamPtr createNew(quint32 pageSize = 2048);

    quint64 length() const override { return m_length; }
    quint64 tell() const override { return m_position; }
    quint64 seek(qint64 offset, OdDb::FilerSeekType whence) override;
    void getBytes(void* buffer, quint64 count) override;
    void putBytes(const void* buffer, quint64 count) override;
    void truncate() override;

    quint32 pageSize() const { return m_pageSize; }
    std::size_t pageCount() const { return m_pages.size(); }

private:
    explicit OdMemoryStream(quint32 pageSize);
    /// Calls with (bytes in a page, offset in the whole, length) for each page that `count` bytes
    /// from the position touch, and moves on.
    template <class Visit>
    void walk(quint64 count, const Visit& visit);

    std::vector<std::unique_ptr<std::byte[]>> m_pages;
    quint32 m_pageSize;
    quint64 m_length = 0;
    quint64 m_position = 0;
};

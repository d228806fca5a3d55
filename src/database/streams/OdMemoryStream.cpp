#include "database/streams/OdMemoryStream.h"

#include "database/values/OdError.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstring>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("OdMemoryStream", text);
}

} // namespace

OdMemoryStream::OdMemoryStream(quint32 pageSize)
    : m_pageSize(pageSize)
{ }

OdMemoryStreamPtr OdMemoryStream::createNew(quint32 pageSize)
{
    if (pageSize == 0)
        throw OdError(OdResult::InvalidInput,
                      tr("A memory stream needs pages of at least a byte."));
    return OdMemoryStreamPtr::adopt(new OdMemoryStream(pageSize));
}

template <class Visit>
void OdMemoryStream::walk(quint64 count, const Visit& visit)
{
    for (quint64 done = 0; done < count;) {
        const quint64 inPage = m_position % m_pageSize;
        const quint64 step = std::min<quint64>(count - done, m_pageSize - inPage);
        visit(m_pages[m_position / m_pageSize].get() + inPage, done, step);
        m_position += step;
        done += step;
    }
}

quint64 OdMemoryStream::seek(qint64 offset, OdDb::FilerSeekType whence)
{
    const quint64 base = whence == OdDb::kSeekFromStart ? 0
        : whence == OdDb::kSeekFromEnd                  ? m_length
                                                        : m_position;
    const quint64 distance =
        offset < 0 ? 0 - static_cast<quint64>(offset) : static_cast<quint64>(offset);
    if (offset < 0 ? distance > base : distance > m_length - base)
        throw OdError(OdResult::OutOfRange,
                      tr("Byte %1 from %2 lies outside of a stream of %3 bytes.")
                          .arg(offset)
                          .arg(base)
                          .arg(m_length));
    m_position = offset < 0 ? base - distance : base + distance;
    return m_position;
}

void OdMemoryStream::getBytes(void* buffer, quint64 count)
{
    if (count > m_length - m_position)
        throw OdError(OdResult::OutOfRange,
                      tr("The stream ends %1 bytes after byte %2; expected %3 more.")
                          .arg(m_length - m_position)
                          .arg(m_position)
                          .arg(count));
    auto* target = static_cast<std::byte*>(buffer);
    walk(count, [&](const std::byte* bytes, quint64 done, quint64 step) {
        std::memcpy(target + done, bytes, step);
    });
}

void OdMemoryStream::putBytes(const void* buffer, quint64 count)
{
    while (m_pages.size() * quint64(m_pageSize) < m_position + count)
        m_pages.push_back(std::make_unique<std::byte[]>(m_pageSize));
    const auto* source = static_cast<const std::byte*>(buffer);
    walk(count, [&](std::byte* bytes, quint64 done, quint64 step) {
        std::memcpy(bytes, source + done, step);
    });
    m_length = std::max(m_length, m_position);
}

void OdMemoryStream::truncate()
{
    m_length = m_position;
    m_pages.resize((m_length + m_pageSize - 1) / m_pageSize);
}

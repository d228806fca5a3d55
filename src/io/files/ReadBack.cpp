#include "io/files/ReadBack.h"

#include "io/files/ContentHash.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

/// Small enough to stay in the processor's cache between reading, comparing and summing.
constexpr quint64 kStep = quint64(256) << 10;

QString tr(const char* text)
{
    return QCoreApplication::translate("ReadBack", text);
}

/// Walks along the parts and compares them with bytes that come in other portions.
class PartsCursor
{
public:
    explicit PartsCursor(std::span<const QByteArrayView> parts)
        : m_parts(parts)
    { }

    bool matches(const char* bytes, quint64 size)
    {
        while (size > 0) {
            while (m_part < m_parts.size() && m_offset == m_parts[m_part].size()) {
                ++m_part;
                m_offset = 0;
            }
            if (m_part == m_parts.size())
                return false;
            const QByteArrayView rest = m_parts[m_part].sliced(m_offset);
            const auto step = std::min(static_cast<quint64>(rest.size()), size);
            if (std::memcmp(rest.data(), bytes, step) != 0)
                return false;
            bytes += step;
            size -= step;
            m_offset += static_cast<qsizetype>(step);
        }
        return true;
    }

private:
    std::span<const QByteArrayView> m_parts;
    std::size_t m_part = 0;
    qsizetype m_offset = 0;
};

} // namespace

ReadBack::ReadBack(const QString& path, std::span<const QByteArrayView> parts)
    : m_path(path)
    , m_parts(parts)
{
    for (const QByteArrayView part : parts)
        m_total += static_cast<quint64>(part.size());
    m_reader = std::jthread([this] { run(); });
}

ReadBack::~ReadBack()
{
    m_stop = true;
    written(m_total);
}

void ReadBack::written(quint64 bytes)
{
    m_written.store(bytes);
    m_written.notify_all();
}

quint64 ReadBack::waitFor(quint64 offset) const
{
    quint64 available = m_written.load();
    while (available < offset) {
        m_written.wait(available);
        available = m_written.load();
    }
    return available;
}

QString ReadBack::finish()
{
    written(m_total);
    if (m_reader.joinable())
        m_reader.join();
    return m_failure;
}

void ReadBack::run()
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        m_failure = file.errorString();
        return;
    }
    std::vector<char> buffer(kStep);
    PartsCursor meant(m_parts);
    ContentHash hash;
    for (quint64 done = 0; done < m_total;) {
        const quint64 step = std::min(kStep, m_total - done);
        waitFor(done + step);
        if (m_stop)
            return;
        const qint64 got = file.read(buffer.data(), static_cast<qint64>(step));
        if (got <= 0) {
            m_failure = got < 0 ? file.errorString()
                                : tr("it ends at byte %1 of %2").arg(done).arg(m_total);
            return;
        }
        const auto size = static_cast<quint64>(got);
        if (!meant.matches(buffer.data(), size)) {
            m_failure = tr("the bytes from %1 to %2 differ from what was written")
                            .arg(done)
                            .arg(done + size);
            return;
        }
        hash.add(QByteArrayView(buffer.data(), got));
        done += size;
    }
    if (static_cast<quint64>(file.size()) != m_total)
        m_failure = tr("it holds %1 bytes, expected %2").arg(file.size()).arg(m_total);
    m_hash = hash.result();
}

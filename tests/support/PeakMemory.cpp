#include "support/PeakMemory.h"

#include <QByteArray>
#include <QFile>

namespace {

/// A figure of /proc/self/status in bytes; -1 where there is none.
std::int64_t figure(QByteArrayView name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.sliced(name.size()).chopped(2).trimmed().toLongLong() * 1024; // "kB"
    }
    return -1;
}

} // namespace

PeakMemory::PeakMemory()
{
    // Linux: 5 sets the mark of the highest use to the present one.
    QFile marks(QStringLiteral("/proc/self/clear_refs"));
    m_isKnown = marks.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && marks.write("5") == 1;
    m_before = figure("VmRSS:");
}

std::int64_t PeakMemory::grown() const
{
    return figure("VmHWM:") - m_before;
}

#include "io/files/WrittenBytes.h"

#include "database/values/OdError.h"

#include <QCoreApplication>

#include <algorithm>

namespace {
QString tr(const char* text)
{
    return QCoreApplication::translate("WrittenBytes", text);
}

[[noreturn]] void fail(const QString& why)
{
    throw OdError_FileAccess(
        OdResult::CantWriteFile,
        tr("What was written cannot be read back: %1. The file is as it was.").arg(why));
}
} // namespace

WrittenBytes::WrittenBytes(const QString& path)
    : m_file(path)
{
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        fail(m_file.errorString());
    m_size = static_cast<quint64>(m_file.size());
}

QByteArrayView WrittenBytes::view(quint64 begin, quint64 end) const
{
    if (begin > end || end > m_size)
        fail(tr("the file ends at byte %1, expected %2").arg(m_size).arg(end));
    const quint64 windowEnd = m_windowBegin + static_cast<quint64>(m_window.size());
    if (begin < m_windowBegin || end > windowEnd) {
        const quint64 wanted = std::min(std::max(end - begin, kWindow), m_size - begin);
        m_window.resize(static_cast<qsizetype>(wanted));
        m_windowBegin = begin;
        if (!m_file.seek(static_cast<qint64>(begin))
            || m_file.read(m_window.data(), m_window.size()) != m_window.size())
        {
            m_window.clear();
            fail(m_file.errorString());
        }
    }
    return QByteArrayView(m_window).sliced(static_cast<qsizetype>(begin - m_windowBegin),
                                           static_cast<qsizetype>(end - begin));
}

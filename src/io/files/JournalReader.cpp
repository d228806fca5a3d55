#include "io/files/JournalReader.h"

#include <QtEndian>

QByteArrayView JournalReader::take(quint64 size)
{
    if (m_failed || size > left()) {
        m_failed = true;
        return {};
    }
    const QByteArrayView taken = m_row.first(static_cast<qsizetype>(size));
    m_row = m_row.sliced(static_cast<qsizetype>(size));
    return taken;
}

quint64 JournalReader::number()
{
    const QByteArrayView taken = take(sizeof(quint64));
    return taken.isEmpty() ? 0 : qFromLittleEndian<quint64>(taken.data());
}

QByteArrayView JournalReader::bytes()
{
    const QByteArrayView size = take(sizeof(quint32));
    return size.isEmpty() ? size : take(qFromLittleEndian<quint32>(size.data()));
}

#include "io/files/JournalWriter.h"

#include <QtEndian>

#include <array>

void JournalWriter::putNumber(quint64 number)
{
    std::array<char, sizeof(number)> bytes;
    qToLittleEndian(number, bytes.data());
    m_bytes.append(bytes.data(), bytes.size());
}

void JournalWriter::putBytes(QByteArrayView bytes)
{
    std::array<char, sizeof(quint32)> size;
    qToLittleEndian(static_cast<quint32>(bytes.size()), size.data());
    m_bytes.append(size.data(), size.size());
    m_bytes.append(bytes);
}

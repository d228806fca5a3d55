#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// Puts numbers (8 bytes, little end first) and byte strings (4 bytes of length before them) into
/// a row.
class JournalWriter
{
public:
    void putNumber(quint64 number);
    void putBytes(QByteArrayView bytes);
    const QByteArray& bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

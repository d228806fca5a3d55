#pragma once

#include <QByteArrayView>

/// Takes numbers and byte strings off a row that JournalWriter made, or that anybody made: where
/// the row ends too early the rest reads as zeros, and failed() tells.
class JournalReader
{
public:
    explicit JournalReader(QByteArrayView row)
        : m_row(row)
    { }

    quint64 number();
    /// A view into the row.
    QByteArrayView bytes();
    quint64 left() const { return static_cast<quint64>(m_row.size()); }
    bool failed() const { return m_failed; }

private:
    QByteArrayView take(quint64 size);

    QByteArrayView m_row;
    bool m_failed = false;
};

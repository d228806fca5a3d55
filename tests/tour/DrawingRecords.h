#pragma once

#include <QByteArray>
#include <QByteArrayList>

/// The records of a text drawing, byte by byte as they stand in it: each from its group 0 to the
/// next.
class DrawingRecords
{
public:
    explicit DrawingRecords(const QByteArray& bytes);

    const QByteArrayList& all() const { return m_records; }
    /// "LINE", "LAYER" and so on.
    static QByteArray typeOf(const QByteArray& record);
    /// The value of its first group with that code, without blanks around it.
    static QByteArray value(const QByteArray& record, int code);

private:
    QByteArrayList m_records;
};

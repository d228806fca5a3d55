#pragma once

#include <QByteArrayView>
#include <QString>

/// Forward cursor over the tagged groups of one record, whatever file they came from. One cursor
/// serves many records; nothing is allocated per record.
class GroupCursor
{
public:
    virtual ~GroupCursor() = default;

    /// Goes to the record in `slot`, before its first group after the type name.
    virtual void open(quint32 slot) = 0;
    /// Steps to the next group; false at the end of the record.
    virtual bool next() = 0;

    int code() const { return m_code; }
    virtual double real() const = 0; ///< 0 where the value is no number
    virtual qint64 integer() const = 0; ///< 0 where the value is no number
    virtual quint64 handle() const = 0; ///< 0 where the value is no handle
    virtual QString text() const = 0; ///< decoded, escapes resolved
    virtual QByteArrayView bytes() const = 0; ///< as the file has it; valid until next()

protected:
    int m_code = -1;
};

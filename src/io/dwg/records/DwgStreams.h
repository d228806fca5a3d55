#pragma once

#include "database/values/OdCmColor.h"
#include "io/dwg/bits/BitReader.h"
#include "io/dwg/records/DwgFormat.h"

#include <QByteArrayView>

/// Bits of a body, for an edit of it.
struct BitSpan
{
    quint64 begin = 0;
    quint64 end = 0;
};

/// The streams of a record, or of a section of settings: data, texts, references. What is lacking
/// reads as zero or nothing; hasFailed() tells that something was.
class DwgStreams
{
public:
    explicit DwgStreams(const DwgFormat& format)
        : m_format(&format)
    { }

    /// Where the streams stand, as bits of the body.
    struct Layout
    {
        quint64 dataEnd = 0;
        bool hasText = false;
        quint64 textBegin = 0;
        quint64 textEnd = 0;
        quint64 handlesBegin = 0;
    };
    const Layout& layout() const { return m_layout; }
    QByteArrayView body() const { return m_body; }
    /// Bit of the text that is read next; among the data up to version 2004.
    quint64 textPosition() const
    {
        return hasTextStream(version()) ? m_text.position() : data.position();
    }

    bool hasFailed() const { return data.hasFailed() || handles.hasFailed() || m_text.hasFailed(); }
    DrawingVersion version() const { return m_format->version; }
    bool since(DrawingVersion version) const { return m_format->version >= version; }

    QString text(); ///< TV
    OdCmColor color(); ///< CMC
    /// The handle that a reference means.
    quint64 reference() { return handles.handle().resolved(m_handle); }
    /// An inlined count, never more than there are bits for that many of `bits` each.
    quint32 count(quint64 bits);
    /// A text whose length and characters stand in the data stream, as in free records.
    QString plainText();
    /// Files that were of an older version once keep its escapes for characters outside its code
    /// page.
    static QString withoutEscapes(const QString& text);
    double number() { return data.bitDouble(); }
    void point(double (&coordinates)[3]);

    BitReader data;
    BitReader handles;

protected:
    /// Starts over on these bytes; all is data as yet.
    void start(QByteArrayView body);
    /// Finds the streams behind the data, which ends at that bit.
    void divide(quint64 dataEnd);
    void setHandle(quint64 own) { m_handle = own; }

private:
    QString decode(QByteArrayView bytes) const;

    const DwgFormat* m_format;
    QByteArrayView m_body;
    quint64 m_handle = 0;
    BitReader m_text;
    Layout m_layout;
};

#include "io/dwg/records/DwgStreams.h"

#include <QtEndian>

namespace {

/// The characters of a text up to a closing zero.
QString upToZero(const QString& text)
{
    const qsizetype end = text.indexOf(QChar(0));
    return end < 0 ? text : text.first(end);
}

QString utf16(BitReader& reader, quint32 length)
{
    const QByteArray bytes = reader.bytes(length * 2);
    QString text(bytes.size() / 2, Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i)
        text[i] = QChar(qFromLittleEndian<quint16>(bytes.data() + 2 * i));
    return upToZero(text);
}

} // namespace

QString DwgStreams::withoutEscapes(const QString& text)
{
    if (!text.contains(QLatin1String("\\U+")) && !text.contains(QLatin1String("\\M+")))
        return text;
    return DxfText().decode(text.toUtf8().replace('^', "^ "));
}

void DwgStreams::start(QByteArrayView body)
{
    m_body = body;
    m_handle = 0;
    data = BitReader(body);
    handles = m_text = BitReader();
    m_layout = {};
    m_layout.dataEnd = m_layout.handlesBegin = data.end();
}

void DwgStreams::divide(quint64 dataEnd)
{
    handles = BitReader(m_body);
    handles.seek(dataEnd);
    m_layout.dataEnd = m_layout.handlesBegin = qMin(dataEnd, handles.end());
    if (!hasTextStream(version()))
        return data.limit(dataEnd);
    // The last bit before the references tells of texts; their length in bits stands before it.
    constexpr quint64 kLength = 16;
    m_text = BitReader(m_body);
    m_text.seek(dataEnd == 0 ? 0 : dataEnd - 1);
    if (!m_text.bit()) {
        data.limit(dataEnd == 0 ? 0 : dataEnd - 1);
        m_layout.dataEnd = m_layout.textBegin = m_layout.textEnd = data.end();
        // Texts that are added come before that bit.
        m_text.seek(data.end());
        m_text.limit(data.end());
        return;
    }
    if (dataEnd < kLength + 1)
        return data.fail();
    quint64 at = dataEnd - 1 - kLength;
    m_text.seek(at);
    quint64 length = m_text.rawShort();
    if ((length & 0x8000) != 0 && at >= kLength) {
        at -= kLength;
        m_text.seek(at);
        length = (length & 0x7FFF) | quint64(m_text.rawShort()) << 15;
    }
    if (length > at)
        return data.fail();
    m_text.seek(at - length);
    m_text.limit(at);
    data.limit(at - length);
    m_layout.hasText = true;
    m_layout.textBegin = at - length;
    m_layout.textEnd = at;
    m_layout.dataEnd = at - length;
}

quint32 DwgStreams::count(quint64 bits)
{
    const auto count = static_cast<quint32>(data.bitLong());
    if (count > (static_cast<quint64>(m_body.size()) * 8) / bits) {
        data.fail();
        return 0;
    }
    return count;
}

QString DwgStreams::decode(QByteArrayView bytes) const
{
    return upToZero(m_format->text.decode(bytes));
}

QString DwgStreams::text()
{
    if (!hasTextStream(version()))
        return decode(data.bytes(static_cast<quint16>(data.bitShort())));
    if (m_text.left() == 0)
        return {}; // a record without texts has no stream of them
    return withoutEscapes(utf16(m_text, static_cast<quint16>(m_text.bitShort())));
}

QString DwgStreams::plainText()
{
    const quint32 length = data.rawShort();
    if (hasTextStream(version()))
        return utf16(data, length);
    const int codePage = data.rawChar();
    const QByteArray bytes = data.bytes(length);
    // Each of these texts has a code page of its own, which most often is that of the drawing.
    return codePage == m_format->codePage || codePage == 0
        ? decode(bytes)
        : upToZero(DwgFormat::textOf(codePage).decode(bytes));
}

OdCmColor DwgStreams::color()
{
    const int index = data.bitShort();
    if (!since(DrawingVersion::V2004))
        return OdCmColor::fromIndex(std::abs(index));
    const auto packed = static_cast<quint32>(data.bitLong());
    const quint8 names = data.rawChar();
    const QString name = (names & 1) != 0 ? text() : QString();
    const QString book = (names & 2) != 0 ? text() : QString();
    const OdCmColor color = OdCmColor::fromPacked(packed);
    return book.isEmpty() && name.isEmpty() ? color
        : book.isEmpty()                    ? color.withBookName(name)
                                            : color.withBookName(book + QLatin1Char('$') + name);
}

void DwgStreams::point(double (&coordinates)[3])
{
    for (double& coordinate : coordinates)
        coordinate = data.bitDouble();
}

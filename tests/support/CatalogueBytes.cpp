#include "support/CatalogueBytes.h"

#include <QMap>
#include <QtEndian>

namespace {

/// The hash that messages are found by: of source text and comment.
quint32 hashOf(const QByteArray& text)
{
    quint32 hash = 0;
    for (const char c : text) {
        hash = (hash << 4) + static_cast<unsigned char>(c);
        const quint32 top = hash & 0xf0000000;
        hash ^= top >> 24;
        hash &= ~top;
    }
    return hash == 0 ? 1 : hash;
}

QByteArray number(quint32 value)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray tagged(char tag, const QByteArray& contents)
{
    return tag + number(static_cast<quint32>(contents.size())) + contents;
}

QByteArray utf16(const QString& text)
{
    QByteArray bytes;
    for (const QChar c : text)
        bytes.append(static_cast<char>(c.unicode() >> 8)).append(static_cast<char>(c.unicode()));
    return bytes;
}

} // namespace

QByteArray catalogueBytes(const QList<CatalogueText>& texts)
{
    QByteArray messages;
    QMultiMap<quint32, quint32> places;
    for (const CatalogueText& text : texts) {
        places.insert(hashOf(text.source + text.comment), static_cast<quint32>(messages.size()));
        messages += tagged('\x03', utf16(text.translation)) + tagged('\x08', text.comment)
            + tagged('\x06', text.source) + tagged('\x07', text.context) + '\x01';
    }
    QByteArray hashes;
    for (auto it = places.cbegin(); it != places.cend(); ++it)
        hashes += number(it.key()) + number(it.value());
    return QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd") + tagged('\x42', hashes)
        + tagged('\x69', messages);
}

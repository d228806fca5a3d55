#include "support/drawings/BinaryDrawing.h"

#include "io/dxf/text/GroupCode.h"

#include <QList>

#include <bit>

namespace {

QByteArray number(quint64 bits, int bytes)
{
    QByteArray out;
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>(bits >> 8 * i);
    return out;
}

QByteArray valueBytes(int code, const QByteArray& text)
{
    const auto integer = static_cast<quint64>(text.trimmed().toLongLong());
    switch (groupKind(code)) {
    case GroupKind::Real:
        return number(std::bit_cast<quint64>(text.trimmed().toDouble()), 8);
    case GroupKind::Int16:
        return number(integer, 2);
    case GroupKind::Int32:
        return number(integer, 4);
    case GroupKind::Int64:
        return number(integer, 8);
    case GroupKind::Bool:
        return number(integer, 1);
    case GroupKind::Chunk: {
        const QByteArray chunk = QByteArray::fromHex(text);
        return number(static_cast<quint64>(chunk.size()), 1) + chunk;
    }
    case GroupKind::Text:
    case GroupKind::Handle:
        break;
    }
    return text + '\0';
}

} // namespace

QByteArray BinaryDrawing::head()
{
    return QByteArray::fromHex("4175746f4341442042696e617279204458460d0a1a00");
}

QByteArray BinaryDrawing::code(int code, int codeBytes)
{
    const auto bits = static_cast<quint64>(code);
    if (codeBytes == 1)
        return code < 255 ? number(bits, 1) : '\xFF' + number(bits, 2);
    return number(bits, 2);
}

QByteArray BinaryDrawing::fromText(const QByteArray& text, int codeBytes)
{
    QByteArray out = head();
    QByteArray plain = text;
    const QList<QByteArray> lines = plain.replace("\r\n", "\n").split('\n');
    for (qsizetype i = 0; i + 1 < lines.size(); i += 2) {
        const int group = lines[i].trimmed().toInt();
        out += code(group, codeBytes) + valueBytes(group, lines[i + 1]);
    }
    return out;
}

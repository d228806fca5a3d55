#include "io/dxf/text/BinaryValue.h"

#include "base/NumberText.h"
#include "io/dxf/text/GroupCode.h"

#include <QtEndian>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

namespace {

/// What a value of that size may be read as; a value is shorter only where its group was refused.
template <typename Number>
Number number(QByteArrayView bytes)
{
    return bytes.size() < qsizetype(sizeof(Number)) ? Number(0)
                                                    : qFromLittleEndian<Number>(bytes.data());
}

char* hexadecimal(QByteArrayView bytes, char* out)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    for (const char c : bytes) {
        *out++ = kDigits[static_cast<unsigned char>(c) >> 4];
        *out++ = kDigits[static_cast<unsigned char>(c) & 0xF];
    }
    return out;
}

char* decimal(double value, char* out, char* end)
{
    char* const begin = out;
    out = std::to_chars(out, end, value).ptr;
    // Whole numbers keep their decimal point: readers tell reals by it.
    if (std::isfinite(value)
        && std::string_view(begin, out).find_first_of(".e") == std::string_view::npos)
    {
        *out++ = '.';
        *out++ = '0';
    }
    return out;
}

} // namespace

QByteArrayView BinaryValue::text(int code, QByteArrayView bytes, Scratch& scratch)
{
    char* const begin = scratch.data();
    char* const end = begin + scratch.size();
    char* stop = begin;
    switch (groupKind(code)) {
    case GroupKind::Text:
    case GroupKind::Handle:
        return bytes;
    case GroupKind::Chunk:
        stop = hexadecimal(bytes.first(std::min<qsizetype>(bytes.size(), 255)), begin);
        break;
    case GroupKind::Real:
        stop = decimal(number<double>(bytes), begin, end);
        break;
    default:
        stop = std::to_chars(begin, end, integer(code, bytes)).ptr;
        break;
    }
    return {begin, stop - begin};
}

double BinaryValue::real(int code, QByteArrayView bytes)
{
    switch (groupKind(code)) {
    case GroupKind::Real:
        return number<double>(bytes);
    case GroupKind::Text:
    case GroupKind::Handle:
        return NumberText::real(bytes).value_or(0.0);
    default:
        return static_cast<double>(integer(code, bytes));
    }
}

qint64 BinaryValue::integer(int code, QByteArrayView bytes)
{
    switch (groupKind(code)) {
    case GroupKind::Text:
    case GroupKind::Handle:
        return NumberText::integer(bytes).value_or(0);
    case GroupKind::Int16:
        return number<qint16>(bytes);
    case GroupKind::Int32:
        return number<qint32>(bytes);
    case GroupKind::Int64:
        return number<qint64>(bytes);
    case GroupKind::Bool:
        return number<quint8>(bytes);
    case GroupKind::Real: // a text drawing's "1.5" is no whole number either
    case GroupKind::Chunk:
        break;
    }
    return 0;
}

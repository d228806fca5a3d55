#include "host/dialogs/color/ColourValues.h"

#include "database/values/OdCmColor.h"

#include <QRegularExpression>
#include <QStringList>

namespace {
using Kind = ColourValue::Kind;

constexpr int kNamedColours = 7;

bool isSame(const QString& text, const QString& name)
{
    return text.compare(name, Qt::CaseInsensitive) == 0;
}

std::optional<ColourValue> fromNumbers(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != 3)
        return std::nullopt;
    quint32 rgb = 0;
    for (const QString& part : parts) {
        bool isNumber = false;
        const int value = part.trimmed().toInt(&isNumber);
        if (!isNumber || value < 0 || value > 255)
            return std::nullopt;
        rgb = rgb << 8 | static_cast<quint32>(value);
    }
    return ColourValue{Kind::TrueColour, 0, rgb, {}};
}

std::optional<ColourValue> fromHex(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^#([0-9A-Fa-f]{6})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return ColourValue{Kind::TrueColour, 0, match.captured(1).toUInt(nullptr, 16), {}};
}
} // namespace

namespace colour_values {

OdCmColor toDrawing(const ColourValue& value)
{
    switch (value.kind) {
    case Kind::ByLayer:
        return OdCmColor::fromIndex(256);
    case Kind::ByBlock:
        return OdCmColor::fromIndex(0);
    case Kind::Index:
        return OdCmColor::fromIndex(value.index);
    case Kind::TrueColour:
        break;
    }
    const QRgb rgb = value.rgb;
    return OdCmColor::fromRgb(qRed(rgb), qGreen(rgb), qBlue(rgb), value.bookName);
}

ColourValue fromDrawing(const OdCmColor& colour)
{
    switch (colour.colorMethod()) {
    case OdCmColor::kByLayer:
        return {Kind::ByLayer, 0, 0, {}};
    case OdCmColor::kByBlock:
        return {Kind::ByBlock, 0, 0, {}};
    case OdCmColor::kByColor:
        return {Kind::TrueColour, 0, colour.color() & 0xFFFFFFu, colour.bookName()};
    default:
        return {Kind::Index, colour.colorIndex(), 0, colour.bookName()};
    }
}

QString text(const ColourValue& value)
{
    return toDrawing(value).colorNameForDisplay();
}

std::optional<ColourValue> fromText(const QString& typed, const ColourQuestion& question)
{
    const QString wanted = typed.trimmed();
    if (question.offersByLayer && isSame(wanted, QStringLiteral("ByLayer")))
        return ColourValue{Kind::ByLayer, 0, 0, {}};
    if (question.offersByBlock && isSame(wanted, QStringLiteral("ByBlock")))
        return ColourValue{Kind::ByBlock, 0, 0, {}};
    bool isNumber = false;
    const int index = wanted.toInt(&isNumber);
    if (isNumber) {
        if (index < 1 || index > 255)
            return std::nullopt;
        return ColourValue{Kind::Index, index, 0, {}};
    }
    for (int named = 1; named <= kNamedColours; ++named) {
        if (isSame(wanted, OdCmColor::fromIndex(named).colorNameForDisplay()))
            return ColourValue{Kind::Index, named, 0, {}};
    }
    if (const auto numbers = fromNumbers(wanted))
        return numbers;
    return fromHex(wanted);
}

QColor shown(const ColourValue& value, bool onDark)
{
    if (value.kind == Kind::ByLayer || value.kind == Kind::ByBlock)
        return {};
    return QColor::fromRgba(toDrawing(value).rgb(onDark));
}

} // namespace colour_values

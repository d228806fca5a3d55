#include "host/text/ColorText.h"

#include "host/text/HostText.h"

#include <QStringList>

namespace {
constexpr const char* kNames[] = {
    QT_TRANSLATE_NOOP("Host", "red"),   QT_TRANSLATE_NOOP("Host", "yellow"),
    QT_TRANSLATE_NOOP("Host", "green"), QT_TRANSLATE_NOOP("Host", "cyan"),
    QT_TRANSLATE_NOOP("Host", "blue"),  QT_TRANSLATE_NOOP("Host", "magenta"),
    QT_TRANSLATE_NOOP("Host", "white"),
};

std::optional<int> channel(const QString& text)
{
    bool isNumber = false;
    const int value = text.trimmed().toInt(&isNumber);
    return isNumber && value >= 0 && value <= 255 ? std::optional(value) : std::nullopt;
}

bool isName(const QString& text, const char* name)
{
    return text.compare(QLatin1String(name), Qt::CaseInsensitive) == 0
        || text.compare(HostText::tr(name), Qt::CaseInsensitive) == 0;
}
} // namespace

std::optional<OdCmColor> colorFromText(const QString& typed)
{
    const QString text = typed.trimmed();
    int index = 0;
    for (const char* name : kNames) {
        ++index;
        if (isName(text, name))
            return OdCmColor::fromIndex(index);
    }
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() == 1) {
        const auto number = channel(text);
        return number && *number > 0 ? std::optional(OdCmColor::fromIndex(*number)) : std::nullopt;
    }
    if (parts.size() != 3)
        return std::nullopt;
    const auto red = channel(parts[0]);
    const auto green = channel(parts[1]);
    const auto blue = channel(parts[2]);
    if (!red || !green || !blue)
        return std::nullopt;
    return OdCmColor::fromRgb(*red, *green, *blue);
}

QString colorRefusal(const QString& text)
{
    return HostText::tr("A color is an index from 1 to 255, a name from red to white, or "
                        "\"r,g,b\"; \"%1\" is none.")
        .arg(text);
}

QStringList colorNames()
{
    QStringList names;
    for (const char* name : kNames)
        names << QLatin1String(name);
    return names;
}

#pragma once

#include <QLatin1String>
#include <QString>

/// An ending of drawings' names, without its dot, and the format that programs expect behind it,
/// called by that format's own ending.
struct DrawingEnding
{
    const char* ending;
    const char* format;
};

inline constexpr DrawingEnding kDrawingEndings[] = {
    {"dxf", "dxf"}, {"dwg", "dwg"}, {"dwt", "dwg"}, {"dws", "dwg"}};

/// The format behind an ending in whatever case; empty for one that is none of a drawing.
inline QString formatOfEnding(const QString& ending)
{
    for (const DrawingEnding& known : kDrawingEndings) {
        if (ending.compare(QLatin1String(known.ending), Qt::CaseInsensitive) == 0)
            return QLatin1String(known.format);
    }
    return {};
}

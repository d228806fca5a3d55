#include "host/canvas/text/TextExtent.h"

namespace {

constexpr double kAscent = 1.4; ///< with accents
constexpr double kDescent = 0.4;

double estimatedWidth(QChar c)
{
    const ushort u = c.unicode();
    if (u >= 0x1100)
        return 1.6;
    switch (u) {
    case u'i':
    case u'l':
    case u'j':
    case u'I':
    case u'.':
    case u',':
    case u':':
    case u';':
    case u'|':
    case u'\'':
    case u' ':
        return 0.5;
    case u'm':
    case u'w':
    case u'M':
    case u'W':
    case u'@':
        return 1.4;
    default:
        return c.isUpper() ? 1.0 : 0.9;
    }
}

} // namespace

Vec2 blockStart(const TextSpec& spec, double width, int lines)
{
    Vec2 start;
    if (spec.horizontal == TextSpec::Horizontal::Centre)
        start.x = -width / 2;
    else if (spec.horizontal == TextSpec::Horizontal::Right)
        start.x = -width;
    const double below = (lines - 1) * spec.lineStep;
    switch (spec.vertical) {
    case TextSpec::Vertical::Baseline:
        break;
    case TextSpec::Vertical::Bottom:
        start.y = below + kDescent / 2;
        break;
    case TextSpec::Vertical::Middle:
        start.y = (below - 1) / 2;
        break;
    case TextSpec::Vertical::Top:
        start.y = -1;
        break;
    }
    return start;
}

int linesIn(const Box2& extent, double lineStep)
{
    return 1 + static_cast<int>(std::lround((extent.height() - kAscent - kDescent) / lineStep));
}

double middleOfLine(const Box2& extent, double lineStep, int line)
{
    constexpr double kMiddle = 0.4;
    return extent.maxY - kAscent + kMiddle - line * lineStep;
}

Box2 estimatedExtent(const TextSpec& spec)
{
    double widest = 0;
    double line = 0;
    int lines = 1;
    const bool wraps = spec.width > 0 && spec.horizontal != TextSpec::Horizontal::Fit
        && spec.horizontal != TextSpec::Horizontal::Aligned;
    for (const QChar c : spec.text) {
        const double width = estimatedWidth(c);
        const bool overfull = wraps && line > 0 && line + width > spec.width;
        if (c == u'\n' || overfull) {
            ++lines;
            line = 0;
        }
        if (c != u'\n')
            line += width;
        widest = std::max(widest, line);
    }
    if (spec.width > 0 && !wraps)
        widest = spec.width;
    const Vec2 start = blockStart(spec, widest, lines);
    return Box2::of({start.x, start.y - (lines - 1) * spec.lineStep - kDescent},
                    {start.x + widest, start.y + kAscent});
}

#include "database/values/OdCmColor.h"

#include <algorithm>
#include <limits>

namespace {

constexpr OdRgb rgbOf(int red, int green, int blue)
{
    return 0xFF000000u | (static_cast<OdRgb>(red) & 0xFFu) << 16
        | (static_cast<OdRgb>(green) & 0xFFu) << 8 | (static_cast<OdRgb>(blue) & 0xFFu);
}
constexpr int redOf(OdRgb colour)
{
    return static_cast<int>(colour >> 16 & 0xFFu);
}
constexpr int greenOf(OdRgb colour)
{
    return static_cast<int>(colour >> 8 & 0xFFu);
}
constexpr int blueOf(OdRgb colour)
{
    return static_cast<int>(colour & 0xFFu);
}

constexpr quint32 packed(OdCmColor::Method method, quint32 value)
{
    return static_cast<quint32>(method) << 24 | (value & 0x00FFFFFFu);
}

constexpr std::array<OdRgb, 10> kFixedColours = {0xFF000000, 0xFFFF0000, 0xFFFFFF00, 0xFF00FF00,
                                                 0xFF00FFFF, 0xFF0000FF, 0xFFFF00FF, 0xFFFFFFFF,
                                                 0xFF808080, 0xFFC0C0C0};
constexpr std::array<int, 6> kGreys = {51, 91, 132, 173, 214, 255};

/// Colours 10 to 249: the tens step the hue by 15 degrees, the last digit chooses one of five
/// brightnesses, odd digits at half saturation. Channels are cut off to whole numbers.
OdRgb wheelColour(int index)
{
    constexpr std::array<int, 5> kBrightnessTenths = {10, 8, 6, 5, 3};
    const int hue = (index / 10 - 1) * 15;
    const int sector = hue / 60;
    const int ramp = hue % 60; // sixtieths of a full channel
    const std::array<std::array<int, 3>, 6> sectors = {{{60, ramp, 0},
                                                        {60 - ramp, 60, 0},
                                                        {0, 60, ramp},
                                                        {0, 60 - ramp, 60},
                                                        {ramp, 0, 60},
                                                        {60, 0, 60 - ramp}}};
    const int tenths = kBrightnessTenths[static_cast<std::size_t>(index % 10 / 2)];
    const auto channel = [&](int sixtieths) {
        const int parts = index % 10 % 2 == 0 ? sixtieths * 2 : sixtieths + 60; // of 120
        return 255 * parts * tenths / 1200;
    };
    const auto& rgb = sectors[static_cast<std::size_t>(sector)];
    return rgbOf(channel(rgb[0]), channel(rgb[1]), channel(rgb[2]));
}

std::array<OdRgb, 256> makeTable()
{
    std::array<OdRgb, 256> colours{};
    std::copy(kFixedColours.begin(), kFixedColours.end(), colours.begin());
    for (int index = 10; index < 250; ++index)
        colours[static_cast<std::size_t>(index)] = wheelColour(index);
    for (std::size_t i = 0; i < kGreys.size(); ++i)
        colours[250 + i] = rgbOf(kGreys[i], kGreys[i], kGreys[i]);
    return colours;
}

constexpr std::array<const char*, 8> kNames = {"ByBlock", "red",  "yellow",  "green",
                                               "cyan",    "blue", "magenta", "white"};

} // namespace

const std::array<OdRgb, 256>& aci::table()
{
    static const std::array<OdRgb, 256> colours = makeTable();
    return colours;
}

int aci::nearestIndex(OdRgb colour)
{
    int best = 1;
    int bestDistance = std::numeric_limits<int>::max();
    for (int index = 1; index < 256; ++index) {
        const OdRgb candidate = table()[static_cast<std::size_t>(index)];
        const int dr = redOf(candidate) - redOf(colour);
        const int dg = greenOf(candidate) - greenOf(colour);
        const int db = blueOf(candidate) - blueOf(colour);
        const int distance = dr * dr + dg * dg + db * db;
        if (distance < bestDistance) {
            bestDistance = distance;
            best = index;
        }
    }
    return best;
}

OdCmColor OdCmColor::fromIndex(int index)
{
    OdCmColor colour;
    if (index == 0)
        colour.m_packed = packed(kByBlock, 0);
    else if (index < 0 || index > 255)
        colour.m_packed = packed(kByLayer, 0);
    else
        colour.m_packed = packed(kByACI, static_cast<quint32>(index));
    return colour;
}

OdCmColor OdCmColor::fromRgb(int red, int green, int blue, const QString& bookName)
{
    OdCmColor colour;
    colour.m_packed = packed(kByColor, rgbOf(red, green, blue));
    colour.m_bookName = bookName;
    return colour;
}

OdCmColor OdCmColor::fromPacked(quint32 value)
{
    OdCmColor colour;
    colour.m_packed = value;
    return colour;
}

int OdCmColor::colorIndex() const
{
    switch (colorMethod()) {
    case kByColor:
        return aci::nearestIndex(0xFF000000u | (m_packed & 0x00FFFFFFu));
    case kByACI:
        return static_cast<int>(m_packed & 0xFFu);
    case kByBlock:
        return 0;
    default:
        return 256;
    }
}

OdRgb OdCmColor::rgb(bool darkBackground) const
{
    if (colorMethod() == kByColor)
        return 0xFF000000u | (m_packed & 0x00FFFFFFu);
    const int index = colorIndex();
    if (index <= 0 || index > 255 || index == 7)
        return darkBackground ? 0xFFFFFFFFu : 0xFF000000u;
    return aci::table()[static_cast<std::size_t>(index)];
}

QString OdCmColor::colorNameForDisplay() const
{
    switch (colorMethod()) {
    case kByLayer:
        return QStringLiteral("ByLayer");
    case kByBlock:
        return QStringLiteral("ByBlock");
    case kByColor: {
        if (!m_bookName.isEmpty())
            return m_bookName.section(QLatin1Char('$'), 1);
        const OdRgb value = m_packed;
        return QStringLiteral("%1,%2,%3").arg(redOf(value)).arg(greenOf(value)).arg(blueOf(value));
    }
    default: {
        const int index = colorIndex();
        if (index > 0 && index < static_cast<int>(kNames.size()))
            return QLatin1String(kNames[static_cast<std::size_t>(index)]);
        return QString::number(index);
    }
    }
}

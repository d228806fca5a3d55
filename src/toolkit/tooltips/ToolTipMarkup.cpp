#include "toolkit/tooltips/ToolTipMarkup.h"

#include <algorithm>
#include <array>

namespace {
constexpr int kDeepest = 8;
constexpr int kMostElements = 64;
constexpr qsizetype kLongest = 20000; // characters
constexpr int kMostPixels = 2000;
constexpr int kLongestPlain = 1000;

using Kind = ToolTipElement::Kind;

struct ElementName
{
    const char* name;
    Kind kind;
};

constexpr ElementName kElements[] = {
    {"StackPanel", Kind::StackPanel},
    {"TextBlock", Kind::TextBlock},
    {"Border", Kind::Border},
    {"Image", Kind::Image},
};

void setLength(int& length, QStringView value)
{
    bool isNumber = false;
    const int pixels = value.trimmed().toInt(&isNumber);
    if (isNumber && pixels >= 0)
        length = std::min(pixels, kMostPixels);
}

/// One number for all sides, two for the sides and for top and bottom, or four from the left round.
void setMargins(QMargins& margins, QStringView value)
{
    const auto parts = value.split(QLatin1Char(','));
    std::array<int, 4> sides{};
    if (parts.size() != 1 && parts.size() != 2 && parts.size() != 4)
        return;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        bool isNumber = false;
        const int pixels = parts[i].trimmed().toInt(&isNumber);
        if (!isNumber)
            return;
        sides[static_cast<std::size_t>(i)] = std::clamp(pixels, 0, kMostPixels);
    }
    if (parts.size() == 1)
        sides.fill(sides[0]);
    else if (parts.size() == 2)
        sides = {sides[0], sides[1], sides[0], sides[1]};
    margins = QMargins(sides[0], sides[1], sides[2], sides[3]);
}

void setColour(QColor& colour, QStringView value)
{
    if (QColor::isValidColor(value.toString()))
        colour.setNamedColor(value.toString());
}

struct Attribute
{
    const char* name;
    void (*set)(ToolTipElement& element, QStringView value);
};

using Element = ToolTipElement;
using Value = QStringView;

constexpr Attribute kAttributes[] = {
    {"Margin", [](Element& e, Value v) { setMargins(e.margin, v); }},
    {"Padding", [](Element& e, Value v) { setMargins(e.padding, v); }},
    {"MaxWidth", [](Element& e, Value v) { setLength(e.maxWidth, v); }},
    {"Height", [](Element& e, Value v) { setLength(e.height, v); }},
    {"Background", [](Element& e, Value v) { setColour(e.background, v); }},
    {"Orientation", [](Element& e, Value v) { e.isHorizontal = v == QLatin1String("Horizontal"); }},
    {"TextWrapping", [](Element& e, Value v) { e.wraps = v == QLatin1String("Wrap"); }},
    {"FontWeight", [](Element& e, Value v) { e.isBold = v == QLatin1String("Bold"); }},
    {"VerticalAlignment", [](Element& e, Value v) { e.isCentred = v == QLatin1String("Center"); }},
    {"Source", [](Element& e, Value v) { e.source = v.toString(); }},
};
} // namespace

std::optional<ToolTipElement> ToolTipMarkup::parse(const QString& text)
{
    if (text.size() > kLongest)
        return std::nullopt;
    ToolTipMarkup markup(text);
    QXmlStreamReader& reader = markup.m_reader;
    // A document type could declare entities; no tooltip has one.
    if (reader.readNext() != QXmlStreamReader::StartDocument
        || reader.readNext() != QXmlStreamReader::StartElement)
        return std::nullopt;
    ToolTipElement root;
    if (!markup.readElement(root, 1) || reader.readNext() != QXmlStreamReader::EndDocument)
        return std::nullopt;
    return root;
}

ToolTipElement ToolTipMarkup::plain(const QString& text)
{
    ToolTipElement block;
    block.wraps = true;
    block.maxWidth = 400;
    block.padding = QMargins(1, 2, 1, 2);
    block.text = text.size() > kLongestPlain ? text.left(kLongestPlain) + QChar(0x2026) : text;
    return block;
}

bool ToolTipMarkup::readElement(ToolTipElement& element, int depth)
{
    const auto known = std::find_if(std::begin(kElements), std::end(kElements), [&](const auto& e) {
        return m_reader.qualifiedName() == QLatin1String(e.name);
    });
    if (known == std::end(kElements) || depth > kDeepest || ++m_elements > kMostElements)
        return false;
    element.kind = known->kind;
    readAttributes(element);
    for (;;) {
        switch (m_reader.readNext()) {
        case QXmlStreamReader::EndElement:
            return true;
        case QXmlStreamReader::Characters:
            if (element.kind == Kind::TextBlock)
                element.text += m_reader.text();
            else if (!m_reader.isWhitespace())
                return false;
            break;
        case QXmlStreamReader::StartElement:
            if (element.kind != Kind::StackPanel
                || !readElement(element.children.emplace_back(), depth + 1))
                return false;
            break;
        case QXmlStreamReader::Comment:
            break;
        default:
            return false;
        }
    }
}

void ToolTipMarkup::readAttributes(ToolTipElement& element) const
{
    for (const QXmlStreamAttribute& given : m_reader.attributes()) {
        for (const Attribute& known : kAttributes) {
            if (given.qualifiedName() == QLatin1String(known.name))
                known.set(element, given.value());
        }
    }
}

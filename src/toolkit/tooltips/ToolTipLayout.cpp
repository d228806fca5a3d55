#include "toolkit/tooltips/ToolTipLayout.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStringList>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {
using Kind = ToolTipElement::Kind;

constexpr int kWidest = 600; ///< of a tooltip that sets no limit
constexpr int kIconExtent = 16;
constexpr QRgb kHelpBlue = 0xFF2F6FB5;

QSize grown(QSize size, const QMargins& by)
{
    return size + QSize(by.left() + by.right(), by.top() + by.bottom());
}

/// Lays the text out in lines that are no wider than `width`; their joint size.
QSize layOut(QTextLayout& layout, int width, bool wraps)
{
    QTextOption option;
    option.setWrapMode(wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    layout.setTextOption(option);
    qreal widest = 0;
    qreal bottom = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, bottom));
        bottom += line.height();
        widest = std::max(widest, line.naturalTextWidth());
    }
    layout.endLayout();
    return QSize(static_cast<int>(std::ceil(widest)), static_cast<int>(std::ceil(bottom)));
}

/// To a layout a line feed is an ordinary character.
QString inLines(QString text)
{
    return text.replace(QLatin1Char('\n'), QChar::LineSeparator);
}

QColor readableOn(const QColor& background)
{
    return qGray(background.rgb()) > 127 ? Qt::black : Qt::white;
}

/// A question mark on a blue disc.
void paintHelpSign(QPainter& painter, const QRect& rect, QFont font)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(kHelpBlue));
    painter.drawEllipse(rect);
    font.setBold(true);
    font.setPixelSize(rect.height() * 3 / 4);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(rect, Qt::AlignCenter, QStringLiteral("?"));
    painter.restore();
}

bool isHelpSign(const ToolTipElement& image)
{
    return image.source.compare(QLatin1String("res://Help.ico"), Qt::CaseInsensitive) == 0;
}
} // namespace

ToolTipLayout::ToolTipLayout(const ToolTipElement& root, const QFont& font)
    : m_root(root)
    , m_font(font)
    , m_size(measure(m_root, kWidest))
{
    arrange(m_root, QRect(QPoint(0, 0), m_size));
}

QFont ToolTipLayout::fontOf(const ToolTipElement& element) const
{
    QFont font = m_font;
    font.setBold(element.isBold);
    return font;
}

QSize ToolTipLayout::measure(const ToolTipElement& element, int width) const
{
    int inside = width - element.margin.left() - element.margin.right();
    if (element.maxWidth > 0)
        inside = std::min(inside, element.maxWidth);
    inside = std::max(inside, 0);
    QSize size;
    switch (element.kind) {
    case Kind::StackPanel:
        size = measurePanel(element, inside);
        break;
    case Kind::TextBlock:
        size = measureText(element, inside);
        break;
    case Kind::Border:
        size = QSize(0, 0);
        break;
    case Kind::Image:
        size = isHelpSign(element) ? QSize(kIconExtent, kIconExtent) : QSize(0, 0);
        break;
    }
    if (element.height > 0)
        size.setHeight(element.height);
    return grown(size, element.margin);
}

QSize ToolTipLayout::measureText(const ToolTipElement& block, int width) const
{
    const QMargins& padding = block.padding;
    const int inside = std::max(width - padding.left() - padding.right(), 1);
    QTextLayout layout(inLines(block.text), fontOf(block));
    QSize size = layOut(layout, inside, block.wraps);
    size.setWidth(std::min(size.width(), inside));
    return grown(size, padding);
}

QSize ToolTipLayout::measurePanel(const ToolTipElement& panel, int width) const
{
    QSize size(0, 0);
    for (const ToolTipElement& child : panel.children) {
        if (panel.isHorizontal) {
            const QSize part = measure(child, width - size.width());
            size = QSize(size.width() + part.width(), std::max(size.height(), part.height()));
        } else {
            const QSize part = measure(child, width);
            size = QSize(std::max(size.width(), part.width()), size.height() + part.height());
        }
    }
    return size;
}

void ToolTipLayout::arrange(const ToolTipElement& element, const QRect& outer)
{
    const QRect inner = outer.marginsRemoved(element.margin);
    m_placed.push_back({&element, inner});
    if (element.kind == Kind::StackPanel)
        arrangeChildren(element, inner);
}

void ToolTipLayout::arrangeChildren(const ToolTipElement& panel, const QRect& inner)
{
    QPoint at = inner.topLeft();
    for (const ToolTipElement& child : panel.children) {
        if (panel.isHorizontal) {
            const QSize size = measure(child, inner.right() + 1 - at.x());
            QRect place(at, QSize(size.width(), inner.height()));
            if (child.isCentred || child.kind == Kind::Image)
                place = QRect(at.x(), at.y() + (inner.height() - size.height()) / 2, size.width(),
                              size.height());
            arrange(child, place);
            at.rx() += size.width();
        } else {
            const QSize size = measure(child, inner.width());
            arrange(child, QRect(at, QSize(inner.width(), size.height())));
            at.ry() += size.height();
        }
    }
}

void ToolTipLayout::paint(QPainter& painter, const QColor& background) const
{
    QColor beneath = background;
    for (const Placed& placed : m_placed) {
        const ToolTipElement& element = *placed.element;
        if (element.background.isValid()) {
            painter.fillRect(placed.rect, element.background);
            if (element.kind == Kind::StackPanel)
                beneath = element.background;
        }
        if (element.kind == Kind::TextBlock)
            paintText(painter, placed, element.background.isValid() ? element.background : beneath);
        else if (element.kind == Kind::Image && isHelpSign(element))
            paintHelpSign(painter, placed.rect, m_font);
    }
}

void ToolTipLayout::paintText(QPainter& painter, const Placed& block,
                              const QColor& background) const
{
    const ToolTipElement& element = *block.element;
    const QRect place = block.rect.marginsRemoved(element.padding);
    const QFont font = fontOf(element);
    QString text = inLines(element.text);
    if (!element.wraps)
        text = QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width());
    QTextLayout layout(text, font);
    layOut(layout, place.width(), element.wraps);
    painter.setPen(readableOn(background));
    layout.draw(&painter, place.topLeft());
}

QString ToolTipLayout::plainText() const
{
    QStringList lines;
    for (const Placed& placed : m_placed) {
        if (!placed.element->text.isEmpty())
            lines.append(placed.element->text);
    }
    return lines.join(QLatin1Char('\n'));
}

#pragma once

#include "toolkit/tooltips/ToolTipElement.h"

#include <QFont>
#include <QRect>

#include <vector>

class QPainter;

/// Measures the elements of a rich tooltip, gives each its rectangle and paints them. Panels stack
/// their children; along the stack a child has its own size, across it the panel's.
class ToolTipLayout
{
public:
    ToolTipLayout(const ToolTipElement& root, const QFont& font);
    ToolTipLayout(const ToolTipLayout&) = delete;
    ToolTipLayout& operator=(const ToolTipLayout&) = delete;

    QSize size() const { return m_size; }
    /// Texts are black or white, whichever stands out from the background beneath them.
    void paint(QPainter& painter, const QColor& background) const;
    /// The texts from the top, for assistive programs: one line each.
    QString plainText() const;

    /// An element in its place; its margin is outside of the rectangle.
    struct Placed
    {
        const ToolTipElement* element;
        QRect rect;
    };
    /// In painting order.
    const std::vector<Placed>& placed() const { return m_placed; }

private:
    QFont fontOf(const ToolTipElement& element) const;
    /// The size with margin, where that much width is left.
    QSize measure(const ToolTipElement& element, int width) const;
    QSize measureText(const ToolTipElement& block, int width) const;
    QSize measurePanel(const ToolTipElement& panel, int width) const;
    void arrange(const ToolTipElement& element, const QRect& outer);
    void arrangeChildren(const ToolTipElement& panel, const QRect& inner);
    void paintText(QPainter& painter, const Placed& block, const QColor& background) const;

    ToolTipElement m_root;
    QFont m_font;
    QSize m_size;
    std::vector<Placed> m_placed;
};

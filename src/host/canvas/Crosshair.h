#pragma once

#include <QPointF>
#include <QRegion>

class QPainter;
class QWidget;

/// The cursor of the drawing: two hairlines that cross in a small box; the hairlines alone where a
/// point is wanted, the box alone where something is to be picked.
class Crosshair
{
public:
    explicit Crosshair(const QWidget& widget)
        : m_widget(widget)
    { }

    enum class Shape { Both, Cross, Box };

    void setShape(Shape shape) { m_shape = shape; }
    /// Side of the box, in window pixels.
    qreal boxSize() const;
    bool isShown() const { return m_isShown; }
    void show(QPointF at)
    {
        m_isShown = true;
        m_at = at;
    }
    void hide() { m_isShown = false; }
    /// What has to be painted again when the cursor moves; empty while it is hidden.
    QRegion region() const;
    void paint(QPainter& painter) const;

private:
    qreal armLength() const;

    const QWidget& m_widget;
    QPointF m_at;
    Shape m_shape = Shape::Both;
    bool m_isShown = false;
};

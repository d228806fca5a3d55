#pragma once

#include <QPointF>
#include <QRegion>

class QPainter;
class QWidget;

/// The cursor of the drawing: two hairlines that cross in a small box.
class Crosshair
{
public:
    explicit Crosshair(const QWidget& widget)
        : m_widget(widget)
    { }

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
    qreal boxSize() const;

    const QWidget& m_widget;
    QPointF m_at;
    bool m_isShown = false;
};

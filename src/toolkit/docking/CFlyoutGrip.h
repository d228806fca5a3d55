#pragma once

#include <QPoint>
#include <QWidget>

/// The edge of a pane that has slid out, by which it is made wider or narrower.
class CFlyoutGrip : public QWidget
{
    Q_OBJECT
public:
    explicit CFlyoutGrip(QWidget* parent);

    /// Horizontal: it is dragged to the left and right.
    void setDirection(Qt::Orientation direction);
    QSize sizeHint() const override;

signals:
    void pressed();
    /// Distance from where it was pressed.
    void dragged(QPoint distance);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Qt::Orientation m_direction = Qt::Horizontal;
    QPoint m_pressedAt;
};

#pragma once

#include <QAbstractButton>

/// The tab of a pane that is hidden to a side of the window; at the left and right its text stands
/// upright. It is checked while the pane is out.
class CSideTabButton : public QAbstractButton
{
    Q_OBJECT
public:
    CSideTabButton(Qt::DockWidgetArea side, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool isUpright() const;
    Qt::DockWidgetArea m_side;
};

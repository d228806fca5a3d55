#pragma once

#include <QObject>
#include <QPointF>

class CDrawingView;
class CElidedLabel;
class QLabel;
class QStatusBar;

/// The fields of the status bar: the cursor's position, the current layer, how many entities are
/// selected, what is not drawn.
class StatusFields : public QObject
{
    Q_OBJECT
public:
    explicit StatusFields(QStatusBar& bar);

    /// Shows the state of that view, or of none.
    void showView(const CDrawingView* view);
    void showSelection(const CDrawingView* view);
    void showPosition(QPointF point);

private:
    QLabel* m_selected;
    QLabel* m_position;
    QLabel* m_layer;
    CElidedLabel* m_undrawn;
};

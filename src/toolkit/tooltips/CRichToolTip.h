#pragma once

#include "toolkit/tooltips/ToolTipLayout.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

/// The window of a rich tooltip. It goes away on keys, clicks
/// and the wheel, when the mouse leaves the control it explains, when the control goes, and after
/// the time that its text takes to read.
class CRichToolTip : public QWidget
{
    Q_OBJECT
public:
    /// `margin` is added to the space between the frame and the contents.
    CRichToolTip(const ToolTipElement& contents, const QColor& background, int margin);

    /// Shows it for that control, whose rectangle is given in screen coordinates.
    void showFor(QWidget& control, const QRect& rect, QPoint cursor);
    const QRect& rectOfTool() const { return m_rect; }

    /// Where a tooltip of that size comes up: below the control, or below the cursor where the
    /// control is a large one; above where there is no room below; always on the screen.
    static QPoint placeFor(QSize size, const QRect& control, QPoint cursor, const QRect& screen);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool ends(const QEvent& event, const QObject* watched) const;

    ToolTipLayout m_layout;
    QColor m_background;
    int m_inset;
    QPointer<QWidget> m_control;
    QRect m_rect;
    QTimer m_expiry;
};

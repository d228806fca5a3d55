#pragma once

#include <QToolButton>

/// A small button of a pane's title bar. Its sign is drawn in the colour of the title's text, so
/// that it is as readable in dark palettes as in light ones.
class CPaneTitleButton : public QToolButton
{
    Q_OBJECT
public:
    enum class Sign { Close, Float, Dock, AutoHide, Pin };

    CPaneTitleButton(Sign sign, QWidget* parent);
    Sign sign() const { return m_sign; }
    /// Sets sign, tooltip and accessible name.
    void setSign(Sign sign);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Sign m_sign;
};

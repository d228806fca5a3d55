#pragma once

#include <QWidget>

/// Switches painting off for a scope; the widget is repainted once at its end.
class UpdatesOff
{
public:
    explicit UpdatesOff(QWidget& widget)
        : m_widget(widget)
        , m_were(widget.updatesEnabled())
    {
        m_widget.setUpdatesEnabled(false);
    }
    ~UpdatesOff() { m_widget.setUpdatesEnabled(m_were); }
    UpdatesOff(const UpdatesOff&) = delete;
    UpdatesOff& operator=(const UpdatesOff&) = delete;

private:
    QWidget& m_widget;
    bool m_were;
};

#pragma once

#include <QProxyStyle>

/// Fusion without animations: what slides or fades is there at once, so that tests need not wait
/// for it.
class StillStyle : public QProxyStyle
{
public:
    StillStyle()
        : QProxyStyle(QStringLiteral("Fusion"))
    { }
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        if (hint == SH_Widget_Animation_Duration || hint == SH_Widget_Animate)
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

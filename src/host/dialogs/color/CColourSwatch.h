#pragma once

#include "toolkit/PickQuestions.h"

#include <QWidget>

/// The colour before and the colour that is chosen now, side by side, each under its name.
class CColourSwatch : public QWidget
{
    Q_OBJECT
public:
    CColourSwatch(const ColourValue& before, bool onDark, QWidget* parent);

    void setNow(const ColourValue& now);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintHalf(QPainter& painter, const QRect& place, const QString& caption,
                   const ColourValue& value) const;
    void describe();

    ColourValue m_before;
    ColourValue m_now;
    bool m_onDark;
};

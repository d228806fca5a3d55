#include "host/window/look/CElidedLabel.h"

#include <QPainter>
#include <QStyle>

#include <cmath>

CElidedLabel::CElidedLabel(QWidget* parent)
    : QFrame(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void CElidedLabel::setText(const QString& text)
{
    if (m_text == text)
        return;
    m_text = text;
    setToolTip(text);
    setAccessibleDescription(text);
    updateGeometry();
    update();
}

QSize CElidedLabel::sizeHint() const
{
    // Rounded up: a fraction of a pixel too little would cost the last letters.
    const qreal width = QFontMetricsF(font()).horizontalAdvance(m_text);
    return {static_cast<int>(std::ceil(width)), fontMetrics().height()};
}

QSize CElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 4, fontMetrics().height()};
}

void CElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(m_text, Qt::ElideRight, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                          isEnabled(), shown, foregroundRole());
}

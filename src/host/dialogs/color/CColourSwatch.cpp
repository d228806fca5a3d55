#include "host/dialogs/color/CColourSwatch.h"

#include "host/dialogs/color/ColourValues.h"

#include <QPainter>

namespace {
constexpr int kHalfWidth = 118;
constexpr int kSwatchHeight = 30;
} // namespace

CColourSwatch::CColourSwatch(const ColourValue& before, bool onDark, QWidget* parent)
    : QWidget(parent)
    , m_before(before)
    , m_now(before)
    , m_onDark(onDark)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(tr("Old and new color"));
    describe();
}

void CColourSwatch::setNow(const ColourValue& now)
{
    m_now = now;
    describe();
    update();
}

void CColourSwatch::describe()
{
    setAccessibleDescription(
        tr("Old %1, new %2").arg(colour_values::text(m_before), colour_values::text(m_now)));
}

QSize CColourSwatch::sizeHint() const
{
    return QSize(2 * kHalfWidth, kSwatchHeight + fontMetrics().height() + 4);
}

void CColourSwatch::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QRect left(0, 0, width() / 2, height());
    paintHalf(painter, left, tr("Old: %1"), m_before);
    paintHalf(painter, left.translated(left.width(), 0), tr("New: %1"), m_now);
}

void CColourSwatch::paintHalf(QPainter& painter, const QRect& place, const QString& caption,
                              const ColourValue& value) const
{
    const int textHeight = fontMetrics().height();
    const QRect text(place.left(), place.top(), place.width() - 4, textHeight);
    const QRect swatch(place.left(), text.bottom() + 4, place.width(), kSwatchHeight);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(caption.arg(colour_values::text(value)),
                                              Qt::ElideRight, text.width()));
    const QColor colour = colour_values::shown(value, m_onDark);
    if (colour.isValid()) {
        painter.fillRect(swatch, colour);
    } else {
        // By layer, by block: no colour of its own.
        painter.fillRect(swatch, palette().color(QPalette::Base));
        painter.fillRect(swatch, QBrush(palette().color(QPalette::Mid), Qt::BDiagPattern));
    }
    QColor rim = palette().color(QPalette::WindowText);
    rim.setAlpha(120);
    painter.setPen(rim);
    painter.drawRect(swatch.adjusted(0, 0, -1, -1));
}

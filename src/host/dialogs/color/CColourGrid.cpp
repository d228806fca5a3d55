#include "host/dialogs/color/CColourGrid.h"

#include "host/dialogs/color/ColourValues.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {
constexpr QSize kCell(17, 17); ///< a swatch and the gap after it
constexpr int kGap = 2;
constexpr int kRim = 3; ///< around all, for the frame of the one that is chosen
constexpr int kWhite = 7; ///< white or black, whichever stands out

QColor colourOf(int index, bool onDark)
{
    return colour_values::shown({ColourValue::Kind::Index, index, 0, {}}, onDark);
}
} // namespace

CColourGrid::CColourGrid(int columns, std::vector<int> indices, bool onDark, QWidget* parent)
    : QWidget(parent)
    , m_columns(columns)
    , m_indices(std::move(indices))
    , m_onDark(onDark)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

int CColourGrid::rows() const
{
    return (static_cast<int>(m_indices.size()) + m_columns - 1) / m_columns;
}

QSize CColourGrid::sizeHint() const
{
    return QSize(m_columns * kCell.width() - kGap + 2 * kRim,
                 rows() * kCell.height() - kGap + 2 * kRim);
}

QRect CColourGrid::cellAt(int position) const
{
    const QPoint at(position % m_columns * kCell.width(), position / m_columns * kCell.height());
    return QRect(at + QPoint(kRim, kRim), kCell - QSize(kGap, kGap));
}

QRect CColourGrid::cell(int index) const
{
    const auto found = std::find(m_indices.begin(), m_indices.end(), index);
    return found == m_indices.end() ? QRect() : cellAt(static_cast<int>(found - m_indices.begin()));
}

int CColourGrid::positionOf(QPoint point) const
{
    for (int position = 0; position < static_cast<int>(m_indices.size()); ++position) {
        if (cellAt(position).adjusted(0, 0, kGap, kGap).contains(point))
            return position;
    }
    return -1;
}

void CColourGrid::setChosen(int index)
{
    const auto found = std::find(m_indices.begin(), m_indices.end(), index);
    m_at = found == m_indices.end() ? -1 : static_cast<int>(found - m_indices.begin());
    setAccessibleDescription(
        m_at < 0 ? QString() : colour_values::text({ColourValue::Kind::Index, index, 0, {}}));
    update();
}

void CColourGrid::choose(int position)
{
    if (position < 0 || position >= static_cast<int>(m_indices.size()))
        return;
    const int index = m_indices[static_cast<std::size_t>(position)];
    setChosen(index);
    QAccessibleEvent told(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&told);
    emit picked(index);
}

void CColourGrid::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    for (int position = 0; position < static_cast<int>(m_indices.size()); ++position)
        paintCell(painter, position);
    if (m_at < 0)
        return;
    // Dark within light stands out from every swatch and from every dialog.
    const QRect frame = cellAt(m_at);
    const QColor outer =
        hasFocus() ? palette().color(QPalette::Highlight) : palette().color(QPalette::WindowText);
    painter.setPen(QPen(outer, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame.adjusted(-1, -1, 1, 1));
    painter.setPen(Qt::white);
    painter.drawRect(frame.adjusted(1, 1, -2, -2));
    painter.setPen(Qt::black);
    painter.drawRect(frame.adjusted(2, 2, -3, -3));
}

void CColourGrid::paintCell(QPainter& painter, int position) const
{
    const int index = m_indices[static_cast<std::size_t>(position)];
    const QRect place = cellAt(position);
    painter.fillRect(place, colourOf(index, m_onDark));
    if (index == kWhite) {
        const QPolygon half{place.topLeft(), place.topRight() + QPoint(1, 0),
                            place.bottomLeft() + QPoint(0, 1)};
        painter.save();
        painter.setClipRect(place);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colourOf(index, !m_onDark));
        painter.drawPolygon(half);
        painter.restore();
    }
    QColor rim = palette().color(QPalette::WindowText);
    rim.setAlpha(90);
    painter.setPen(rim);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place.adjusted(0, 0, -1, -1));
}

void CColourGrid::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        choose(positionOf(event->position().toPoint()));
}

void CColourGrid::mouseMoveEvent(QMouseEvent* event)
{
    const int position = positionOf(event->position().toPoint());
    emit pointedAt(position < 0 ? 0 : m_indices[static_cast<std::size_t>(position)]);
}

void CColourGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && positionOf(event->position().toPoint()) >= 0)
        emit accepted();
}

void CColourGrid::leaveEvent(QEvent* event)
{
    emit pointedAt(0);
    QWidget::leaveEvent(event);
}

void CColourGrid::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void CColourGrid::keyPressEvent(QKeyEvent* event)
{
    const int last = static_cast<int>(m_indices.size()) - 1;
    const int column = std::max(m_at, 0) % m_columns;
    int to = m_at;
    switch (event->key()) {
    case Qt::Key_Left:
        to = m_at < 0 ? 0 : column > 0 ? m_at - 1 : m_at;
        break;
    case Qt::Key_Right:
        to = m_at < 0 ? 0 : column < m_columns - 1 ? std::min(m_at + 1, last) : m_at;
        break;
    case Qt::Key_Up:
        to = m_at < 0 ? 0 : m_at >= m_columns ? m_at - m_columns : m_at;
        break;
    case Qt::Key_Down:
        to = m_at < 0 ? 0 : m_at + m_columns <= last ? m_at + m_columns : m_at;
        break;
    case Qt::Key_Space:
        to = std::max(m_at, 0);
        break;
    case Qt::Key_Home:
        to = 0;
        break;
    case Qt::Key_End:
        to = last;
        break;
    default:
        return QWidget::keyPressEvent(event);
    }
    choose(to);
}

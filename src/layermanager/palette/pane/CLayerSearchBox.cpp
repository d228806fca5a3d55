#include "layermanager/palette/pane/CLayerSearchBox.h"

#include <QFocusEvent>
#include <QMouseEvent>

#include <utility>

namespace {
constexpr QLatin1String kEverything("*");
}

CLayerSearchBox::CLayerSearchBox(QWidget* parent)
    : QLineEdit(parent)
{
    setObjectName(QStringLiteral("layerSearch"));
    setAccessibleName(tr("Search for layers"));
    setClearButtonEnabled(true);
    setPlaceholderText(tr("Search for layers"));
}

void CLayerSearchBox::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    m_filledByClick = false;
    if (text().isEmpty()) {
        setText(kEverything);
        setCursorPosition(0);
        m_filledByClick = event->reason() == Qt::MouseFocusReason;
    }
    emit focusGained();
}

void CLayerSearchBox::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (text() == kEverything && event->reason() != Qt::PopupFocusReason)
        clear();
}

void CLayerSearchBox::mousePressEvent(QMouseEvent* event)
{
    // The click was meant for an empty box: it leaves the cursor in front.
    if (std::exchange(m_filledByClick, false) && event->button() == Qt::LeftButton)
        event->accept();
    else
        QLineEdit::mousePressEvent(event);
}

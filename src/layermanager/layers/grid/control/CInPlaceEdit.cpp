#include "layermanager/layers/grid/control/CInPlaceEdit.h"

#include "base/NameCharacters.h"
#include "toolkit/ControlRegistry.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>

#include <algorithm>

namespace {

/// Room beside the text that an editor keeps before it grows, in pixels.
constexpr int kTextMargin = 5;

bool endsEdit(int key)
{
    return key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

CKestListCtrl::CInPlaceEdit::CInPlaceEdit(CKestListCtrl& grid, Cell cell, const QString& text,
                                          Qt::Alignment alignment)
    : QLineEdit(text, grid.viewport())
    , m_grid(grid)
    , m_cell(cell)
    , m_textBefore(text)
{
    setFont(grid.font());
    setFrame(false);
    setAutoFillBackground(true);
    setAlignment(alignment);
    setObjectName(QStringLiteral("inPlaceEdit"));
    setAccessibleName(
        grid.model()->headerData(cell.column, Qt::Horizontal, Qt::DisplayRole).toString());
    registerControl(&grid, kControlId, this);
    connect(this, &QLineEdit::textChanged, this, [this] { grow(); });
}

QString CKestListCtrl::CInPlaceEdit::reportedText() const
{
    if (m_escapePressed)
        return m_textBefore;
    return text().isEmpty() ? QString() : text();
}

void CKestListCtrl::CInPlaceEdit::place(QRect cellRect)
{
    setGeometry(cellRect);
    grow();
}

bool CKestListCtrl::CInPlaceEdit::isClean(const QString& text)
{
    return !name_characters::containsAnyOf(text, name_characters::kNotInLayers);
}

bool CKestListCtrl::CInPlaceEdit::event(QEvent* event)
{
    // Shortcuts of the window on these keys must not end the edit in another way.
    if (event->type() == QEvent::ShortcutOverride
        && endsEdit(static_cast<QKeyEvent*>(event)->key())) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void CKestListCtrl::CInPlaceEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        m_escapePressed = true;
    if (endsEdit(event->key())) {
        event->accept();
        const QPointer<QLineEdit> self(this); // a message may be shown meanwhile
        m_grid.setFocus(Qt::OtherFocusReason);
        if (self && m_grid.editor() == this)
            setFocus(Qt::OtherFocusReason); // its text was refused and is to be corrected
        return;
    }
    QLineEdit::keyPressEvent(event);
    // Nothing typed here is meant for the rows underneath.
    event->accept();
}

void CKestListCtrl::CInPlaceEdit::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    // The editor's own context menu does not end the edit.
    if (event->reason() != Qt::PopupFocusReason)
        m_grid.editorLostFocus(*this, event->reason());
}

void CKestListCtrl::CInPlaceEdit::grow()
{
    const int wanted = fontMetrics().horizontalAdvance(text()) + kTextMargin;
    const int room = m_grid.viewport()->width() - x();
    if (wanted > width() && room > width())
        resize(std::min(wanted, room), height());
}

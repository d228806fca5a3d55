#include "layermanager/layers/grid/control/CKestListCtrl.h"

#include "layermanager/layers/grid/control/CInPlaceEdit.h"
#include "layermanager/layers/grid/control/CKestHeaderCtrl.h"

#include <QEvent>
#include <QHeaderView>
#include <QPointer>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace {

/// Narrower columns are not edited; hidden ones have width 0.
constexpr int kMinimumEditWidth = 5;

/// Margins kept when a row is scrolled into view, in pixels.
constexpr int kMarginBelow = 6;
constexpr int kTopLimit = 5;

} // namespace

CKestListCtrl::CKestListCtrl(QWidget* parent)
    : QTableView(parent)
{
    setUpLook();
    updateRowHeight();
}

CKestListCtrl::~CKestListCtrl()
{
    delete std::exchange(m_editor, nullptr);
}

void CKestListCtrl::setUpLook()
{
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setAlternatingRowColors(true);
    setTabKeyNavigation(false); // Tab leaves the grid at its last column, see focusNextPrevChild()
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setAutoScroll(false); // the grid scrolls by its own margins
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    QHeaderView* rows = verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    setHorizontalHeader(new CKestHeaderCtrl(this));
    // The view hides the arrow of headers that do not sort by themselves.
    horizontalHeader()->setSortIndicatorShown(true);
}

void CKestListCtrl::updateRowHeight()
{
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameVMargin, nullptr, this) + 1;
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    const int height = std::max(fontMetrics().height(), icon) + 2 * margin;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
    horizontalHeader()->setMinimumSectionSize(icon + 2 * margin);
}

void CKestListCtrl::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateRowHeight();
}

CKestListCtrl::Cell CKestListCtrl::hitTest(QPoint point) const
{
    if (!viewport()->rect().contains(point))
        return {};
    return {rowAt(point.y()), columnAt(point.x())};
}

int CKestListCtrl::rowsPerPage() const
{
    return std::max(1, viewport()->height() / verticalHeader()->defaultSectionSize());
}

void CKestListCtrl::scrollRowIntoView(int row, int above)
{
    if (!model() || row < 0 || row >= model()->rowCount())
        return;
    if (!isVisible())
        m_rowToShow = row;
    executeDelayedItemsLayout();
    QScrollBar* bar = verticalScrollBar();
    const int below = rowViewportPosition(row) + rowHeight(row) - viewport()->height();
    if (below > 0)
        bar->setValue(bar->value() + below + kMarginBelow);
    const int top = rowViewportPosition(row);
    if (top < kTopLimit)
        bar->setValue(bar->value() + top - above);
}

void CKestListCtrl::keepRowAt(int row, int place, int otherwise)
{
    executeDelayedItemsLayout();
    QScrollBar* bar = verticalScrollBar();
    bar->setValue(row < 0 ? otherwise : bar->value() + rowViewportPosition(row) - place);
}

void CKestListCtrl::showEvent(QShowEvent* event)
{
    QTableView::showEvent(event);
    scrollRowIntoView(std::exchange(m_rowToShow, -1));
}

// In-place editing

CKestListCtrl::CInPlaceEdit* CKestListCtrl::openInPlaceEditor(int row, int column)
{
    const QModelIndex index = model() ? model()->index(row, column) : QModelIndex();
    if (!index.isValid() || columnWidth(column) < kMinimumEditWidth)
        return nullptr;
    closeInPlaceEditor();
    if (m_editor)
        return nullptr;
    executeDelayedItemsLayout();
    updateGeometries(); // columns that were just resized change the range to scroll in
    scrollTo(index, EnsureVisible);
    const QRect rect = visualRect(index);
    if (rect.intersected(viewport()->rect()).isEmpty())
        return nullptr;
    const QVariant alignment = model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
    m_editor = new CInPlaceEdit(*this, {row, column}, index.data().toString(),
                                alignment.isValid() ? alignment.value<Qt::Alignment>()
                                                    : Qt::Alignment(Qt::AlignLeft));
    m_editor->place(rect);
    m_editor->show();
    m_editor->setFocus(Qt::OtherFocusReason);
    return m_editor;
}

bool CKestListCtrl::mayDestroy(const CInPlaceEdit& editor) const
{
    // After Escape nothing changes, so nothing can be wrong with the text.
    return editor.escapePressed() || !checksCharacters(editor.cell().column)
        || CInPlaceEdit::isClean(editor.text());
}

bool CKestListCtrl::reportEdit(const CInPlaceEdit& editor)
{
    const QPointer<CKestListCtrl> self(this);
    m_reporting = true;
    emit endLabelEdit(editor.cell().row, editor.cell().column, editor.reportedText());
    if (self)
        m_reporting = false;
    return self;
}

void CKestListCtrl::closeInPlaceEditor()
{
    if (!m_editor || m_reporting || !mayDestroy(*m_editor))
        return;
    if (reportEdit(*m_editor))
        discardInPlaceEditor();
}

void CKestListCtrl::editorLostFocus(CInPlaceEdit& editor, Qt::FocusReason reason)
{
    if (m_editor != &editor || m_reporting)
        return;
    const bool before = std::exchange(m_endsByMouse, reason == Qt::MouseFocusReason);
    if (!reportEdit(editor))
        return;
    m_endsByMouse = before;
    if (m_editor == &editor && mayDestroy(editor))
        discardInPlaceEditor();
}

void CKestListCtrl::discardInPlaceEditor()
{
    if (!m_editor)
        return;
    CInPlaceEdit* editor = m_editor;
    m_editor = nullptr; // first: hiding it takes the focus away, which would report once more
    const bool hadFocus = editor->hasFocus();
    editor->hide();
    editor->deleteLater();
    if (hadFocus)
        setFocus(Qt::OtherFocusReason);
}

void CKestListCtrl::updateGeometries()
{
    QTableView::updateGeometries();
    // Columns and the grid may have another size; the editor goes with its cell.
    if (m_editor)
        m_editor->place(visualRect(model()->index(m_editor->cell().row, m_editor->cell().column)));
}

void CKestListCtrl::reset()
{
    discardInPlaceEditor();
    m_anchor = QModelIndex();
    m_lastClicked = {};
    QTableView::reset();
}

void CKestListCtrl::rowsInserted(const QModelIndex& parent, int first, int last)
{
    if (m_editor && m_editor->cell().row >= first)
        discardInPlaceEditor();
    QTableView::rowsInserted(parent, first, last);
}

void CKestListCtrl::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last)
{
    if (m_editor && m_editor->cell().row >= first)
        discardInPlaceEditor();
    QTableView::rowsAboutToBeRemoved(parent, first, last);
}

bool CKestListCtrl::cellAction(int, int)
{
    return false;
}

bool CKestListCtrl::cellDoubleClicked(int, int)
{
    return false;
}

bool CKestListCtrl::preCheck()
{
    return false;
}

bool CKestListCtrl::checksCharacters(int) const
{
    return true;
}

bool CKestListCtrl::isDragColumn(int) const
{
    return false;
}

void CKestListCtrl::beginDrag()
{ }

#include "layermanager/filter_editor/CLayPropFilterEdListCtrl.h"

#include "layermanager/filter_editor/CLayPropFilterEdBtn.h"
#include "layermanager/filter_editor/CLayPropFilterEdCombo.h"
#include "layermanager/filter_editor/FilterCellDelegate.h"
#include "layermanager/filter_editor/FilterEditorTexts.h"
#include "layermanager/filter_editor/core/FilterEditorRules.h"
#include "layermanager/filters/FilterExpression.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"
#include "toolkit/CommandMenu.h"
#include "toolkit/ControlRegistry.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QPointer>
#include <QScopedValueRollback>

namespace {

constexpr int kDescription = 12; ///< takes the room that the other columns leave

const FilterColumnInfo& infoOf(int column)
{
    return filterColumns().at(static_cast<std::size_t>(column));
}

} // namespace

CLayPropFilterEdListCtrl::CLayPropFilterEdListCtrl(QWidget* parent)
    : CKestListCtrl(parent)
    , m_combo(new CLayPropFilterEdCombo(viewport()))
    , m_button(new CLayPropFilterEdBtn(viewport()))
{
    setObjectName(QStringLiteral("filterDefinition"));
    setModel(&m_rows);
    setItemDelegate(new FilterCellDelegate(m_rows, this));
    setShowGrid(true);
    setAlternatingRowColors(false);
    horizontalHeader()->setSortIndicatorShown(false);
    horizontalHeader()->setSectionsClickable(false);
    registerControl(this, CLayPropFilterEdCombo::kControlId, m_combo);
    registerControl(this, CLayPropFilterEdBtn::kControlId, m_button);
    m_combo->hide();
    m_button->hide();
    connect(m_combo, &QComboBox::activated, this, [this](int value) {
        const QPersistentModelIndex cell = m_listCell;
        closeValueList();
        if (cell.isValid())
            SetCellValue(cell.row(), cell.column(), value, QString(), OdDbObjectId());
    });
    connect(m_combo, &CLayPropFilterEdCombo::closed, this,
            &CLayPropFilterEdListCtrl::closeValueList);
    connect(this, &CKestListCtrl::endLabelEdit, this, &CLayPropFilterEdListCtrl::endTextEdit);
}

CLayPropFilterEdListCtrl::~CLayPropFilterEdListCtrl()
{
    // The view outlives its members by a little.
    setModel(nullptr);
}

void CLayPropFilterEdListCtrl::Initialise(const OdDbDatabase& database, LayerFilterRows rows)
{
    m_database = &database;
    m_rows.start(std::move(rows));
    setSelectionBehavior(SelectRows);
    setUpColumns();
    focusCell(0, 1);
}

void CLayPropFilterEdListCtrl::unbind()
{
    discardInPlaceEditor();
    closeValueList();
    m_database = nullptr;
    m_readOnly = true;
    m_rows.start({});
}

// Columns

void CLayPropFilterEdListCtrl::setUpColumns()
{
    const bool inLayout = readHostInt(QStringLiteral("TILEMODE")).value_or(1) != 1;
    for (int column = 0; column < kFilterColumnCount; ++column) {
        setColumnHidden(column, infoOf(column).layoutsOnly && !inLayout);
        setColumnWidth(column, infoOf(column).width);
    }
    stretchDescription();
}

void CLayPropFilterEdListCtrl::stretchDescription()
{
    const int others = horizontalHeader()->length() - columnWidth(kDescription);
    setColumnWidth(kDescription,
                   std::max(infoOf(kDescription).width, viewport()->width() - others));
}

void CLayPropFilterEdListCtrl::resizeEvent(QResizeEvent* event)
{
    CKestListCtrl::resizeEvent(event);
    stretchDescription();
}

bool CLayPropFilterEdListCtrl::hidesCriteria() const
{
    for (int column = 0; column < kFilterColumnCount; ++column) {
        for (int row = 0; isColumnHidden(column) && row < m_rows.rowCount(); ++row) {
            if (m_rows.isSet(m_rows.index(row, column)))
                return true;
        }
    }
    return false;
}

// Editing

bool CLayPropFilterEdListCtrl::checksCharacters(int) const
{
    return false; // what the cells refuse is dropped when the edit ends
}

bool CLayPropFilterEdListCtrl::preCheck()
{
    // The press ended an edit that took a line away: the one under the mouse is not the one meant.
    return m_linesMoved;
}

bool CLayPropFilterEdListCtrl::cellAction(int row, int column)
{
    closeInPlaceEditor();
    if (!m_rows.hasIndex(row, column))
        return true;
    setFocus(Qt::OtherFocusReason);
    m_nCurRow = row;
    m_nCurCol = column;
    if (!clickModifiers())
        openEditor(row, column);
    return false;
}

void CLayPropFilterEdListCtrl::openEditor(int row, int column)
{
    if (m_readOnly)
        return;
    const QModelIndex cell = m_rows.index(row, column);
    switch (infoOf(column).editor) {
    case FilterCellEditor::None:
        break;
    case FilterCellEditor::Text:
        openInPlaceEditor(row, column);
        break;
    case FilterCellEditor::ValueList:
        scrollTo(cell);
        openValueList(cell);
        break;
    default:
        scrollTo(cell);
        // Later: the grid, which is in the midst of a click, may be gone after the dialog.
        QMetaObject::invokeMethod(
            this, [this, place = QPersistentModelIndex(cell)] { pickValue(place); },
            Qt::QueuedConnection);
    }
}

void CLayPropFilterEdListCtrl::openValueList(const QModelIndex& cell)
{
    m_listCell = cell;
    m_combo->setFont(font());
    m_combo->fill(cell.column(), m_rows.number(cell));
    m_combo->setAccessibleName(cell.data(Qt::AccessibleTextRole).toString());
    m_combo->setGeometry(visualRect(cell));
    m_combo->show();
    m_combo->setFocus(Qt::OtherFocusReason);
    m_combo->open(m_byMouse);
}

void CLayPropFilterEdListCtrl::closeValueList()
{
    if (m_combo->isHidden())
        return;
    m_listCell = QModelIndex();
    if (m_combo->hasFocus())
        setFocus(
            Qt::OtherFocusReason); // hidden with the focus it would pass it on to the next cell
    m_combo->hide();
}

void CLayPropFilterEdListCtrl::pickValue(const QPersistentModelIndex& cell)
{
    if (!cell.isValid() || !m_database || m_isPicking)
        return;
    const QScopedValueRollback<bool> picking(m_isPicking, true);
    const QRect place = visualRect(cell);
    const int side = std::min(place.width(), place.height());
    m_button->setGeometry(place.right() - side + 1, place.top(), side, place.height());
    m_button->show();
    // Drawing and lines may go while the user picks, and the grid with them.
    const QPointer<CLayPropFilterEdListCtrl> self(this);
    const auto picked =
        m_button->pick(infoOf(cell.column()).editor, *m_database, m_rows.number(cell));
    if (!self)
        return;
    m_button->hide();
    if (picked && cell.isValid())
        SetCellValue(cell.row(), cell.column(), picked->number, QString(), picked->id);
}

void CLayPropFilterEdListCtrl::endTextEdit(int row, int column, const QString& text)
{
    if (!editor() || editor()->escapePressed() || !isFilterCellText(text))
        return;
    const int lines = m_rows.rowCount();
    const bool byMouse = endsByMouse();
    SetCellValue(row, column, 0, text, OdDbObjectId());
    if (byMouse && m_rows.rowCount() < lines) {
        m_linesMoved = true;
        // The press comes with the same event of the mouse as the loss of the focus.
        QMetaObject::invokeMethod(
            this, [this] { m_linesMoved = false; }, Qt::QueuedConnection);
    }
}

void CLayPropFilterEdListCtrl::SetCellValue(int row, int column, qint32 number, const QString& text,
                                            OdDbObjectId id)
{
    if (m_readOnly || !m_rows.setCell(m_rows.index(row, column), number, text, id))
        return;
    emit rowsEdited();
    rebuild();
}

void CLayPropFilterEdListCtrl::rebuild()
{
    QStringList rowTexts;
    QString expression;
    BuildFilterExpression(m_rows.rows(), rowTexts, expression);
    emit expressionChanged(expression);
}

// Lines

void CLayPropFilterEdListCtrl::chooseRealLines()
{
    if (m_rows.rowCount() >= 2)
        chooseRange(0, m_rows.rowCount() - 2);
}

void CLayPropFilterEdListCtrl::command(int id)
{
    if (m_readOnly)
        return;
    closeInPlaceEditor();
    if (id == kDuplicateRow && m_nCurRow >= 0 && m_nCurRow < m_rows.rowCount() - 1) {
        m_rows.duplicate(m_nCurRow);
        emit rowsEdited();
    } else if (id == kDeleteRow && m_rows.remove(m_nCurRow, chosenRowCount())) {
        emit rowsEdited();
        rebuild();
    }
}

std::unique_ptr<QMenu> CLayPropFilterEdListCtrl::contextMenu()
{
    if (m_readOnly || m_nCurRow < 0 || m_nCurRow >= m_rows.rowCount()
        || m_rows.isEntryLine(m_nCurRow))
        return nullptr;
    const CommandMenuRow rows[] = {
        {kDuplicateRow, filterEditorText(84531), QString(), nullptr, false, true},
        {kDeleteRow, filterEditorText(84532), QString(), nullptr, false, true},
    };
    auto menu = makeCommandMenu(rows, [table = QPointer(this)](int id) {
        if (table) // it may go while its menu is open
            table->command(id);
    });
    menu->setObjectName(QStringLiteral("filterDefinitionMenu"));
    menu->setAccessibleName(tr("Filter line commands"));
    return menu;
}

void CLayPropFilterEdListCtrl::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    closeInPlaceEditor();
    QPoint place = event->globalPos();
    Cell cell{currentIndex().row(), currentIndex().column()};
    if (event->reason() == QContextMenuEvent::Keyboard)
        place = viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft());
    else
        cell = hitTest(viewport()->mapFromGlobal(place));
    if (!cell.isValid() || m_rows.isEntryLine(cell.row))
        return;
    m_nCurRow = cell.row;
    m_nCurCol = cell.column;
    focusCell(cell.row, cell.column);
    if (!isRowChosen(cell.row))
        chooseForMenu(cell.row);
    const std::unique_ptr<QMenu> menu = contextMenu();
    if (menu)
        menu->exec(place);
}

#pragma once

#include "layermanager/filter_editor/core/FilterRowsModel.h"
#include "layermanager/layers/grid/control/CKestListCtrl.h"

#include <QMenu>

#include <memory>

class CLayPropFilterEdBtn;
class CLayPropFilterEdCombo;
class OdDbDatabase;

/// The table of a property filter's criteria: one line per row, and always a blank entry line
/// behind them.
class CLayPropFilterEdListCtrl : public CKestListCtrl
{
    Q_OBJECT
public:
    static constexpr int kDuplicateRow = 2000;
    static constexpr int kDeleteRow = 2001;

    explicit CLayPropFilterEdListCtrl(QWidget* parent = nullptr);
    ~CLayPropFilterEdListCtrl() override;

    /// Shows these rows and the blank line. The columns of viewports show while TILEMODE is not 1.
    void Initialise(const OdDbDatabase& database, LayerFilterRows rows);
    /// Forgets the drawing, which is ending, and all rows.
    void unbind();
    /// Nothing is edited any more, by whatever way.
    void setReadOnly(bool readOnly) { m_readOnly = readOnly; }
    bool isReadOnly() const { return m_readOnly; }

    const FilterRowsModel& rowsModel() const { return m_rows; }
    /// Whether a line sets a criterion in a column that is hidden.
    bool hidesCriteria() const;
    int currentRow() const { return m_nCurRow; }
    int currentColumn() const { return m_nCurCol; }

    /// Writes one field of a line, keeps the lines as they must be and tells the new expression.
    void SetCellValue(int row, int column, qint32 number, const QString& text, OdDbObjectId id);
    /// Duplicates the line that was clicked last, or deletes lines.
    void command(int id);
    /// Selects all lines but the entry line; nothing where there is no other.
    void chooseRealLines();
    /// The menu on the line that was clicked last; null on the entry line.
    std::unique_ptr<QMenu> contextMenu();

signals:
    /// The rows are others than before.
    void rowsEdited();
    /// The expression of all rows, rebuilt.
    void expressionChanged(const QString& expression);

protected:
    bool cellAction(int row, int column) override;
    bool preCheck() override;
    bool checksCharacters(int column) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void setUpColumns();
    void stretchDescription();
    void openEditor(int row, int column);
    void openValueList(const QModelIndex& cell);
    void closeValueList();
    void pickValue(const QPersistentModelIndex& cell);
    void endTextEdit(int row, int column, const QString& text);
    bool typeInto(const QKeyEvent& event);
    void rebuild();

    FilterRowsModel m_rows;
    const OdDbDatabase* m_database = nullptr;
    CLayPropFilterEdCombo* m_combo;
    CLayPropFilterEdBtn* m_button;
    QPersistentModelIndex m_listCell; ///< that the value list is open for
    int m_nCurRow = -1;
    int m_nCurCol = -1;
    bool m_readOnly = false;
    bool m_byMouse = false; ///< while a press is handled
    bool m_linesMoved = false; ///< by the edit that the press under way ended
    bool m_isPicking = false;
};

#pragma once

#include <QPersistentModelIndex>
#include <QTableView>

#include <optional>
#include <vector>

/// The generic grid: rows of cells that are clicked, walked through with the keyboard and edited
/// in place. What a click on a cell does is up to the derived grid.
class CKestListCtrl : public QTableView
{
    Q_OBJECT
public:
    /// Margin kept when a row is scrolled into view from above, in pixels.
    static constexpr int kMarginAbove = 20;

    class CInPlaceEdit;

    struct Cell
    {
        int row = -1;
        int column = -1;
        bool isValid() const { return row >= 0 && column >= 0; }
        bool operator==(const Cell&) const = default;
    };

    explicit CKestListCtrl(QWidget* parent = nullptr);
    ~CKestListCtrl() override;

    /// The cell under a point of the viewport; -1 for each part where there is none.
    Cell hitTest(QPoint point) const;

    /// Opens the in-place editor over a cell and gives it the focus. Null when the row cannot be
    /// made visible, the column does not exist or is narrower than 5 pixels, or when an open editor
    /// refuses to close.
    CInPlaceEdit* openInPlaceEditor(int row, int column);
    /// Ends an open edit: reports its text and destroys the editor, if the text holds no forbidden
    /// character. Otherwise the editor stays.
    void closeInPlaceEditor();
    /// Destroys an open editor without a report.
    void discardInPlaceEditor();
    /// The open editor, or null.
    CInPlaceEdit* editor() const { return m_editor; }

    bool isRowChosen(int row) const;
    /// Selected rows, ascending.
    std::vector<int> chosenRows() const;
    int chosenRowCount() const;
    void chooseOnly(int row);
    void chooseRange(int from, int to);
    void chooseRows(const std::vector<int>& rows);
    /// Selects and focuses a row that something else than a click leads to, such as a menu.
    void chooseForMenu(int row);
    /// Moves the focus to a cell; the selection stays.
    void focusCell(int row, int column);
    /// Scrolls so far that the row is in view, with a margin; `above` is that at the top.
    void scrollRowIntoView(int row, int above = kMarginAbove);
    /// Scrolls so that a row stands at that place of the viewport; without it to `otherwise`.
    void keepRowAt(int row, int place, int otherwise);
    /// Goes so many rows down, and selects that row alone. Nothing beyond the ends.
    void stepRow(int step);
    /// Goes to the next column, or to the one before with -1, that is shown. False at the ends.
    bool stepColumn(int step);

    /// Row where a range selection starts.
    int anchorRow() const { return m_anchor.row(); }
    Cell lastClicked() const { return m_lastClicked; }

signals:
    /// An in-place edit ended. `text` is null when the editor was empty, and the text from before
    /// the edit when Escape was pressed.
    void endLabelEdit(int row, int subItem, const QString& text);

protected:
    /// Reaction to a click on a cell, or to Space on it. True when the click was taken: then
    /// a click without modifiers leaves the selection as the action made it.
    virtual bool cellAction(int row, int column);
    /// Reaction to the second press of a double click on a cell. False makes it one more click.
    virtual bool cellDoubleClicked(int row, int column);
    /// True swallows a click or command before the derived grid sees it; asked once for each.
    virtual bool preCheck();
    /// Whether the text of a column's editor is held against the set of forbidden characters.
    virtual bool checksCharacters(int column) const;
    /// Whether a press on a cell of that column may begin to drag the selected rows.
    virtual bool isDragColumn(int column) const;
    /// The user drags the selected rows, of which one was pressed.
    virtual void beginDrag();
    /// Ctrl and Shift as held during the click that is being handled.
    Qt::KeyboardModifiers clickModifiers() const { return m_clickModifiers; }
    /// While an edit is reported: whether a press of the mouse elsewhere ends it.
    bool endsByMouse() const { return m_endsByMouse; }
    int rowsPerPage() const;

    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void updateGeometries() override;
    void reset() override;
    void rowsInserted(const QModelIndex& parent, int first, int last) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;

private:
    void setUpLook();
    void updateRowHeight();
    void clickCell(Cell cell, Qt::KeyboardModifiers modifiers, bool isDouble = false);
    void selectClicked(Cell cell, bool taken);
    void setAnchorRow(int row) { m_anchor = model()->index(row, 0); }
    bool pressKey(int key, Qt::KeyboardModifiers modifiers);
    bool moveRow(int key, Qt::KeyboardModifiers modifiers);
    void editorLostFocus(CInPlaceEdit& editor, Qt::FocusReason reason);
    /// Whether the list is still there: a message may be shown.
    bool reportEdit(const CInPlaceEdit& editor);
    bool mayDestroy(const CInPlaceEdit& editor) const;

    /// A press that may begin a drag. On a selected row the click waits for the release, so that
    /// the other rows stay selected while they are dragged.
    struct Press
    {
        Cell cell;
        QPoint place;
        bool waits = false;
    };

    CInPlaceEdit* m_editor = nullptr;
    std::optional<Press> m_press;
    bool m_reporting = false;
    bool m_endsByMouse = false;
    QPersistentModelIndex m_anchor; ///< goes with its row
    Cell m_lastClicked;
    Qt::KeyboardModifiers m_clickModifiers;
    int m_rowToShow = -1; ///< scrolled to before the grid had its place on the screen
};

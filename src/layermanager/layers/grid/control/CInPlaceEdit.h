#pragma once

#include "layermanager/layers/grid/control/CKestListCtrl.h"

#include <QLineEdit>

/// One-line editor over a cell of the grid. It grows with its text and ends when it loses the
/// focus.
class CKestListCtrl::CInPlaceEdit : public QLineEdit
{
public:
    /// Id under which the grid registers its editor.
    static constexpr int kControlId = 2422;

    CInPlaceEdit(CKestListCtrl& grid, Cell cell, const QString& text, Qt::Alignment alignment);

    Cell cell() const { return m_cell; }
    const QString& textBefore() const { return m_textBefore; }
    bool escapePressed() const { return m_escapePressed; }
    /// What the end of the edit reports: see CKestListCtrl::endLabelEdit().
    QString reportedText() const;

    /// Places the editor over its cell, as wide as its text needs.
    void place(QRect cellRect);

    /// True when the text has none of the characters that layer names refuse.
    static bool isClean(const QString& text);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void grow();

    CKestListCtrl& m_grid;
    Cell m_cell;
    QString m_textBefore;
    bool m_escapePressed = false;
};

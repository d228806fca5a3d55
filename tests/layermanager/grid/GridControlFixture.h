#pragma once

#include "layermanager/layers/grid/control/CInPlaceEdit.h"
#include "layermanager/layers/grid/control/CKestListCtrl.h"
#include "support/GuardedTest.h"

#include <QStandardItemModel>
#include <QTest>

#include <memory>

/// A grid that notes which cells were clicked.
class CRecordingGrid : public CKestListCtrl
{
public:
    QList<QPair<int, int>> clicked;
    QList<QPair<int, int>> doubleClicked;
    bool swallow = false;
    bool take = false;
    bool takeDouble = false;
    int preChecks = 0;
    int uncheckedColumn = -1;

protected:
    bool cellAction(int row, int column) override
    {
        clicked.append({row, column});
        return take;
    }
    bool cellDoubleClicked(int row, int column) override
    {
        doubleClicked.append({row, column});
        return takeDouble;
    }
    bool preCheck() override
    {
        ++preChecks;
        return swallow;
    }
    bool checksCharacters(int column) const override { return column != uncheckedColumn; }
};

/// The generic grid over 30 rows and 4 columns of 60 pixels, with a line edit under it.
class GridControlFixture : public GuardedTest
{
    Q_OBJECT
protected:
    using Cell = CKestListCtrl::Cell;
    using InPlaceEdit = CKestListCtrl::CInPlaceEdit;

    void prepare() override;
    void finish() override;

    QPoint center(int row, int column) const;
    void click(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Opens the editor with all its text selected, so that typing replaces it.
    InPlaceEdit* edit(int row, int column);
    QList<int> chosen() const;
    Cell current() const;

    std::unique_ptr<QWidget> m_window;
    CRecordingGrid* m_grid = nullptr;
    QLineEdit* m_neighbour = nullptr;
    std::unique_ptr<QStandardItemModel> m_model;
};

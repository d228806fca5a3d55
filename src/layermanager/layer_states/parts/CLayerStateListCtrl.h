#pragma once

#include "layermanager/layer_states/core/LayerStateListModel.h"

#include <QTreeView>

/// The list of states in the layer-state manager.
class CLayerStateListCtrl : public QTreeView
{
    Q_OBJECT
public:
    explicit CLayerStateListCtrl(QWidget* parent = nullptr);

    LayerStateListModel& states() { return m_states; }
    const LayerStateListModel& states() const { return m_states; }

    /// Selected rows, ascending.
    std::vector<int> chosenRows() const;
    /// Selects a row alone and makes it the current one.
    void chooseOnly(int row);
    /// Widens columns that are too narrow for what they hold, within bounds.
    void fitColumns();

    using QTreeView::edit;
    QSize sizeHint() const override;

signals:
    /// The user clicked into the list, or chose other rows with the keyboard.
    void picked();

protected:
    /// The name is edited, whichever cell is the current one.
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override
    {
        return QTreeView::edit(index.siblingAtColumn(LayerStateListModel::Name), trigger, event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    LayerStateListModel m_states{LayerStateListModel::Kind::Renameable};
};

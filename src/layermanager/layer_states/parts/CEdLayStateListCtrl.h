#pragma once

#include "layermanager/layer_states/core/StateLayerListModel.h"
#include "layermanager/layers/ListCtrlColumnData.h"
#include "layermanager/layers/grid/control/CKestListCtrl.h"
#include "sdk/CLayerStateUtility.h"

class OdDbDatabase;

/// The layers recorded in one layer state; a click on a cell changes what is recorded.
class CEdLayStateListCtrl : public CKestListCtrl
{
    Q_OBJECT
public:
    explicit CEdLayStateListCtrl(QWidget* parent = nullptr);

    /// Lists the layers of a state of a drawing. Raises OdError_NotThatKindOfClass where the
    /// record of a layer is none.
    void initialise(OdDbDatabase& database, const QString& state);
    /// Forgets the drawing: from then on nothing changes.
    void leave() { m_database = nullptr; }

    const std::vector<LayerInfoInLS>& layers() const { return m_model.layers(); }
    const StateLayerListModel& layerModel() const { return m_model; }
    const std::vector<ListCtrlColumnData>& columnRecords() const { return m_columns; }

    /// Names of the drawing's layers that the state does not have.
    QStringList missingLayers();
    /// Records these layers as they are.
    void addLayers(const QStringList& names);
    void removeChosen();
    /// Writes the layers back into the state.
    bool store();
    /// Whether the drawing is as the state records it.
    bool isSameAsDrawing() { return m_util.CheckForDifference(layers()); }

    QSize sizeHint() const override;

protected:
    bool cellAction(int row, int column) override;

private:
    void insertColumns();
    void fitColumns();
    void toggleFreeze(int row);
    void pickValue(int row, StateLayerColumn column);

    StateLayerListModel m_model;
    std::vector<ListCtrlColumnData> m_columns;
    CLayerStateUtility m_util;
    OdDbDatabase* m_database = nullptr;
    QString m_state;
};

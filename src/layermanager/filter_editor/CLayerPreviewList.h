#pragma once

#include "layermanager/layers/grid/CLayerListCtrl.h"

/// The grid of layers as a picture of what a filter shows: it can be walked through and sorted, and
/// changes nothing, neither layers nor what the palette keeps for its user.
class CLayerPreviewList : public CLayerListCtrl
{
    Q_OBJECT
public:
    explicit CLayerPreviewList(QWidget* parent = nullptr);

    /// Lists exactly these layers of the current drawing. False while another one is current than
    /// `database`.
    bool showLayers(const LayerListModel::Ids& layers, const OdDbDatabase& database);

protected:
    bool cellAction(int row, int column) override;
    bool cellDoubleClicked(int row, int column) override;
    bool preCheck() override;
    bool isDragColumn(int column) const override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    bool m_wasFilled = false;
};

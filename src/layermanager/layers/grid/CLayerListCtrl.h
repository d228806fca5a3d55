#pragma once

#include "layermanager/layers/LayerListModel.h"
#include "layermanager/layers/ListCtrlColumnData.h"
#include "layermanager/layers/grid/CKestListCtrl.h"

#include <QTimer>

#include <memory>

class OdDbDatabase;
enum class LayerVerdict;

/// The grid of layers: one row per layer of the drawing it is bound to, one column per property.
class CLayerListCtrl : public CKestListCtrl
{
    Q_OBJECT
public:
    class CLayerListCtrlDatabaseReactor;

    /// Id of the timer that brings the grid up to date once a burst of changes is over.
    static constexpr int kRefreshTimer = 100;
    static constexpr int kRefreshDelay = 500; ///< milliseconds

    explicit CLayerListCtrl(QWidget* parent = nullptr);
    ~CLayerListCtrl() override;

    // Rows

    /// Lists all layers of the drawing and follows it from now on. False while the grid is switched
    /// off or without a drawing.
    bool fill(OdDbDatabase* database);
    /// Lists exactly these layers, null ids left out. False without a current drawing; raises
    /// OdError_NotThatKindOfClass at an id that is no layer, with the rows before it listed.
    bool fillFromList(const LayerListModel::Ids& layers);
    /// Lists nothing and follows no drawing.
    void unbind();
    /// The drawing that the grid follows, or null.
    OdDbDatabase* database() const { return m_database; }

    bool insertRow(OdDbObjectId layer, int row);
    bool refreshRow(int row, OdDbObjectId layer);
    void refreshAllRows();
    /// The row of a layer, or -1.
    int findRow(OdDbObjectId layer) const { return m_model.rowOf(layer); }
    /// Selects and focuses the current layer's row and scrolls it into view.
    void selectCurrentRow();

    int displayedCount() const { return m_displayedCount; }
    OdDbObjectId currentLayer() const { return m_model.context().currentLayer; }
    const LayerListModel& layerModel() const { return m_model; }

    // Columns

    /// Record of a column; raises std::invalid_argument for a number that is none.
    const ListCtrlColumnData& columnData(int column) const;
    /// Has the host keep the widths of the columns under a key; to be called before the first
    /// fill.
    void keepWidthsAs(const QString& key) { m_widthsKey = key; }
    void showGridColumn(int column);
    void hideGridColumn(int column);
    /// A click on a column's header: sorts by it, or turns the direction.
    void columnClicked(int subItem);
    LayerSortOrder sortOrder() const { return m_sortOrder; }

    // State

    /// While switched off the grid ignores fills, commands, clicks and notifications.
    void switchOff(bool off) { m_switchedOff = off; }
    bool isSwitchedOff() const { return m_switchedOff; }
    /// Set while a layer made by the palette is fresh: its row shows the not-in-use icon. The next
    /// full refresh clears it.
    void setNewLayerFlag(bool set) { m_newLayerFlag = set; }

    void sysVarChanged(const OdDbDatabase* database, const QString& name);

signals:
    /// The number of listed layers may have changed.
    void listChanged();
    /// Layers were changed from the grid.
    void layersChanged();
    /// Another layer is current, or the current one changed.
    void currentLayerChanged();
    /// What is listed may no longer be what should be; sent once a burst of changes is over.
    void listStale();
    /// The drawing that the grid followed is ending.
    void databaseGone();

protected:
    bool cellAction(int row, int column) override;
    bool preCheck() override;
    bool checksCharacters(int column) const override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void attach(OdDbDatabase* database);
    void buildColumns();
    void applyColumns();
    void loadWidths();
    void storeWidths() const;
    void setSpace();
    void stretchDescription();
    void setShown(ListCtrlColumnData& column, bool shown);
    void sectionResized(int section, int width);
    void list(LayerListModel::Ids layers);
    ListCtrlColumnData& record(int column);
    void currentLayerMoved();

    // What the database tells
    void layerAppended(OdDbObjectId layer);
    void layerModified(OdDbObjectId layer);
    void layerErased(OdDbObjectId layer);
    void requestRefresh();
    void refreshTimeout();

    // Edits
    void toggleFlag(int row, LayerColumn column);
    bool isAllowed(LayerVerdict verdict);

    LayerListModel m_model;
    std::unique_ptr<CLayerListCtrlDatabaseReactor> m_reactor;
    OdDbDatabase* m_database = nullptr;
    std::vector<ListCtrlColumnData> m_columns;
    LayerSortOrder m_sortOrder;
    QString m_widthsKey;
    int m_displayedCount = 0;
    bool m_inLayout = false;
    bool m_switchedOff = false;
    bool m_newLayerFlag = false;
    bool m_settingWidths = false;
    bool m_refreshPending = false;
    QTimer m_refreshTimer{this};
};

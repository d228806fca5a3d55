#pragma once

#include "layermanager/layers/LayerListModel.h"
#include "layermanager/layers/ListCtrlColumnData.h"
#include "layermanager/layers/grid/LayerBurst.h"
#include "layermanager/layers/grid/control/CKestListCtrl.h"

#include <QMenu>
#include <QTimer>

#include <functional>
#include <memory>

class OdDbDatabase;
enum class LayerVerdict;
struct LayerOutcome;

/// The grid of layers: one row per layer of the drawing it is bound to, one column per property.
class CLayerListCtrl : public CKestListCtrl
{
    Q_OBJECT
public:
    class CLayerListCtrlDatabaseReactor;

    // Ids of the timers, which run out once for each time they are started
    static constexpr int kRefreshTimer = 100; ///< a burst of changes is over
    static constexpr int kErasureTimer = 200; ///< a burst of erasures is over
    static constexpr int kTypeAheadTimer = 300; ///< what is typed now is another word
    static constexpr int kTimerDelay = 500; ///< milliseconds

    explicit CLayerListCtrl(QWidget* parent = nullptr);
    ~CLayerListCtrl() override;

    // Rows

    /// Lists all layers of the drawing and follows it from now on. False while the grid is switched
    /// off or without a drawing.
    bool fill(OdDbDatabase* database);
    /// Lists exactly these layers, null ids left out. False without a current drawing; raises
    /// OdError_NotThatKindOfClass at an id that is no layer, with the rows before it listed.
    bool fillFromList(const LayerListModel::Ids& layers);
    /// Lists these layers of the drawing it follows, which are in the order of the grid already.
    /// Those of them that were selected stay so, and the focus stays where it can.
    void listOrdered(LayerListModel::Ids layers);
    /// Lists nothing and follows no drawing.
    void unbind();
    /// The drawing that the grid follows, or null.
    OdDbDatabase* database() const { return m_database; }

    bool insertRow(OdDbObjectId layer, int row);
    bool refreshRow(int row, OdDbObjectId layer);
    void refreshAllRows();
    /// The row of a layer, or -1.
    int findRow(OdDbObjectId layer)
    {
        settle();
        return m_model.rowOf(layer);
    }
    /// Selects and focuses the current layer's row and scrolls it into view.
    void selectCurrentRow();

    /// The layers of the selected rows, from top to bottom.
    LayerListModel::Ids chosenLayers();
    int displayedCount()
    {
        settle();
        return m_displayedCount;
    }
    OdDbObjectId currentLayer() const { return m_model.context().currentLayer; }
    const LayerListModel& layerModel()
    {
        settle();
        return m_model;
    }

    // Commands

    /// Runs a command of the context menu. Nothing for identifiers that are none of the grid's, and
    /// while the grid or another command does not allow any.
    void command(int id);
    /// Runs an operation on the selected layers, those of the toolbar included, whatever runs.
    void operate(int id);
    /// Edits the text of the focused cell in place; the name where the cell is no text.
    void editFocusedCell();
    /// The context menu on the selected rows; null without a drawing.
    std::unique_ptr<QMenu> contextMenu();
    /// What opens the dialogs of layer states, called with the identifier of the command. Without
    /// it those commands do nothing.
    using StateDialogs = std::function<void(int id)>;
    void setStateDialogs(StateDialogs dialogs) { m_stateDialogs = std::move(dialogs); }

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

    /// Has listStale() sent once a burst of changes, and an in-place edit, is over.
    void requestRefresh();
    /// What is listed follows another rule from now on: what comes or goes by that is no news.
    void forgetChanges() { m_burst.takeChanges(); }
    /// What tells whether a layer that comes or changes belongs into the list. Without it each
    /// does.
    void setListing(std::function<LayerListing()> listing) { m_listing = std::move(listing); }

    // State

    /// While switched off the grid ignores fills, commands, clicks and notifications.
    void switchOff(bool off) { m_switchedOff = off; }
    bool isSwitchedOff() const { return m_switchedOff; }
    /// Set while a layer made by the palette is fresh: its row shows the not-in-use icon. The next
    /// full refresh clears it.
    void setNewLayerFlag(bool set) { m_newLayerFlag = set; }
    /// The layer that the grid made last, until its name was edited or all rows were refreshed;
    /// else null.
    OdDbObjectId newLayer() const { return m_newLayer; }

    void sysVarChanged(const OdDbDatabase* database, const QString& name);

signals:
    /// The number of listed layers may have changed.
    void listChanged();
    /// Layers were changed from the grid.
    void layersChanged();
    /// A command of the grid made a layer. It is in the table, and not yet frozen in viewports.
    void layerMade(OdDbObjectId layer);
    /// Another layer is current, or the current one changed.
    void currentLayerChanged();
    /// What is listed may no longer be what should be; sent once a burst of changes is over.
    void listStale();
    /// A burst of changes is over, and the list is what it should be.
    void burstOver();
    /// A burst of erasures is over; the layers are out of the groups.
    void erasuresOver();
    /// Layers changed so that they came into the list or left it, or came and were not listed. Sent
    /// once for a burst, when the user can be told.
    void filterViolated();
    /// The drawing that the grid followed is ending.
    void databaseGone();

protected:
    bool cellAction(int row, int column) override;
    bool cellDoubleClicked(int row, int column) override;
    bool preCheck() override;
    bool checksCharacters(int column) const override;
    bool isDragColumn(int column) const override;
    void beginDrag() override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyboardSearch(const QString& typed) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
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
    void showRows(LayerListModel::Ids ordered);
    void changeAllRows(const std::function<void()>& change);
    ListCtrlColumnData& record(int column);
    void currentLayerMoved();

    // What the database tells
    void layerAppended(OdDbObjectId layer);
    void layerReAppended(OdDbObjectId layer);
    void layerModified(OdDbObjectId layer);
    void layerErased(OdDbObjectId layer);
    void forgetListing() { m_burst.listing.reset(); }
    RowDecision decide(OdDbObjectId layer);
    bool isInBurst();
    void armRefresh();
    void tellCount(bool inBurst);
    void turnOver();
    /// Shows what waits for the end of this turn of the event loop.
    void settle()
    {
        if (m_burst.waits())
            settleWaiting();
    }
    void settleWaiting();
    void refreshTimeout();
    void erasureTimeout();
    void judgeChanges();
    void tellViolation();
    void forgetTypedAhead() { m_typedAhead.clear(); }
    int findTypedAhead();

    // Edits
    bool isStartOfTextEdit(int row, LayerColumn column) const;
    void startTextEdit(int row, LayerColumn column);
    void endTextEdit(int row, LayerColumn column, const QString& text);
    void renameRow(int row, const QString& name);
    void describeRow(int row, const QString& text);
    void settleNewLayer();
    void changeCell(int row, LayerColumn column);
    bool mayChange(OdDbObjectId layer, LayerColumn column);
    bool isAllowed(LayerVerdict verdict);
    /// What the host's views do after a change.
    enum class Redraw { Refresh, Regenerate, RegenerateAll };
    /// Tells the user, the views and the palette what became of a change.
    void finishEdit(const LayerOutcome& outcome, Redraw redraw = Redraw::Refresh);
    static Redraw redrawAfterCell(LayerColumn column);
    static Redraw redrawAfterCommand(int id);

    // Commands
    bool leaveEditor();
    void chooseAllBut(const std::vector<int>& rows);
    int commandOfKey(const QKeyEvent& event) const;
    void removeRows(const LayerListModel::Ids& layers);
    void editNewLayer();

    LayerListModel m_model;
    std::unique_ptr<CLayerListCtrlDatabaseReactor> m_reactor;
    OdDbDatabase* m_database = nullptr;
    std::vector<ListCtrlColumnData> m_columns;
    LayerSortOrder m_sortOrder;
    StateDialogs m_stateDialogs;
    QString m_widthsKey;
    OdDbObjectId m_newLayer;
    LayerListModel::Ids* m_erased = nullptr; ///< collects what an operation erases
    int m_displayedCount = 0;
    bool m_inLayout = false;
    bool m_switchedOff = false;
    bool m_newLayerFlag = false;
    bool m_renaming = false; ///< while a name is being written
    bool m_settingWidths = false;
    bool m_refreshPending = false;
    bool m_orderPending = false; ///< a row waits to go to its place
    LayerBurst m_burst;
    std::function<LayerListing()> m_listing;
    QString m_typedAhead; ///< lower case
    QTimer m_refreshTimer{this};
    QTimer m_erasureTimer{this};
    QTimer m_typeAheadTimer{this};
};

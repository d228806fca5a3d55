#pragma once

#include "database/OdDbObjectId.h"
#include "layermanager/module/CLayerDocMngrReactor.h"

#include <QPointer>
#include <QWidget>

#include <vector>

class CLayerListCtrl;
class CLayerListVw;
class CLayerTreeVw;
class OdDbDatabase;
class QLabel;

/// The form that fills the palette's pane.
class CLayerPaneView : public QWidget
{
    Q_OBJECT
public:
    /// Control id of the status line.
    static constexpr int kStatusLineId = 65535;

    explicit CLayerPaneView(QWidget* parent = nullptr);
    ~CLayerPaneView() override;

    /// Builds the contents; called once, right after the view was attached to its pane.
    void initialUpdate();
    /// Binds the palette to the current document's drawing; nothing happens when it is that
    /// already.
    void BindToCurrentDatabase();
    /// Opens or closes the palette's pane to follow the documents. `document`: the one that is
    /// going, or null.
    void SyncPaneVisibility(const KsApDocument* document, bool show);
    /// Refreshes the rows, goes to the current layer's row and takes the keyboard focus, unless
    /// the user is editing a cell.
    void showCurrentLayer();
    void UpdateStatusLine();
    /// Opens the undo record for one edit made from the palette.
    void BeginLayerUndoRecord(OdDbDatabase& database);

    /// The drawing that the palette shows, or null.
    OdDbDatabase* database() const { return m_pDb; }
    /// Null before the initial update.
    CLayerListCtrl* grid() const;
    CLayerTreeVw* tree() const { return m_treeView; }

private:
    /// Lists the layers of the selected filter anew, also where they are the same.
    void refill();
    /// Lists them where they are others than those listed.
    void followFilter();
    void list(const std::vector<OdDbObjectId>& layers);
    /// Whether the grid's rows are just these, in whatever order.
    bool isListed(const std::vector<OdDbObjectId>& layers) const;
    void layersChangedByTree();
    std::vector<OdDbObjectId> wantedLayers() const;

    OdSmartPtr<CLayerDocMngrReactor> m_docReactor;
    CLayerTreeVw* m_treeView = nullptr;
    CLayerListVw* m_listView = nullptr;
    QLabel* m_statusLine = nullptr;
    OdDbDatabase* m_pDb = nullptr;
    bool m_bInitialised = false;
};

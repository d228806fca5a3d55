#pragma once

#include "database/values/OdDbObjectId.h"
#include "layermanager/layers/LayerListing.h"
#include "layermanager/module/CLayerDocMngrReactor.h"
#include "layermanager/palette/CToolTipImpl.h"
#include "layermanager/palette/pane/LayerPaneLayout.h"
#include "layermanager/palette/pane/LayerSearch.h"
#include "layermanager/palette/pane/PaneCommandTarget.h"

#include <QHash>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <vector>

class CLayerListCtrl;
class CLayerListVw;
class CLayerPaneTBar;
class CLayerSearchBox;
class CLayerTreeVw;
class OdDbDatabase;
class PaneDatabaseReactor;
class PaneKeys;
class QCheckBox;
class QHelpEvent;
class QLabel;
class QLineEdit;
class QSplitter;
class QToolButton;

/// The form that fills the palette's pane: filter tree and layer list, what searches and narrows
/// the list, the toolbars, and the lines that tell what is shown.
class CLayerPaneView : public QWidget, public CToolTipImpl, public PaneCommandTarget
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
    /// Shows which layer is current; the line stays as it was where there is none.
    void UpdateCurrentLayerLine();
    /// Opens the undo record for one edit made from the palette.
    void BeginLayerUndoRecord(OdDbDatabase& database);

    void ShowFilterTree(bool show);
    /// Lists the layers of the selected filter whose names match the search box. Nothing where no
    /// filter is selected or the selected one is gone.
    void ApplySearch();
    /// Ready to search without a wait: reads what is not known.
    void prepareSearch();
    bool isInverted() const { return m_bInvert; }
    void setInverted(bool inverted);
    bool IsAllFilterSelected() const;
    /// What the grid lists by the selected filter, the search box and the box that inverts.
    LayerListing listing() const;
    /// How often a filter was evaluated to list its layers.
    int filterEvaluations() const { return m_filterEvaluations; }

    void command(int id) override;
    bool isCommandEnabled(int id) const override;
    bool isCommandChecked(int id) const override;
    void updateCommands();

    /// The drawing that the palette shows, or null.
    OdDbDatabase* database() const { return m_pDb; }
    /// Null before the initial update, as the other parts are.
    CLayerListCtrl* grid() const;
    CLayerTreeVw* tree() const { return m_treeView; }
    CLayerSearchBox* searchBox() const { return m_searchBox; }
    QCheckBox* invertBox() const { return m_invertBox; }
    CLayerPaneTBar* toolbar(int id) const;

    /// Texts of toolbar buttons by paneToolTextKey(). A button without one shows its own text.
    QHash<int, QString>& toolTexts() { return m_toolTexts; }

    // What the drawing tells
    void layerChanged(OdDbObjectId layer);
    /// Layers came or went, listed or not.
    void layerCountChanged() { m_countTimer.start(); }
    void drawingChanged() { m_search.forgetFilter(); }
    void databaseGone();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // Set-up
    void makeSplitter();
    void makeToolbars();
    void makeTopRow();
    void makeLines();
    void connectParts();
    void connectSync();
    void addTools();
    void setTabOrders();
    void updateColours();
    void layOut();
    LayerPaneSizes sizes() const;
    void place(const LayerPaneRects& rects);
    void elideStatus();
    bool showToolText(const CLayerPaneTBar& bar, const QHelpEvent& request);

    // Listing
    void follow(OdDbDatabase* database);
    /// Lists the layers of the selected filter anew, also where they are the same.
    void refill();
    /// Lists them where they are others than those listed.
    void followFilter();
    /// Brings tree and list up to date after somebody else changed layers; what is selected and
    /// where the list stands stay so.
    void refreshFromDrawing();
    void list(const LayerSearch::Ids& layers);
    /// Whether the grid's rows are just these, in whatever order.
    bool isListed(const LayerSearch::Ids& layers) const;
    void layersChangedByTree();
    QString pattern() const;
    bool isReferenceSelected() const;
    LayerSearch::Ids wantedLayers();

    // Commands
    struct Command;
    static const Command* commandOf(int id);
    void deleteLayers(int id);
    void newLayer(int id);
    void makeCurrent(int id);
    void newFilter(int id);
    void openLayerStates(int id);
    void openSettings(int id);
    void refreshList(int id);
    void searchNow(int id);
    void toggleTree(int id);

    OdSmartPtr<CLayerDocMngrReactor> m_docReactor;
    std::unique_ptr<PaneDatabaseReactor> m_reactor;
    std::unique_ptr<PaneKeys> m_keys;
    QSplitter* m_splitter = nullptr;
    QWidget* m_treePane = nullptr;
    CLayerTreeVw* m_treeView = nullptr;
    CLayerListVw* m_listView = nullptr;
    std::vector<CLayerPaneTBar*> m_toolbars;
    QToolButton* m_searchButton = nullptr;
    QCheckBox* m_invertBox = nullptr;
    QLabel* m_statusLine = nullptr;
    QLineEdit* m_currentLine = nullptr;
    CLayerSearchBox* m_searchBox = nullptr;
    OdDbDatabase* m_pDb = nullptr;
    LayerSearch m_search;
    QHash<int, QString> m_toolTexts;
    QString m_statusText; ///< in whole
    QTimer m_countTimer{this}; ///< one update of the status line for many layers
    int m_filterEvaluations = 0;
    bool m_bInitialised = false;
    bool m_bTreeVisible = true;
    bool m_bInvert = false;
    QString m_listedFilter; ///< name of the filter that is listed
    bool m_layingOut = false;
};

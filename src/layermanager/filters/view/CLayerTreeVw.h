#pragma once

#include "layermanager/filters/tree/FilterLayerCommands.h"
#include "layermanager/filters/view/FilterTreeModel.h"
#include "layermanager/module/GroupFilterPickReceiver.h"

#include <QMenu>
#include <QPointer>
#include <QSet>
#include <QTimer>
#include <QTreeView>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

class CLayerPaneView;
class FilterTreeDatabaseReactor;
class OdDbDatabase;
struct FilterToEdit;

/// The tree of layer filters of one drawing. It holds names only: for each command the filter is
/// looked up again in the drawing's filter manager.
class CLayerTreeVw : public QTreeView, public GroupFilterPickReceiver
{
    Q_OBJECT
public:
    explicit CLayerTreeVw(QWidget* parent = nullptr);
    ~CLayerTreeVw() override;

    void setPaneView(CLayerPaneView* view) { m_paneView = view; }
    CLayerPaneView* paneView() const { return m_paneView; }

    /// Shows the filters of a drawing, null for none, and follows it from now on.
    void bind(OdDbDatabase* database);
    /// Reads the tree again; what is selected and expanded stays so where it still exists.
    void refresh();
    /// Refreshes once control is back in the event loop.
    void scheduleRefresh() { m_refreshTimer.start(); }
    /// Makes or removes the node of unreconciled new layers, as the system variables ask for.
    void UpdateUnreconciledNode();

    /// The selected node, or null.
    const FilterNode* selectedNode() const;
    /// Label of the selected node; empty without one.
    QString selectedName() const;
    bool IsAllFilterSelected() const;
    /// What the selected node shows, and the other layers. Without a selection all layers are in.
    FilterLayers layersOfSelected() const;
    /// Tells of single layers whether the selected node shows them, as the filters are now.
    std::function<bool(OdDbObjectId)> testOfSelected() const;
    void select(const FilterKey& filter);

    // Layers that are dragged onto a node

    /// The node that layers would be dropped on; it is marked.
    QModelIndex dropNode() const { return m_dropNode; }
    void setDropNode(const QModelIndex& node);
    /// Whether layers can be put into a node.
    bool takesLayers(const QModelIndex& node) const;
    /// Puts layers into a group, and takes them out of the selected one when they are moved.
    void dropLayers(const QModelIndex& node, const std::vector<OdDbObjectId>& layers, bool moves);
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    /// Runs a command of the context menu or the toolbar on the selected node.
    void command(int id);
    /// The context menu on the selected node; null without one.
    std::unique_ptr<QMenu> contextMenu();

    void entitiesPicked(OdDbDatabase& database, const KestSelectionSet& selection,
                        bool answer) override;

    /// How a property filter is edited: false when the user gave up. To be replaced by tests.
    using FilterEditor =
        std::function<bool(QWidget* parent, OdDbDatabase& database, const FilterToEdit& task)>;
    void setFilterEditor(FilterEditor editor) { m_filterEditor = std::move(editor); }

signals:
    /// Another node is selected, or the selected one may show other layers.
    void selectedLayersChanged();
    /// Layers were changed from the tree.
    void layersChanged();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;

protected slots:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    /// Also makes the column as wide as its widest label, so that deep ones can be scrolled to.
    void updateGeometries() override;

private:
    struct TypedLabel
    {
        FilterKey filter;
        QString text;
    };
    /// Sets a flag while it lives.
    class FlagScope
    {
    public:
        explicit FlagScope(bool& flag)
            : m_flag(flag)
            , m_before(std::exchange(flag, true))
        { }
        ~FlagScope() { m_flag = m_before; }
        FlagScope(const FlagScope&) = delete;
        FlagScope& operator=(const FlagScope&) = delete;

    private:
        bool& m_flag;
        bool m_before;
    };

    void showTree();
    void noteExpansion(const QModelIndex& index, bool expanded);
    void restoreExpansion(const QModelIndex& parent);
    /// The key is a copy: nodes may go while the user is asked.
    void changeFilters(int id, FilterKey filter);
    /// Shows the tree after an edit and selects a filter; nothing where the edit was refused.
    void showResult(const std::optional<FilterKey>& selected);
    void newGroupFilter(const FilterKey& parent);
    void newPropertyFilter(const FilterKey& parent);
    void editFilter(const FilterKey& key);
    /// Has a property filter edited; false when the user gave up, or the drawing went meanwhile.
    bool askFor(const FilterToEdit& task);
    void pickLayers(const FilterKey& group, const QString& mode);
    void endLabelEdit();
    /// Does a command of a menu that was opened on a node, unless another one is selected by now.
    void commandOn(const OdDbDatabase* database, const FilterKey& filter, int id);

    CLayerPaneView* m_paneView = nullptr;
    FilterTreeModel m_model;
    FilterEditor m_filterEditor;
    std::unique_ptr<FilterTreeDatabaseReactor> m_reactor;
    OdDbDatabase* m_database = nullptr;
    QTimer m_refreshTimer{this};
    QSet<QString> m_collapsed; ///< case-folded names
    std::optional<TypedLabel> m_typed;
    QPointer<QMenu> m_menu;
    QPersistentModelIndex m_dropNode;
    FilterKey m_pickGroup;
    const OdDbDatabase* m_pickDatabase = nullptr; ///< only to be compared
    bool m_showing = false; ///< selection and expansion are not the user's
    bool m_fitting = false;
    bool m_changingCurrent = false; ///< the view is not to be given other nodes
};

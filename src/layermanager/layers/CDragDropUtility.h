#pragma once

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <functional>

class CLayerListCtrl;
class CLayerTreeVw;
class QDrag;
class QDropEvent;
class QPixmap;

/// Lets layers be dragged from the grid onto a group of the filter tree: the tree's side of it, and
/// the start of the drag. A drag carries nothing; the drop reads the selection of the grid that it
/// came from, so that drags of other programs have no meaning here.
class CDragDropUtility : public QObject
{
    Q_OBJECT
public:
    static constexpr const char* kMimeType = "application/x-kest-layer-rows";
    static constexpr int kScrollMargin = 10; ///< pixels from an edge of the tree
    static constexpr int kScrollInterval = 100; ///< milliseconds, while the pointer rests there

    /// Makes the tree a place to drop layers on.
    explicit CDragDropUtility(CLayerTreeVw& tree);

    /// Drags the selected rows of a grid, and returns when they were dropped or given up.
    static void beginDrag(CLayerListCtrl& grid);
    /// The grid that the drag under way came from, or null.
    static CLayerListCtrl* source();

    /// How a drag is carried out; to be replaced by tests.
    using DragRun = std::function<void(QDrag& drag)>;
    static void setDragRun(DragRun run);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void dragOver(QDropEvent& event);
    void drop(QDropEvent& event);
    void leave();
    /// Scrolls where the pointer is near an edge; false where it is not.
    bool scroll();
    void point();
    void scrollOn();

    CLayerTreeVw& m_tree;
    QPoint m_pointer; ///< in the tree's viewport
    QTimer m_scrollTimer{this};
};

#include "layermanager/layers/CDragDropUtility.h"

#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QToolTip>

#include <utility>

namespace {

constexpr Qt::DropActions kActions = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
constexpr int kPicturePadding = 4; // pixels
constexpr int kMostCharacters = 40; // of a name in the picture

QPointer<CLayerListCtrl>& dragSource()
{
    static QPointer<CLayerListCtrl> source;
    return source;
}

CDragDropUtility::DragRun& dragRun()
{
    static CDragDropUtility::DragRun run;
    return run;
}

QString pictureText(CLayerListCtrl& grid)
{
    const std::vector<int> rows = grid.chosenRows();
    if (rows.size() != 1)
        return CDragDropUtility::tr("%1 layers").arg(rows.size());
    const QModelIndex name = grid.model()->index(rows.front(), static_cast<int>(LayerColumn::Name));
    return grid.fontMetrics().elidedText(name.data().toString(), Qt::ElideMiddle,
                                         kMostCharacters * grid.fontMetrics().averageCharWidth());
}

/// What goes with the pointer: how many layers are dragged, or the name of the one.
QPixmap picture(CLayerListCtrl& grid)
{
    const QString text = pictureText(grid);
    const QFontMetrics metrics = grid.fontMetrics();
    const QSize size(metrics.horizontalAdvance(text) + 4 * kPicturePadding,
                     metrics.height() + 2 * kPicturePadding);
    const qreal ratio = grid.devicePixelRatioF();
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette colors = QToolTip::palette();
    painter.setPen(colors.color(QPalette::ToolTipText));
    painter.setBrush(colors.color(QPalette::ToolTipBase));
    const QRectF frame = QRectF(QPointF(), size).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(frame, kPicturePadding, kPicturePadding);
    painter.setFont(grid.font());
    painter.drawText(frame, Qt::AlignCenter, text);
    return pixmap;
}

Qt::DropAction actionOf(const QDropEvent& event)
{
    return event.modifiers() & Qt::ShiftModifier ? Qt::MoveAction : Qt::CopyAction;
}

} // namespace

// The grid's side

void CDragDropUtility::beginDrag(CLayerListCtrl& grid)
{
    if (grid.chosenLayers().empty())
        return;
    auto* drag = new QDrag(&grid);
    auto* data = new QMimeData;
    data->setData(QLatin1String(kMimeType), QByteArray());
    drag->setMimeData(data);
    drag->setPixmap(picture(grid));
    dragSource() = &grid;
    const QPointer<QDrag> alive(drag);
    if (const DragRun& run = dragRun())
        run(*drag);
    else
        drag->exec(kActions, Qt::CopyAction);
    dragSource() = nullptr;
    // The toolkit deletes drags that it carried out, not those that it never saw.
    if (alive)
        alive->deleteLater();
}

CLayerListCtrl* CDragDropUtility::source()
{
    return dragSource();
}

void CDragDropUtility::setDragRun(DragRun run)
{
    dragRun() = std::move(run);
}

// The tree's side

CDragDropUtility::CDragDropUtility(CLayerTreeVw& tree)
    : QObject(&tree)
    , m_tree(tree)
{
    tree.viewport()->setAcceptDrops(true);
    tree.viewport()->installEventFilter(this);
    m_scrollTimer.setInterval(kScrollInterval);
    m_scrollTimer.setObjectName(QStringLiteral("dragScroll"));
    connect(&m_scrollTimer, &QTimer::timeout, this, &CDragDropUtility::scrollOn);
}

bool CDragDropUtility::eventFilter(QObject*, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
        dragOver(static_cast<QDropEvent&>(*event));
        return true;
    case QEvent::DragLeave:
        leave();
        return true;
    case QEvent::Drop:
        drop(static_cast<QDropEvent&>(*event));
        return true;
    default:
        return false;
    }
}

void CDragDropUtility::dragOver(QDropEvent& event)
{
    // Without a drag of this program under way it comes from another one.
    if (!source() || !event.mimeData()->hasFormat(QLatin1String(kMimeType))) {
        leave();
        event.ignore();
        return;
    }
    m_pointer = event.position().toPoint();
    point();
    if (scroll()) {
        point();
        m_scrollTimer.start();
    } else {
        m_scrollTimer.stop();
    }
    event.setDropAction(actionOf(event));
    // One that was refused on entering would hear of no move.
    if (event.type() == QEvent::DragEnter || m_tree.dropNode().isValid())
        event.accept();
    else
        event.ignore();
}

/// Opens the node under the pointer, and marks it where it takes layers.
void CDragDropUtility::point()
{
    const QPersistentModelIndex node = m_tree.indexAt(m_pointer);
    if (node.isValid())
        m_tree.expand(node);
    m_tree.setDropNode(m_tree.takesLayers(node) ? QModelIndex(node) : QModelIndex());
}

bool CDragDropUtility::scroll()
{
    const QRect inside = m_tree.viewport()->rect();
    const auto step = [](QScrollBar* bar, bool forward, bool back) {
        if (forward || back)
            bar->triggerAction(forward ? QAbstractSlider::SliderSingleStepAdd
                                       : QAbstractSlider::SliderSingleStepSub);
        return forward || back;
    };
    const bool down = m_pointer.y() > inside.bottom() - kScrollMargin;
    const bool up = m_pointer.y() < inside.top() + kScrollMargin;
    const bool right = m_pointer.x() > inside.right() - kScrollMargin;
    const bool left = m_pointer.x() < inside.left() + kScrollMargin;
    const bool vertical = step(m_tree.verticalScrollBar(), down, up);
    const bool horizontal = step(m_tree.horizontalScrollBar(), right, left);
    return vertical || horizontal;
}

void CDragDropUtility::scrollOn()
{
    if (source() && scroll())
        point();
    else
        leave();
}

void CDragDropUtility::leave()
{
    m_scrollTimer.stop();
    m_tree.setDropNode({});
}

void CDragDropUtility::drop(QDropEvent& event)
{
    const QPersistentModelIndex node = m_tree.dropNode();
    CLayerListCtrl* grid = source();
    leave();
    if (!node.isValid() || !grid) {
        event.ignore();
        return;
    }
    event.setDropAction(actionOf(event));
    event.accept();
    LayerListModel::Ids layers = grid->chosenLayers();
    std::erase_if(layers, [](OdDbObjectId layer) { return layer.isErased(); });
    if (!layers.empty())
        m_tree.dropLayers(node, layers, event.dropAction() == Qt::MoveAction);
}

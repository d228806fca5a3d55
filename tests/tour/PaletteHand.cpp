#include "PaletteHand.h"

#include "TourDialogs.h"
#include "layermanager/layers/CDragDropUtility.h"
#include "layermanager/palette/pane/PaneCommands.h"
#include "layermanager/sync/DragEvents.h"
#include "support/TestFailure.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QDrag>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>

namespace {

template <class Widget>
Widget& part(const QWidget& window, const char* name)
{
    auto* found = window.findChild<Widget*>(QLatin1String(name));
    if (!found)
        qFatal("The palette has no %s.", name);
    return *found;
}

void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

void describe(const QAbstractItemModel& model, const QModelIndex& index, const QString& indent,
              QStringList& lines)
{
    lines.append(indent + index.data().toString());
    for (int row = 0; row < model.rowCount(index); ++row)
        describe(model, model.index(row, 0, index), indent + QLatin1Char('.'), lines);
}

void openMenuAt(QWidget& viewport, QPoint place)
{
    QTest::mouseClick(&viewport, Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, viewport.mapToGlobal(place));
    QApplication::sendEvent(&viewport, &event);
}

} // namespace

QTableView& PaletteHand::grid() const
{
    return part<QTableView>(m_window, "layerGrid");
}

QTreeView& PaletteHand::tree() const
{
    return part<QTreeView>(m_window, "filterTree");
}

QLineEdit& PaletteHand::search() const
{
    return part<QLineEdit>(m_window, "layerSearch");
}

QCheckBox& PaletteHand::invert() const
{
    return part<QCheckBox>(m_window, "invertFilter");
}

QStringList PaletteHand::rows() const
{
    QStringList names;
    const QAbstractItemModel& model = *grid().model();
    for (int row = 0; row < model.rowCount(); ++row)
        names.append(model.index(row, static_cast<int>(LayerColumn::Name)).data().toString());
    return names;
}

QStringList PaletteHand::selectedRows() const
{
    QStringList names;
    for (const QModelIndex& index :
         grid().selectionModel()->selectedRows(static_cast<int>(LayerColumn::Name)))
        names.append(index.data().toString());
    names.sort();
    return names;
}

QModelIndex PaletteHand::indexOf(const char* layer, LayerColumn column) const
{
    const auto row = rows().indexOf(QString::fromUtf8(layer));
    if (row < 0)
        reportTestFailure(QStringLiteral("The list has no layer %1.").arg(QLatin1String(layer)));
    return grid().model()->index(static_cast<int>(row), static_cast<int>(column));
}

QString PaletteHand::cell(const char* layer, LayerColumn column) const
{
    const QModelIndex index = indexOf(layer, column);
    const QString text = index.data().toString();
    return text.isEmpty() ? index.data(Qt::AccessibleTextRole).toString() : text;
}

QString PaletteHand::currentLine() const
{
    return part<QLineEdit>(m_window, "currentLayer").text();
}

QString PaletteHand::statusLine() const
{
    return part<QLabel>(m_window, "statusLine").text();
}

QStringList PaletteHand::filters() const
{
    QStringList lines;
    const QAbstractItemModel& model = *tree().model();
    for (int row = 0; row < model.rowCount(); ++row)
        describe(model, model.index(row, 0), {}, lines);
    return lines;
}

QString PaletteHand::selectedFilter() const
{
    return tree().currentIndex().data().toString();
}

QModelIndex PaletteHand::filter(const char* name) const
{
    const QAbstractItemModel& model = *tree().model();
    const auto found = model.match(model.index(0, 0), Qt::DisplayRole, QString::fromUtf8(name), 1,
                                   Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty())
        reportTestFailure(QStringLiteral("The tree has no filter %1.").arg(QLatin1String(name)));
    return found.value(0);
}

void PaletteHand::pause() const
{
    const auto timers =
        grid().findChildren<QTimer*>(QRegularExpression(QStringLiteral("timer_[12]00")));
    const auto isIdle = [&timers] {
        return std::none_of(timers.begin(), timers.end(),
                            [](const QTimer* timer) { return timer->isActive(); });
    };
    // While something is being typed they start anew.
    const auto isTyping = [this] {
        return grid().findChild<QLineEdit*>(QStringLiteral("inPlaceEdit")) != nullptr;
    };
    while (!isIdle() && !isTyping()) {
        for (QTimer* timer : timers) {
            const int interval = timer->interval();
            if (!timer->isActive())
                continue;
            timer->start(0);
            settle();
            timer->setInterval(interval);
        }
    }
    settle();
}

void PaletteHand::clickTool(const char* name) const
{
    for (const PaneTool& tool : paneTools()) {
        const auto* action =
            m_window.findChild<QAction*>(QStringLiteral("command_%1").arg(tool.id));
        const auto* bar = action ? qobject_cast<QToolBar*>(action->parent()) : nullptr;
        if (paneToolText(tool) != QLatin1String(name) || !bar)
            continue;
        QTest::mouseClick(bar->widgetForAction(const_cast<QAction*>(action)), Qt::LeftButton);
        return settle();
    }
    reportTestFailure(QStringLiteral("There is no tool %1.").arg(QLatin1String(name)));
}

void PaletteHand::clickFilter(const char* name) const
{
    const QModelIndex index = filter(name);
    tree().scrollTo(index);
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {},
                      tree().visualRect(index).topLeft() + QPoint(24, 6));
    settle();
}

void PaletteHand::onFilterMenu(const char* name, const std::function<void(QMenu&)>& steps) const
{
    clickFilter(name);
    const QPoint place = tree().visualRect(filter(name)).topLeft() + QPoint(24, 6);
    tour_dialogs::inMenu([&] { openMenuAt(*tree().viewport(), place); }, steps);
    settle();
}

void PaletteHand::chooseOnFilter(const char* name, const QStringList& path) const
{
    onFilterMenu(name, [&path](QMenu& menu) { tour_dialogs::choose(menu, path); });
}

void PaletteHand::chooseOnLayer(const char* layer, const QStringList& path) const
{
    const QModelIndex index = indexOf(layer, LayerColumn::Name);
    grid().scrollTo(index);
    tour_dialogs::inMenu([&] { openMenuAt(*grid().viewport(), grid().visualRect(index).center()); },
                         [&path](QMenu& menu) { tour_dialogs::choose(menu, path); });
    settle();
}

void PaletteHand::typeLabel(const char* text) const
{
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    if (!editor)
        return reportTestFailure(QStringLiteral("Nothing is being edited."));
    editor->selectAll();
    QTest::keyClicks(editor, QString::fromUtf8(text));
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
}

void PaletteHand::click(const char* layer, LayerColumn column,
                        Qt::KeyboardModifiers modifiers) const
{
    const QModelIndex index = indexOf(layer, column);
    grid().scrollTo(index);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, modifiers,
                      grid().visualRect(index).center());
    settle();
}

void PaletteHand::selectFromTo(const char* first, const char* last) const
{
    click(first, LayerColumn::Status);
    click(last, LayerColumn::Status, Qt::ShiftModifier);
}

void PaletteHand::drag(const char* layer, const char* filterName,
                       const std::function<void(QDrag&, QPoint)>& over) const
{
    QWidget& rows = *grid().viewport();
    const QPoint from = grid().visualRect(indexOf(layer, LayerColumn::Name)).center();
    // The platform without a screen carries no drags: this does what the desktop would.
    CDragDropUtility::setDragRun([&](QDrag& drag) {
        QWidget& nodes = *tree().viewport();
        const QPoint to = tree().visualRect(filter(filterName)).center();
        DragEvents events(nodes, *drag.mimeData());
        events.enter(to, {});
        events.move(to, {});
        if (over)
            over(drag, nodes.mapToGlobal(to));
        events.drop(to, {});
    });
    QTest::mousePress(&rows, Qt::LeftButton, {}, from);
    const QPoint way = from - QPoint(60, 0);
    QMouseEvent move(QEvent::MouseMove, way, rows.mapToGlobal(way), Qt::NoButton, Qt::LeftButton,
                     {});
    QApplication::sendEvent(&rows, &move);
    QTest::mouseRelease(&rows, Qt::LeftButton, {}, way);
    CDragDropUtility::setDragRun({});
    settle();
}

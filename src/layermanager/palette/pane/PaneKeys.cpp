#include "layermanager/palette/pane/PaneKeys.h"

#include "layermanager/filters/tree/FilterCommands.h"
#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/layers/operations/LayerCommandTable.h"
#include "layermanager/module/LayerPalette.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/pane/CLayerSearchBox.h"
#include "sdk/LocalSearch.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace {

Qt::KeyboardModifiers modifiersOf(const QKeyEvent& key)
{
    return key.modifiers() & ~Qt::KeypadModifier;
}

bool isPlain(const QKeyEvent& key, Qt::Key wanted)
{
    return key.key() == wanted && modifiersOf(key) == Qt::NoModifier;
}

bool contains(const QWidget* outer, const QWidget& inner)
{
    return outer && (outer == &inner || outer->isAncestorOf(&inner));
}

} // namespace

struct PaneKeys::Step
{
    bool (PaneKeys::*isMeant)(const QWidget& widget, const QKeyEvent& key) const;
    bool (PaneKeys::*run)(QWidget& widget, const QKeyEvent& key);
};

PaneKeys::PaneKeys(CLayerPaneView& view)
    : m_view(view)
{
    qApp->installEventFilter(this);
}

const PaneKeys::Step* PaneKeys::stepFor(const PaneKeys& keys, const QWidget& widget,
                                        const QKeyEvent& key)
{
    // In this order.
    static constexpr Step kSteps[] = {
        {&PaneKeys::isHelp, &PaneKeys::showHelp},
        {&PaneKeys::isSelectAll, &PaneKeys::selectAll},
        {&PaneKeys::isDelete, &PaneKeys::deleteThere},
        {&PaneKeys::isRename, &PaneKeys::rename},
        {&PaneKeys::isRowStep, &PaneKeys::stepRow},
        {&PaneKeys::isColumnStep, &PaneKeys::stepColumn},
    };
    const auto* found = std::find_if(std::begin(kSteps), std::end(kSteps), [&](const Step& step) {
        return (keys.*step.isMeant)(widget, key);
    });
    return found == std::end(kSteps) ? nullptr : found;
}

bool PaneKeys::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    const bool isKey = type == QEvent::KeyPress || type == QEvent::ShortcutOverride;
    const bool isPress = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if ((!isKey && !isPress) || !watched->isWidgetType())
        return false;
    auto& widget = *static_cast<QWidget*>(watched);
    if (!contains(&m_view, widget))
        return false;
    if (isPress) {
        const auto& press = *static_cast<QMouseEvent*>(event);
        const bool toggles = &widget == m_view.invertBox() && press.button() == Qt::LeftButton;
        // The box does not see the press, and so never toggles itself.
        if (toggles)
            m_view.setInverted(!m_view.isInverted());
        return toggles;
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    const Step* step = stepFor(*this, widget, key);
    if (!step)
        return false;
    if (type == QEvent::KeyPress)
        return (this->*step->run)(widget, key);
    // The palette's keys go before those that the host's window has for its own commands.
    event->accept();
    return true;
}

/// Also where the key is for another window of the palette while the grid has the focus.
bool PaneKeys::isForGrid(const QWidget& widget) const
{
    const CLayerListCtrl* grid = m_view.grid();
    return &widget == grid || &widget == grid->viewport() || grid->hasFocus();
}

bool PaneKeys::isForTree(const QWidget& widget) const
{
    return &widget == m_view.tree() || &widget == m_view.tree()->viewport();
}

bool PaneKeys::isHelp(const QWidget&, const QKeyEvent& key) const
{
    return isPlain(key, Qt::Key_F1);
}

bool PaneKeys::showHelp(QWidget&, const QKeyEvent&)
{
    LocalSearch::CommandRefHelp(kLayerPaneId);
    return true;
}

bool PaneKeys::isSelectAll(const QWidget&, const QKeyEvent& key) const
{
    return key.key() == Qt::Key_A && modifiersOf(key) == Qt::ControlModifier;
}

/// The key is the grid's alone: elsewhere in the palette, in its fields too, nothing happens. That
/// is deliberate.
bool PaneKeys::selectAll(QWidget& widget, const QKeyEvent&)
{
    if (isForGrid(widget) && !m_view.grid()->editor())
        m_view.grid()->selectAll();
    return true;
}

bool PaneKeys::isDelete(const QWidget& widget, const QKeyEvent& key) const
{
    return isPlain(key, Qt::Key_Delete)
        && (isForTree(widget) || &widget == m_view.searchBox()
            || (isForGrid(widget) && !m_view.grid()->editor()));
}

bool PaneKeys::deleteThere(QWidget& widget, const QKeyEvent&)
{
    if (isForTree(widget)) {
        m_view.tree()->command(kDeleteFilter);
    } else if (&widget == m_view.searchBox()) {
        // Without a selection this takes the character behind the cursor, as in any box.
        m_view.searchBox()->del();
        m_view.ApplySearch();
    } else {
        m_view.command(kToolbarDeleteLayers);
    }
    return true;
}

bool PaneKeys::isRename(const QWidget& widget, const QKeyEvent& key) const
{
    if (!isPlain(key, Qt::Key_F2))
        return false;
    const bool ofGrid = isForGrid(widget) || contains(m_view.grid(), widget);
    return contains(m_view.tree(), widget) || (ofGrid && !m_view.grid()->editor());
}

bool PaneKeys::rename(QWidget& widget, const QKeyEvent&)
{
    if (isForTree(widget))
        m_view.tree()->command(kRenameFilter);
    else if (!contains(m_view.tree(), widget)) // else a label is being edited already
        m_view.grid()->editFocusedCell();
    return true;
}

bool PaneKeys::isRowStep(const QWidget& widget, const QKeyEvent& key) const
{
    // With Ctrl and Shift the grid itself moves the focus or extends the selection.
    return (isPlain(key, Qt::Key_Up) || isPlain(key, Qt::Key_Down)) && isForGrid(widget)
        && !m_view.grid()->editor();
}

bool PaneKeys::stepRow(QWidget&, const QKeyEvent& key)
{
    m_view.grid()->stepRow(key.key() == Qt::Key_Up ? -1 : 1);
    return true;
}

bool PaneKeys::isColumnStep(const QWidget& widget, const QKeyEvent& key) const
{
    const bool isTab = key.key() == Qt::Key_Backtab || isPlain(key, Qt::Key_Tab)
        || (key.key() == Qt::Key_Tab && modifiersOf(key) == Qt::ShiftModifier);
    const bool isArrow = isPlain(key, Qt::Key_Left) || isPlain(key, Qt::Key_Right);
    return (isTab || isArrow) && isForGrid(widget) && !m_view.grid()->editor();
}

bool PaneKeys::stepColumn(QWidget&, const QKeyEvent& key)
{
    CLayerListCtrl& grid = *m_view.grid();
    const bool isArrow = key.key() == Qt::Key_Left || key.key() == Qt::Key_Right;
    bool forwards = key.key() == Qt::Key_Tab && modifiersOf(key) == Qt::NoModifier;
    if (isArrow)
        forwards = (key.key() == Qt::Key_Right) != grid.isRightToLeft();
    const bool moved = grid.stepColumn(forwards ? 1 : -1);
    // Tab leaves the grid at its ends, so that the keyboard is never caught.
    return moved || isArrow;
}

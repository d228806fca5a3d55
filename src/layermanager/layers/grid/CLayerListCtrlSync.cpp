// How the layer grid follows its drawing: single changes at once, bursts of them together.

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/filters/tree/GroupLayers.h"
#include "layermanager/layers/CDragDropUtility.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"

#include <QAbstractItemView>
#include <QApplication>

#include <algorithm>
#include <utility>

namespace {

/// Whether the user types into a cell or a label; a dialog would end that half way.
bool isTypingInPlace()
{
    const QWidget* focused = QApplication::focusWidget();
    const QWidget* viewport = focused ? focused->parentWidget() : nullptr;
    return viewport && qobject_cast<const QAbstractItemView*>(viewport->parentWidget());
}

/// While something else asks the user, a notice would get into its way.
bool isUserBusy()
{
    return QApplication::activeModalWidget() || QApplication::activePopupWidget()
        || isTypingInPlace() || QApplication::mouseButtons() != Qt::NoButton
        || readHostInt(QStringLiteral("CMDACTIVE")).value_or(0) != 0;
}

} // namespace

// Notifications

void CLayerListCtrl::layerAppended(OdDbObjectId layer)
{
    const bool inBurst = isInBurst();
    if (m_model.rowOf(layer) >= 0)
        return;
    const RowDecision decision = decide(layer);
    if (decision == RowDecision::Hidden)
        return tellCount(inBurst);
    m_burst.noteChange(layer, true);
    if (decision == RowDecision::Listed && inBurst) {
        m_burst.come.push_back(layer);
    } else if (decision == RowDecision::Listed) {
        insertRow(layer, m_model.rowCount());
        m_displayedCount = m_model.rowCount();
    }
    armRefresh();
    tellCount(inBurst);
}

void CLayerListCtrl::layerReAppended(OdDbObjectId layer)
{
    isInBurst();
    if (m_model.rowOf(layer) >= 0)
        return;
    m_refreshPending = true;
    armRefresh();
}

void CLayerListCtrl::layerModified(OdDbObjectId layer)
{
    const bool inBurst = isInBurst();
    const int row = m_model.rowOf(layer);
    m_burst.noteChange(layer, row >= 0);
    if (row < 0) {
        m_refreshPending = true;
    } else {
        // A new layer goes to its place; one whose name is still to come stays last.
        m_orderPending |= m_newLayerFlag && layer != m_newLayer && m_model.isNew(layer);
        if (!inBurst) {
            refreshRow(row, layer);
        } else {
            m_burst.rowsStale = true;
            m_burst.currentStale |= layer == currentLayer();
        }
    }
    armRefresh();
}

void CLayerListCtrl::layerErased(OdDbObjectId layer)
{
    const bool inBurst = isInBurst();
    m_burst.erased.push_back(layer);
    if (!m_erasureTimer.isActive() || m_burst.told == 1)
        m_erasureTimer.start();
    if (m_erased)
        m_erased->push_back(layer);
    else if (m_renaming || m_model.rowOf(layer) < 0)
        tellCount(inBurst);
    else if (inBurst)
        m_burst.gone.push_back(layer);
    else
        removeRows({layer});
}

RowDecision CLayerListCtrl::decide(OdDbObjectId layer)
{
    if (!m_burst.listing)
        m_burst.listing = m_listing ? m_listing() : LayerListing();
    return m_burst.listing->decide(layer);
}

// Bursts

/// Counts a notification; true once one by one would be too many for this turn.
bool CLayerListCtrl::isInBurst()
{
    if (m_burst.told++ == 0)
        QMetaObject::invokeMethod(this, &CLayerListCtrl::turnOver, Qt::QueuedConnection);
    return m_burst.told > LayerBurst::kShownAtOnce;
}

/// Starts the refresh timer once for a turn; turnOver() starts it again at the end.
void CLayerListCtrl::armRefresh()
{
    if (!std::exchange(m_burst.armed, true) || !m_refreshTimer.isActive())
        m_refreshTimer.start();
}

void CLayerListCtrl::tellCount(bool inBurst)
{
    if (inBurst)
        m_burst.countStale = true;
    else
        emit listChanged();
}

void CLayerListCtrl::turnOver()
{
    const bool wasBurst = std::exchange(m_burst.told, 0) > 1;
    if (std::exchange(m_burst.armed, false) && wasBurst)
        m_refreshTimer.start();
    if (wasBurst && m_erasureTimer.isActive())
        m_erasureTimer.start();
    forgetListing();
    settle();
}

void CLayerListCtrl::settleWaiting()
{
    LayerListModel::Ids gone = std::exchange(m_burst.gone, {});
    std::erase_if(gone, [](OdDbObjectId layer) { return !layer.isErased(); });
    LayerListModel::Ids come = std::exchange(m_burst.come, {});
    std::erase_if(
        come, [this](OdDbObjectId layer) { return layer.isErased() || m_model.rowOf(layer) >= 0; });
    bool countStale = std::exchange(m_burst.countStale, false);
    const bool rowsStale = std::exchange(m_burst.rowsStale, false);
    const bool currentStale = std::exchange(m_burst.currentStale, false);
    removeRows(gone);
    if (!come.empty()) {
        m_model.appendLayers(come);
        m_displayedCount = m_model.rowCount();
        countStale = true;
    }
    if (rowsStale)
        m_model.touchRows();
    if (currentStale)
        emit currentLayerChanged();
    if (countStale)
        emit listChanged();
}

// Timers

void CLayerListCtrl::requestRefresh()
{
    m_refreshPending = true;
    m_refreshTimer.start();
}

void CLayerListCtrl::refreshTimeout()
{
    turnOver();
    m_refreshTimer.stop();
    // Listing anew would take away what the user is typing.
    if ((m_refreshPending || m_orderPending || m_burst.hasChanges()) && editor()) {
        m_refreshTimer.start();
        return;
    }
    judgeChanges();
    if (std::exchange(m_orderPending, false))
        m_model.reorder(m_sortOrder);
    if (std::exchange(m_refreshPending, false))
        emit listStale();
    else
        viewport()->update();
    emit burstOver();
    if (m_burst.violated)
        tellViolation();
}

/// Looks at what changed since the timer was started first: now all of it is done.
void CLayerListCtrl::judgeChanges()
{
    forgetListing();
    for (const auto& [layer, wasListed] : m_burst.takeChanges()) {
        const RowDecision decision = decide(layer);
        if (decision == RowDecision::Hidden) {
            m_refreshPending |= m_model.rowOf(layer) >= 0; // it got such a name
            continue;
        }
        const bool listed = decision == RowDecision::Listed;
        m_burst.violated |= listed != wasListed;
        m_refreshPending |= listed != (m_model.rowOf(layer) >= 0);
    }
    forgetListing();
}

void CLayerListCtrl::tellViolation()
{
    if (isVisible() && (editor() || isUserBusy())) {
        m_refreshTimer.start();
        return;
    }
    m_burst.violated = false;
    if (isVisible())
        emit filterViolated();
}

void CLayerListCtrl::erasureTimeout()
{
    turnOver();
    m_erasureTimer.stop();
    LayerListModel::Ids erased = std::exchange(m_burst.erased, {});
    std::erase_if(erased, [](OdDbObjectId layer) { return !layer.isErased(); });
    if (!m_database)
        return;
    // A group that the drawing keeps leaves out its erased layers by itself, so that what undo
    // brings back is in it again; those that programs made do not.
    if (!erased.empty())
        removeLayersFromGroups(*m_database, erased);
    emit erasuresOver();
}

// Typing

void CLayerListCtrl::keyboardSearch(const QString& typed)
{
    for (const QChar typedChar : typed) {
        const char c = typedChar.toLower().toLatin1();
        if (typedChar.unicode() > 'z' || !((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')))
            continue;
        if (!leaveEditor())
            return;
        if (m_typedAhead.isEmpty())
            m_typeAheadTimer.start();
        m_typedAhead += QLatin1Char(c);
        const int row = findTypedAhead();
        if (row < 0)
            continue;
        chooseForMenu(row);
        scrollRowIntoView(row);
    }
}

int CLayerListCtrl::findTypedAhead()
{
    settle();
    const int count = m_model.rowCount();
    const int focused = currentIndex().row();
    for (int step = 1; step <= count; ++step) {
        const int row = (focused + step) % count;
        const auto layer = m_model.openRow(row);
        const QString name = layer ? layer->getName() : QString();
        if (name.size() >= m_typedAhead.size()
            && std::equal(m_typedAhead.begin(), m_typedAhead.end(), name.begin(),
                          [](QChar wanted, QChar c) { return wanted == c.toLower(); }))
            return row;
    }
    return -1;
}

// Dragging

bool CLayerListCtrl::isDragColumn(int column) const
{
    // The other cells do something as soon as they are pressed.
    const auto pressed = static_cast<LayerColumn>(column);
    return pressed == LayerColumn::Status || pressed == LayerColumn::Name
        || pressed == LayerColumn::Description;
}

void CLayerListCtrl::beginDrag()
{
    if (!m_switchedOff && m_database && leaveEditor())
        CDragDropUtility::beginDrag(*this);
}

#include "layermanager/filter_editor/CLayerPreviewList.h"

#include "database/drawing/OdDbDatabase.h"

#include <QContextMenuEvent>

#include <utility>

CLayerPreviewList::CLayerPreviewList(QWidget* parent)
    : CLayerListCtrl(parent)
{
    setObjectName(QStringLiteral("filterPreview"));
}

bool CLayerPreviewList::showLayers(const LayerListModel::Ids& layers, const OdDbDatabase& database)
{
    if (!fillFromList(layers) || this->database() != &database)
        return false;
    if (std::exchange(m_wasFilled, true) || !database.getTILEMODE())
        return true;
    for (const LayerColumnInfo& info : layerColumns()) {
        if (info.layoutsOnly)
            hideGridColumn(static_cast<int>(info.column));
    }
    return true;
}

bool CLayerPreviewList::cellAction(int, int)
{
    return false;
}

bool CLayerPreviewList::cellDoubleClicked(int, int)
{
    return false;
}

bool CLayerPreviewList::preCheck()
{
    return false; // nothing is edited, so no command can be in the way
}

bool CLayerPreviewList::isDragColumn(int) const
{
    return false; // dropped on a group, layers would change it
}

bool CLayerPreviewList::event(QEvent* event)
{
    // Past the grid of layers, which would claim the keys of its commands.
    return CKestListCtrl::event(event);
}

void CLayerPreviewList::keyPressEvent(QKeyEvent* event)
{
    CKestListCtrl::keyPressEvent(event);
}

void CLayerPreviewList::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept(); // its commands change layers
}

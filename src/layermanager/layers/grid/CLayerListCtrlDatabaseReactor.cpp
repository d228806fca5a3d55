#include "layermanager/layers/grid/CLayerListCtrlDatabaseReactor.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "sdk/KsApDocManager.h"

OdDbObjectId CLayerListCtrl::CLayerListCtrlDatabaseReactor::layerOf(const OdDbDatabase* database,
                                                                    const OdDbObject* object) const
{
    if (!OdDbLayerTableRecord::isKind(object->kind())) {
        m_grid.forgetListing(); // it may be a filter, or the viewport that one asks about
        return {};
    }
    const KsApDocManager* documents = ksDocManagerPtr();
    const bool isListening = !m_grid.isSwitchedOff() && documents && documents->curDocument()
        && object->ownerId() == database->getLayerTableId();
    return isListening ? object->objectId() : OdDbObjectId();
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::objectAppended(const OdDbDatabase* database,
                                                                   const OdDbObject* object)
{
    if (const OdDbObjectId layer = layerOf(database, object); !layer.isNull())
        m_grid.layerAppended(layer);
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::objectUnAppended(const OdDbDatabase* database,
                                                                     const OdDbObject* object)
{
    if (const OdDbObjectId layer = layerOf(database, object); !layer.isNull())
        m_grid.layerErased(layer);
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::objectReAppended(const OdDbDatabase* database,
                                                                     const OdDbObject* object)
{
    if (const OdDbObjectId layer = layerOf(database, object); !layer.isNull())
        m_grid.layerReAppended(layer);
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::objectModified(const OdDbDatabase* database,
                                                                   const OdDbObject* object)
{
    if (const OdDbObjectId layer = layerOf(database, object);
        !layer.isNull() && !object->isErased())
        m_grid.layerModified(layer);
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::objectErased(const OdDbDatabase* database,
                                                                 const OdDbObject* object,
                                                                 bool erased)
{
    const OdDbObjectId layer = layerOf(database, object);
    if (layer.isNull())
        return;
    if (erased)
        m_grid.layerErased(layer);
    else
        objectReAppended(database, object);
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::headerSysVarChanged(
    const OdDbDatabase* database, const QString& name)
{
    m_grid.forgetListing();
    m_grid.sysVarChanged(database, name);
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::goodbye(const OdDbDatabase*)
{
    m_grid.m_database = nullptr; // it takes its listeners with it
    m_grid.m_burst = {};
    emit m_grid.databaseGone();
    m_grid.unbind();
}

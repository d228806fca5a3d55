#include "layermanager/layers/grid/CLayerListCtrlDatabaseReactor.h"

#include "database/OdDbLayerTableRecord.h"

OdDbObjectId CLayerListCtrl::CLayerListCtrlDatabaseReactor::layerOf(const OdDbObject* object) const
{
    const bool isLayer = OdDbLayerTableRecord::isKind(object->kind());
    return isLayer && !m_grid.isSwitchedOff() ? object->objectId() : OdDbObjectId();
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::objectAppended(const OdDbDatabase*,
                                                                   const OdDbObject* object)
{
    if (const OdDbObjectId layer = layerOf(object); !layer.isNull())
        m_grid.layerAppended(layer);
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::objectUnAppended(const OdDbDatabase*,
                                                                     const OdDbObject* object)
{
    if (const OdDbObjectId layer = layerOf(object); !layer.isNull())
        m_grid.layerErased(layer);
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::objectReAppended(const OdDbDatabase*,
                                                                     const OdDbObject* object)
{
    const OdDbObjectId layer = layerOf(object);
    if (!layer.isNull() && m_grid.findRow(layer) < 0)
        m_grid.requestRefresh();
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::objectModified(const OdDbDatabase*,
                                                                   const OdDbObject* object)
{
    if (const OdDbObjectId layer = layerOf(object); !layer.isNull() && !object->isErased())
        m_grid.layerModified(layer);
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::objectErased(const OdDbDatabase* database,
                                                                 const OdDbObject* object,
                                                                 bool erased)
{
    const OdDbObjectId layer = layerOf(object);
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
    m_grid.sysVarChanged(database, name);
}

void CLayerListCtrl::CLayerListCtrlDatabaseReactor::goodbye(const OdDbDatabase*)
{
    m_grid.m_database = nullptr; // it takes its listeners with it
    emit m_grid.databaseGone();
    m_grid.unbind();
}

#pragma once

#include "database/drawing/OdDbDatabaseReactor.h"
#include "database/values/OdRxObject.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"

/// Follows one drawing at a time and hands what concerns layers to its grid.
class CLayerListCtrl::CLayerListCtrlDatabaseReactor : public OdRxObject, public OdDbDatabaseReactor
{
public:
    explicit CLayerListCtrlDatabaseReactor(CLayerListCtrl& grid)
        : m_grid(grid)
    { }

    void objectAppended(const OdDbDatabase* database, const OdDbObject* object) override;
    void objectUnAppended(const OdDbDatabase* database, const OdDbObject* object) override;
    void objectReAppended(const OdDbDatabase* database, const OdDbObject* object) override;
    void objectModified(const OdDbDatabase* database, const OdDbObject* object) override;
    void objectErased(const OdDbDatabase* database, const OdDbObject* object, bool erased) override;
    void headerSysVarChanged(const OdDbDatabase* database, const QString& name) override;
    void goodbye(const OdDbDatabase* database) override;

private:
    /// The layer's id, or null where the notification does not concern the grid.
    OdDbObjectId layerOf(const OdDbDatabase* database, const OdDbObject* object) const;

    CLayerListCtrl& m_grid;
};

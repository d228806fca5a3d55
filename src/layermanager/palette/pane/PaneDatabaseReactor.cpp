#include "layermanager/palette/pane/PaneDatabaseReactor.h"

#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/palette/CLayerPaneView.h"

void PaneDatabaseReactor::look(const OdDbObject* object)
{
    if (OdDbLayerTableRecord::isKind(object->kind()))
        m_view.layerChanged(object->objectId());
    else
        m_view.drawingChanged();
}

void PaneDatabaseReactor::count(const OdDbObject* object)
{
    look(object);
    if (OdDbLayerTableRecord::isKind(object->kind()))
        m_view.layerCountChanged();
}

void PaneDatabaseReactor::headerSysVarChanged(const OdDbDatabase*, const QString& name)
{
    m_view.drawingChanged();
    if (name.compare(QLatin1String("CLAYER"), Qt::CaseInsensitive) == 0)
        m_view.UpdateCurrentLayerLine();
}

void PaneDatabaseReactor::goodbye(const OdDbDatabase*)
{
    m_view.databaseGone();
}

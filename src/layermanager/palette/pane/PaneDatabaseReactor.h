#pragma once

#include "database/drawing/OdDbDatabaseReactor.h"

class CLayerPaneView;

/// Tells the palette what of a drawing may list other layers or read otherwise in its lines.
class PaneDatabaseReactor : public OdDbDatabaseReactor
{
public:
    explicit PaneDatabaseReactor(CLayerPaneView& view)
        : m_view(view)
    { }

    void objectAppended(const OdDbDatabase*, const OdDbObject* object) override { count(object); }
    void objectUnAppended(const OdDbDatabase*, const OdDbObject* object) override { count(object); }
    void objectReAppended(const OdDbDatabase*, const OdDbObject* object) override { count(object); }
    void objectModified(const OdDbDatabase*, const OdDbObject* object) override { look(object); }
    void objectErased(const OdDbDatabase*, const OdDbObject* object, bool) override
    {
        count(object);
    }
    void headerSysVarChanged(const OdDbDatabase*, const QString& name) override;
    void goodbye(const OdDbDatabase*) override;

private:
    void look(const OdDbObject* object);
    void count(const OdDbObject* object);

    CLayerPaneView& m_view;
};

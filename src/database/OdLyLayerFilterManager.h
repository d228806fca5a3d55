#pragma once

#include "database/OdLyLayerFilter.h"

/// The layer filters that a drawing holds.
class OdLyLayerFilterManager : public OdRxObject
{
public:
    explicit OdLyLayerFilterManager(OdDbDatabase& database)
        : m_database(database)
    { }

    /// Reads the tree: the root "All" with the drawing's filters nested in it, and the current
    /// filter (the root where the drawing names none of its own). Each call gives a tree of its
    /// own.
    void getFilters(OdLyLayerFilterPtr& root, OdLyLayerFilterPtr& current) const;

private:
    OdDbDatabase& m_database;
};

using OdLyLayerFilterManagerPtr = OdSmartPtr<OdLyLayerFilterManager>;

/// The manager of a database; null without one.
OdLyLayerFilterManagerPtr odlyGetLayerFilterManager(OdDbDatabase* database);

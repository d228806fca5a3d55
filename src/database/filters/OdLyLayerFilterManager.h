#pragma once

#include "database/filters/OdLyLayerFilter.h"

/// The layer filters that a drawing holds.
class OdLyLayerFilterManager : public OdRxObject
{
public:
    explicit OdLyLayerFilterManager(OdDbDatabase& database)
        : m_database(database)
    { }

    /// Reads the tree: the root "All"; below it "All used layers", the drawing's filters, and those
    /// that programs made for this session. The current filter is the root where the drawing names
    /// none. Each call gives a tree of its own.
    void getFilters(OdLyLayerFilterPtr& root, OdLyLayerFilterPtr& current) const;

    /// Brings a tree into the drawing. Records of filters that are the same stay as they are, those
    /// of other classes too. Undoable; dynamically generated filters are kept for the session only.
    void setFilters(const OdLyLayerFilterPtr& root, const OdLyLayerFilterPtr& current);

private:
    OdDbDatabase& m_database;
};

using OdLyLayerFilterManagerPtr = OdSmartPtr<OdLyLayerFilterManager>;

/// The manager of a database; null without one.
OdLyLayerFilterManagerPtr odlyGetLayerFilterManager(OdDbDatabase* database);

#pragma once

#include "layermanager/layers/LayerUndoRecord.h"

/// Opens the undo record of an operation right before its first change, so that an operation which
/// changes nothing leaves no record behind.
class UndoRecordOnDemand
{
public:
    explicit UndoRecordOnDemand(OdDbDatabase& database)
        : m_database(database)
    { }

    /// To be called before every change.
    void begin()
    {
        if (!m_begun)
            beginLayerUndoRecord(m_database);
        m_begun = true;
    }

private:
    OdDbDatabase& m_database;
    bool m_begun = false;
};

#pragma once

#include "layermanager/layers/LayerUndoRecord.h"

/// Whether an operation opens an undo record of its own.
enum class LayerUndo {
    Opens,
    Joins, ///< the record of the operation that it is part of
};

/// Opens the undo record of an operation right before its first change, so that an operation which
/// changes nothing leaves no record behind.
class UndoRecordOnDemand
{
public:
    explicit UndoRecordOnDemand(OdDbDatabase& database, LayerUndo undo = LayerUndo::Opens)
        : m_database(database)
        , m_begun(undo == LayerUndo::Joins)
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
    bool m_begun;
};

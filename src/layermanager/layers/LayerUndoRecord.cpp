#include "layermanager/layers/LayerUndoRecord.h"

#include "database/drawing/OdDbDatabase.h"
#include "layermanager/layers/HostVariables.h"
#include "sdk/CKestPreferenceManager.h"
#include "sdk/commands/CKsUndoRedoCommandHistory.h"

namespace {

/// Bit of UNDOCTL: a group of commands is open.
constexpr int kGroupOpen = 8;

bool isInGroup()
{
    return (readHostInt(QStringLiteral("UNDOCTL")).value_or(0) & kGroupOpen) != 0;
}

void startRecord(OdDbDatabase& database, const QString& command)
{
    if (CKsUndoRedoCommandHistory* history = ksUndoRedoHistory())
        history->AddCommand(command);
    database.startUndoRecord();
}

} // namespace

void beginLayerUndoRecord(OdDbDatabase& database, const QString& command)
{
    if (readHostInt(QStringLiteral("CMDACTIVE")).value_or(0) != 0)
        return;
    const bool combines = CKestPreferenceManager::instance().CombineLayerPropPreference;
    if (combines && (isInGroup() || database.isUndoRecordOpen()))
        return;
    startRecord(database, command);
}

void beginLayerUndoRecordOfCommand(OdDbDatabase& database)
{
    if (!isInGroup())
        startRecord(database, QStringLiteral("_LAYER"));
}

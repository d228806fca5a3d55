#include "layermanager/layers/LayerUndoRecord.h"

#include "database/drawing/OdDbDatabase.h"
#include "layermanager/layers/HostVariables.h"
#include "sdk/CKestPreferenceManager.h"
#include "sdk/commands/CKsUndoRedoCommandHistory.h"

namespace {

/// Bit of UNDOCTL: a group of commands is open.
constexpr int kGroupOpen = 8;

} // namespace

void beginLayerUndoRecord(OdDbDatabase& database, const QString& command)
{
    if (readHostInt(QStringLiteral("CMDACTIVE")).value_or(0) != 0)
        return;
    if (CKestPreferenceManager::instance().CombineLayerPropPreference) {
        const bool inGroup = (readHostInt(QStringLiteral("UNDOCTL")).value_or(0) & kGroupOpen) != 0;
        if (inGroup || database.isUndoRecordOpen())
            return;
    }
    if (CKsUndoRedoCommandHistory* history = ksUndoRedoHistory())
        history->AddCommand(command);
    database.startUndoRecord();
}

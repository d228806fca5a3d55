#include "layermanager/layer_states/core/LayerStateSteps.h"

#include "layermanager/layers/LayerUndoRecord.h"
#include "sdk/CLayerStateUtility.h"
#include "sdk/IKestIOManager.h"

void beginLayerStateStep(OdDbDatabase& database)
{
    beginLayerUndoRecord(database, QStringLiteral("_LAYERSTATE"));
}

bool tellStateResult(bool done, const CLayerStateUtility& service)
{
    IKestIOManager* io = getIOManagerInterface();
    if (!done && io && !service.lastError().isEmpty())
        io->print(service.lastError());
    return done;
}

#include "layermanager/module/LayerCloseCommand.h"

#include "layermanager/layers/HostVariables.h"
#include "layermanager/module/LayerPalette.h"
#include "sdk/KsApDocManager.h"

LayerCloseCommand::LayerCloseCommand()
    : LayerManagerCommand(QStringLiteral("_LAYERCLOSE"),
                          withoutUnderscore(QStringLiteral("_LAYERCLOSE")), 0x00000002)
{ }

void LayerCloseCommand::execute(OdEdCommandContext* context)
{
    const auto* drawing = dynamic_cast<OdDbCommandContext*>(context);
    if (!drawing || !drawing->database())
        return;
    writeHostInt(QStringLiteral("LAYERMANAGERSTATE"), 0);
    if (KsApDocManager* documents = ksDocManagerPtr())
        documents->executeInApplicationContext(&CloseLayerPalette);
}

#pragma once

#include "layermanager/module/LayerManagerCommand.h"

/// Closes the layer palette; its view stays for the next opening.
class LayerCloseCommand : public LayerManagerCommand
{
public:
    LayerCloseCommand();

    void execute(OdEdCommandContext* context) override;
};

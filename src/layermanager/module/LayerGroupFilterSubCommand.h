#pragma once

#include "layermanager/module/LayerManagerCommand.h"

/// Lets the user pick entities whose layers join a group filter. Started by the filter tree only;
/// typed by the user it does nothing.
class LayerGroupFilterSubCommand : public LayerManagerCommand
{
public:
    LayerGroupFilterSubCommand();

    void execute(OdEdCommandContext* context) override;
};

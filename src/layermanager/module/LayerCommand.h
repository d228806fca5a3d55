#pragma once

#include "layermanager/module/LayerManagerCommand.h"

/// Opens the layer palette. Its end takes the palette's view along.
class LayerCommand : public LayerManagerCommand
{
public:
    explicit LayerCommand(const QString& globalName, int flags = 0x04000002);
    ~LayerCommand() override;

    void execute(OdEdCommandContext* context) override;
    /// Refused: raises OdError with NotApplicable.
    void undefine(bool undefineIt) override;
};

#include "layermanager/module/LayerGroupFilterSubCommand.h"

#include "layermanager/module/GroupFilterPickReceiver.h"
#include "layermanager/module/LayerModuleState.h"
#include "sdk/IKestIOManager.h"
#include "sdk/KestSSGet.h"
#include "sdk/KestStatus.h"

#include <utility>

namespace {

/// Both names; the two underscores keep the command out of the user's way.
QString marker()
{
    return QStringLiteral("__ZTR_LAYER_GROUP_FILTER");
}

} // namespace

LayerGroupFilterSubCommand::LayerGroupFilterSubCommand()
    : LayerManagerCommand(marker(), marker(), 0x00800000)
{ }

void LayerGroupFilterSubCommand::execute(OdEdCommandContext* context)
{
    // Each arming serves one run, however that run ends.
    if (!std::exchange(LayerModuleState::s_bGroupFilterPickPending, false))
        return;
    GroupFilterPickReceiver* receiver =
        std::exchange(LayerModuleState::s_groupFilterReceiver, nullptr);
    const auto* drawing = dynamic_cast<OdDbCommandContext*>(context);
    IKestIOManager* io = getIOManagerInterface();
    if (!drawing || !io)
        return;
    int answer = 0;
    if (io->getInt(QString(), answer) != kest::kNormal || !drawing->database())
        return;
    KestSelectionRequest request;
    request.switches.fill(true);
    KestSelectionSet selection;
    if (KestSSGet(request, selection) == kest::kNormal && receiver)
        receiver->entitiesPicked(*drawing->database(), selection, answer != 0);
}

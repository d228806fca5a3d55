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

/// Whoever asked for the pick, as long as it is there: it may go while the user picks. Forgets it
/// at the end, unless somebody has asked for another one by then.
class ReceiverScope
{
public:
    ReceiverScope() = default;
    ~ReceiverScope()
    {
        if (!LayerModuleState::s_bGroupFilterPickPending)
            LayerModuleState::s_groupFilterReceiver = nullptr;
    }
    ReceiverScope(const ReceiverScope&) = delete;
    ReceiverScope& operator=(const ReceiverScope&) = delete;

    GroupFilterPickReceiver* get() const { return LayerModuleState::s_groupFilterReceiver; }
};

} // namespace

LayerGroupFilterSubCommand::LayerGroupFilterSubCommand()
    : LayerManagerCommand(marker(), marker(), 0x00800000)
{ }

void LayerGroupFilterSubCommand::execute(OdEdCommandContext* context)
{
    // Each arming serves one run, however that run ends.
    if (!std::exchange(LayerModuleState::s_bGroupFilterPickPending, false))
        return;
    const ReceiverScope receiver;
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
    if (KestSSGet(request, selection) == kest::kNormal && receiver.get())
        receiver.get()->entitiesPicked(*drawing->database(), selection, answer != 0);
}

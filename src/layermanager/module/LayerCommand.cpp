#include "layermanager/module/LayerCommand.h"

#include "database/values/OdError.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/module/LayerModuleState.h"
#include "layermanager/module/LayerPalette.h"
#include "layermanager/module/PropertyUpdateScope.h"
#include "sdk/IKestIOManager.h"
#include "sdk/IKestSysvarManager.h"
#include "sdk/KestSharedGlobals.h"
#include "sdk/KsApDocManager.h"

namespace {

bool mayOpen()
{
    if (!getSysvarManagerInterface() || !getIOManagerInterface())
        return false;
    const KsApDocManager* documents = ksDocManagerPtr();
    if (!documents || !documents->curDocument())
        return false;
    const bool multipleWindows = readHostInt(QStringLiteral("WNDLMDI")).value_or(0) != 0;
    return multipleWindows || documents->documentCount() > 0;
}

} // namespace

LayerCommand::LayerCommand(const QString& globalName, int flags)
    : LayerManagerCommand(globalName, withoutUnderscore(globalName), flags)
{ }

LayerCommand::~LayerCommand()
{
    destroyLayerPalette();
}

void LayerCommand::execute(OdEdCommandContext*)
{
    if (!mayOpen())
        return;
    {
        const PropertyUpdateScope guard;
        const KsResourceScope texts(LayerModuleState::s_languageResource);
        ksDocManagerPtr()->executeInApplicationContext(&ShowLayerPalette);
        KestSharedGlobals::GetKestResourceInstance(true);
    }
    writeHostInt(QStringLiteral("LAYERMANAGERSTATE"), 1);
}

void LayerCommand::undefine(bool)
{
    throw OdError(OdResult::NotApplicable,
                  QStringLiteral("The command %1 cannot be undefined.").arg(globalName()));
}

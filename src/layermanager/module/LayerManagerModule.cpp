#include "layermanager/module/LayerManagerModule.h"

#include "layermanager/module/CLayerManager.h"
#include "layermanager/module/LayerCloseCommand.h"
#include "layermanager/module/LayerCommand.h"
#include "layermanager/module/LayerGroupFilterSubCommand.h"
#include "layermanager/module/LayerModuleState.h"
#include "sdk/commands/OdEdCommandStack.h"
#include "sdk/texts/ModulePath.h"

LayerManagerModule* LayerManagerModule::s_module = nullptr;

LayerManagerModule* LayerManagerModule::getOrCreate(void* instance)
{
    if (!s_module)
        s_module = new LayerManagerModule(instance);
    return s_module;
}

LayerManagerModule::LayerManagerModule(void* instance)
    : OdRxWin32Module(instance)
{
    CLayerManager& application = CLayerManager::instance();
    application.InitInstance();
    LayerModuleState::s_languageResource = application.LoadAppLangResourceDLL(instance);
}

LayerManagerModule::~LayerManagerModule()
{
    s_module = nullptr;
    CLayerManager::instance().ExitInstance();
}

void LayerManagerModule::initApp()
{
    OdEdCommandStack* stack = odedRegCmds();
    stack->addCommand(odrxCreate<LayerCommand>(QStringLiteral("_LAYER")));
    stack->addCommand(odrxCreate<LayerCommand>(QStringLiteral("_LAYERPALETTE"), 0x00000002));
    stack->addCommand(odrxCreate<LayerCloseCommand>());
    stack->addCommand(odrxCreate<LayerGroupFilterSubCommand>());
}

void LayerManagerModule::uninitApp()
{
    odedRegCmds()->removeGroup(LayerManagerCommand::group());
}

QString LayerManagerModule::moduleName() const
{
    return modulePathOf(moduleHandle());
}

#include "layermanager/layer_states/LayerStateDialogs.h"

#include "layermanager/layer_states/CLayerStateManDlg.h"
#include "layermanager/layer_states/CNewLayStateDlg.h"
#include "layermanager/layer_states/core/LayerStateSteps.h"
#include "layermanager/layer_states/parts/StateDialogParts.h"
#include "layermanager/module/LayerModuleState.h"
#include "sdk/KsApDocManager.h"

namespace {

bool isDrawingOpen()
{
    const KsApDocManager* documents = ksDocManagerPtr();
    const KsApDocument* current = documents ? documents->curDocument() : nullptr;
    return current && current->database();
}

} // namespace

void openLayerStateManager(QWidget* parent)
{
    if (!isDrawingOpen())
        return;
    const KsResourceScope texts(LayerModuleState::s_languageResource);
    ModalDialog dialog(new CLayerStateManDlg(parent));
    dialog.run();
}

void openNewLayerState(QWidget* parent)
{
    if (!isDrawingOpen())
        return;
    const KsResourceScope texts(LayerModuleState::s_languageResource);
    std::vector<layStateEntry> states;
    CLayerStateUtility service;
    tellStateResult(service.GetDBLayStateIDs(states), service);
    ExistingStates existing;
    for (const layStateEntry& state : states)
        existing.append({state.name, state.description});
    ModalDialog dialog(new CNewLayStateDlg(existing, parent));
    dialog.run();
}

#include "layermanager/module/LayerModuleState.h"

#include "layermanager/palette/CLayerPaneView.h"

QPointer<CLayerPaneView> LayerModuleState::s_pLayerPaneView;
bool LayerModuleState::s_bGroupFilterPickPending = false;
GroupFilterPickReceiver* LayerModuleState::s_groupFilterReceiver = nullptr;
KsResourceHandle LayerModuleState::s_languageResource = 0;

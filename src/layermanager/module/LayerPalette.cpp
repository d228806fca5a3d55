#include "layermanager/module/LayerPalette.h"

#include "layermanager/filters/view/ExcessFiltersPrompt.h"
#include "layermanager/module/LayerModuleState.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "sdk/KestSharedGlobals.h"
#include "sdk/KsApDocManager.h"
#include "toolkit/CXTPDockingPaneManager.h"

namespace {

constexpr QRect kInitialRect(0, 0, 550, 200);
constexpr QSize kMinTrackSize(355, 200);
constexpr QSize kMaxTrackSize(1280, 700);
constexpr KsResText kTitle{84536,
                           QT_TRANSLATE_NOOP3("KsResString", "Layer Properties Manager", "84536")};

CXTPDockingPaneManager* paneManager()
{
    return CXTPDockingPaneManager::of(KestSharedGlobals::GetCMainWindow());
}

CXTPDockingPane* createPane(CXTPDockingPaneManager& manager)
{
    CXTPDockingPane* pane = manager.CreatePane(kLayerPaneId, kInitialRect, xtpPaneDockLeft);
    pane->SetMinTrackSize(kMinTrackSize);
    pane->SetMaxTrackSize(kMaxTrackSize);
    return pane;
}

void createPalette(CXTPDockingPaneManager& manager)
{
    CXTPDockingPane* pane = manager.FindPane(kLayerPaneId);
    const bool isNew = !pane;
    if (isNew)
        pane = createPane(manager);
    pane->SetTitle(KsResString(kTitle));
    auto* view = new CLayerPaneView(KestSharedGlobals::GetCMainWindow());
    pane->AttachView(view);
    LayerModuleState::s_pLayerPaneView = view;
    view->initialUpdate();
    if (const KsApDocManager* documents = ksDocManagerPtr())
        CheckExcessFilters(documents->curDocument(), view);
    if (!LayerModuleState::s_pLayerPaneView)
        return; // it went while the user was asked
    view->BindToCurrentDatabase();
    if (isNew)
        manager.ShowPane(pane);
}

void reopenPalette(CXTPDockingPaneManager& manager, CXTPDockingPane& pane)
{
    manager.ShowPane(&pane);
    LayerModuleState::s_pLayerPaneView->showCurrentLayer();
    if (pane.GetPaneState() == xtpPaneHidden)
        manager.ToggleAutoHide(&pane);
}

} // namespace

void ShowLayerPalette()
{
    CXTPDockingPaneManager* manager = paneManager();
    if (!manager)
        return;
    if (!LayerModuleState::s_pLayerPaneView)
        createPalette(*manager);
    if (!LayerModuleState::s_pLayerPaneView)
        return;
    CXTPDockingPane* pane = manager->FindPane(kLayerPaneId);
    if (pane && pane->IsClosed())
        reopenPalette(*manager, *pane);
    KestSharedGlobals::GetCMainWindow()->setFocus(Qt::OtherFocusReason);
}

void CloseLayerPalette()
{
    CXTPDockingPaneManager* manager = paneManager();
    CXTPDockingPane* pane = manager ? manager->FindPane(kLayerPaneId) : nullptr;
    if (pane && !pane->IsClosed())
        manager->ClosePane(pane);
}

void destroyLayerPalette()
{
    if (!LayerModuleState::s_pLayerPaneView)
        return;
    CXTPDockingPaneManager* manager = paneManager();
    CXTPDockingPane* pane = manager ? manager->FindPane(kLayerPaneId) : nullptr;
    if (pane && pane->GetView() == LayerModuleState::s_pLayerPaneView)
        pane->Detach();
    delete LayerModuleState::s_pLayerPaneView;
}

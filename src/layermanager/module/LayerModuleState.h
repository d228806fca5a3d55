#pragma once

#include "sdk/texts/KsResString.h"

#include <QPointer>

class CLayerPaneView;
class GroupFilterPickReceiver;

/// What the parts of the module share. There is one palette per process, whatever the number of
/// open drawings.
struct LayerModuleState
{
    /// The palette's view; empty until the palette is first shown.
    static QPointer<CLayerPaneView> s_pLayerPaneView;
    /// Armed by the filter tree just before it queues the pick, consumed by the pick.
    static bool s_bGroupFilterPickPending;
    /// Who armed it.
    static GroupFilterPickReceiver* s_groupFilterReceiver;
    /// The module's texts, current while its commands run.
    static KsResourceHandle s_languageResource;
};

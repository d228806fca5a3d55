#pragma once

#include "host/canvas/geometry/Affine2.h"
#include "host/canvas/scene/LayerLooks.h"
#include "host/canvas/scene/lines/LineSettings.h"

#include <memory>

/// One space as it appears in the picture: model space as a whole, a sheet, or model space through
/// one viewport of the sheet.
struct ScenePart
{
    quint32 block = 0; ///< index of the space in the scene
    bool isPlaced = false; ///< through a viewport: `placement` and `frame` count
    Affine2 placement; ///< to the coordinates of the picture
    Box2 frame; ///< nothing shows outside, in the coordinates of the picture
    std::vector<Vec2> clip; ///< outline besides the frame, in those coordinates; may be empty
    std::shared_ptr<const LayerLooks> looks;
    LineSettings lines;
};

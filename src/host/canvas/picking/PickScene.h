#pragma once

#include "host/canvas/render/ErasedFilter.h"
#include "host/canvas/scene/LayerLooks.h"
#include "host/canvas/scene/Scene.h"

#include <memory>
#include <vector>

/// What can be pointed at in a drawing at the moment: one space with the looks of its layers. In a
/// sheet with a viewport worked in, that is model space as the viewport shows it.
struct PickScene
{
    std::shared_ptr<const Scene> scene;
    std::shared_ptr<const ErasedFilter> erased;
    std::shared_ptr<const LayerLooks> looks;
    quint32 block = kNoIndex; ///< index of the space in the scene
    /// From the space to what the window shows; differs from 1:1 in a viewport only.
    Affine2 placement;
    Box2 frame; ///< of the viewport on the sheet; empty without one
    std::vector<Vec2> clip; ///< outline of the viewport on the sheet; empty: the frame is all

    bool isEmpty() const { return !scene || block == kNoIndex; }
};

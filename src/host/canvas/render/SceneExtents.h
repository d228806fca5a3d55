#pragma once

#include "host/canvas/render/ErasedFilter.h"
#include "host/canvas/scene/LayerLooks.h"
#include "host/canvas/scene/Scene.h"

#include <optional>

/// Box around what can be seen: hidden layers and erased entities do not count.
class SceneExtents
{
public:
    SceneExtents(const Scene& scene, const LayerLooks& looks, const ErasedFilter& erased)
        : m_scene(scene)
        , m_looks(looks)
        , m_erased(erased)
        , m_known(2 * scene.blockCount())
    { }

    /// Extents of a space.
    Box2 of(quint32 block) { return visibleBox(block, {false, true}); }

private:
    /// How a block is referred to, as far as it decides what shows of it.
    struct Context
    {
        bool isNested;
        bool showsLayerZero; ///< in a reference: whether the reference's layer, that of "0" inside,
                             ///< shows
    };

    Box2 visibleBox(quint32 block, Context context);
    bool isShown(quint32 layer, Context context) const;
    template <class Item, class IsShown>
    void add(const ChunkedList<Item>& list, IsShown isShown, Box2& box) const;
    template <class Item>
    void addStrokes(const ChunkedList<Item>& list, Box2& box) const;

    const Scene& m_scene;
    const LayerLooks& m_looks;
    const ErasedFilter& m_erased;
    std::vector<std::optional<Box2>> m_known; ///< of nested blocks
};

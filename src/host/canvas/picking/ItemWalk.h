#pragma once

#include "host/canvas/picking/ItemVisitor.h"
#include "host/canvas/picking/PickScene.h"

#include <optional>
#include <type_traits>
#include <vector>

/// Tells a visitor about the items of a space that can be seen: not erased, on layers that show,
/// those inside of block references included. Passes over chunks of items by their boxes.
class ItemWalk
{
public:
    ItemWalk(const PickScene& picks, ItemVisitor& visitor);

    void run();

private:
    /// How a list is referred to, as far as it decides what shows of it.
    struct Context
    {
        Affine2 map; ///< to the space
        bool isNested = false;
        bool showsLayerZero = true; ///< in a reference: whether the layer of the reference shows
        quint32 owner = 0; ///< in a reference
    };

    bool isShown(quint32 layer, const Context& context) const;
    quint32 ownerOf(quint32 itemOwner, const Context& context) const;
    void walk(const DisplayList& list, const Context& context);
    template <class Item>
    bool isFar(const Item& item) const;
    template <class Item, class Tell>
    void walkChunks(const ChunkedList<Item>& items, const Context& context, Tell tell);
    void walkStrokes(const DisplayList::StrokeGroup& group, const Context& context);
    void walkFills(const DisplayList& list, const Context& context);
    void walkTexts(const DisplayList& list, const Context& context);
    void walkInstances(const DisplayList& list, const Context& context);
    void enter(const BlockInstance& instance, quint32 owner, const Context& context);
    bool showsAnything(quint32 block, const Context& context);
    bool findsAnything(const DisplayList& list, const Context& context);
    std::optional<Context> inside(const BlockInstance& instance, quint32 owner,
                                  const Context& context) const;
    template <class Item>
    bool hasPresent(const ChunkedList<Item>& items) const;

    const Scene& m_scene;
    const ErasedFilter& m_erased;
    const LayerLooks& m_looks;
    const quint32 m_space;
    ItemVisitor& m_visitor;
    const Box2 m_region;
    std::vector<std::optional<bool>> m_shows; ///< of nested blocks, by layer zero's state
};

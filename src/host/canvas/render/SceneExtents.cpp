#include "host/canvas/render/SceneExtents.h"

bool SceneExtents::isShown(quint32 layer, Context context) const
{
    if (layer == 0 && context.isNested)
        return context.showsLayerZero;
    return !m_looks[layer].isFrozen && !m_looks[layer].isOff;
}

template <class Item, class IsShown>
void SceneExtents::add(const ChunkedList<Item>& list, IsShown isShownItem, Box2& box) const
{
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (isShownItem(list[i]) && !m_erased.isErased(list.owner(i)))
            box.add(list[i].box());
    }
}

/// All items are of one style that shows, so whole chunks can be taken.
template <class Item>
void SceneExtents::addStrokes(const ChunkedList<Item>& list, Box2& box) const
{
    for (std::size_t chunk = 0; chunk < list.chunks().size(); ++chunk) {
        const auto& head = list.chunks()[chunk];
        if (!m_erased.touches(head)) {
            box.add(head.box);
            continue;
        }
        for (std::size_t i = list.chunkBegin(chunk); i < list.chunkEnd(chunk); ++i) {
            if (!m_erased.isErased(list.owner(i)))
                box.add(list[i].box());
        }
    }
}

Box2 SceneExtents::visibleBox(quint32 block, Context context)
{
    const std::size_t key = 2 * std::size_t(block) + (context.showsLayerZero ? 1 : 0);
    if (context.isNested && m_known[key])
        return *m_known[key];
    const DisplayList& list = m_scene.block(block);
    Box2 box;
    for (const DisplayList::StrokeGroup& group : list.groups()) {
        if (!isShown(group.style.layer, context))
            continue;
        addStrokes(group.segments, box);
        addStrokes(group.arcs, box);
    }
    add(
        list.fills(), [&](const FillItem& fill) { return isShown(fill.style.layer, context); },
        box);
    add(
        list.texts(), [&](const TextItem& text) { return isShown(text.style.layer, context); },
        box);

    const ChunkedList<BlockInstance>& instances = list.instances();
    for (std::size_t i = 0; i < instances.size(); ++i) {
        const BlockInstance& instance = instances[i];
        const bool takesOuter = instance.style.layer == 0 && context.isNested;
        const bool isFrozen = !takesOuter && m_looks[instance.style.layer].isFrozen;
        if (instance.block == kNoIndex || isFrozen || m_erased.isErased(instances.owner(i)))
            continue;
        const Box2 child =
            visibleBox(instance.block, {true, isShown(instance.style.layer, context)});
        const quint32 lastColumn = instance.columns - 1;
        const quint32 lastRow = instance.rows - 1;
        box.add(instance.cell(0, 0).mapBox(child));
        box.add(instance.cell(lastColumn, lastRow).mapBox(child));
        box.add(instance.cell(lastColumn, 0).mapBox(child));
        box.add(instance.cell(0, lastRow).mapBox(child));
    }
    if (context.isNested)
        m_known[key] = box;
    return box;
}

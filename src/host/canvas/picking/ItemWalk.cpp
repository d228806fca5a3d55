#include "host/canvas/picking/ItemWalk.h"

namespace {

using Interest = ItemVisitor::Interest;

/// Where a reference repeats, only the cells that matter are entered; they are counted in rows and
/// columns, so a cell is found by its number.
Affine2 cellOf(const BlockInstance& instance, quint64 cell)
{
    return instance.cell(static_cast<quint32>(cell % instance.columns),
                         static_cast<quint32>(cell / instance.columns));
}

} // namespace

ItemWalk::ItemWalk(const PickScene& picks, ItemVisitor& visitor)
    : m_scene(*picks.scene)
    , m_erased(*picks.erased)
    , m_looks(*picks.looks)
    , m_space(picks.block)
    , m_visitor(visitor)
    , m_region(visitor.region())
    , m_shows(2 * std::size_t(picks.scene->blockCount()))
{ }

void ItemWalk::run()
{
    walk(m_scene.block(m_space), {});
}

bool ItemWalk::isShown(quint32 layer, const Context& context) const
{
    if (layer == 0 && context.isNested)
        return context.showsLayerZero;
    return layer < m_looks.size() && !m_looks[layer].isFrozen && !m_looks[layer].isOff;
}

quint32 ItemWalk::ownerOf(quint32 itemOwner, const Context& context) const
{
    return context.isNested ? context.owner : itemOwner;
}

/// No deeper than blocks may nest, which the scene's linker limits.
void ItemWalk::walk(const DisplayList& list, const Context& context)
{
    for (const DisplayList::StrokeGroup& group : list.groups()) {
        if (isShown(group.style.layer, context))
            walkStrokes(group, context);
    }
    walkFills(list, context);
    walkTexts(list, context);
    walkInstances(list, context);
}

/// By boxes that cost nothing; those of arcs do.
template <class Item>
bool ItemWalk::isFar(const Item& item) const
{
    if constexpr (std::is_same_v<Item, CurveArc>)
        return false;
    else
        return !item.box().meets(m_region);
}

template <class Item, class Tell>
void ItemWalk::walkChunks(const ChunkedList<Item>& items, const Context& context, Tell tell)
{
    for (std::size_t chunk = 0; chunk < items.chunks().size(); ++chunk) {
        if (context.isNested && !m_visitor.wants(context.owner))
            return;
        const auto& head = items.chunks()[chunk];
        const Box2 box = context.isNested ? context.map.mapBox(head.box) : head.box;
        const Interest interest = box.meets(m_region) ? m_visitor.interest(box) : Interest::None;
        if (interest == Interest::None)
            continue;
        const bool hasErased = m_erased.touches(head);
        for (std::size_t i = items.chunkBegin(chunk); i < items.chunkEnd(chunk); ++i) {
            if (!context.isNested && isFar(items[i]))
                continue;
            const quint32 owner = ownerOf(items.owner(i), context);
            const bool isErased = hasErased && m_erased.isErased(items.owner(i));
            if (!isErased && m_visitor.wants(owner))
                tell(items[i], owner, interest == Interest::Whole);
        }
    }
}

void ItemWalk::walkStrokes(const DisplayList::StrokeGroup& group, const Context& context)
{
    walkChunks(group.segments, context, [&](const Segment& item, quint32 owner, bool isWhole) {
        if (isWhole)
            m_visitor.whole(owner);
        else
            m_visitor.segment(owner, context.map.map(item.from), context.map.map(item.to));
    });
    walkChunks(group.arcs, context, [&](const CurveArc& item, quint32 owner, bool isWhole) {
        if (isWhole)
            m_visitor.whole(owner);
        else
            m_visitor.arc(owner, item.mapped(context.map));
    });
    for (const Ray& ray : group.rays) {
        const quint32 owner = ownerOf(ray.owner, context);
        if (!m_erased.isErased(ray.owner) && m_visitor.wants(owner)) {
            m_visitor.ray(owner,
                          {context.map.map(ray.from), context.map.mapVector(ray.direction),
                           ray.isTwoSided, owner});
        }
    }
}

void ItemWalk::walkFills(const DisplayList& list, const Context& context)
{
    walkChunks(list.fills(), context, [&](const FillItem& item, quint32 owner, bool isWhole) {
        if (!isShown(item.style.layer, context))
            return;
        if (isWhole)
            m_visitor.whole(owner);
        else if (m_visitor.interest(context.map.mapBox(item.bounds)) != Interest::None)
            m_visitor.fill(owner, list, item, context.map);
    });
}

void ItemWalk::walkTexts(const DisplayList& list, const Context& context)
{
    walkChunks(list.texts(), context, [&](const TextItem& item, quint32 owner, bool isWhole) {
        const bool isGated =
            item.gate != kNoIndex && item.gate < m_looks.size() && m_looks[item.gate].isFrozen;
        if (isGated || !isShown(item.style.layer, context))
            return;
        if (isWhole) {
            m_visitor.whole(owner);
            return;
        }
        const Box2& extent = m_scene.texts().extent(item.shape);
        const Affine2 place =
            context.map.after(Affine2{item.along, item.up, item.position, Vec2{}});
        if (extent.isEmpty())
            return;
        m_visitor.text(
            owner,
            {place.map({extent.minX, extent.minY}), place.map({extent.maxX, extent.minY}),
             place.map({extent.maxX, extent.maxY}), place.map({extent.minX, extent.maxY})});
    });
}

void ItemWalk::walkInstances(const DisplayList& list, const Context& context)
{
    walkChunks(
        list.instances(), context, [&](const BlockInstance& instance, quint32 owner, bool isWhole) {
            if (instance.block == kNoIndex)
                return;
            const Interest interest =
                isWhole ? Interest::Whole : m_visitor.interest(context.map.mapBox(instance.bounds));
            if (interest == Interest::Items) {
                enter(instance, owner, context);
            } else if (interest == Interest::Whole) {
                const auto nested = inside(instance, owner, context);
                if (nested && showsAnything(instance.block, *nested))
                    m_visitor.whole(owner);
            }
        });
}

std::optional<ItemWalk::Context> ItemWalk::inside(const BlockInstance& instance, quint32 owner,
                                                  const Context& context) const
{
    const quint32 layer = instance.style.layer;
    const bool takesOuter = layer == 0 && context.isNested;
    if (!takesOuter && (layer >= m_looks.size() || m_looks[layer].isFrozen))
        return std::nullopt;
    Context nested;
    nested.isNested = true;
    nested.showsLayerZero = isShown(layer, context);
    nested.owner = owner;
    return nested;
}

void ItemWalk::enter(const BlockInstance& instance, quint32 owner, const Context& context)
{
    auto nested = inside(instance, owner, context);
    if (!nested)
        return;
    const DisplayList& list = m_scene.block(instance.block);
    for (quint64 cell = 0; cell < instance.count() && m_visitor.wants(owner); ++cell) {
        nested->map = context.map.after(cellOf(instance, cell));
        switch (m_visitor.interest(nested->map.mapBox(list.totals().box))) {
        case Interest::None:
            break;
        case Interest::Items:
            walk(list, *nested);
            break;
        case Interest::Whole:
            if (showsAnything(instance.block, *nested))
                m_visitor.whole(owner);
            break;
        }
    }
}

/// Whether anything of a block can be seen through such a reference; found out once.
bool ItemWalk::showsAnything(quint32 block, const Context& context)
{
    std::optional<bool>& known = m_shows[2 * std::size_t(block) + (context.showsLayerZero ? 1 : 0)];
    if (!known)
        known = findsAnything(m_scene.block(block), context);
    return *known;
}

template <class Item>
bool ItemWalk::hasPresent(const ChunkedList<Item>& items) const
{
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (!m_erased.isErased(items.owner(i)))
            return true;
    }
    return false;
}

bool ItemWalk::findsAnything(const DisplayList& list, const Context& context)
{
    for (const DisplayList::StrokeGroup& group : list.groups()) {
        const bool hasItems =
            hasPresent(group.segments) || hasPresent(group.arcs) || !group.rays.empty();
        if (isShown(group.style.layer, context) && hasItems)
            return true;
    }
    const auto shows = [&](const auto& items) {
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (isShown(items[i].style.layer, context) && !m_erased.isErased(items.owner(i)))
                return true;
        }
        return false;
    };
    if (shows(list.fills()) || shows(list.texts()))
        return true;
    const ChunkedList<BlockInstance>& instances = list.instances();
    for (std::size_t i = 0; i < instances.size(); ++i) {
        if (instances[i].block == kNoIndex || m_erased.isErased(instances.owner(i)))
            continue;
        const auto nested = inside(instances[i], context.owner, context);
        if (nested && showsAnything(instances[i].block, *nested))
            return true;
    }
    return false;
}

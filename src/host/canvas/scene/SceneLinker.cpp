#include "host/canvas/scene/SceneLinker.h"

namespace {

bool isSaneOrEmpty(const Box2& box)
{
    return box.isEmpty() || (isSane({box.minX, box.minY}) && isSane({box.maxX, box.maxY}));
}

} // namespace

void SceneLinker::relink()
{
    for (quint32 block = 0; block < m_scene.blockCount(); ++block)
        m_scene.block(block).setTotals({});
    link();
}

void SceneLinker::link()
{
    for (quint32 block = 0; block < m_scene.blockCount(); ++block) {
        if (!m_scene.block(block).totals().isLinked)
            linkFrom(block);
    }
}

void SceneLinker::linkFrom(quint32 root)
{
    m_stack.push_back({root, 0});
    m_open[root] = true;
    while (!m_stack.empty()) {
        const quint32 child = unlinkedChild(m_stack.back());
        if (child != kNoIndex) {
            m_open[child] = true;
            m_stack.push_back({child, 0});
            continue;
        }
        finish(m_stack.back().block);
        m_open[m_stack.back().block] = false;
        m_stack.pop_back();
    }
}

/// The next block referred to that waits for being linked; one that is open already refers back and
/// is left to finish().
quint32 SceneLinker::unlinkedChild(Visit& visit) const
{
    const auto& instances = m_scene.block(visit.block).instances();
    while (visit.instance < instances.size()) {
        const quint32 child = instances[visit.instance++].block;
        if (child != kNoIndex && !m_open[child] && !m_scene.block(child).totals().isLinked)
            return child;
    }
    return kNoIndex;
}

bool SceneLinker::mayFollow(const BlockInstance& instance, const DisplayList::Totals& sum) const
{
    const DisplayList::Totals& child = m_scene.block(instance.block).totals();
    // What is not linked yet by now is on the way from the root: the reference closes a circle.
    if (!child.isLinked || child.depth >= kDeepestNesting)
        return false;
    const quint64 each = std::max<quint64>(child.items, 1);
    return instance.count() <= kMostItemsOfReference / each
        && sum.items + instance.count() * each <= kMostItemsOfBlock;
}

Box2 SceneLinker::boundsOf(const BlockInstance& instance, const Box2& child)
{
    const quint32 lastColumn = instance.columns - 1;
    const quint32 lastRow = instance.rows - 1;
    Box2 box;
    for (const Affine2& cell : {instance.cell(0, 0), instance.cell(lastColumn, 0),
                                instance.cell(0, lastRow), instance.cell(lastColumn, lastRow)})
    {
        box.add(cell.mapBox(child));
    }
    return box;
}

void SceneLinker::addUp(const BlockInstance& instance, DisplayList::Totals& sum) const
{
    const DisplayList::Totals& child = m_scene.block(instance.block).totals();
    sum.items += instance.count() * std::max<quint64>(child.items, 1);
    sum.depth = std::max(sum.depth, child.depth + 1);
    sum.hasFills = sum.hasFills || child.hasFills;
    sum.hasTexts = sum.hasTexts || child.hasTexts;
}

void SceneLinker::finish(quint32 block)
{
    DisplayList& list = m_scene.block(block);
    list.sortStrokes();
    DisplayList::Totals sum = list.ownTotals();
    ChunkedList<BlockInstance>& instances = list.instances();
    for (std::size_t chunk = 0; chunk < instances.chunks().size(); ++chunk) {
        Box2 box;
        for (std::size_t i = instances.chunkBegin(chunk); i < instances.chunkEnd(chunk); ++i) {
            BlockInstance& instance = instances[i];
            if (instance.block == kNoIndex)
                continue;
            const bool follows = mayFollow(instance, sum);
            if (follows)
                instance.bounds = boundsOf(instance, m_scene.block(instance.block).totals().box);
            if (!follows || !isSaneOrEmpty(instance.bounds)) {
                instance.block = kNoIndex;
                list.countUndrawn(QByteArrayLiteral("INSERT"));
                continue;
            }
            addUp(instance, sum);
            box.add(instance.bounds);
        }
        instances.setChunkBox(chunk, box);
        sum.box.add(box);
    }
    sum.isLinked = true;
    list.setTotals(sum);
}

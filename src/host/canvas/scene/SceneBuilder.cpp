#include "host/canvas/scene/SceneBuilder.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/values/GroupCursor.h"
#include "database/values/OdCmColor.h"
#include "host/canvas/scene/OutlineOf.h"
#include "host/canvas/scene/Scene.h"
#include "host/canvas/scene/SceneLinker.h"

#include <algorithm>
#include <set>

namespace {

constexpr int kEntitiesBetweenLooksAtTheClock = 64;

quint64 slotsIn(const std::vector<EntityRun>& runs)
{
    quint64 count = 0;
    for (const EntityRun& run : runs)
        count += run.end - run.first;
    return count;
}

/// Model space or a sheet; in old drawings only the name tells.
bool isSpace(const OdDbBlockTableRecord& block)
{
    const QString name = block.getName();
    return block.isLayout() || name.startsWith(QLatin1String("*Model_Space"), Qt::CaseInsensitive)
        || name.startsWith(QLatin1String("*Paper_Space"), Qt::CaseInsensitive);
}

} // namespace

SceneBuilder::SceneBuilder(const OdDbDatabase& database, Scene& scene)
    : m_database(database)
    , m_store(database.store())
    , m_scene(scene)
    , m_cursor(database.makeCursor())
{
    if (!m_cursor)
        return;
    m_textStyles = std::make_unique<TextStyles>(database, *m_cursor);
    m_tessellator = std::make_unique<EntityTessellator>(
        EntityTessellator::Services{*m_cursor, m_store, scene, *this});
}

SceneBuilder::~SceneBuilder() = default;

void SceneBuilder::require(OdDbObjectId block)
{
    if (!block.isNull() && m_scene.find(block.slot()) == kNoIndex)
        enqueue(block);
}

Vec2 SceneBuilder::basePointOf(const OdDbBlockTableRecord& block)
{
    const Vec2 base = isSpace(block) ? Vec2{} : Vec2{block.origin()[0], block.origin()[1]};
    return isSane(base) ? base : Vec2{};
}

quint32 SceneBuilder::enqueue(OdDbObjectId id)
{
    const auto record = id.openObject<OdDbBlockTableRecord>();
    if (!record)
        return kNoIndex;
    const quint32 block = m_scene.add(id.slot(), basePointOf(*record));
    m_queue.push_back(block);
    m_knownSlots += slotsIn(record->entityRuns());
    return block;
}

quint32 SceneBuilder::blockByName(const QString& name)
{
    const auto known = m_blocksByName.constFind(name);
    if (known != m_blocksByName.cend())
        return known.value();
    const quint32 block = blockById(m_database.table(OdDbTableKind::Block).getAt(name));
    m_blocksByName.insert(name, block);
    return block;
}

quint32 SceneBuilder::blockByHandle(quint64 handle)
{
    return blockById(m_database.getOdDbObjectId(OdDbHandle(handle)));
}

quint32 SceneBuilder::blockById(OdDbObjectId id)
{
    if (id.isNull())
        return kNoIndex;
    const quint32 known = m_scene.find(id.slot());
    return known != kNoIndex ? known : enqueue(id);
}

bool SceneBuilder::isMissingReference(quint32 block) const
{
    const OdDbObjectId id = m_database.idOfSlot(m_scene.block(block).slot());
    const auto record = id.openObject<OdDbBlockTableRecord>();
    return record && record->isFromExternalReference() && slotsIn(record->entityRuns()) == 0;
}

Vec2 SceneBuilder::basePoint(quint32 block) const
{
    return m_scene.block(block).basePoint();
}

Style SceneBuilder::styleOf(quint32 slot, const EntityFields& fields)
{
    enum { kColourIndex = 62, kTrueColour = 420, kByBlockIndex = 0, kByLayerIndex = 256 };
    constexpr quint32 kRgbMask = 0xFFFFFF;
    const quint32 layer = m_store.layer(slot);
    Style style{layer == ObjectStore::kNone ? 0 : m_scene.layerIndex(layer), 0, penOf(fields)};
    if (fields.has(kTrueColour)) {
        const auto rgb = static_cast<quint32>(fields.integer(kTrueColour)) & kRgbMask;
        style.colour = (quint32(OdCmColor::kByColor) << 24) | rgb;
        return style;
    }
    const int index = std::abs(fields.integer(kColourIndex, kByLayerIndex));
    const auto method = index == kByBlockIndex ? OdCmColor::kByBlock
        : index >= kByLayerIndex               ? OdCmColor::kByLayer
                                               : OdCmColor::kByACI;
    style.colour = (quint32(method) << 24);
    if (method == OdCmColor::kByACI)
        style.colour |= static_cast<quint32>(index);
    return style;
}

quint32 SceneBuilder::penOf(const EntityFields& fields)
{
    enum { kScale = 48, kWeight = 370, kTransparency = 440 };
    const QString& linetype = fields.linetype();
    if (linetype.isEmpty() && !fields.has(kScale) && !fields.has(kWeight)
        && !fields.has(kTransparency)) {
        return 0;
    }
    Pen pen;
    if (!linetype.isEmpty())
        pen.linetype = linetypeByName(linetype);
    pen.weight = std::clamp(fields.integer(kWeight, pen.weight), -3, 211);
    pen.transparency = static_cast<quint32>(fields.integer(kTransparency));
    const double scale = fields.real(kScale, 1);
    if (scale > 0 && scale <= kLargestCoordinate)
        pen.scale = scale;
    return m_scene.pens().intern(pen);
}

quint32 SceneBuilder::linetypeByName(const QString& name)
{
    const auto known = m_linetypesByName.constFind(name);
    if (known != m_linetypesByName.cend())
        return known.value();
    quint32 index = Pen::kByLayer;
    if (name.compare(QLatin1String("ByBlock"), Qt::CaseInsensitive) == 0)
        index = Pen::kByBlock;
    else if (name.compare(QLatin1String("ByLayer"), Qt::CaseInsensitive) != 0)
        index = m_scene.linetypes().indexOf(m_database,
                                            m_database.table(OdDbTableKind::Linetype).getAt(name));
    m_linetypesByName.insert(name, index);
    return index;
}

bool SceneBuilder::step(QDeadlineTimer until)
{
    if (!m_cursor)
        return true;
    do {
        if (!readSome()) {
            SceneLinker linker(m_scene);
            if (m_hasRedrawn)
                linker.relink();
            else
                linker.link();
            return true;
        }
    } while (!until.hasExpired());
    return false;
}

bool SceneBuilder::readSome()
{
    for (int i = 0; i < kEntitiesBetweenLooksAtTheClock; ++i) {
        while (m_run < m_runs.size() && m_slot >= m_runs[m_run].end) {
            if (++m_run < m_runs.size())
                m_slot = m_runs[m_run].first;
        }
        if (m_run >= m_runs.size())
            return nextBlock();
        ++m_doneSlots;
        visit(m_slot++);
    }
    return true;
}

bool SceneBuilder::nextBlock()
{
    if (m_next >= m_queue.size())
        return false;
    m_block = m_queue[m_next++];
    const OdDbObjectId id = m_database.idOfSlot(m_scene.block(m_block).slot());
    const auto record = id.openObject<OdDbBlockTableRecord>();
    m_runs = record ? record->entityRuns() : std::vector<EntityRun>();
    m_run = 0;
    m_slot = m_runs.empty() ? 0 : m_runs.front().first;
    m_space = spaceInfo(id);
    return true;
}

SpaceInfo SceneBuilder::spaceInfo(OdDbObjectId block) const
{
    SpaceInfo info;
    const auto record = block.openObject<OdDbBlockTableRecord>();
    info.isLayout = record && isSpace(*record);
    if (!info.isLayout)
        return info;
    const std::vector<OdDbObjectId> viewports = m_database.viewportsOf(block);
    if (!viewports.empty())
        info.overallViewport = viewports.front().slot();
    return info;
}

/// Whether the entity is one that stands in a block which was read.
bool SceneBuilder::isRead(quint32 slot) const
{
    const quint32 owner = m_store.owner(slot);
    const quint32 block = owner == ObjectStore::kNone ? kNoIndex : m_scene.find(owner);
    return block != kNoIndex && m_scene.block(block).totals().isLinked;
}

void SceneBuilder::redraw(const std::vector<quint32>& added, const std::vector<quint32>& changed)
{
    if (!m_cursor)
        return;
    std::vector<quint32> all;
    std::merge(added.begin(), added.end(), changed.begin(), changed.end(), std::back_inserter(all));
    all.erase(std::unique(all.begin(), all.end()), all.end());
    std::erase_if(all, [this](quint32 slot) { return !isRead(slot); });
    std::set<quint32> blocks;
    for (const quint32 slot : all)
        blocks.insert(m_scene.find(m_store.owner(slot)));
    for (const quint32 block : blocks)
        m_scene.block(block).retire(all);
    for (const quint32 slot : all) {
        m_block = m_scene.find(m_store.owner(slot));
        m_space = spaceInfo(m_database.idOfSlot(m_store.owner(slot)));
        DisplayList& list = m_scene.block(m_block);
        const QHash<QByteArray, int> undrawn = list.undrawn();
        visit(slot);
        // What could not be drawn before was counted then.
        if (!std::binary_search(added.begin(), added.end(), slot))
            m_scene.block(m_block).setUndrawn(undrawn);
    }
    m_hasRedrawn = true;
}

/// The outline of a viewport that another entity clips.
void SceneBuilder::completeClip(SheetViewport& viewport)
{
    const quint32 slot = m_store.find(viewport.clipEntity);
    if (slot == ObjectStore::kNone || !m_store.has(slot, ObjectStore::kEntity)
        || m_store.type(slot) == RecordType::Viewport)
    {
        return;
    }
    DisplayList strokes(kNoIndex, {});
    m_tessellator->draw(slot, strokes, m_space);
    viewport.clip = outlineOf(strokes);
}

void SceneBuilder::visit(quint32 slot)
{
    DisplayList& list = m_scene.block(m_block);
    const bool isOwn = m_store.owner(slot) == list.slot();
    const bool isDrawable =
        m_store.has(slot, ObjectStore::kEntity) && !m_store.has(slot, ObjectStore::kSubEntity);
    if (!isOwn || !isDrawable)
        return;
    if (m_store.has(slot, ObjectStore::kErased))
        m_erased.push_back(slot);
    m_tessellator->draw(slot, list, m_space);
    std::vector<SheetViewport>& viewports = list.viewports();
    if (!viewports.empty() && viewports.back().slot == slot && viewports.back().clipEntity != 0)
        completeClip(viewports.back());
}

double SceneBuilder::progress() const
{
    return m_knownSlots == 0 ? 1.0
                             : static_cast<double>(m_doneSlots) / static_cast<double>(m_knownSlots);
}

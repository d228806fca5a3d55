#include "host/canvas/CanvasContents.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "host/canvas/DatabaseWatcher.h"
#include "host/canvas/render/SceneExtents.h"
#include "host/canvas/scene/Scene.h"
#include "host/canvas/scene/SheetPaper.h"

#include <algorithm>
#include <set>
#include <utility>

namespace {

constexpr int kSliceMilliseconds = 12;
// More edits at once than that are read with everything else.
constexpr std::size_t kMostRedrawn = 50'000;

std::vector<quint32> sorted(std::vector<quint32> entities)
{
    std::sort(entities.begin(), entities.end());
    entities.erase(std::unique(entities.begin(), entities.end()), entities.end());
    return entities;
}

} // namespace

CanvasContents::CanvasContents(QObject* parent)
    : QObject(parent)
{
    m_sliceTimer.setInterval(0);
    connect(&m_sliceTimer, &QTimer::timeout, this,
            [this] { readSlice(QDeadlineTimer(kSliceMilliseconds)); });
    forget();
    // A burst of changed entities costs one reading.
    m_rebuildTimer.setInterval(0);
    m_rebuildTimer.setSingleShot(true);
    connect(&m_rebuildTimer, &QTimer::timeout, this, &CanvasContents::rebuild);
}

CanvasContents::~CanvasContents() = default;

void CanvasContents::forget()
{
    m_sliceTimer.stop();
    m_rebuildTimer.stop();
    m_builder.reset();
    m_growing.reset();
    m_scene.reset();
    m_looks.reset();
    m_viewportLooks.clear();
    m_changedLayers.clear();
    m_addedEntities.clear();
    m_changedEntities.clear();
    m_lines.reset();
    m_space = m_shownSpace = kNoIndex;
    m_paper = {};
    m_shaper = std::make_shared<TextShaper>();
    m_erased = std::make_shared<ErasedFilter>();
    m_database = nullptr;
}

void CanvasContents::setDatabase(OdDbDatabase* database)
{
    m_watcher.reset();
    forget();
    // One that was never filled has no tables to look into.
    const bool hasContents = database && !database->tableId(OdDbTableKind::Layer).isNull()
        && !database->tableId(OdDbTableKind::Block).isNull();
    if (hasContents) {
        m_database = database;
        m_watcher = std::make_unique<DatabaseWatcher>(*database);
        follow(*m_watcher);
        followSpace();
    }
    emit lookChanged();
}

void CanvasContents::follow(DatabaseWatcher& watcher)
{
    connect(&watcher, &DatabaseWatcher::layerChanged, this, [this](quint32 slot) {
        m_changedLayers.push_back(slot);
        emit lookChanged();
    });
    connect(&watcher, &DatabaseWatcher::linetypeChanged, this, [this](quint32 slot) {
        if (m_scene && m_scene->linetypes().refresh(*m_database, m_database->idOfSlot(slot)))
            emit lookChanged();
    });
    connect(&watcher, &DatabaseWatcher::viewportChanged, this, [this](quint32 slot) {
        m_viewportLooks.remove(slot);
        entityChanged(slot, m_changedEntities);
    });
    connect(&watcher, &DatabaseWatcher::entityErased, this, [this](quint32 slot, bool erased) {
        m_erased->set(slot, erased);
        emit lookChanged();
    });
    connect(&watcher, &DatabaseWatcher::entityAppended, this,
            [this](quint32 slot) { entityChanged(slot, m_addedEntities); });
    connect(&watcher, &DatabaseWatcher::entityModified, this,
            [this](quint32 slot) { entityChanged(slot, m_changedEntities); });
    connect(&watcher, &DatabaseWatcher::blockModified, this, &CanvasContents::followBlock);
    connect(&watcher, &DatabaseWatcher::spaceChanged, this, &CanvasContents::followSpace);
    connect(&watcher, &DatabaseWatcher::activeViewportChanged, this, &CanvasContents::lookChanged);
    connect(&watcher, &DatabaseWatcher::variableChanged, this, [this](const QString& name) {
        if (!DrawingLines::dependOn(name))
            return;
        m_lines.reset();
        emit lookChanged();
    });
    connect(&watcher, &DatabaseWatcher::databaseGone, this, [this] {
        forget();
        emit lookChanged();
    });
}

/// Geometry counts from the base point of its block.
void CanvasContents::followBlock(quint32 slot)
{
    const quint32 block = m_scene ? m_scene->find(slot) : kNoIndex;
    const auto record = m_database->idOfSlot(slot).openObject<OdDbBlockTableRecord>();
    if (block == kNoIndex || !record)
        return;
    const Vec2 base = SceneBuilder::basePointOf(*record);
    if (!(base == m_scene->block(block).basePoint()))
        m_rebuildTimer.start();
}

/// `list`: where such changes wait until a picture is asked for. Vertices and attributes are drawn
/// with their entity.
void CanvasContents::entityChanged(quint32 slot, std::vector<quint32>& list)
{
    const ObjectStore& store = m_database->store();
    while (slot > 0 && store.has(slot, ObjectStore::kSubEntity))
        --slot;
    list.push_back(slot);
    emit lookChanged();
}

void CanvasContents::applyEntityChanges()
{
    const bool isDue = !m_addedEntities.empty() || !m_changedEntities.empty();
    // A drawing that is being read is up to date only when that has come to its end.
    if (!isDue || !m_scene || m_builder)
        return;
    const std::vector<quint32> added = sorted(std::exchange(m_addedEntities, {}));
    const std::vector<quint32> changed = sorted(std::exchange(m_changedEntities, {}));
    if (added.size() + changed.size() > kMostRedrawn) {
        rebuild();
        return;
    }
    m_growing = m_scene;
    m_builder = std::make_unique<SceneBuilder>(*m_database, *m_growing);
    m_builder->redraw(added, changed);
    // Whoever asked for a picture gets it with the changes: nothing to announce.
    if (m_builder->step(QDeadlineTimer(kSliceMilliseconds)))
        takeWhatWasRead();
    else
        m_sliceTimer.start();
    emit entitiesRedrawn();
}

void CanvasContents::setLockedFade(int percent)
{
    if (std::exchange(m_lockedFade, percent) == percent)
        return;
    m_lines.reset();
    emit lookChanged();
}

void CanvasContents::setDefaultWeight(int weight)
{
    if (std::exchange(m_defaultWeight, weight) == weight)
        return;
    m_lines.reset();
    emit lookChanged();
}

const DrawingLines& CanvasContents::lines()
{
    if (!m_lines) {
        m_lines = DrawingLines::of(*m_database,
                                   m_database->getTILEMODE() ? OdDbObjectId()
                                                             : m_database->currentLayoutId());
        m_lines->own.lockedFade = m_lockedFade;
        m_lines->own.defaultWeight = m_defaultWeight;
    }
    return *m_lines;
}

void CanvasContents::rebuild()
{
    if (m_database)
        startReading(nullptr);
}

/// Reads into a scene that is there already, or into a new one that takes its place when it is
/// ready.
void CanvasContents::startReading(std::shared_ptr<Scene> scene)
{
    m_rebuildTimer.stop();
    m_growing = scene ? scene : std::make_shared<Scene>(m_database->getLayerZeroId().slot());
    m_builder = std::make_unique<SceneBuilder>(*m_database, *m_growing);
    ++m_builds;
    requireSpaces();
    m_sliceTimer.start();
    emit readingProgressed();
}

bool CanvasContents::showsModelThroughViewports() const
{
    return m_database->viewportsOf(m_database->idOfSlot(m_space)).size() > 1;
}

void CanvasContents::requireSpaces()
{
    if (m_space == kNoIndex)
        return;
    m_builder->require(m_database->idOfSlot(m_space));
    if (showsModelThroughViewports())
        m_builder->require(m_database->getModelSpaceId());
}

void CanvasContents::followSpace()
{
    const OdDbObjectId space =
        m_database->getTILEMODE() ? m_database->getModelSpaceId() : m_database->getPaperSpaceId();
    m_space = space.isNull() ? kNoIndex : space.slot();
    m_lines.reset();
    if (isReady()) {
        announceSpace();
    } else if (m_builder) {
        requireSpaces();
    } else {
        startReading(m_scene);
    }
    emit lookChanged();
}

void CanvasContents::readSlice(QDeadlineTimer until)
{
    if (m_builder && m_builder->step(until))
        readingDone();
    emit readingProgressed();
}

void CanvasContents::finish()
{
    if (m_rebuildTimer.isActive())
        rebuild();
    do {
        while (m_builder)
            readSlice(QDeadlineTimer(QDeadlineTimer::Forever));
        applyEntityChanges();
    } while (m_builder);
}

void CanvasContents::takeWhatWasRead()
{
    m_sliceTimer.stop();
    const ObjectStore& store = m_database->store();
    for (const quint32 slot : m_builder->erased())
        m_erased->set(slot, store.has(slot, ObjectStore::kErased));
    m_builder.reset();
    if (m_scene != m_growing) {
        m_scene = m_growing;
        m_looks = std::make_shared<LayerLooks>();
        m_shaper = std::make_shared<TextShaper>();
    }
    m_growing.reset();
    m_viewportLooks.clear();
}

void CanvasContents::readingDone()
{
    takeWhatWasRead();
    if (isReady() && m_shownSpace != m_space)
        announceSpace();
    emit lookChanged();
}

void CanvasContents::announceSpace()
{
    m_shownSpace = m_space;
    m_paper =
        m_database->getTILEMODE() ? Box2() : sheetPaper(*m_database, m_database->currentLayoutId());
    emit spaceShown();
}

quint32 CanvasContents::spaceIndex() const
{
    return m_scene && m_space != kNoIndex ? m_scene->find(m_space) : kNoIndex;
}

bool CanvasContents::isReady() const
{
    const auto isLinked = [this](quint32 index) {
        return index != kNoIndex && m_scene->block(index).totals().isLinked;
    };
    return isLinked(spaceIndex())
        && (!showsModelThroughViewports()
            || isLinked(m_scene->find(m_database->getModelSpaceId().slot())));
}

void CanvasContents::applyLayerChanges()
{
    if (m_changedLayers.empty() && m_looks->size() == m_scene->layers().size())
        return;
    // A picture that is being painted keeps the looks it began with.
    m_looks = std::make_shared<LayerLooks>(*m_looks);
    m_looks->extend(*m_database, *m_scene);
    std::sort(m_changedLayers.begin(), m_changedLayers.end());
    const auto end = std::unique(m_changedLayers.begin(), m_changedLayers.end());
    std::for_each(m_changedLayers.begin(), end, [this](quint32 slot) {
        const quint32 layer = m_scene->findLayer(slot);
        if (layer != kNoIndex)
            m_looks->refresh(*m_database, *m_scene, layer);
    });
    m_changedLayers.clear();
    m_viewportLooks.clear();
}

std::shared_ptr<const LayerLooks> CanvasContents::looksIn(OdDbObjectId viewport)
{
    std::shared_ptr<const LayerLooks>& looks = m_viewportLooks[viewport.slot()];
    if (!looks) {
        looks = std::make_shared<LayerLooks>(m_looks->inViewport(*m_database, *m_scene, viewport));
    }
    return looks;
}

std::vector<ScenePart> CanvasContents::parts()
{
    std::vector<ScenePart> parts;
    applyEntityChanges();
    if (!isReady())
        return parts;
    applyLayerChanges();
    const quint32 space = spaceIndex();
    ScenePart whole;
    whole.block = space;
    whole.looks = m_looks;
    whole.lines = lines().own;
    const std::vector<OdDbObjectId> viewports =
        m_database->viewportsOf(m_database->idOfSlot(m_space));
    if (!viewports.empty())
        whole.looks = looksIn(viewports.front());
    for (const SheetViewport& viewport : m_scene->block(space).viewports()) {
        if (viewport.isOff || !viewport.isPlan || m_erased->isErased(viewport.slot))
            continue;
        const ScenePart part = partThrough(viewport);
        if (part.block != kNoIndex)
            parts.push_back(part);
    }
    parts.push_back(whole);
    return parts;
}

ScenePart CanvasContents::partThrough(const SheetViewport& viewport)
{
    ScenePart part;
    part.block = m_scene->find(m_database->getModelSpaceId().slot());
    part.isPlaced = true;
    part.placement = viewport.modelToSheet();
    part.frame = viewport.frame();
    part.clip = viewport.clip;
    part.looks = looksIn(m_database->idOfSlot(viewport.slot));
    part.lines = lines().through(viewport.scale());
    return part;
}

Box2 CanvasContents::extents()
{
    Box2 box = paper();
    for (const ScenePart& part : parts()) {
        box.add(part.isPlaced ? part.frame
                              : SceneExtents(*m_scene, *part.looks, *m_erased).of(part.block));
    }
    return box;
}

const SheetViewport* CanvasContents::activeViewport() const
{
    if (!isReady())
        return nullptr;
    const OdDbObjectId active = m_database->activeViewportId();
    for (const SheetViewport& viewport : m_scene->block(spaceIndex()).viewports()) {
        if (viewport.slot == active.slot() && !active.isNull())
            return &viewport;
    }
    return nullptr;
}

Box2 CanvasContents::activeViewportFrame() const
{
    const SheetViewport* viewport = activeViewport();
    return viewport ? viewport->frame() : Box2();
}

PickScene CanvasContents::pickScene()
{
    const std::vector<ScenePart> all = parts();
    if (all.empty())
        return {};
    PickScene picks{m_scene, m_erased, all.back().looks, all.back().block, {}, {}, {}};
    const SheetViewport* viewport = activeViewport();
    if (!viewport || viewport->isOff || !viewport->isPlan)
        return picks;
    picks.block = m_scene->find(m_database->getModelSpaceId().slot());
    picks.looks = looksIn(m_database->idOfSlot(viewport->slot));
    picks.placement = viewport->modelToSheet();
    picks.frame = viewport->frame();
    picks.clip = viewport->clip;
    return picks;
}

std::vector<SheetViewport> CanvasContents::openViewports() const
{
    if (!isReady() || m_database->getTILEMODE())
        return {};
    std::vector<SheetViewport> open = m_scene->block(spaceIndex()).viewports();
    std::erase_if(open, [this](const SheetViewport& viewport) {
        return viewport.isOff || !viewport.isPlan || m_erased->isErased(viewport.slot);
    });
    return open;
}

std::vector<bool> CanvasContents::reachableBlocks() const
{
    std::vector<bool> reached(m_scene->blockCount(), false);
    std::vector<quint32> pending{spaceIndex()};
    if (showsModelThroughViewports())
        pending.push_back(m_scene->find(m_database->getModelSpaceId().slot()));
    while (!pending.empty()) {
        const quint32 block = pending.back();
        pending.pop_back();
        if (reached[block])
            continue;
        reached[block] = true;
        const ChunkedList<BlockInstance>& instances = m_scene->block(block).instances();
        for (std::size_t i = 0; i < instances.size(); ++i) {
            const quint32 child = instances[i].block;
            if (child != kNoIndex && !reached[child])
                pending.push_back(child);
        }
    }
    return reached;
}

/// Of those that layers or entities in the blocks have.
int CanvasContents::linetypesWithSymbols(const std::vector<bool>& blocks) const
{
    const Linetypes& linetypes = m_scene->linetypes();
    std::set<quint32> found;
    for (quint32 block = 0; block < blocks.size(); ++block) {
        if (!blocks[block])
            continue;
        for (const DisplayList::StrokeGroup& group : m_scene->block(block).groups()) {
            quint32 linetype = m_scene->pens()[group.style.pen].linetype;
            if (linetype == Pen::kByLayer)
                linetype = (*m_looks)[group.style.layer].linetype;
            if (linetype != Pen::kByBlock && linetypes[linetype].hasSymbols())
                found.insert(linetype);
        }
    }
    return static_cast<int>(found.size());
}

QString CanvasContents::undrawnSummary()
{
    applyEntityChanges();
    if (!isReady())
        return {};
    applyLayerChanges();
    QHash<QByteArray, int> counts;
    const std::vector<bool> reached = reachableBlocks();
    for (quint32 block = 0; block < reached.size(); ++block) {
        const QHash<QByteArray, int>& undrawn = m_scene->block(block).undrawn();
        for (auto it = undrawn.cbegin(); reached[block] && it != undrawn.cend(); ++it)
            counts[it.key()] += it.value();
    }
    if (const int linetypes = linetypesWithSymbols(reached))
        counts.insert(QByteArrayLiteral("LTYPE symbol"), linetypes);
    if (counts.isEmpty())
        return {};
    std::vector<std::pair<int, QByteArray>> sorted;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        sorted.emplace_back(-it.value(), it.key());
    std::sort(sorted.begin(), sorted.end());
    QStringList texts;
    for (const auto& [negative, type] : sorted)
        texts.append(QStringLiteral("%1 %2").arg(-negative).arg(QString::fromUtf8(type)));
    return tr("%1 not drawn").arg(texts.join(QStringLiteral(", ")));
}

#include "host/canvas/CanvasContents.h"

#include "database/ObjectStore.h"
#include "database/OdDbDatabase.h"
#include "host/canvas/DatabaseWatcher.h"
#include "host/canvas/render/SceneExtents.h"
#include "host/canvas/scene/Scene.h"
#include "host/canvas/scene/SheetPaper.h"

#include <algorithm>

namespace {

constexpr int kSliceMilliseconds = 12;

}

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
        DatabaseWatcher* watcher = m_watcher.get();
        connect(watcher, &DatabaseWatcher::layerChanged, this, [this](quint32 slot) {
            m_changedLayers.push_back(slot);
            emit lookChanged();
        });
        connect(watcher, &DatabaseWatcher::viewportChanged, this, [this](quint32 slot) {
            m_viewportLooks.remove(slot);
            emit lookChanged();
        });
        connect(watcher, &DatabaseWatcher::entityErased, this, [this](quint32 slot, bool erased) {
            m_erased->set(slot, erased);
            emit lookChanged();
        });
        connect(watcher, &DatabaseWatcher::geometryChanged, &m_rebuildTimer,
                qOverload<>(&QTimer::start));
        connect(watcher, &DatabaseWatcher::spaceChanged, this, &CanvasContents::followSpace);
        connect(watcher, &DatabaseWatcher::activeViewportChanged, this,
                &CanvasContents::lookChanged);
        connect(watcher, &DatabaseWatcher::databaseGone, this, [this] {
            forget();
            emit lookChanged();
        });
        followSpace();
    }
    emit lookChanged();
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
    while (m_builder)
        readSlice(QDeadlineTimer(QDeadlineTimer::Forever));
}

void CanvasContents::readingDone()
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
    if (!isReady())
        return parts;
    applyLayerChanges();
    const quint32 space = spaceIndex();
    ScenePart whole;
    whole.block = space;
    whole.looks = m_looks;
    const std::vector<OdDbObjectId> viewports =
        m_database->viewportsOf(m_database->idOfSlot(m_space));
    if (!viewports.empty())
        whole.looks = looksIn(viewports.front());
    for (const SheetViewport& viewport : m_scene->block(space).viewports()) {
        if (viewport.isOff || !viewport.isPlan || m_erased->isErased(viewport.slot))
            continue;
        ScenePart part;
        part.block = m_scene->find(m_database->getModelSpaceId().slot());
        part.isPlaced = true;
        part.placement = viewport.modelToSheet();
        part.frame = viewport.frame();
        part.looks = looksIn(m_database->idOfSlot(viewport.slot));
        if (part.block != kNoIndex)
            parts.push_back(part);
    }
    parts.push_back(whole);
    return parts;
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
    PickScene picks{m_scene, m_erased, all.back().looks, all.back().block, {}, {}};
    const SheetViewport* viewport = activeViewport();
    if (!viewport || viewport->isOff || !viewport->isPlan)
        return picks;
    picks.block = m_scene->find(m_database->getModelSpaceId().slot());
    picks.looks = looksIn(m_database->idOfSlot(viewport->slot));
    picks.placement = viewport->modelToSheet();
    picks.frame = viewport->frame();
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

QString CanvasContents::undrawnSummary() const
{
    if (!isReady())
        return {};
    QHash<QByteArray, int> counts;
    const std::vector<bool> reached = reachableBlocks();
    for (quint32 block = 0; block < reached.size(); ++block) {
        const QHash<QByteArray, int>& undrawn = m_scene->block(block).undrawn();
        for (auto it = undrawn.cbegin(); reached[block] && it != undrawn.cend(); ++it)
            counts[it.key()] += it.value();
    }
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

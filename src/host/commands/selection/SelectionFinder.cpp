#include "host/commands/selection/SelectionFinder.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/application/HostView.h"
#include "host/canvas/picking/EntityPicker.h"
#include "host/canvas/render/SceneExtents.h"
#include "host/documents/HostDocument.h"

#include <QHash>

namespace {

// Of the drawing's larger side: five pixels of a thousand.
constexpr double kReachShare = 0.005;

/// Asks each layer once for many entities.
template <class Ask>
class LayerAnswers
{
public:
    LayerAnswers(const OdDbDatabase& database, Ask ask)
        : m_database(database)
        , m_ask(ask)
    { }
    bool operator()(quint32 layer)
    {
        if (const auto known = m_known.constFind(layer); known != m_known.cend())
            return known.value();
        const auto record = m_database.idOfSlot(layer).openObject<OdDbLayerTableRecord>();
        return *m_known.insert(layer, record && m_ask(*record));
    }

private:
    const OdDbDatabase& m_database;
    Ask m_ask;
    QHash<quint32, bool> m_known;
};

} // namespace

/// The space that is pointed at: model space in a viewport that is worked in.
OdDbObjectId SelectionFinder::space() const
{
    const OdDbDatabase& drawing = *m_document.database();
    const PickScene picks = m_document.picks().contents().pickScene();
    if (!picks.isEmpty())
        return drawing.idOfSlot(picks.scene->block(picks.block).slot());
    return drawing.getTILEMODE() ? drawing.getModelSpaceId() : drawing.getPaperSpaceId();
}

SelectionFinder::Entities SelectionFinder::toIds(const std::vector<quint32>& found) const
{
    Entities entities;
    entities.reserve(found.size());
    for (const quint32 slot : found)
        entities.push_back(m_document.database()->idOfSlot(slot));
    return entities;
}

double SelectionFinder::reach() const
{
    if (m_view)
        return m_view->pickReach();
    const PickScene picks = m_document.picks().contents().pickScene();
    if (picks.isEmpty())
        return 0;
    const Box2 box = SceneExtents(*picks.scene, *picks.looks, *picks.erased).of(picks.block);
    return box.isEmpty() ? 0 : std::max(box.width(), box.height()) * kReachShare;
}

SelectionFinder::Entities SelectionFinder::at(Vec2 point) const
{
    const PickScene picks = m_document.picks().contents().pickScene();
    const auto found = EntityPicker(picks).nearest(point, reach());
    return found ? toIds({*found}) : Entities();
}

SelectionFinder::Entities SelectionFinder::inside(const Box2& box) const
{
    const PickScene picks = m_document.picks().contents().pickScene();
    return toIds(EntityPicker(picks).inside(box));
}

SelectionFinder::Entities SelectionFinder::touched(const Box2& box) const
{
    const PickScene picks = m_document.picks().contents().pickScene();
    return toIds(EntityPicker(picks).touched(box));
}

SelectionFinder::Entities SelectionFinder::all() const
{
    const OdDbDatabase& drawing = *m_document.database();
    const ObjectStore& store = drawing.store();
    const OdDbObjectId block = space();
    const auto record = block.openObject<OdDbBlockTableRecord>();
    if (!record)
        return {};
    const std::vector<OdDbObjectId> viewports = drawing.viewportsOf(block);
    // The sheet's own viewport is the sheet, no entity on it.
    const quint32 sheet = viewports.empty() ? ObjectStore::kNone : viewports.front().slot();
    LayerAnswers isThawed(drawing,
                          [](const OdDbLayerTableRecord& layer) { return !layer.isFrozen(); });
    Entities entities;
    for (const EntityRun& run : record->entityRuns()) {
        for (quint32 slot = run.first; slot < run.end; ++slot) {
            const bool isOwn = store.owner(slot) == block.slot() && slot != sheet
                && store.has(slot, ObjectStore::kEntity)
                && !store.has(slot, ObjectStore::kSubEntity)
                && !store.has(slot, ObjectStore::kErased);
            if (isOwn && isThawed(store.layer(slot)))
                entities.push_back(drawing.idOfSlot(slot));
        }
    }
    return entities;
}

std::optional<SelectionFinder::Entities> SelectionFinder::onLayer(const QString& name) const
{
    const OdDbDatabase& drawing = *m_document.database();
    const OdDbObjectId layer = drawing.layerTable().getAt(name);
    if (layer.isNull())
        return std::nullopt;
    Entities entities = all();
    std::erase_if(entities, [&](OdDbObjectId id) {
        return drawing.store().layer(id.slot()) != layer.slot();
    });
    return entities;
}

SelectionFinder::Entities SelectionFinder::last() const
{
    constexpr double kEverywhere = 2 * kLargestCoordinate;
    std::vector<quint32> seen;
    const PickScene picks = m_document.picks().contents().pickScene();
    seen = EntityPicker(picks).touched({-kEverywhere, -kEverywhere, kEverywhere, kEverywhere});
    return seen.empty() ? Entities() : toIds({seen.back()});
}

SelectionFinder::Kept SelectionFinder::keep(const Entities& entities, const QStringList& types,
                                            bool keepsLocked)
{
    Kept kept;
    if (entities.empty())
        return kept;
    const OdDbDatabase& drawing = *entities.front().database();
    const ObjectStore& store = drawing.store();
    LayerAnswers isLocked(drawing,
                          [](const OdDbLayerTableRecord& layer) { return layer.isLocked(); });
    for (const OdDbObjectId id : entities) {
        const QString type = QString::fromLatin1(store.typeName(id.slot()));
        if (!types.isEmpty() && !types.contains(type, Qt::CaseInsensitive))
            ++kept.otherTypes;
        else if (!keepsLocked && isLocked(store.layer(id.slot())))
            ++kept.locked;
        else
            kept.entities.push_back(id);
    }
    return kept;
}

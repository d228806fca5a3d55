#include "layermanager/filters/tree/ExternalReferences.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/GroupCursor.h"

#include <QHash>

#include <utility>

namespace {

/// Group code of the block name in an insertion.
constexpr int kBlockName = 2;

/// References nested deeper stand on top: a drawing must not decide how deep the tree is.
constexpr int kDeepest = 64;

struct Found
{
    QString name;
    OdDbObjectId block;
    std::vector<std::size_t> nested; ///< places in the list
    bool isNested = false;
    bool isPlaced = false;
};

class Nesting
{
public:
    explicit Nesting(const OdDbDatabase& database)
        : m_database(database)
    {
        for (const quint32 slot : database.table(OdDbTableKind::Block).slotsInOrder()) {
            const OdDbObjectId id = database.idOfSlot(slot);
            const auto block = id.openObject<OdDbBlockTableRecord>();
            if (!block || !block->isFromExternalReference())
                continue;
            m_places.insert(block->getName().toCaseFolded(), m_found.size());
            m_found.push_back({block->getName(), id, {}});
        }
        if (m_found.size() > 1)
            readInsertions();
    }

    std::vector<ExternalReference> tree()
    {
        std::vector<ExternalReference> top;
        for (Found& found : m_found) {
            if (!found.isNested)
                place(found, top, 0);
        }
        // References that hold each other.
        for (Found& found : m_found)
            place(found, top, 0);
        return top;
    }

private:
    void readInsertions()
    {
        const std::unique_ptr<GroupCursor> cursor = m_database.makeCursor();
        if (!cursor)
            return;
        for (Found& found : m_found) {
            const auto block = found.block.openObject<OdDbBlockTableRecord>();
            for (const EntityRun& run : block->entityRuns()) {
                for (quint32 slot = run.first; slot < run.end; ++slot)
                    readInsertion(*cursor, slot, found);
            }
        }
    }

    void readInsertion(GroupCursor& cursor, quint32 slot, Found& holder)
    {
        const ObjectStore& store = m_database.store();
        if (store.type(slot) != RecordType::Insert || store.has(slot, ObjectStore::kErased)
            || store.owner(slot) != holder.block.slot())
            return;
        cursor.open(slot);
        while (cursor.next()) {
            if (cursor.code() != kBlockName)
                continue;
            const auto place = m_places.constFind(cursor.text().toCaseFolded());
            if (place != m_places.cend()) {
                holder.nested.push_back(*place);
                m_found[*place].isNested = true;
            }
            return;
        }
    }

    void place(Found& found, std::vector<ExternalReference>& into, int depth)
    {
        if (depth == kDeepest || std::exchange(found.isPlaced, true))
            return;
        ExternalReference reference{found.name, found.block, {}};
        for (const std::size_t nested : found.nested)
            place(m_found[nested], reference.nested, depth + 1);
        into.push_back(std::move(reference));
    }

    const OdDbDatabase& m_database;
    std::vector<Found> m_found;
    QHash<QString, std::size_t> m_places;
};

} // namespace

QString externalReferencesName()
{
    return QStringLiteral("External References");
}

std::vector<ExternalReference> externalReferences(const OdDbDatabase& database)
{
    return Nesting(database).tree();
}

void layersOfExternalReference(const OdDbDatabase& database, OdDbObjectId block,
                               std::vector<OdDbObjectId>& inLayers,
                               std::vector<OdDbObjectId>& otherLayers)
{
    inLayers.clear();
    otherLayers.clear();
    for (const quint32 slot : database.layerTable().slotsInOrder()) {
        const OdDbObjectId id = database.idOfSlot(slot);
        const auto layer = id.openObject<OdDbLayerTableRecord>();
        if (!layer)
            continue;
        const bool isIn =
            layer->isDependent() && (block.isNull() || layer->externalReference() == block);
        (isIn ? inLayers : otherLayers).push_back(id);
    }
}

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/dxf/patch/NewRecords.h"
#include "io/dxf/read/DxfObjectSource.h"

bool NewRecords::knowsEntityGroup(int code) const
{
    switch (code) {
    case 100: // subclass
        return m_hasSubclasses;
    case 48: // linetype scale
    case 60: // invisible
        return m_source.version() >= DrawingVersion::R13;
    case 370: // lineweight
        return m_source.version() >= DrawingVersion::V2000;
    case 420: // true color
    case 430: // its name
    case 440: // transparency
        return m_source.version() >= DrawingVersion::V2004;
    default:
        return true;
    }
}

QByteArray NewRecords::entity(const Head& head, OdDbObjectId id) const
{
    const auto entity = id.openObject<OdDbEntity>(OdDb::kForRead, true);
    const GroupList* groups = entity ? entity->madeGroups() : nullptr;
    if (!groups)
        return {};
    const OdDbDatabase& database = m_source.database();
    Head known = head;
    if (!m_hasTableOwners)
        known.owner = 0;
    QByteArray out = begin(database.store().typeName(id.slot()), known);
    if (m_hasSubclasses)
        append(out, 100, "AcDbEntity");
    const auto block = entity->ownerId().openObject<OdDbBlockTableRecord>();
    const bool isPaper =
        block && block->getName().startsWith(QLatin1String("*Paper_Space"), Qt::CaseInsensitive);
    if (isPaper)
        append(out, 67, "1");
    const auto layout = block ? block->getLayoutId().openObject<OdDbLayout>() : nullptr;
    if (layout && m_source.version() >= DrawingVersion::V2000)
        append(out, 410, m_source.text().encode(layout->getLayoutName()));
    const auto layer = entity->layerId().safeOpenObject<OdDbLayerTableRecord>(OdDb::kForRead, true);
    append(out, 8, m_source.encodedName(layer->getName()));
    for (const GroupList::Group& group : *groups) {
        if (knowsEntityGroup(group.code))
            append(out, group.code, m_source.fileValue(group.code, group.value));
    }
    return out;
}

QByteArray DxfObjectSource::spelledEntity(quint32 slot) const
{
    const ObjectStore& store = database().store();
    if (slot < store.fileRecords() || slot >= store.size()
        || !store.has(slot, ObjectStore::kEntity))
        return {};
    NewRecords::Head head;
    head.handle = store.handle(slot);
    return NewRecords(*this).entity(head, database().idOfSlot(slot));
}

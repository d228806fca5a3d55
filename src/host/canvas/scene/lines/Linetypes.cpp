#include "host/canvas/scene/lines/Linetypes.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/values/GroupCursor.h"

namespace {

/// Whether shapes or texts belong to the pattern; only the record itself tells.
bool hasSymbols(const OdDbDatabase& database, quint32 slot)
{
    enum { kElementKind = 74, kTextOrShape = 6 };
    const std::unique_ptr<GroupCursor> cursor = database.makeCursor();
    if (!cursor || database.store().has(slot, ObjectStore::kSynthetic))
        return false;
    cursor->open(slot);
    while (cursor->next()) {
        if (cursor->code() == kElementKind && (cursor->integer() & kTextOrShape) != 0)
            return true;
    }
    return false;
}

} // namespace

DashPattern Linetypes::read(const OdDbDatabase& database, OdDbObjectId linetype)
{
    const auto record = linetype.openObject<OdDbLinetypeTableRecord>(OdDb::kForRead, true);
    return record ? DashPattern(record->dashes(), hasSymbols(database, linetype.slot()))
                  : DashPattern();
}

quint32 Linetypes::indexOf(const OdDbDatabase& database, OdDbObjectId linetype)
{
    if (linetype.isNull())
        return Pen::kContinuous;
    const auto known = m_index.constFind(linetype.slot());
    if (known != m_index.cend())
        return known.value();
    const auto index = static_cast<quint32>(m_patterns.size());
    m_patterns.push_back(read(database, linetype));
    m_index.insert(linetype.slot(), index);
    return index;
}

bool Linetypes::refresh(const OdDbDatabase& database, OdDbObjectId linetype)
{
    const auto known = m_index.constFind(linetype.slot());
    if (known == m_index.cend())
        return false;
    m_patterns[known.value()] = read(database, linetype);
    return true;
}

#include "database/tables/OdDbSymbolTable.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"

#include <algorithm>

OdDbSymbolTable::OdDbSymbolTable(OdDbTableKind tableKind)
    : m_tableKind(tableKind)
    , m_names(std::make_unique<NameIndex>())
{ }

OdDbSymbolTable::~OdDbSymbolTable() = default;

OdDbObjectId OdDbSymbolTable::getAt(const QString& name) const
{
    const quint32 position = m_names->find(NameIndex::fold(name));
    return position == NameIndex::kNotFound ? OdDbObjectId()
                                            : database()->idOfSlot(m_slots[position]);
}

std::vector<OdDbObjectId> OdDbSymbolTable::records() const
{
    std::vector<OdDbObjectId> ids;
    ids.reserve(m_slots.size());
    for (quint32 position = 0; position < m_slots.size(); ++position) {
        if (m_names->isActive(position))
            ids.push_back(database()->idOfSlot(m_slots[position]));
    }
    return ids;
}

int OdDbSymbolTable::count() const
{
    return static_cast<int>(m_slots.size()) - m_erasedCount;
}

int OdDbSymbolTable::positionOf(quint32 slot) const
{
    // Slots are given out in ascending order, and records join at the end.
    const auto it = std::lower_bound(m_slots.begin(), m_slots.end(), slot);
    return it != m_slots.end() && *it == slot ? static_cast<int>(it - m_slots.begin()) : -1;
}

void OdDbSymbolTable::reserve(std::size_t records)
{
    m_slots.reserve(records);
    m_names->reserve(records);
}

void OdDbSymbolTable::appendRecord(quint32 slot, QByteArrayView foldedName)
{
    Q_ASSERT(m_slots.empty() || m_slots.back() < slot);
    m_slots.push_back(slot);
    m_names->append(foldedName);
    namesChanged();
}

OdDbObjectId OdDbSymbolTable::addRecord(std::unique_ptr<OdDbSymbolTableRecord> record)
{
    const QString name = record->getName();
    if (name.isEmpty())
        throw OdError(OdResult::InvalidKey, QStringLiteral("A record of a table needs a name."));
    if (has(name))
        throw OdError(OdResult::DuplicateKey,
                      QStringLiteral("There is a \"%1\" already.").arg(name));
    const RecordType type = record->kind() == OdDbObjectKind::Layer ? RecordType::Layer
        : record->kind() == OdDbObjectKind::Linetype                ? RecordType::Ltype
                                                                    : RecordType::None;
    if (type == RecordType::None)
        throw OdError(
            OdResult::NotApplicable,
            QStringLiteral("Records can be added to the layer and linetype tables only."));
    // The table has the record before the listeners hear of it.
    appendRecord(database()->store().size(), NameIndex::fold(name));
    return database()->addObject(std::move(record), type, objectId());
}

void OdDbSymbolTable::recordRenamed(quint32 slot, const QString& name)
{
    const int position = positionOf(slot);
    const QByteArray folded = NameIndex::fold(name);
    if (position < 0 || m_names->key(static_cast<quint32>(position)) == QByteArrayView(folded))
        return;
    m_names->rename(static_cast<quint32>(position), folded);
    namesChanged();
}

void OdDbSymbolTable::recordErased(quint32 slot, bool erased)
{
    const int position = positionOf(slot);
    if (position < 0 || m_names->isActive(static_cast<quint32>(position)) != erased)
        return;
    m_names->setActive(static_cast<quint32>(position), !erased);
    m_erasedCount += erased ? 1 : -1;
}

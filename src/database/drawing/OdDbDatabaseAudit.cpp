#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/filters/FilterRecords.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"

namespace {

/// Findings of one audit; a drawing with a million faults reports the first ones.
class Findings
{
public:
    void add(const QString& sentence)
    {
        if (m_sentences.size() < kMost)
            m_sentences.append(sentence);
    }
    QStringList sentences() const { return m_sentences; }

private:
    static constexpr qsizetype kMost = 200;
    QStringList m_sentences;
};

QString nameOf(const ObjectStore& store, quint32 slot)
{
    return QStringLiteral("%1 %2 (slot %3)")
        .arg(QString::fromLatin1(store.typeName(slot)),
             QString::number(store.handle(slot), 16).toUpper())
        .arg(slot);
}

void auditStore(const ObjectStore& store, Findings& findings)
{
    for (quint32 slot = 0; slot < store.size(); ++slot) {
        const quint64 handle = store.handle(slot);
        if (handle != 0 && store.find(handle) == ObjectStore::kNone)
            findings.add(QStringLiteral("%1 is not found by its handle.").arg(nameOf(store, slot)));
        const quint32 owner = store.owner(slot);
        if (owner != ObjectStore::kNone && owner >= store.size())
            findings.add(
                QStringLiteral("%1 has an owner outside the drawing.").arg(nameOf(store, slot)));
        if (owner == slot)
            findings.add(QStringLiteral("%1 owns itself.").arg(nameOf(store, slot)));
        if (!store.has(slot, ObjectStore::kEntity) || store.has(slot, ObjectStore::kErased))
            continue;
        const quint32 layer = store.layer(slot);
        if (layer == ObjectStore::kNone || store.type(layer) != RecordType::Layer)
            findings.add(QStringLiteral("%1 lies on no layer.").arg(nameOf(store, slot)));
        else if (store.has(layer, ObjectStore::kErased))
            findings.add(QStringLiteral("%1 lies on an erased layer.").arg(nameOf(store, slot)));
        if (owner == ObjectStore::kNone)
            findings.add(QStringLiteral("%1 belongs to no block.").arg(nameOf(store, slot)));
    }
}

void auditNames(const OdDbSymbolTable& table, Findings& findings)
{
    const NameIndex& names = table.names();
    const ObjectStore& store = table.database()->store();
    const auto& records = table.slotsInOrder();
    if (names.size() != records.size())
        findings.add(QStringLiteral("A table of %1 records has %2 names.")
                         .arg(records.size())
                         .arg(names.size()));
    for (quint32 position = 0; position < names.size(); ++position) {
        const bool erased = store.has(records[position], ObjectStore::kErased);
        if (names.isActive(position) == erased)
            findings.add(QStringLiteral("%1 is erased and still named.")
                             .arg(nameOf(store, records[position])));
        if (!erased && names.find(names.key(position)) == NameIndex::kNotFound)
            findings.add(QStringLiteral("%1 is not found by its name.")
                             .arg(nameOf(store, records[position])));
        const OdDbObject* object = store.object(records[position]);
        if (!object || !OdDbSymbolTableRecord::isKind(object->kind()))
            continue;
        const QString name = static_cast<const OdDbSymbolTableRecord*>(object)->getName();
        if (QByteArrayView(NameIndex::fold(name)) != names.key(position))
            findings.add(QStringLiteral("%1 is indexed under another name than \"%2\".")
                             .arg(nameOf(store, records[position]), name));
    }
}

/// Dictionaries below the layer table: entries are there, are of the dictionary, and name layers
/// where they name anything.
void auditFilterRecords(const OdDbDatabase& database, OdDbObjectId owner, const QString& key,
                        int depth, Findings& findings)
{
    constexpr int kDeepest = 64;
    const OdDbObjectId id = FilterRecords::dictionaryOf(database, owner, key);
    const auto dictionary = id.openObject<OdDbDictionary>();
    if (!dictionary || depth > kDeepest)
        return;
    const ObjectStore& store = database.store();
    for (const DictionaryEntry& entry : dictionary->entries()) {
        if (entry.value.isNull())
            continue; // as some drawings have it
        if (entry.value.isErased()) {
            findings.add(QStringLiteral("\"%1\" of %2 is erased.").arg(entry.key, key));
            continue;
        }
        // What a file brought along may be odd; what was edited may not.
        if (!store.has(entry.value.slot(), ObjectStore::kTouched)) {
            auditFilterRecords(database, entry.value, key, depth + 1, findings);
            continue;
        }
        if (store.owner(entry.value.slot()) == ObjectStore::kNone)
            findings.add(QStringLiteral("\"%1\" of %2 has no owner.").arg(entry.key, key));
        const auto record = entry.value.openObject<OdDbXrecord>();
        if (!record)
            continue;
        for (const GroupList::Group& group : record->groups()) {
            if (group.code != FilterRecords::kMember)
                continue;
            const auto handle = NumberText::handle(group.value);
            const OdDbObjectId layer = database.getOdDbObjectId(OdDbHandle(handle.value_or(0)));
            if (!layer.isNull() && store.type(layer.slot()) != RecordType::Layer)
                findings.add(
                    QStringLiteral("\"%1\" of %2 names a %3 as a layer.")
                        .arg(entry.key, key, QString::fromLatin1(store.typeName(layer.slot()))));
        }
        auditFilterRecords(database, entry.value, key, depth + 1, findings);
    }
}

void auditLayers(const OdDbDatabase& database, Findings& findings)
{
    const ObjectStore& store = database.store();
    for (const quint32 slot : database.layerTable().slotsInOrder()) {
        const auto* layer = static_cast<const OdDbLayerTableRecord*>(store.object(slot));
        if (!layer || store.has(slot, ObjectStore::kErased))
            continue;
        for (const auto& [viewport, there] : layer->state().overrides) {
            if (viewport >= store.size() || store.type(viewport) != RecordType::Viewport)
                findings.add(QStringLiteral("%1 has overrides in what is no viewport.")
                                 .arg(nameOf(store, slot)));
        }
    }
    for (const quint32 slot : store.viewports()) {
        const auto* viewport = static_cast<const OdDbViewport*>(store.object(slot));
        if (!viewport)
            continue;
        for (const OdDbObjectId layer : viewport->frozenLayers()) {
            if (store.type(layer.slot()) != RecordType::Layer)
                findings.add(
                    QStringLiteral("%1 freezes what is no layer.").arg(nameOf(store, slot)));
        }
    }
}

} // namespace

QStringList OdDbDatabase::audit() const
{
    Findings findings;
    auditStore(*m_store, findings);
    for (int kind = 0; kind < kOdDbTableKindCount; ++kind) {
        const auto tableKind = static_cast<OdDbTableKind>(kind);
        if (!tableId(tableKind).isNull())
            auditNames(table(tableKind), findings);
    }
    auditLayers(*this, findings);
    for (const QString& key : {FilterRecords::kDictionary, QStringLiteral("ACAD_LAYERSTATES")})
        auditFilterRecords(*this, getLayerTableId(), key, 0, findings);
    if (!m_current.layer.openObject<OdDbLayerTableRecord>())
        findings.add(QStringLiteral("The current layer is no layer of the drawing."));
    if (getLayerZeroId().isNull())
        findings.add(QStringLiteral("There is no layer 0."));
    return findings.sentences();
}

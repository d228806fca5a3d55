#include "database/NameIndex.h"
#include "database/ObjectStore.h"
#include "database/OdDbBlockTableRecord.h"
#include "database/OdDbDatabase.h"
#include "database/OdDbLayerTable.h"
#include "database/OdDbLayerTableRecord.h"

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
    if (!m_current.layer.openObject<OdDbLayerTableRecord>())
        findings.add(QStringLiteral("The current layer is no layer of the drawing."));
    if (getLayerZeroId().isNull())
        findings.add(QStringLiteral("There is no layer 0."));
    return findings.sentences();
}

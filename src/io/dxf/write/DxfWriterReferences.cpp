#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/dxf/patch/RecordPatcher.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/write/DxfWriter.h"

#include <algorithm>

namespace {

constexpr int kLayerName = 8;
constexpr int kLayerReference = 1003;
constexpr int kHandle = 330;
constexpr int kDeepest = 64;

/// Objects that list layers by name.
constexpr const char* kListsOfLayers[] = {"LAYER_FILTER", "LAYER_INDEX"};

} // namespace

void DxfWriter::collectLayers()
{
    for (const quint32 slot : m_store.touched()) {
        if (m_store.type(slot) == RecordType::Dictionary && m_store.has(slot, ObjectStore::kErased))
            m_erasedDictionaries = true;
        if (m_store.type(slot) != RecordType::Layer)
            continue;
        if (m_store.has(slot, ObjectStore::kErased)) {
            const auto layer = m_database.idOfSlot(slot).safeOpenObject<OdDbLayerTableRecord>(
                OdDb::kForRead, true);
            m_erasedLayers.insert(slot);
            m_erasedNames.insert(NameIndex::fold(layer->getName()));
            continue;
        }
        const auto layer = m_database.idOfSlot(slot).safeOpenObject<OdDbLayerTableRecord>();
        const QString before =
            isInFile(slot) ? m_source.nameInFile(slot) : m_source.missingName(slot);
        if (before.isEmpty() || before == layer->getName())
            continue;
        const QByteArray encoded = m_source.encodedName(layer->getName());
        m_renamed.emplace(slot, encoded);
        m_renamedKeys.insert(NameIndex::fold(before), encoded);
    }
}

// Erased layers

bool DxfWriter::isErasedLayer(QByteArrayView handle) const
{
    const OdDbObjectId id =
        m_database.getOdDbObjectId(OdDbHandle(NumberText::handle(handle).value_or(0)));
    return !id.isNull() && m_erasedLayers.contains(id.slot());
}

bool DxfWriter::isErasedName(const QString& name) const
{
    return m_erasedNames.contains(NameIndex::fold(name))
        && m_database.layerTable().getAt(name).isNull();
}

GroupList DxfWriter::cleaned(const GroupList& groups, bool isState) const
{
    GroupList kept;
    bool drops = false;
    for (const GroupList::Group& group : groups) {
        // In a state a layer's handle, or name, opens its entry; in a filter it is all there is.
        if (group.code == kHandle)
            drops = isErasedLayer(group.value);
        else if (!isState)
            drops = false;
        else if (group.code == kLayerName)
            drops = isErasedName(QString::fromUtf8(group.value));
        if (!drops)
            kept.append(group);
    }
    return kept;
}

void DxfWriter::cleanXrecords(OdDbObjectId dictionary, bool isState, int depth)
{
    const auto opened = dictionary.openObject<OdDbDictionary>();
    if (!opened || depth > kDeepest)
        return;
    for (const DictionaryEntry& entry : opened->entries()) {
        const auto record = entry.value.openObject<OdDbXrecord>();
        if (!record || m_meant->xrecords.contains(entry.value.slot()))
            continue;
        GroupList groups = cleaned(record->groups(), isState);
        if (!(groups == record->groups())) {
            m_meant->xrecords[entry.value.slot()] = {groups, record->xData()};
            if (isInFile(entry.value.slot()) && isLive(entry.value.slot())
                && !m_store.has(entry.value.slot(), ObjectStore::kTouched))
                editXrecord(entry.value.slot());
        }
        const auto children =
            m_database.extensionDictionary(entry.value).openObject<OdDbDictionary>();
        if (children && !isState)
            cleanXrecords(children->getAt(QStringLiteral("ACLYDICTIONARY")), isState, depth + 1);
    }
}

void DxfWriter::cleanReferences()
{
    if (m_erasedLayers.empty())
        return;
    for (const quint32 slot : m_store.viewports()) {
        if (isInFile(slot) && !m_store.has(slot, ObjectStore::kErased)
            && !m_store.has(slot, ObjectStore::kTouched))
            editViewport(slot);
    }
    const auto extension =
        m_database.extensionDictionary(m_database.getLayerTableId()).openObject<OdDbDictionary>();
    if (!extension)
        return;
    cleanXrecords(extension->getAt(QStringLiteral("ACLYDICTIONARY")), false, 0);
    cleanXrecords(extension->getAt(QStringLiteral("ACAD_LAYERSTATES")), true, 0);
}

// Renamed layers

void DxfWriter::renameReferences()
{
    if (m_renamed.empty())
        return;
    // An entity has its layer's name in one group; extended data and lists of layers may name any.
    for (quint32 slot = 0; slot < m_store.fileRecords(); ++slot) {
        if (m_store.has(slot, ObjectStore::kErased) || m_moved.contains(slot))
            continue;
        if (m_renamed.contains(m_store.layer(slot)))
            renameIn(slot, true);
    }
    for (const quint32 slot : m_source.layerNameUsers()) {
        if (!m_store.has(slot, ObjectStore::kErased))
            renameIn(slot, false);
    }
    for (const char* name : kListsOfLayers) {
        const RecordType type = m_store.typeByName(name);
        for (quint32 slot = 0; slot < m_store.fileRecords(); ++slot) {
            if (m_store.type(slot) == type && !m_store.has(slot, ObjectStore::kErased))
                renameIn(slot, false);
        }
    }
}

void DxfWriter::renameIn(quint32 slot, bool entity)
{
    DxfCursor groups = m_source.cursor(slot);
    const GroupSpelling spelling = m_source.isBinary() ? m_source.spelling() : GroupSpelling();
    const auto put = [&](const QByteArray& name) {
        if (m_source.isBinary())
            m_patches.replace(groups.valueBegin(), groups.groupEnd(),
                              spelling.value(groups.code(), name));
        else
            m_patches.replace(groups.valueBegin(), groups.valueEnd(), name);
        m_changed.push_back(slot);
    };
    while (groups.next()) {
        if (entity) {
            if (groups.code() == kLayerName)
                return put(m_renamed.at(m_store.layer(slot)));
            continue;
        }
        const bool names = groups.code() == kLayerReference
            || (groups.code() == kLayerName && !m_store.has(slot, ObjectStore::kEntity));
        if (!names)
            continue;
        const auto name = m_renamedKeys.constFind(NameIndex::fold(groups.text()));
        if (name != m_renamedKeys.constEnd())
            put(*name);
    }
}

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/dxf/patch/RecordPatcher.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/write/DxfWriter.h"

#include <algorithm>
#include <unordered_set>

namespace {

constexpr int kLayerReference = 1003;

/// Objects that list layers by name.
constexpr const char* kListsOfLayers[] = {"LAYER_FILTER", "LAYER_INDEX"};

} // namespace

void DxfWriter::collectLayers()
{
    for (const quint32 slot : m_store.touched()) {
        if (m_store.type(slot) != RecordType::Layer || m_store.has(slot, ObjectStore::kErased))
            continue;
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

void DxfWriter::clearGroups()
{
    constexpr int kMember = 340;
    std::unordered_set<quint64> gone;
    for (const quint32 slot : m_removed) {
        if (m_store.has(slot, ObjectStore::kEntity))
            gone.insert(m_store.handle(slot));
    }
    const RecordType type = m_store.typeByName("GROUP");
    for (quint32 slot = 0; !gone.empty() && slot < m_store.fileRecords(); ++slot) {
        if (m_store.type(slot) != type || m_store.has(slot, ObjectStore::kErased))
            continue;
        RecordPatcher record(m_source, slot, m_patches);
        const std::size_t patches = m_patches.size();
        for (const RecordPatcher::Span& span : record.spans()) {
            const bool isMember = span.own && span.code == kMember;
            if (isMember && gone.contains(NumberText::handle(record.bytes(span)).value_or(0)))
                record.remove(span);
        }
        if (m_patches.size() > patches)
            m_changed.push_back(slot);
    }
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

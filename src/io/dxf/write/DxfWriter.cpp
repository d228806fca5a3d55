#include "io/dxf/write/DxfWriter.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbEntity.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/dxf/patch/RecordPatcher.h"
#include "io/dxf/patch/ViewportGroups.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/read/LayerGroups.h"
#include "io/records/LayerExtras.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DxfWriter", text);
}

constexpr int kLayerName = 8;
constexpr int kExtensionEntry = 360;

} // namespace

DxfWriter::DxfWriter(const DxfObjectSource& source, const OdDbDatabase& database)
    : m_source(source)
    , m_database(database)
    , m_store(database.store())
    , m_newRecords(source)
{ }

DrawingPieces DxfWriter::run()
{
    collectLayers();
    cleanReferences();
    // A new root comes before all other objects.
    const OdDbObjectId root = m_database.getNamedObjectsDictionaryId();
    const quint32 newRoot =
        root.isNull() || isInFile(root.slot()) ? ObjectStore::kNone : root.slot();
    if (newRoot != ObjectStore::kNone)
        editTouched(newRoot);
    for (const quint32 slot : m_store.touched()) {
        if (slot != newRoot)
            editTouched(slot);
    }
    renameReferences();
    for (const auto& [slot, edit] : m_dictionaryEdits)
        editDictionary(slot, edit);
    patchHeader();
    placeNewRecords();
    DrawingPieces pieces = m_patches.assemble(m_source.image());
    report(pieces);
    return pieces;
}

bool DxfWriter::isInFile(quint32 slot) const
{
    return slot < m_store.fileRecords();
}

bool DxfWriter::isLive(quint32 slot) const
{
    constexpr int kDeepest = 1000;
    for (int depth = 0; slot != ObjectStore::kNone && depth < kDeepest; ++depth) {
        if (m_store.has(slot, ObjectStore::kErased))
            return false;
        slot = m_store.owner(slot);
    }
    return true;
}

quint64 DxfWriter::used(quint64 handle)
{
    if (m_store.isNewHandle(handle))
        m_highestNew = std::max(m_highestNew, handle);
    return handle;
}

void DxfWriter::editTouched(quint32 slot)
{
    if (!isInFile(slot)) {
        if (isLive(slot))
            addRecord(slot);
        return;
    }
    if (m_store.has(slot, ObjectStore::kErased))
        return removeRecord(slot);
    if (m_store.has(slot, ObjectStore::kEntity))
        editEntity(slot);
    switch (m_store.type(slot)) {
    case RecordType::Layer:
        editLayer(slot);
        break;
    case RecordType::Viewport:
        editViewport(slot);
        break;
    case RecordType::Dictionary:
        m_dictionaryEdits.try_emplace(slot);
        break;
    case RecordType::Xrecord:
        editXrecord(slot);
        break;
    case RecordType::DictionaryVar:
        editDictionaryVar(slot);
        break;
    default:
        break;
    }
    if (!m_erasedDictionaries && !m_database.hasOtherExtension(slot))
        return;
    const quint32 file = m_source.extensionDictionary(slot);
    const quint64 was = file == ObjectStore::kNone ? 0 : m_store.handle(file);
    const quint64 now = extensionOf(slot);
    if (now != was && !m_madeDictionaries.contains(slot) && (now == 0 || canHoldObjects()))
        editExtension(slot, now);
}

quint64 DxfWriter::extensionOf(quint32 slot) const
{
    const OdDbObjectId dictionary = m_database.extensionDictionary(m_database.idOfSlot(slot));
    return dictionary.isNull() || dictionary.isErased() ? 0 : dictionary.getHandle().value();
}

void DxfWriter::editLayer(quint32 slot)
{
    const auto layer = m_database.idOfSlot(slot).safeOpenObject<OdDbLayerTableRecord>();
    const LayerState before = m_source.readLayer(slot);
    if (before == layer->state())
        return;
    const std::size_t patches = m_patches.size();
    RecordPatcher record(m_source, slot, m_patches);
    LayerGroups::patch(record, m_source, before, layer->state(), m_notKept);
    requireApplications(LayerGroups::applications(before, layer->state()));
    editExtras(slot, before, layer->state());
    if (m_patches.size() > patches)
        m_changed.push_back(slot);
}

void DxfWriter::editExtras(quint32 slot, const LayerState& before, const LayerState& after)
{
    const OdDbObjectId layer = m_database.idOfSlot(slot);
    const std::vector<LayerExtras::Change> changes =
        LayerExtras::changes(m_source, layer, before, after);
    if (changes.empty() || !canHoldObjects())
        return;
    const OdDbObjectId present = m_database.extensionDictionary(layer);
    const bool hasDictionary = !present.isNull() && isLive(present.slot());
    const quint64 dictionary = hasDictionary
        ? present.getHandle().value()
        : used(m_source.handleOfMade(slot, QStringLiteral("dictionary")));
    for (const LayerExtras::Change& change : changes) {
        if (change.slot != ObjectStore::kNone && !change.after.isEmpty()) {
            m_meant->xrecords[change.slot] = {change.after,
                                              m_source.readXrecord(change.slot).xData};
            editXrecord(change.slot);
        } else if (change.slot != ObjectStore::kNone) {
            removeRecord(change.slot);
            m_dictionaryEdits[present.slot()].removed.insert(change.key.toCaseFolded());
        } else if (!change.after.isEmpty()) {
            const quint64 handle = used(m_source.handleOfMade(slot, change.key));
            requireXrecordClass();
            addMade(m_newRecords.xrecord({handle, dictionary, 0, true}, {change.after, {}}), handle,
                    {change.after, {}, false});
            if (hasDictionary)
                m_dictionaryEdits[present.slot()].added.push_back({change.key, handle});
            else
                m_madeDictionaries[slot].push_back({change.key, handle});
        }
    }
    const auto made = m_madeDictionaries.find(slot);
    if (made == m_madeDictionaries.end())
        return;
    const quint64 owner = m_store.handle(slot);
    addMade(m_newRecords.dictionary({dictionary, owner, 0, false}, true, made->second, {}),
            dictionary, {{}, made->second, true});
    if (isInFile(slot))
        editExtension(slot, dictionary);
}

void DxfWriter::editViewport(quint32 slot)
{
    const auto viewport = m_database.idOfSlot(slot).safeOpenObject<OdDbViewport>();
    OdDbObjectIdArray after = viewport->frozenLayers();
    std::erase_if(after, [](OdDbObjectId layer) { return layer.isErased(); });
    const OdDbObjectIdArray before = m_source.readViewport(slot).frozenLayers;
    if (before == after)
        return;
    RecordPatcher record(m_source, slot, m_patches);
    if (ViewportGroups::patch(record, m_source, before, after))
        m_changed.push_back(slot);
    else
        m_notKept.append(
            tr("The drawing's version cannot hold the layers frozen in viewport %1.")
                .arg(QString::fromLatin1(NewRecords::handleText(m_store.handle(slot)))));
    for (const OdDbObjectId layer : after)
        used(layer.getHandle().value());
}

void DxfWriter::editXrecord(quint32 slot)
{
    const XrecordState before = m_source.readXrecord(slot);
    const auto cleanedState = m_meant->xrecords.find(slot);
    const auto object = m_database.idOfSlot(slot).safeOpenObject<OdDbXrecord>();
    const XrecordState& after =
        cleanedState == m_meant->xrecords.end() ? object->state() : cleanedState->second;
    if (before == after)
        return;
    RecordPatcher record(m_source, slot, m_patches);
    const auto& spans = record.spans();
    const auto mark = std::find_if(spans.begin(), spans.end(), [&](const auto& span) {
        return span.code == 100 && record.bytes(span).trimmed() == "AcDbXrecord";
    });
    std::size_t first = static_cast<std::size_t>(mark - spans.begin());
    if (mark != spans.end())
        ++first;
    if (first < spans.size() && spans[first].code == 280) // the cloning flag
        ++first;
    if (!(before.groups == after.groups))
        record.replaceGroups(first, before.groups, after.groups);
    if (!(before.xData == after.xData))
        record.replaceGroups(first + static_cast<std::size_t>(before.groups.size()), before.xData,
                             after.xData);
    m_changed.push_back(slot);
}

void DxfWriter::editDictionaryVar(quint32 slot)
{
    const auto variable = m_database.idOfSlot(slot).safeOpenObject<OdDbDictionaryVar>();
    if (m_source.readDictionaryVar(slot) == variable->state())
        return;
    RecordPatcher record(m_source, slot, m_patches);
    const QByteArray value = m_source.text().encode(variable->value());
    record.want(1, &value, {280, 1});
    m_changed.push_back(slot);
}

void DxfWriter::editEntity(quint32 slot)
{
    const auto layer = m_database.idOfSlot(m_store.layer(slot)).openObject<OdDbLayerTableRecord>();
    if (!layer)
        return;
    RecordPatcher record(m_source, slot, m_patches);
    const RecordPatcher::Span* span = record.find(kLayerName);
    const QString old = span ? m_source.text().decode(record.bytes(*span)) : QStringLiteral("0");
    const auto isNamed = [&](const QString& name) {
        return NameIndex::fold(name) == NameIndex::fold(old);
    };
    // One whose layer was renamed is looked at with all the others.
    const OdDbObjectId id = layer->objectId();
    if (isNamed(isInFile(id.slot()) ? m_source.nameInFile(id.slot()) : layer->getName()))
        return;
    const QByteArray name = m_source.encodedName(layer->getName());
    if (span)
        record.setValue(*span, name);
    else
        insertLayer(record, name);
    m_moved.insert(slot);
    m_changed.push_back(slot);
}

void DxfWriter::insertLayer(RecordPatcher& record, const QByteArray& name)
{
    // Into the part that all entities have; R12 and older know no parts.
    quint64 at = record.begin();
    for (const RecordPatcher::Span& span : record.spans()) {
        const bool isHead = !span.own || span.code == 5 || span.code == 330 || span.code == 100;
        if (!isHead || span.code >= 1000)
            break;
        at = span.end;
        if (span.code == 100)
            break;
    }
    QByteArray group;
    record.spelling().append(group, kLayerName, name);
    record.insert(at, group);
}

void DxfWriter::editExtension(quint32 slot, quint64 handle)
{
    RecordPatcher record(m_source, slot, m_patches);
    const auto& spans = record.spans();
    const auto isStart = [&](const RecordPatcher::Span& span) {
        return span.code == 102 && record.bytes(span).trimmed() == "{ACAD_XDICTIONARY";
    };
    const auto start = std::find_if(spans.begin(), spans.end(), isStart);
    m_changed.push_back(slot);
    if (start != spans.end()) {
        const auto entry = std::find_if(start, spans.end(), [](const auto& span) {
            return span.code == kExtensionEntry || span.code == 350;
        });
        const auto close =
            std::find_if(start + 1, spans.end(), [](const auto& span) { return span.code == 102; });
        if (handle != 0 && entry != spans.end())
            record.setValue(*entry, NewRecords::handleText(used(handle)));
        else if (close != spans.end())
            m_patches.remove(start->begin, close->end);
        return;
    }
    if (handle == 0)
        return;
    quint64 at = record.begin();
    for (const RecordPatcher::Span& span : spans) {
        if (span.own && (span.code == 5 || span.code == 105 || span.code == 2)) {
            // In a TABLE record the name stands before the handle.
            if (span.code != 2 || m_store.type(slot) == RecordType::Table)
                at = span.end;
        } else {
            break;
        }
    }
    QByteArray groups;
    m_newRecords.appendExtension(groups, used(handle));
    record.insert(at, groups);
}

void DxfWriter::removeRecord(quint32 slot)
{
    if (!m_removed.insert(slot).second)
        return;
    m_patches.remove(m_store.begin(slot), m_store.end(slot));
    if (m_store.type(slot) == RecordType::Layer)
        --m_countChanges[OdDbTableKind::Layer];
    const quint32 extension = m_source.extensionDictionary(slot);
    if (extension != ObjectStore::kNone)
        removeOwned(extension);
}

void DxfWriter::removeOwned(quint32 slot)
{
    std::vector<quint32> waiting = {slot};
    while (!waiting.empty()) {
        const quint32 at = waiting.back();
        waiting.pop_back();
        if (!m_removed.insert(at).second)
            continue;
        m_patches.remove(m_store.begin(at), m_store.end(at));
        const quint32 extension = m_source.extensionDictionary(at);
        if (extension != ObjectStore::kNone)
            waiting.push_back(extension);
        if (m_store.type(at) != RecordType::Dictionary)
            continue;
        for (const DictionaryEntry& entry : m_source.readDictionary(at).entries) {
            if (!entry.value.isNull() && m_store.owner(entry.value.slot()) == at)
                waiting.push_back(entry.value.slot());
        }
    }
}

DrawingPieces DxfObjectSource::write(const OdDbDatabase& database) const
{
    return DxfWriter(*this, database).run();
}

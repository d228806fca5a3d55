#include "io/dxf/write/DxfWriter.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/dxf/patch/RecordPatcher.h"
#include "io/dxf/patch/ViewportGroups.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/read/LayerGroups.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DxfWriter", text);
}

constexpr int kExtensionEntry = 360;

} // namespace

DxfWriter::DxfWriter(const DxfObjectSource& source, const OdDbDatabase& database)
    : RecordWriter(source, database)
    , m_source(source)
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
    clearGroups();
    editDictionaries();
    patchHeader();
    placeNewRecords();
    m_meant->xrecords = m_rewritten;
    DrawingPieces pieces = m_patches.assemble(m_source.image());
    report(pieces);
    return pieces;
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

void DxfWriter::setFrozen(quint32 viewport, const std::vector<OdDbObjectId>& before,
                          const std::vector<OdDbObjectId>& after)
{
    RecordPatcher record(m_source, viewport, m_patches);
    if (ViewportGroups::patch(record, m_source, before, after))
        m_changed.push_back(viewport);
    else
        tellNotKept(
            tr("The drawing's version cannot hold the layers frozen in viewport %1.")
                .arg(QString::fromLatin1(NewRecords::handleText(m_store.handle(viewport)))));
}

void DxfWriter::setXrecord(quint32 slot, const XrecordState& before, const XrecordState& after)
{
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

void DxfWriter::setVariable(quint32 slot, const QString& value)
{
    RecordPatcher record(m_source, slot, m_patches);
    const QByteArray encoded = m_source.text().encode(value);
    record.want(1, &encoded, {280, 1});
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

void DxfWriter::setExtension(quint32 slot, quint64 dictionary)
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
        if (dictionary != 0 && entry != spans.end())
            record.setValue(*entry, NewRecords::handleText(dictionary));
        else if (close != spans.end())
            m_patches.remove(start->begin, close->end);
        return;
    }
    if (dictionary == 0)
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
    m_newRecords.appendExtension(groups, dictionary);
    record.insert(at, groups);
}

void DxfWriter::recordRemoved(quint32 slot)
{
    m_patches.remove(m_store.begin(slot), m_store.end(slot));
    if (m_store.type(slot) == RecordType::Layer)
        --m_countChanges[OdDbTableKind::Layer];
}

DrawingPieces DxfObjectSource::write(const OdDbDatabase& database) const
{
    return DxfWriter(*this, database).run();
}

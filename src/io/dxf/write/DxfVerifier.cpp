#include "io/dxf/write/DxfVerifier.h"

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbEntity.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/dxf/read/DictionaryGroups.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/read/DxfRecordReader.h"
#include "io/dxf/text/GroupCode.h"
#include "io/files/WrittenBytes.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

/// Key and handle of every entry, as the record has them.
std::vector<std::pair<QString, quint64>> entriesOf(DxfCursor groups)
{
    std::vector<std::pair<QString, quint64>> entries;
    QString key;
    while (groups.next() && groups.code() < 1000) {
        if (groups.code() == 3)
            key = groups.text();
        else if (DictionaryGroups::isValue(groups.code()) && !key.isNull())
            entries.emplace_back(std::exchange(key, QString()), groups.handle());
    }
    return entries;
}

bool isSame(const std::vector<std::pair<QString, quint64>>& written,
            const std::vector<KeyedHandle>& meant)
{
    // An entry without an object keeps whatever value the file had.
    return std::equal(written.begin(), written.end(), meant.begin(), meant.end(),
                      [](const auto& a, const KeyedHandle& b) {
                          return a.first == b.key && (b.handle == 0 || a.second == b.handle);
                      });
}

} // namespace

DxfVerifier::DxfVerifier(const DxfObjectSource& source, const DrawingPieces& pieces,
                         const WrittenBytes& written)
    : m_source(source)
    , m_pieces(pieces)
    , m_written(written)
    , m_meant(*static_cast<const DxfMeant*>(pieces.meant.get()))
{ }

void DxfVerifier::run()
{
    QByteArray record;
    for (const DrawingPieces::ChangedRecord& changed : m_pieces.changed) {
        if (changed.begin == changed.end)
            continue; // erased
        const QByteArrayView bytes = m_written.view(changed.begin, changed.end);
        record.resize(0);
        record.append(bytes.data(), bytes.size());
        record.append(static_cast<qsizetype>(DxfCursor::kPadding), '\0');
        const DxfCursor groups =
            m_source.cursorOver(record.constData(), record.constData() + bytes.size());
        if (!isAsMeant(changed, groups))
            throw OdError_FileAccess(
                OdResult::CantWriteFile,
                QCoreApplication::translate(
                    "DxfVerifier",
                    "what was written at byte %1 does not read back as it was meant (%2)")
                    .arg(changed.begin)
                    .arg(QString::fromLatin1(groups.typeName())));
    }
}

bool DxfVerifier::isAsMeant(const DrawingPieces::ChangedRecord& record,
                            const DxfCursor& groups) const
{
    const quint32 slot = record.slot;
    if (slot == ObjectStore::kNone)
        return isMadeAsMeant(m_meant.made[m_nextMade++], groups);
    const OdDbDatabase& database = m_source.database();
    const OdDbObjectId id = database.idOfSlot(slot);
    if (groups.typeName().trimmed() != database.store().typeName(slot))
        return false;
    const DxfRecordReader reader(m_source);
    switch (database.store().type(slot)) {
    case RecordType::Layer:
        return isLayerAsMeant(slot, groups);
    case RecordType::Xrecord: {
        const auto meant = m_meant.xrecords.find(slot);
        const XrecordState written = reader.xrecord(groups);
        return written
            == (meant == m_meant.xrecords.end() ? id.safeOpenObject<OdDbXrecord>()->state()
                                                : meant->second);
    }
    case RecordType::Dictionary:
        return isDictionaryAsMeant(slot, groups);
    case RecordType::DictionaryVar:
        return reader.dictionaryVar(groups) == id.safeOpenObject<OdDbDictionaryVar>()->state();
    default:
        break;
    }
    if (!database.store().has(slot, ObjectStore::kEntity))
        return true;
    if (NameIndex::fold(reader.entityLayer(groups)) != NameIndex::fold(entityLayerName(slot)))
        return false;
    const auto entity = id.openObject<OdDbEntity>();
    if (entity && entity->madeGroups())
        return isEntityAsMeant(*entity->madeGroups(), groups);
    const auto viewport = id.openObject<OdDbViewport>();
    if (!viewport || m_source.version() < DrawingVersion::V2000)
        return true; // lists of names are compared with the names in the file they came from
    OdDbObjectIdArray meant = viewport->frozenLayers();
    std::erase_if(meant, [](OdDbObjectId layer) { return layer.isErased(); });
    OdDbObjectIdArray written = reader.viewport(groups).frozenLayers;
    std::sort(meant.begin(), meant.end());
    std::sort(written.begin(), written.end());
    return meant == written;
}

bool DxfVerifier::isEntityAsMeant(const GroupList& meant, DxfCursor groups) const
{
    const NewRecords records(m_source);
    const auto isMeant = [&](const GroupList::Group& group) {
        switch (groupKind(group.code)) {
        case GroupKind::Text:
            return groups.text() == QString::fromUtf8(group.value);
        case GroupKind::Real:
            return groups.real() == NumberText::real(group.value);
        default:
            return groups.integer() == NumberText::integer(group.value);
        }
    };
    // What all entities have stands before.
    while (groups.next() && groups.code() != 8) {
    }
    for (const GroupList::Group& group : meant) {
        if (records.knowsEntityGroup(group.code)
            && (!groups.next() || groups.code() != group.code || !isMeant(group)))
            return false;
    }
    return !groups.next();
}

QString DxfVerifier::entityLayerName(quint32 slot) const
{
    const OdDbDatabase& database = m_source.database();
    return database.idOfSlot(database.store().layer(slot))
        .safeOpenObject<OdDbLayerTableRecord>()
        ->getName();
}

bool DxfVerifier::isLayerAsMeant(quint32 slot, const DxfCursor& groups) const
{
    LayerState meant =
        m_source.database().idOfSlot(slot).safeOpenObject<OdDbLayerTableRecord>()->state();
    // These stand in other records.
    meant.overrides.clear();
    meant.reconciled.reset();
    OdDbObjectId extension;
    const LayerState written = DxfRecordReader(m_source).layer(groups, extension);
    // What the version cannot hold stays as the file had it; a true colour leaves its index.
    const LayerState file =
        slot < m_source.database().store().fileRecords() ? m_source.readLayer(slot) : LayerState();
    if (m_source.version() < DrawingVersion::V2004
        && written.color == OdCmColor::fromIndex(meant.color.colorIndex()))
        meant.color = written.color;
    if (m_source.version() < DrawingVersion::V2000) {
        if (written.plottable == file.plottable)
            meant.plottable = written.plottable;
        if (written.lineWeight == file.lineWeight)
            meant.lineWeight = written.lineWeight;
        if (written.plotStyle == file.plotStyle)
            meant.plotStyle = written.plotStyle;
    }
    return written == meant;
}

bool DxfVerifier::isDictionaryAsMeant(quint32 slot, const DxfCursor& groups) const
{
    const auto meant = m_meant.dictionaries.find(slot);
    return meant == m_meant.dictionaries.end() || isSame(entriesOf(groups), meant->second);
}

bool DxfVerifier::isMadeAsMeant(const DxfMeant::Made& made, const DxfCursor& groups) const
{
    if (made.isDictionary)
        return groups.typeName() == "DICTIONARY" && isSame(entriesOf(groups), made.entries);
    return groups.typeName() == "XRECORD"
        && DxfRecordReader(m_source).xrecord(groups).groups == made.groups;
}

void DxfObjectSource::verify(const OdDbDatabase&, const DrawingPieces& pieces,
                             const WrittenBytes& written) const
{
    if (pieces.meant)
        DxfVerifier(*this, pieces, written).run();
}

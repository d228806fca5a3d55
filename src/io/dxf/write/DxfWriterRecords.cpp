#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "io/dxf/patch/DictionaryPatch.h"
#include "io/dxf/patch/RecordPatcher.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/read/DxfStructure.h"
#include "io/dxf/read/LayerGroups.h"
#include "io/dxf/text/GroupCode.h"
#include "io/dxf/write/DxfWriter.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DxfWriter", text);
}

} // namespace

bool DxfWriter::canHoldObjects()
{
    // Objects are found by handle only.
    const bool isOld = m_source.version() < DrawingVersion::R13;
    if (!isOld && m_store.fileHasHandles())
        return true;
    if (!std::exchange(m_toldNoObjects, true))
        m_notKept.append(
            isOld ? tr("The drawing's version cannot hold layer filters, layer states, viewport "
                       "overrides and reviewed layers.")
                  : tr("A drawing without handles cannot hold layer filters, layer states, "
                       "viewport overrides and reviewed layers."));
    return false;
}

// New records

NewRecords::Head DxfWriter::headOf(quint32 slot) const
{
    NewRecords::Head head;
    if (m_store.fileHasHandles())
        head.handle = m_store.handle(slot);
    const quint32 owner = m_store.owner(slot);
    if (owner != ObjectStore::kNone) {
        const bool ownerInFile = !isInFile(owner) || !m_store.isNewHandle(m_store.handle(owner));
        head.owner = ownerInFile ? m_store.handle(owner) : 0;
        head.ownerReacts = m_store.type(owner) == RecordType::Dictionary;
    }
    head.extensionDictionary = extensionOf(slot);
    return head;
}

void DxfWriter::addTo(NewRun& run, quint32 slot, const QByteArray& record)
{
    run.starts.emplace_back(slot, run.bytes.size());
    run.bytes += record;
    ++run.count;
}

void DxfWriter::addRecord(quint32 slot)
{
    if (m_store.has(slot, ObjectStore::kEntity))
        return addEntity(slot);
    const RecordType type = m_store.type(slot);
    if (type == RecordType::Layer)
        return addLayer(slot);
    const OdDbObjectId id = m_database.idOfSlot(slot);
    const NewRecords::Head head = headOf(slot);
    if (type == RecordType::Ltype) {
        const auto linetype = id.safeOpenObject<OdDbLinetypeTableRecord>();
        addTo(m_tableRuns[OdDbTableKind::Linetype], slot,
              m_newRecords.linetype(head, linetype->state()));
    } else if (!canHoldObjects()) {
        return;
    } else if (type == RecordType::Dictionary) {
        const auto dictionary = id.safeOpenObject<OdDbDictionary>();
        const std::vector<KeyedHandle>& entries = m_meant->dictionaries[slot] = entriesNow(slot);
        addTo(m_objects, slot,
              m_newRecords.dictionary(head, dictionary->state().treatElementsAsHard, entries,
                                      dictionary->xData()));
    } else if (type == RecordType::Xrecord) {
        requireXrecordClass();
        addTo(m_objects, slot, m_newRecords.xrecord(head, xrecordNow(slot)));
    } else if (type == RecordType::DictionaryVar) {
        m_classes.insert({"DICTIONARYVAR", "AcDbDictionaryVar"});
        addTo(m_objects, slot,
              m_newRecords.dictionaryVar(head, id.safeOpenObject<OdDbDictionaryVar>()->state()));
    } else {
        return;
    }
    used(head.handle);
}

void DxfWriter::addLayer(quint32 slot)
{
    const auto layer = m_database.idOfSlot(slot).safeOpenObject<OdDbLayerTableRecord>();
    if (layer->state() == m_source.missingLayer(slot))
        return;
    const LayerState plain;
    editExtras(slot, plain, layer->state());
    requireApplications(LayerGroups::applications(plain, layer->state()));
    NewRecords::Head head = headOf(slot);
    if (head.extensionDictionary != 0 && !canHoldObjects())
        head.extensionDictionary = 0;
    used(head.handle);
    addTo(m_tableRuns[OdDbTableKind::Layer], slot,
          m_newRecords.layer(head, layer->state(), m_notKept));
}

void DxfWriter::makeXrecord(const KeyedHandle& entry, quint64 dictionary, const GroupList& groups)
{
    requireXrecordClass();
    addMade(m_newRecords.xrecord({entry.handle, dictionary, 0, true}, {groups, {}}),
            {groups, {}, false});
}

void DxfWriter::makeDictionary(quint64 handle, quint64 owner,
                               const std::vector<KeyedHandle>& entries)
{
    addMade(m_newRecords.dictionary({handle, owner, 0, false}, true, entries, {}),
            {{}, entries, true});
}

void DxfWriter::addMade(const QByteArray& record, DxfMeant::Made made)
{
    addTo(m_objects, ObjectStore::kNone, record);
    m_meant->made.push_back(std::move(made));
}

void DxfWriter::requireApplications(const QList<QByteArray>& names)
{
    for (const QByteArray& name : names) {
        if (!m_database.table(OdDbTableKind::RegApp).has(QString::fromLatin1(name)))
            m_applications.insert(name);
    }
}

// Dictionaries

void DxfWriter::setDictionary(quint32 slot, const DictionaryState& before,
                              const std::vector<KeyedHandle>& entries, const GroupList& xData)
{
    RecordPatcher record(m_source, slot, m_patches);
    const std::size_t patches = m_patches.size();
    DictionaryPatch(m_source, record).turnInto(entries, m_newRecords, before.treatElementsAsHard);
    if (!(before.xData == xData)) {
        const auto& spans = record.spans();
        const auto first = std::find_if(spans.begin(), spans.end(),
                                        [](const auto& span) { return span.code >= 1000; });
        record.replaceGroups(static_cast<std::size_t>(first - spans.begin()), before.xData, xData);
    }
    if (m_patches.size() > patches)
        m_changed.push_back(slot);
}

// Places of new records

void DxfWriter::placeNewRecords()
{
    for (const QByteArray& name : m_applications) {
        NewRun& run = m_tableRuns[OdDbTableKind::RegApp];
        NewRecords::Head head;
        const OdDbObjectId table = m_database.tableId(OdDbTableKind::RegApp);
        if (m_store.fileHasHandles()) {
            head.handle = used(m_source.handleOfMade(table.slot(), QString::fromLatin1(name)));
            head.owner = table.getHandle().value();
        }
        run.bytes += m_newRecords.application(head, name);
        ++run.count;
    }
    constexpr std::pair<OdDbTableKind, const char*> kTables[] = {
        {OdDbTableKind::Linetype, "LTYPE"},
        {OdDbTableKind::Layer, "LAYER"},
        {OdDbTableKind::RegApp, "APPID"},
    };
    for (const auto& [kind, name] : kTables) {
        const auto run = m_tableRuns.find(kind);
        if (run != m_tableRuns.end() && run->second.count > 0)
            placeTableRecords(kind, name, run->second);
        else if (m_countChanges[kind] != 0)
            patchCount(kind);
    }
    placeEntities();
    placeObjects();
    patchHandleSeed();
    placeVariables();
    placeClasses();
    placeTablesSection();
}

void DxfWriter::placeTableRecords(OdDbTableKind kind, const char* name, NewRun& run)
{
    const DxfStructure structure(m_source);
    const quint32 table = m_database.tableId(kind).slot();
    if (isInFile(table)) {
        if (const auto end = structure.tableEnd(name)) {
            m_patches.insertRecords(*end, run.placed = run.bytes);
            m_countChanges[kind] += run.count;
            return patchCount(kind);
        }
    }
    // The file has no such table.
    const quint64 handle = m_store.fileHasHandles() ? used(m_store.handle(table)) : 0;
    const QByteArray zero = kind == OdDbTableKind::Layer ? madeUpLayerZero() : QByteArray();
    const QByteArray whole =
        m_newRecords.tableStart(name, handle, run.count + (zero.isEmpty() ? 0 : 1)) + zero
        + run.bytes + m_newRecords.tableEnd();
    if (const auto end = structure.tablesEnd()) {
        m_patches.insertRecords(*end, whole);
        return;
    }
    m_tablesSection += whole;
    m_tablesSectionAt = structure.behindClasses();
}

QByteArray DxfWriter::madeUpLayerZero()
{
    // A layer table has a layer 0, edited or not.
    const quint32 slot = m_database.getLayerZeroId().slot();
    const auto zero = m_database.idOfSlot(slot).safeOpenObject<OdDbLayerTableRecord>();
    if (!(zero->state() == m_source.missingLayer(slot)))
        return {};
    const NewRecords::Head head = headOf(slot);
    used(head.handle);
    return m_newRecords.layer(head, zero->state(), m_notKept);
}

void DxfWriter::patchCount(OdDbTableKind kind)
{
    const quint32 table = m_database.tableId(kind).slot();
    RecordPatcher record(m_source, table, m_patches);
    const RecordPatcher::Span* count = record.find(70);
    const auto before = count ? NumberText::integer(record.bytes(*count)) : std::nullopt;
    if (!before)
        return;
    record.setValue(*count,
                    QByteArray::number(std::max<qint64>(0, *before + m_countChanges[kind])));
    m_changed.push_back(table);
}

void DxfWriter::placeObjects()
{
    if (m_objects.bytes.isEmpty())
        return;
    const DxfStructure structure(m_source);
    QByteArray start = rootForNewObjects();
    if (const auto end = structure.objectsEnd()) {
        m_objects.prefix = start.size();
        m_patches.insertRecords(*end, m_objects.placed = start + m_objects.bytes);
        return;
    }
    start.prepend(m_newRecords.sectionStart("OBJECTS"));
    m_objects.prefix = start.size();
    m_patches.insertRecords(structure.endOfFile(),
                            m_objects.placed = start + m_objects.bytes + m_newRecords.sectionEnd());
}

QByteArray DxfWriter::rootForNewObjects()
{
    // The first of all objects is the root, whatever it is: no other may take its place.
    const OdDbObjectId root = m_database.getNamedObjectsDictionaryId();
    if (!root.isNull() && isLive(root.slot()))
        return {};
    const quint32 table = m_database.getLayerTableId().slot();
    const quint64 handle = used(m_source.handleOfMade(table, QStringLiteral("root")));
    return m_newRecords.dictionary({handle, 0, 0, false}, false, {}, {});
}

void DxfWriter::placeTablesSection()
{
    if (!m_tablesSection.isEmpty())
        m_patches.insertRecords(m_tablesSectionAt,
                                m_newRecords.sectionStart("TABLES") + m_tablesSection
                                    + m_newRecords.sectionEnd());
}

void DxfWriter::placeClasses()
{
    if (m_classes.empty())
        return;
    const DxfStructure structure(m_source);
    QByteArray records;
    for (const auto& [dxfName, className] : m_classes) {
        if (!structure.hasClass(dxfName))
            records += m_newRecords.classRecord(dxfName, className);
    }
    if (const auto end = structure.classesEnd())
        m_patches.insertRecords(*end, records);
    else if (!records.isEmpty())
        m_patches.insertRecords(structure.behindHeader(),
                                m_newRecords.sectionStart("CLASSES") + records
                                    + m_newRecords.sectionEnd());
}

void DxfWriter::requireXrecordClass()
{
    // Built in from version 2000 on.
    if (m_source.version() < DrawingVersion::V2000)
        m_classes.insert({"XRECORD", "AcDbXrecord"});
}

// Header

void DxfWriter::patchHeader()
{
    const HeaderVariables& header = m_database.header();
    for (const HeaderVariables::Variable& variable : header.all()) {
        if (variable.value != variable.loadedValue && header.find(variable.name) == &variable)
            patchVariable(variable.name, variable.code, m_source.text().encode(variable.value));
    }
    const CurrentSettings& loaded = m_database.loadedCurrent();
    const CurrentSettings& current = m_database.current();
    if (current.layer != loaded.layer || m_renamed.contains(current.layer.slot())) {
        const auto layer = m_database.getCLAYER().safeOpenObject<OdDbLayerTableRecord>();
        patchVariable(QStringLiteral("$CLAYER"), 8, m_source.encodedName(layer->getName()));
    }
    if (current.modelSpace != loaded.modelSpace)
        patchVariable(QStringLiteral("$TILEMODE"), 70, current.modelSpace ? "1" : "0");
}

void DxfWriter::patchVariable(const QString& name, int code, const QByteArray& value)
{
    const HeaderVariables::Variable* variable = m_database.header().find(name);
    if (variable && variable->valueEnd != 0) {
        const GroupSpelling spelling = m_source.spelling();
        QByteArray bytes = value;
        const GroupKind kind = groupKind(variable->code);
        if (spelling.isBinary() && kind != GroupKind::Text && kind != GroupKind::Handle)
            bytes = spelling.value(variable->code, value);
        else if (!spelling.isBinary()
                 && m_source.image().view(variable->valueBegin, variable->valueEnd).startsWith(' '))
            bytes = value.rightJustified(
                static_cast<qsizetype>(variable->valueEnd - variable->valueBegin));
        m_patches.replace(variable->valueBegin, variable->valueEnd, bytes);
        ++m_headerChanges;
        return;
    }
    const GroupSpelling spelling = m_source.spelling();
    spelling.append(m_newVariables, 9, name.toLatin1());
    spelling.append(m_newVariables, code, value);
    ++m_headerChanges;
}

void DxfWriter::placeVariables()
{
    if (m_newVariables.isEmpty())
        return;
    const DxfStructure structure(m_source);
    if (const auto end = structure.headerEnd())
        m_patches.insert(*end, m_newVariables);
    else
        m_patches.insertRecords(m_store.begin(0),
                                m_newRecords.sectionStart("HEADER") + m_newVariables
                                    + m_newRecords.sectionEnd());
}

void DxfWriter::patchHandleSeed()
{
    if (m_highestNew == 0 || !m_store.fileHasHandles())
        return;
    const QString name = QStringLiteral("$HANDSEED");
    const HeaderVariables::Variable* seed = m_database.header().find(name);
    const quint64 before = seed ? NumberText::handle(seed->value.toLatin1()).value_or(0) : 0;
    if (before <= m_highestNew)
        patchVariable(name, 5, NewRecords::handleText(m_highestNew + 1));
}

void DxfWriter::report(DrawingPieces& pieces)
{
    std::vector<quint32> changed = m_changed;
    changed.insert(changed.end(), m_removed.begin(), m_removed.end());
    std::sort(changed.begin(), changed.end());
    changed.erase(std::unique(changed.begin(), changed.end()), changed.end());
    listChanged(changed, pieces);
    for (const auto& [kind, run] : m_tableRuns)
        listNew(run, pieces);
    for (const auto& [block, run] : m_entities)
        listNew(run, pieces);
    listNew(m_objects, pieces);
    pieces.meant = m_meant;

    const auto isLayer = [this](const DrawingPieces::ChangedRecord& record) {
        return record.slot != ObjectStore::kNone && m_store.type(record.slot) == RecordType::Layer;
    };
    SaveReport& report = pieces.report;
    report.recordsChanged = pieces.changed.size() + m_headerChanges;
    report.recordsIdentical = m_store.fileRecords() - changed.size();
    report.layerRecordsChanged =
        static_cast<quint64>(std::count_if(pieces.changed.begin(), pieces.changed.end(), isLayer));
    report.otherRecordsChanged = pieces.changed.size() - report.layerRecordsChanged;
    report.settingsChanged = m_headerChanges;
    report.notKept = m_notKept;
}

void DxfWriter::listChanged(const std::vector<quint32>& changed, DrawingPieces& pieces) const
{
    pieces.changed.reserve(changed.size());
    for (const quint32 slot : changed) {
        if (m_removed.contains(slot))
            pieces.changed.push_back({slot, 0, 0});
        else
            pieces.changed.push_back({slot, m_patches.newOffset(m_store.begin(slot)),
                                      m_patches.newOffset(m_store.end(slot))});
    }
}

void DxfWriter::listNew(const NewRun& run, DrawingPieces& pieces) const
{
    if (run.placed.isEmpty())
        return;
    quint64 at = 0;
    for (const QByteArrayView part : pieces.parts) {
        if (part.data() == run.placed.constData())
            break;
        at += static_cast<quint64>(part.size());
    }
    at += static_cast<quint64>(run.prefix);
    for (std::size_t i = 0; i < run.starts.size(); ++i) {
        const qsizetype end =
            i + 1 < run.starts.size() ? run.starts[i + 1].second : run.bytes.size();
        pieces.changed.push_back({run.starts[i].first,
                                  at + static_cast<quint64>(run.starts[i].second),
                                  at + static_cast<quint64>(end)});
    }
}

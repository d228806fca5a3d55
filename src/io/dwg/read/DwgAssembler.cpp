#include "io/dwg/read/DwgAssembler.h"

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/store/HeaderVariables.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/records/DwgTypes.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct TableForm
{
    OdDbTableKind kind;
    RecordType record;
    const char* control; ///< name of the reference among the header variables
};
constexpr TableForm kTables[] = {
    {OdDbTableKind::Layer, RecordType::Layer, "*LAYER"},
    {OdDbTableKind::Linetype, RecordType::Ltype, "*LTYPE"},
    {OdDbTableKind::Block, RecordType::BlockRecord, "*BLOCK"},
    {OdDbTableKind::Style, RecordType::Style, "*STYLE"},
    {OdDbTableKind::DimStyle, RecordType::DimStyle, "*DIMSTYLE"},
    {OdDbTableKind::View, RecordType::View, "*VIEW"},
    {OdDbTableKind::Viewport, RecordType::VPort, "*VPORT"},
    {OdDbTableKind::RegApp, RecordType::AppId, "*APPID"},
    {OdDbTableKind::Ucs, RecordType::Ucs, "*UCS"},
};

const TableForm& formOf(OdDbTableKind kind)
{
    return *std::find_if(std::begin(kTables), std::end(kTables),
                         [&](const TableForm& form) { return form.kind == kind; });
}

QString tr(const char* text)
{
    return QCoreApplication::translate("DwgAssembler", text);
}

QString hexadecimal(quint64 handle)
{
    return QString::number(handle, 16).toUpper();
}

} // namespace

DwgAssembler::DwgAssembler(OdDbDatabase& database, DwgObjectSource& source, const DwgIndex& index,
                           const HeaderSection& header)
    : m_database(database)
    , m_store(database.store())
    , m_source(source)
    , m_index(index)
    , m_header(header)
    , m_faults(index.faults())
{ }

QStringList DwgAssembler::run()
{
    if (!m_header.isSound())
        fault(tr("The section of header variables is damaged."));
    assignSlots();
    tables();
    requireRecords();
    blocks();
    relations();
    m_database.setRoots(m_source.id(m_header.reference(QStringLiteral("*NAMED"))));
    variables();
    currentSettings();
    return m_faults;
}

void DwgAssembler::assignSlots()
{
    const std::vector<DwgIndex::Record>& records = m_index.records();
    m_slots.assign(records.size(), ObjectStore::kNone);
    m_store.reserve(records.size());
    std::vector<quint64> offsets;
    offsets.reserve(records.size());
    std::vector<RecordType> types; // by number in the file
    for (const quint32 number : m_index.order()) {
        const DwgIndex::Record& record = records[number];
        if (types.size() <= record.type)
            types.resize(record.type + 1u, RecordType::None);
        RecordType& type = types[record.type];
        if (type == RecordType::None)
            type = m_store.typeByName(m_source.classes().name(record.type));
        quint8 flags = record.entity ? ObjectStore::kEntity : 0;
        if (record.part)
            flags |= ObjectStore::kSubEntity;
        const quint32 slot = m_store.append(type, 0, flags);
        m_store.setHandle(slot, record.handle);
        m_slots[number] = slot;
        offsets.push_back(record.offset);
    }
    m_store.setImageEnd(0);
    m_store.indexHandles();
    m_store.setHandleSeed(m_header.reference(QStringLiteral("$HANDSEED")));
    m_source.setOffsets(std::move(offsets));
}

quint32 DwgAssembler::slotOf(quint64 handle) const
{
    const quint32 number = m_index.find(handle);
    return number == HandleIndex::kNone ? ObjectStore::kNone : m_slots[number];
}

void DwgAssembler::relations()
{
    const quint32 model = m_database.getModelSpaceId().slot();
    const quint32 paper =
        m_database.table(OdDbTableKind::Block).getAt(QStringLiteral("*Paper_Space")).slot();
    const std::vector<DwgIndex::Record>& records = m_index.records();
    for (quint32 number = 0; number < records.size(); ++number) {
        const DwgIndex::Record& record = records[number];
        const quint32 slot = m_slots[number];
        if (record.entity)
            m_store.setLayer(slot, slotOf(record.layer));
        if (m_store.owner(slot) != ObjectStore::kNone)
            continue; // of a table or a block
        quint32 owner = slotOf(record.owner);
        if (record.entity && record.owner == 0)
            owner =
                record.space == static_cast<quint8>(DwgEntityHead::Space::Model) ? model : paper;
        if (owner != slot)
            m_store.setOwner(slot, owner);
    }
}

void DwgAssembler::tables()
{
    for (const TableForm& form : kTables) {
        const quint64 control = m_header.reference(QLatin1String(form.control));
        makeTable(form.kind, control);
        addRecords(form.kind, control);
    }
}

void DwgAssembler::makeTable(OdDbTableKind kind, quint64 control)
{
    quint32 slot = slotOf(control);
    // The settings may name one table's record for two tables; the first one has it.
    if (slot == ObjectStore::kNone || m_store.type(slot) != RecordType::Table
        || m_store.object(slot)) {
        if (kind == OdDbTableKind::Layer)
            throw OdError_InvalidDrawing(m_source.image().name(), 0,
                                         tr("there is no layer table; expected one with the "
                                            "handle %1.")
                                             .arg(hexadecimal(control)));
        fault(tr("The table with the handle %1 is missing.").arg(hexadecimal(control)));
        slot = m_store.append(RecordType::Table, 0, ObjectStore::kSynthetic);
    }
    std::unique_ptr<OdDbObject> table;
    if (kind == OdDbTableKind::Layer)
        table = std::make_unique<OdDbLayerTable>();
    else
        table = std::make_unique<OdDbSymbolTable>(kind);
    m_database.adoptObject(slot, std::move(table));
    m_database.setTable(kind, slot);
}

void DwgAssembler::addRecords(OdDbTableKind kind, quint64 control)
{
    const DwgIndex::Table* const found = m_index.table(control);
    if (!found)
        return;
    OdDbSymbolTable& table = m_database.table(kind);
    table.reserve(found->records.size());
    for (const quint32 number : found->records) {
        const quint32 slot = m_slots[number];
        if (m_store.type(slot) != formOf(kind).record || m_store.owner(slot) != ObjectStore::kNone)
            continue; // listed a second time
        const QString name = m_source.nameOf(m_store.handle(slot));
        if (kind == OdDbTableKind::Layer && table.has(name))
            m_database.loadNotes() << tr("Layer \"%1\" is defined a second time.").arg(name);
        table.appendRecord(slot, NameIndex::fold(name));
        m_store.setOwner(slot, table.objectId().slot());
    }
}

quint32 DwgAssembler::makeRecord(OdDbTableKind kind, const QString& name)
{
    fault(tr("\"%1\" is missing from its table.").arg(name));
    const quint32 slot = m_store.append(formOf(kind).record, 0, ObjectStore::kSynthetic);
    m_store.addHandle(m_store.takeHandle(), slot);
    const OdDbObjectId id = m_database.idOfSlot(slot);
    if (const auto layer = id.openObject<OdDbLayerTableRecord>()) {
        layer->stateForLoading().name = name;
        layer->stateForLoading().linetype = m_database.getLinetypeContinuousId();
    } else if (const auto linetype = id.openObject<OdDbLinetypeTableRecord>()) {
        linetype->stateForLoading().name = name;
    } else if (const auto block = id.openObject<OdDbBlockTableRecord>()) {
        block->stateForLoading().name = name;
    }
    OdDbSymbolTable& table = m_database.table(kind);
    table.appendRecord(slot, NameIndex::fold(name));
    m_store.setOwner(slot, table.objectId().slot());
    return slot;
}

void DwgAssembler::requireRecords()
{
    constexpr std::pair<OdDbTableKind, const char*> kRequired[] = {
        {OdDbTableKind::Linetype, "Continuous"},
        {OdDbTableKind::Layer, "0"},
        {OdDbTableKind::Block, "*Model_Space"},
        {OdDbTableKind::Block, "*Paper_Space"},
    };
    for (const auto& [kind, name] : kRequired) {
        if (!m_database.table(kind).has(QLatin1String(name)))
            makeRecord(kind, QLatin1String(name));
    }
}

void DwgAssembler::blocks()
{
    // The entities of a block stand together, those it lists between the two that frame them.
    for (const DwgIndex::BlockRecord& found : m_index.blocks()) {
        const quint32 owner = m_slots[found.record];
        const auto block = m_database.idOfSlot(owner).openObject<OdDbBlockTableRecord>();
        const quint32 begin = slotOf(found.block.entities.begin);
        const quint32 end = slotOf(found.block.entities.end);
        if (!block || begin == ObjectStore::kNone || m_store.owner(begin) != ObjectStore::kNone) {
            const OwnedEntities& entities = found.block.entities;
            if (entities.first != 0 || !entities.listed.empty())
                fault(tr("The block with the handle %1 has entities, but no beginning.")
                          .arg(hexadecimal(m_store.handle(owner))));
            continue;
        }
        m_store.setOwner(begin, owner);
        block->setBlockSlot(begin);
        quint32 slot = begin + 1;
        while (slot < m_store.fileRecords() && slot != end
               && m_store.has(slot, ObjectStore::kEntity) && m_store.type(slot) != RecordType::Block
               && m_store.type(slot) != RecordType::EndBlk)
            m_store.setOwner(slot++, owner);
        if (slot > begin + 1)
            block->addRun({begin + 1, slot});
        if (end != ObjectStore::kNone && m_store.owner(end) == ObjectStore::kNone)
            m_store.setOwner(end, owner);
    }
}

void DwgAssembler::variables()
{
    HeaderVariables& header = m_database.header();
    const auto load = [&](const QString& name, int code, const QString& value) {
        HeaderVariables::Variable variable;
        variable.name = name;
        variable.code = code;
        variable.value = variable.loadedValue = value;
        header.load(std::move(variable));
    };
    load(QStringLiteral("$ACADVER"), 1,
         QStringLiteral("AC%1").arg(static_cast<int>(m_source.file().version())));
    for (const HeaderSection::Variable& found : m_header.variables())
        load(found.name, found.code,
             found.isReference
                 ? m_source.nameOf(NumberText::handle(found.value.toLatin1()).value_or(0))
                 : found.value);
}

void DwgAssembler::currentSettings()
{
    CurrentSettings current;
    current.layer = m_source.id(m_header.reference(QStringLiteral("$CLAYER")));
    if (!current.layer.openObject<OdDbLayerTableRecord>())
        current.layer = m_database.getLayerZeroId();
    current.modelSpace = m_database.header().intValue(QStringLiteral("$TILEMODE"), 1) != 0;
    m_database.setCurrentForLoading(current);
}

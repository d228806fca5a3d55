#include "io/dxf/read/DxfAssembler.h"

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/store/HeaderVariables.h"
#include "database/store/NameIndex.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/tables/OdDbNamedRecord.h"
#include "database/values/GroupCursor.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/text/BinaryValue.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr int kMostNotes = 20;

struct TableName
{
    const char* name;
    OdDbTableKind kind;
    RecordType record;
};
constexpr TableName kTables[] = {
    {"LAYER", OdDbTableKind::Layer, RecordType::Layer},
    {"LTYPE", OdDbTableKind::Linetype, RecordType::Ltype},
    {"BLOCK_RECORD", OdDbTableKind::Block, RecordType::BlockRecord},
    {"STYLE", OdDbTableKind::Style, RecordType::Style},
    {"DIMSTYLE", OdDbTableKind::DimStyle, RecordType::DimStyle},
    {"VIEW", OdDbTableKind::View, RecordType::View},
    {"VPORT", OdDbTableKind::Viewport, RecordType::VPort},
    {"APPID", OdDbTableKind::RegApp, RecordType::AppId},
    {"UCS", OdDbTableKind::Ucs, RecordType::Ucs},
};

const TableName* tableOf(OdDbTableKind kind)
{
    return std::find_if(std::begin(kTables), std::end(kTables),
                        [&](const TableName& t) { return t.kind == kind; });
}

QString tr(const char* text)
{
    return QCoreApplication::translate("DxfAssembler", text);
}

/// What stands in BLOCK and not in BLOCK_RECORD.
void readDefinition(GroupCursor& groups, BlockState& state)
{
    while (groups.next() && groups.code() < 1000) {
        switch (groups.code()) {
        case 10:
        case 20:
        case 30:
            state.basePoint[groups.code() / 10 - 1] = groups.real();
            break;
        case 70:
            state.flags = static_cast<int>(groups.integer());
            break;
        case 71: // written only where the reference is unloaded
            state.unloaded = groups.integer() != 0;
            break;
        case 1:
            state.path = groups.text();
            break;
        default:
            break;
        }
    }
}

} // namespace

DxfAssembler::DxfAssembler(const FileImage& image, OdDbDatabase& database, const DxfIndex& index,
                           DxfObjectSource& source)
    : m_image(image)
    , m_database(database)
    , m_store(database.store())
    , m_index(index)
    , m_source(source)
    , m_text(source.text())
{ }

void DxfAssembler::run()
{
    header();
    tables();
    requireTables();
    handles();
    owners();
    missingLayers();
    blocks();
    if (m_index.firstObject != ObjectStore::kNone
        && m_store.type(m_index.firstObject) == RecordType::Dictionary)
        m_database.setRoots(m_database.idOfSlot(m_index.firstObject));
    checkOwnerCycles();
    sessionHandles();
    currentSettings();
}

void DxfAssembler::note(quint64 offset, const QString& sentence)
{
    if (++m_notes > kMostNotes)
        return;
    const QString place = m_index.landmarks.codeBytes > 0
        ? tr("Byte %1: %2").arg(offset)
        : tr("Line %1: %2").arg(m_image.lineAt(offset));
    m_database.loadNotes().append(m_notes == kMostNotes ? tr("There are more faults of this kind.")
                                                        : place.arg(sentence));
}

QByteArray DxfAssembler::folded(QByteArrayView name) const
{
    const bool plain = std::all_of(name.begin(), name.end(),
                                   [](char c) { return c > 0 && c != '\\' && c != '^'; });
    QByteArray key;
    if (plain)
        NameIndex::foldUtf8(name, key);
    else
        key = NameIndex::fold(m_text.decode(name));
    return key;
}

void DxfAssembler::header()
{
    const bool binary = m_index.landmarks.codeBytes > 0;
    BinaryValue::Scratch scratch;
    for (const DxfIndex::HeaderVariable& found : m_index.header) {
        HeaderVariables::Variable variable;
        variable.name = QString::fromLatin1(found.name);
        variable.code = found.code;
        const QByteArrayView value =
            binary ? BinaryValue::text(found.code, found.value, scratch) : found.value;
        variable.value = variable.loadedValue = m_text.decode(value).trimmed();
        variable.valueBegin = static_cast<quint64>(found.value.data() - m_image.begin());
        variable.valueEnd = variable.valueBegin + static_cast<quint64>(found.value.size());
        if (!m_database.header().contains(variable.name))
            m_database.header().load(std::move(variable));
    }
}

void DxfAssembler::makeTable(OdDbTableKind kind, quint32 slot)
{
    std::unique_ptr<OdDbObject> table;
    if (kind == OdDbTableKind::Layer)
        table = std::make_unique<OdDbLayerTable>();
    else
        table = std::make_unique<OdDbSymbolTable>(kind);
    m_database.adoptObject(slot, std::move(table));
    m_database.setTable(kind, slot);
}

void DxfAssembler::tables()
{
    for (const DxfIndex::Table& found : m_index.tables) {
        const auto* known = std::find_if(std::begin(kTables), std::end(kTables),
                                         [&](const TableName& t) { return found.name == t.name; });
        if (known == std::end(kTables))
            continue;
        if (m_database.tableId(known->kind).isNull())
            makeTable(known->kind, found.slot);
        m_database.table(known->kind).reserve(found.records.size());
        for (const DxfIndex::TableRecord& record : found.records) {
            if (m_store.type(record.slot) == known->record)
                addRecord(known->kind, record.slot, record.name);
            else
                note(m_store.begin(record.slot),
                     tr("a record of type %1 stands in the %2 table.")
                         .arg(QString::fromLatin1(m_store.typeName(record.slot)),
                              QLatin1String(known->name)));
        }
    }
}

void DxfAssembler::addRecord(OdDbTableKind kind, quint32 slot, QByteArrayView name)
{
    OdDbSymbolTable& table = m_database.table(kind);
    const QByteArray key = folded(name);
    if (kind == OdDbTableKind::Layer && table.names().find(key) != NameIndex::kNotFound)
        note(m_store.begin(slot),
             tr("layer \"%1\" is defined a second time.").arg(m_text.decode(name)));
    table.appendRecord(slot, key);
    m_store.setOwner(slot, table.objectId().slot());
}

quint32 DxfAssembler::makeRecord(OdDbTableKind kind, const QString& name)
{
    const RecordType type = tableOf(kind)->record;
    const quint32 slot = m_store.append(type, 0, ObjectStore::kSynthetic);
    const OdDbObjectId id = m_database.idOfSlot(slot);
    if (kind == OdDbTableKind::Layer) {
        const auto layer = id.openObject<OdDbLayerTableRecord>();
        m_source.addMissingLayer(slot, name);
        layer->stateForLoading().name = name;
        layer->stateForLoading().linetype =
            m_database.table(OdDbTableKind::Linetype).getAt(QStringLiteral("Continuous"));
    } else if (kind == OdDbTableKind::Linetype) {
        id.openObject<OdDbLinetypeTableRecord>()->stateForLoading().name = name;
    } else {
        id.openObject<OdDbBlockTableRecord>()->stateForLoading().name = name;
    }
    OdDbSymbolTable& table = m_database.table(kind);
    table.appendRecord(slot, NameIndex::fold(name));
    m_store.setOwner(slot, table.objectId().slot());
    return slot;
}

void DxfAssembler::requireTables()
{
    for (const TableName& known : kTables) {
        if (m_database.tableId(known.kind).isNull())
            makeTable(known.kind, m_store.append(RecordType::Table, 0, ObjectStore::kSynthetic));
    }
    if (!m_database.table(OdDbTableKind::Linetype).has(QStringLiteral("Continuous")))
        makeRecord(OdDbTableKind::Linetype, QStringLiteral("Continuous"));
    if (!m_database.layerTable().has(QStringLiteral("0")))
        makeRecord(OdDbTableKind::Layer, QStringLiteral("0"));
}

void DxfAssembler::handles()
{
    for (const quint32 slot : m_store.indexHandles())
        note(m_store.begin(slot),
             tr("handle %1 is used a second time, by a %2.")
                 .arg(QString::number(m_store.handle(slot), 16).toUpper(),
                      QString::fromLatin1(m_store.typeName(slot))));
    const QString seed = m_database.header().value(QStringLiteral("$HANDSEED"));
    m_store.setHandleSeed(NumberText::handle(seed.toLatin1()).value_or(0));
}

void DxfAssembler::sessionHandles()
{
    // Filters, states and overrides refer to these by handle.
    constexpr RecordType kReferred[] = {RecordType::Layer, RecordType::Ltype, RecordType::Table,
                                        RecordType::BlockRecord, RecordType::Viewport};
    for (quint32 slot = 0; slot < m_store.size(); ++slot) {
        if (m_store.handle(slot) == 0
            && std::find(std::begin(kReferred), std::end(kReferred), m_store.type(slot))
                != std::end(kReferred))
            m_store.addHandle(m_store.takeHandle(), slot);
    }
}

void DxfAssembler::owners()
{
    for (const DxfIndex::Owner& found : m_index.owners) {
        if (m_store.owner(found.slot) != ObjectStore::kNone || found.handle == 0)
            continue; // table records belong to the table they stand in
        const quint32 owner = m_store.find(found.handle);
        if (owner != ObjectStore::kNone && owner != found.slot)
            m_store.setOwner(found.slot, owner);
    }
}

void DxfAssembler::checkOwnerCycles()
{
    // Each owner chain is walked once: `seen` holds the walk that reached a slot first.
    std::vector<quint32> seen(m_store.size(), 0);
    for (quint32 start = 0; start < m_store.size(); ++start) {
        if (m_store.has(start, ObjectStore::kEntity))
            continue;
        quint32 at = start;
        while (at != ObjectStore::kNone && seen[at] == 0) {
            seen[at] = start + 1;
            at = m_store.owner(at);
        }
        if (at == ObjectStore::kNone || seen[at] != start + 1)
            continue;
        note(m_store.begin(at),
             tr("the owners of this %1 form a circle.")
                 .arg(QString::fromLatin1(m_store.typeName(at))));
        m_store.setOwner(at, ObjectStore::kNone);
    }
}

void DxfAssembler::missingLayers()
{
    if (m_index.missingLayers.empty())
        return;
    const OdDbLayerTable& layers = m_database.layerTable();
    std::vector<quint32> resolved;
    for (const QByteArrayView name : m_index.missingLayers) {
        const quint32 position = layers.names().find(folded(name));
        if (position != NameIndex::kNotFound) {
            resolved.push_back(layers.slotsInOrder()[position]);
            continue;
        }
        const QString text = m_text.decode(name);
        resolved.push_back(makeRecord(OdDbTableKind::Layer, text));
        note(static_cast<quint64>(name.data() - m_image.begin()),
             tr("layer \"%1\" is used and missing from the layer table.").arg(text));
    }
    for (quint32 slot = 0; slot < m_store.fileRecords(); ++slot) {
        const quint32 layer = m_store.layer(slot);
        if (layer >= DxfIndex::kMissingLayer && layer != ObjectStore::kNone)
            m_store.setLayer(slot, resolved[layer - DxfIndex::kMissingLayer]);
    }
}

quint32 DxfAssembler::blockRecord(const DxfIndex::Block& block)
{
    // Drawings up to R12 call the spaces by other names.
    QString name = m_text.decode(block.name);
    if (name.compare(QLatin1String("$MODEL_SPACE"), Qt::CaseInsensitive) == 0)
        name = QStringLiteral("*Model_Space");
    else if (name.compare(QLatin1String("$PAPER_SPACE"), Qt::CaseInsensitive) == 0)
        name = QStringLiteral("*Paper_Space");
    const OdDbObjectId known = m_database.table(OdDbTableKind::Block).getAt(name);
    return known.isNull() ? makeRecord(OdDbTableKind::Block, name) : known.slot();
}

void DxfAssembler::ownEntities(quint32 first, quint32 end, quint32 owner)
{
    for (quint32 slot = first; slot < end; ++slot)
        m_store.setOwner(slot, owner);
}

void DxfAssembler::blocks()
{
    OdDbSymbolTable& table = m_database.table(OdDbTableKind::Block);
    const std::unique_ptr<GroupCursor> cursor = m_database.makeCursor();
    for (const DxfIndex::Block& block : m_index.blocks) {
        const quint32 owner = blockRecord(block);
        m_store.setOwner(block.slot, owner);
        ownEntities(block.firstEntity, block.endEntity, owner);
        const auto record = m_database.idOfSlot(owner).openObject<OdDbBlockTableRecord>();
        record->addRun({block.firstEntity, block.endEntity});
        record->setBlockSlot(block.slot);
        cursor->open(block.slot);
        readDefinition(*cursor, record->stateForLoading());
    }
    for (const QString& space : {QStringLiteral("*Model_Space"), QStringLiteral("*Paper_Space")}) {
        if (!table.has(space))
            makeRecord(OdDbTableKind::Block, space);
    }
    const OdDbObjectId model = table.getAt(QStringLiteral("*Model_Space"));
    const OdDbObjectId paper = table.getAt(QStringLiteral("*Paper_Space"));
    for (const DxfIndex::Entities& section : m_index.entities) {
        ownEntities(section.first, section.end, model.slot());
        model.openObject<OdDbBlockTableRecord>()->addRun({section.first, section.end});
        paper.openObject<OdDbBlockTableRecord>()->addRun({section.first, section.end});
    }
    for (const quint32 slot : m_index.paperEntities)
        m_store.setOwner(slot, paper.slot());
}

void DxfAssembler::currentSettings()
{
    CurrentSettings current;
    const HeaderVariables& header = m_database.header();
    current.layer =
        m_database.layerTable().getAt(header.value(QStringLiteral("$CLAYER"), QStringLiteral("0")));
    if (current.layer.isNull())
        current.layer = m_database.getLayerZeroId();
    current.modelSpace = header.intValue(QStringLiteral("$TILEMODE"), 1) != 0;
    m_database.setCurrentForLoading(current);
}

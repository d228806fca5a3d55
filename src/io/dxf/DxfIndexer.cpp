#include "io/dxf/DxfIndexer.h"

#include "base/NumberText.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr quint64 kReportStep = quint64(8) << 20;
/// A record takes some 150 to 250 bytes; reserved memory that is never written costs nothing.
constexpr quint64 kBytesPerRecord = 120;

QString tr(const char* text)
{
    return QCoreApplication::translate("DxfIndexer", text);
}

QString shown(QByteArrayView bytes)
{
    constexpr qsizetype kMost = 40;
    QString text = QString::fromUtf8(bytes.first(std::min(bytes.size(), kMost))).simplified();
    if (bytes.size() > kMost)
        text += QChar(0x2026);
    for (QChar& c : text) {
        if (!c.isPrint())
            c = QChar(0xFFFD);
    }
    return text;
}

} // namespace

DxfIndexer::DxfIndexer(const FileImage& image, ObjectStore& store, const IoProgress& progress)
    : m_image(image)
    , m_store(store)
    , m_progress(progress)
    , m_scan((image.waitFor(PairScanner::kReach), image.begin()), image.end())
    , m_ready(image.begin())
{
    m_store.reserve(image.size() / kBytesPerRecord + 64);
}

void DxfIndexer::fail(const char* at, const QString& found) const
{
    throw OdError_InvalidDrawing(m_image.name(),
                                 m_image.lineAt(static_cast<quint64>(at - m_image.begin())), found);
}

void DxfIndexer::failAtEnd() const
{
    fail(m_image.end(), tr("the drawing breaks off here; expected its end mark (group 0, EOF)."));
}

void DxfIndexer::checkCode() const
{
    const QByteArrayView line(m_scan.begin(), std::max(m_scan.begin(), m_scan.valueBegin() - 1));
    if (m_scan.code() == PairScanner::kLongLine)
        fail(m_scan.begin(),
             tr("a line is longer than %1 MB.").arg(PairScanner::kLongestLine >> 20));
    if (m_scan.code() == PairScanner::kNoValue)
        failAtEnd();
    fail(m_scan.begin(),
         tr("expected a group code (a number from %1 to %2), found \"%3\".")
             .arg(PairScanner::kLowestCode)
             .arg(PairScanner::kHighestCode)
             .arg(shown(line)));
}

void DxfIndexer::awaitBytes()
{
    const auto at = static_cast<quint64>(m_scan.nextBegin() - m_image.begin());
    const quint64 loaded = m_image.waitFor(at + PairScanner::kReach);
    m_ready =
        loaded >= m_image.size() ? m_image.end() : m_image.begin() + loaded - PairScanner::kReach;
}

void DxfIndexer::skipRecord()
{
    while (nextGroup()) {
        if (m_scan.code() == 0)
            return;
    }
}

void DxfIndexer::reportProgress()
{
    const auto done = static_cast<quint64>(m_scan.begin() - m_image.begin());
    if (done < m_nextReport)
        return;
    m_nextReport = done + kReportStep;
    if (m_progress && !m_progress(done, m_image.size()))
        throw OdError(OdResult::Cancelled, tr("Opening %1 was cancelled.").arg(m_image.name()));
}

RecordType DxfIndexer::typeOf(QByteArrayView name)
{
    if (name.isEmpty())
        return m_store.typeByName(name);
    const auto first = static_cast<unsigned char>(name.front());
    const auto last = static_cast<unsigned char>(name.back());
    CachedType& cached =
        m_types[(first * 7u + last * 3u + static_cast<unsigned>(name.size())) % m_types.size()];
    if (cached.name.size() != name.size() || cached.name != name)
        cached = {name, m_store.typeByName(name)};
    return cached.type;
}

quint32 DxfIndexer::beginRecord(RecordType type, quint8 flags)
{
    return m_store.append(type, static_cast<quint64>(m_scan.begin() - m_image.begin()), flags);
}

void DxfIndexer::startText()
{
    while (nextGroup() && m_scan.code() == 999) {
    }
    if (m_ended)
        failAtEnd();
    if (m_scan.code() != 0 || m_scan.value().trimmed() != "SECTION")
        fail(m_scan.begin(),
             tr("expected the start of a section (group 0, SECTION), found group %1, \"%2\".")
                 .arg(m_scan.code())
                 .arg(shown(m_scan.value())));
}

DxfIndex DxfIndexer::run()
{
    startText();
    for (;;) {
        if (m_ended)
            failAtEnd();
        reportProgress();
        const RecordType type = typeOf(m_scan.value().trimmed());
        if (type == RecordType::Eof && m_section == Section::None) {
            beginRecord(type, 0);
            break;
        }
        dispatch(type);
    }
    resolveLayers();
    m_store.setImageEnd(m_image.size());
    return std::move(m_index);
}

void DxfIndexer::dispatch(RecordType type)
{
    if (type == RecordType::Section)
        return section();
    if (type == RecordType::EndSec) {
        if (m_inBlock)
            fail(m_scan.begin(), tr("a section ends inside a block; expected ENDBLK first."));
        if (m_section == Section::Entities)
            m_index.endEntity = m_store.size();
        m_section = Section::None;
        m_inBlock = m_inTable = false;
        beginRecord(type, 0);
        return skipRecord();
    }
    switch (m_section) {
    case Section::None:
        fail(m_scan.begin(), tr("expected a section, found \"%1\".").arg(shown(m_scan.value())));
    case Section::Tables:
        return table(type);
    case Section::Blocks:
        return type == RecordType::Block || type == RecordType::EndBlk ? block() : entity(type);
    case Section::Entities:
        return entity(type);
    case Section::Objects:
        return object(type);
    default:
        beginRecord(type, 0);
        return skipRecord();
    }
}

void DxfIndexer::section()
{
    if (m_section != Section::None)
        fail(m_scan.begin(), tr("a section begins inside another; expected ENDSEC first."));
    const char* at = m_scan.begin();
    beginRecord(RecordType::Section, 0);
    if (!nextGroup())
        failAtEnd();
    if (m_scan.code() != 2)
        fail(at, tr("expected the section's name (group 2), found group %1.").arg(m_scan.code()));
    const QByteArrayView name = m_scan.value().trimmed();
    m_section = name == "HEADER" ? Section::Header
        : name == "TABLES"       ? Section::Tables
        : name == "BLOCKS"       ? Section::Blocks
        : name == "ENTITIES"     ? Section::Entities
        : name == "OBJECTS"      ? Section::Objects
                                 : Section::Other;
    if (m_section == Section::Entities)
        m_index.firstEntity = m_index.endEntity = m_store.size();
    if (m_section == Section::Header)
        headerVariables();
    else
        skipRecord();
}

void DxfIndexer::headerVariables()
{
    QByteArrayView name;
    while (nextGroup() && m_scan.code() != 0) {
        if (m_scan.code() == 9)
            name = m_scan.value().trimmed();
        else if (!name.isEmpty())
            m_index.header.push_back({std::exchange(name, {}), m_scan.code(), m_scan.value()});
    }
}

void DxfIndexer::table(RecordType type)
{
    if (type == RecordType::EndTab) {
        m_inTable = false;
        beginRecord(type, 0);
        return skipRecord();
    }
    if (type != RecordType::Table)
        return tableRecord(type);
    if (m_inTable)
        fail(m_scan.begin(), tr("a table begins inside another; expected ENDTAB first."));
    m_inTable = true;
    m_index.tables.push_back({ObjectStore::kNone, {}, {}});
    tableRecord(type);
}

void DxfIndexer::tableRecord(RecordType type)
{
    const quint32 slot = beginRecord(type, 0);
    QByteArrayView name("");
    bool named = false;
    bool inGroup = false;
    bool inData = false; // xdata and application groups use the same codes for other things
    while (nextGroup() && m_scan.code() != 0) {
        switch (m_scan.code()) {
        case 5:
        case 105: // dimension styles use 5 for a block name
            if ((m_scan.code() == 105) == (type == RecordType::DimStyle)
                && m_store.handle(slot) == 0 && !inData)
                m_store.setHandle(slot, handleValue());
            break;
        case 2:
            if (!std::exchange(named, true))
                name = m_scan.value();
            break;
        case 102:
            inGroup = m_scan.value().trimmed().startsWith('{');
            break;
        case 330:
            if (!inGroup && !inData)
                m_index.owners.push_back({slot, handleValue()});
            break;
        case 100:
            inData = true;
            break;
        default:
            break;
        }
    }
    if (type == RecordType::Table) {
        m_index.tables.back().slot = slot;
        m_index.tables.back().name = name.trimmed();
        return;
    }
    if (m_index.tables.empty())
        return;
    m_index.tables.back().records.push_back({slot, name});
    resolveLayers();
    if (type == RecordType::Layer && m_layers.find(name) == RawNameIndex::kNotFound)
        m_layers.insert(name, slot);
}

void DxfIndexer::block()
{
    const RecordType type = typeOf(m_scan.value().trimmed());
    const quint32 slot = beginRecord(type, 0);
    if (type == RecordType::EndBlk) {
        if (m_inBlock)
            m_index.blocks.back().endEntity = slot;
        m_inBlock = false;
        return skipRecord();
    }
    if (m_inBlock)
        fail(m_scan.begin(), tr("a block begins inside another; expected ENDBLK first."));
    m_inBlock = true;
    m_index.blocks.push_back({slot, {}, slot + 1, slot + 1});
    bool named = false;
    while (nextGroup() && m_scan.code() != 0) {
        if (m_scan.code() == 5 && m_store.handle(slot) == 0)
            m_store.setHandle(slot, handleValue());
        else if (m_scan.code() == 2 && !std::exchange(named, true))
            m_index.blocks.back().name = m_scan.value();
    }
}

void DxfIndexer::entity(RecordType type)
{
    if (m_section == Section::Blocks && !m_inBlock)
        fail(m_scan.begin(), tr("expected a block, found \"%1\".").arg(shown(m_scan.value())));
    const bool partial =
        type == RecordType::Vertex || type == RecordType::Attrib || type == RecordType::SeqEnd;
    const quint32 slot =
        beginRecord(type,
                    static_cast<quint8>(partial ? ObjectStore::kEntity | ObjectStore::kSubEntity
                                                : ObjectStore::kEntity));
    bool hasHandle = false;
    bool hasLayer = false;
    int subclasses = 0;
    while (nextGroup()) {
        switch (m_scan.code()) {
        case 5:
            if (!std::exchange(hasHandle, true))
                m_store.setHandle(slot, handleValue());
            break;
        case 8:
            if (!std::exchange(hasLayer, true))
                setLayer(slot, m_scan.value());
            break;
        case 67:
            if (m_section == Section::Entities && m_scan.value().trimmed() == "1")
                m_index.paperEntities.push_back(slot);
            break;
        case 100:
            // Behind the second subclass mark stands the entity's own data.
            if (++subclasses < 2)
                break;
            skipRecord();
            [[fallthrough]];
        case 0:
            if (!hasLayer)
                setLayer(slot, "0");
            return;
        default:
            break;
        }
    }
}

void DxfIndexer::object(RecordType type)
{
    const quint32 slot = beginRecord(type, 0);
    if (m_index.firstObject == ObjectStore::kNone)
        m_index.firstObject = slot;
    bool inGroup = false;
    while (nextGroup()) {
        switch (m_scan.code()) {
        case 0:
            return;
        case 5:
            if (m_store.handle(slot) == 0)
                m_store.setHandle(slot, handleValue());
            break;
        case 102:
            inGroup = m_scan.value().trimmed().startsWith('{');
            break;
        case 330:
            if (!inGroup)
                m_index.owners.push_back({slot, handleValue()});
            break;
        case 100:
            return skipRecord();
        default:
            break;
        }
    }
}

quint64 DxfIndexer::handleValue() const
{
    const auto handle = NumberText::handle(m_scan.value());
    if (!handle)
        fail(m_scan.begin(),
             tr("expected a handle (1 to 16 hexadecimal digits), found \"%1\".")
                 .arg(shown(m_scan.value())));
    return *handle;
}

void DxfIndexer::setLayer(quint32 slot, QByteArrayView name)
{
    const quint64 hash = RawNameIndex::hash(name);
    m_layers.fetchCell(hash);
    m_pending[m_pendingCount++] = {slot, name, hash};
    if (m_pendingCount == m_pending.size())
        resolveLayers();
}

void DxfIndexer::resolveLayers()
{
    for (std::size_t i = 0; i < m_pendingCount; ++i)
        m_layers.fetchName(m_pending[i].hash);
    for (std::size_t i = 0; i < m_pendingCount; ++i)
        m_store.setLayer(m_pending[i].slot, layerOf(m_pending[i].name, m_pending[i].hash));
    m_pendingCount = 0;
}

quint32 DxfIndexer::layerOf(QByteArrayView name, quint64 hash)
{
    const quint32 known = m_layers.find(name, hash);
    if (known != RawNameIndex::kNotFound)
        return known;
    if (m_index.missingLayers.size() >= DxfIndex::kMostMissingLayers)
        fail(m_scan.begin(), tr("too many layers are missing from the layer table."));
    const quint32 layer =
        DxfIndex::kMissingLayer + static_cast<quint32>(m_index.missingLayers.size());
    m_index.missingLayers.push_back(name);
    m_layers.insert(name, layer);
    return layer;
}

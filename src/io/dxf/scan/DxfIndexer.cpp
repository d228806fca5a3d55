#include "io/dxf/scan/DxfIndexer.h"

#include "base/NumberText.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr quint64 kReportStep = quint64(8) << 20;

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

template <class Scanner>
DxfIndexer<Scanner>::DxfIndexer(const FileImage& image, ObjectStore& store,
                                const IoProgress& progress)
    : m_image(image)
    , m_store(store)
    , m_progress(progress)
    , m_scan((image.waitFor(Scanner::kReach), Scanner::ofFile(image.begin(), image.end())))
    , m_ready(image.begin())
{
    m_index.landmarks.codeBytes = m_scan.codeBytes();
    m_store.reserve(image.size() / Scanner::kBytesPerRecord + 64);
}

template <class Scanner>
void DxfIndexer<Scanner>::fail(const char* at, const QString& found) const
{
    const auto offset = static_cast<quint64>(at - m_image.begin());
    if constexpr (Scanner::kBinary)
        throw OdError_InvalidDrawing::atByte(m_image.name(), offset, found);
    else
        throw OdError_InvalidDrawing(m_image.name(), m_image.lineAt(offset), found);
}

template <class Scanner>
void DxfIndexer<Scanner>::failAtEnd() const
{
    fail(m_image.end(), tr("the drawing breaks off here; expected its end mark (group 0, EOF)."));
}

template <class Scanner>
void DxfIndexer<Scanner>::failAtCode() const
{
    if (m_scan.code() == Scanner::kNoValue)
        failAtEnd();
    if (m_scan.code() == Scanner::kLongValue)
        fail(m_scan.begin(),
             (Scanner::kBinary ? tr("a text is longer than %1 MB.")
                               : tr("a line is longer than %1 MB."))
                 .arg(Scanner::kLongestValue >> 20));
    if constexpr (Scanner::kBinary) {
        fail(m_scan.begin(),
             tr("expected a group code of binary drawings, found %1.").arg(m_scan.foundCode()));
    } else {
        const QByteArrayView line(m_scan.begin(),
                                  std::max(m_scan.begin(), m_scan.valueBegin() - 1));
        fail(m_scan.begin(),
             tr("expected a group code (a number from %1 to %2), found \"%3\".")
                 .arg(Scanner::kLowestCode)
                 .arg(Scanner::kHighestCode)
                 .arg(shown(line)));
    }
}

template <class Scanner>
void DxfIndexer<Scanner>::takeRareCode()
{
    if (m_scan.code() < Scanner::kLowestCode)
        failAtCode();
    if (m_scan.code() != kLayerName || m_store.size() == 0)
        return;
    std::vector<quint32>& users = m_index.landmarks.layerNameUsers;
    const quint32 slot = m_store.size() - 1;
    if (users.empty() || users.back() != slot)
        users.push_back(slot);
}

template <class Scanner>
void DxfIndexer<Scanner>::awaitBytes()
{
    const auto at = static_cast<quint64>(m_scan.nextBegin() - m_image.begin());
    const quint64 loaded = m_image.waitFor(at + Scanner::kReach);
    m_ready = loaded >= m_image.size() ? m_image.end() : m_image.begin() + loaded - Scanner::kReach;
}

template <class Scanner>
void DxfIndexer<Scanner>::skipRecord()
{
    while (nextGroup()) {
        if (m_scan.code() == 0)
            return;
    }
}

template <class Scanner>
void DxfIndexer<Scanner>::reportProgress()
{
    const auto done = static_cast<quint64>(m_scan.begin() - m_image.begin());
    if (done < m_nextReport)
        return;
    m_nextReport = done + kReportStep;
    if (m_progress && !m_progress(done, m_image.size()))
        throw OdError(OdResult::Cancelled, tr("Opening %1 was cancelled.").arg(m_image.name()));
}

template <class Scanner>
RecordType DxfIndexer<Scanner>::typeOf(QByteArrayView name)
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

template <class Scanner>
quint32 DxfIndexer<Scanner>::beginRecord(RecordType type, quint8 flags)
{
    return m_store.append(type, static_cast<quint64>(m_scan.begin() - m_image.begin()), flags);
}

template <class Scanner>
void DxfIndexer<Scanner>::startText()
{
    while (nextGroup() && m_scan.code() == kComment) {
    }
    if (m_ended)
        failAtEnd();
    if (m_scan.code() != 0 || m_scan.value().trimmed() != "SECTION")
        fail(m_scan.begin(),
             tr("expected the start of a section (group 0, SECTION), found group %1, \"%2\".")
                 .arg(m_scan.code())
                 .arg(shown(m_scan.value())));
}

template <class Scanner>
DxfIndex DxfIndexer<Scanner>::run()
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

template <class Scanner>
void DxfIndexer<Scanner>::dispatch(RecordType type)
{
    if (type == RecordType::Section)
        return section();
    if (type == RecordType::EndSec) {
        if (m_inBlock)
            fail(m_scan.begin(), tr("a section ends inside a block; expected ENDBLK first."));
        if (m_inTable)
            fail(m_scan.begin(), tr("a section ends inside a table; expected ENDTAB first."));
        endSection(beginRecord(type, 0));
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

template <class Scanner>
void DxfIndexer<Scanner>::endSection(quint32 slot)
{
    DxfLandmarks& landmarks = m_index.landmarks;
    quint32* mark = m_section == Section::Header ? &landmarks.headerEnd
        : m_section == Section::Tables           ? &landmarks.tablesEnd
        : m_section == Section::Blocks           ? &landmarks.blocksEnd
        : m_section == Section::Entities         ? &landmarks.entitiesEnd
        : m_section == Section::Objects          ? &landmarks.objectsEnd
                                                 : nullptr;
    if (mark && *mark == ObjectStore::kNone)
        *mark = slot;
    if (m_section == Section::Entities)
        m_index.entities.back().end = slot;
    m_section = Section::None;
}

template <class Scanner>
void DxfIndexer<Scanner>::section()
{
    if (m_section != Section::None)
        fail(m_scan.begin(), tr("a section begins inside another; expected ENDSEC first."));
    const char* at = m_scan.begin();
    beginRecord(RecordType::Section, 0);
    do {
        if (!nextGroup())
            failAtEnd();
    } while (m_scan.code() == kComment);
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
        m_index.entities.push_back({m_store.size(), m_store.size()});
    if (m_section == Section::Header)
        headerVariables();
    else
        skipRecord();
}

template <class Scanner>
void DxfIndexer<Scanner>::headerVariables()
{
    QByteArrayView name;
    while (nextGroup() && m_scan.code() != 0) {
        if (m_scan.code() == 9)
            name = m_scan.value().trimmed();
        else if (!name.isEmpty() && m_scan.code() != kComment)
            m_index.header.push_back({std::exchange(name, {}), m_scan.code(), m_scan.value()});
    }
}

template <class Scanner>
void DxfIndexer<Scanner>::table(RecordType type)
{
    if (type == RecordType::EndTab) {
        const quint32 slot = beginRecord(type, 0);
        if (std::exchange(m_inTable, false))
            m_index.landmarks.tables.back().end = slot;
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

template <class Scanner>
void DxfIndexer<Scanner>::tableRecord(RecordType type)
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
            if (!inGroup && !std::exchange(named, true))
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
        m_index.landmarks.tables.push_back({name.trimmed(), slot, ObjectStore::kNone});
        return;
    }
    if (m_index.tables.empty())
        return;
    m_index.tables.back().records.push_back({slot, name});
    resolveLayers();
    if (type == RecordType::Layer && m_layers.find(name) == RawNameIndex::kNotFound)
        m_layers.insert(name, slot);
}

template <class Scanner>
void DxfIndexer<Scanner>::block()
{
    const RecordType type = typeOf(m_scan.value().trimmed());
    const quint32 slot = beginRecord(type, 0);
    const bool begins = type == RecordType::Block;
    if (begins && m_inBlock)
        fail(m_scan.begin(), tr("a block begins inside another; expected ENDBLK first."));
    if (begins)
        m_index.blocks.push_back({slot, {}, slot + 1, slot + 1});
    else if (m_inBlock)
        m_index.blocks.back().endEntity = slot;
    m_inBlock = begins;
    bool named = false;
    bool hasLayer = false;
    while (nextGroup() && m_scan.code() != 0) {
        if (m_scan.code() == 5 && m_store.handle(slot) == 0)
            m_store.setHandle(slot, handleValue());
        else if (m_scan.code() == 8 && !std::exchange(hasLayer, true))
            setLayer(slot, m_scan.value());
        else if (m_scan.code() == 2 && begins && !std::exchange(named, true))
            m_index.blocks.back().name = m_scan.value();
    }
    // The frame of a block lies on a layer, too.
    if (!hasLayer)
        setLayer(slot, "0");
}

template <class Scanner>
void DxfIndexer<Scanner>::entity(RecordType type)
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
            if (m_section == Section::Entities && m_scan.isOne())
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

template <class Scanner>
void DxfIndexer<Scanner>::object(RecordType type)
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

template <class Scanner>
quint64 DxfIndexer<Scanner>::handleValue() const
{
    const auto handle = NumberText::handle(m_scan.value());
    if (!handle)
        fail(m_scan.begin(),
             tr("expected a handle (1 to 16 hexadecimal digits), found \"%1\".")
                 .arg(shown(m_scan.value())));
    return *handle;
}

template <class Scanner>
void DxfIndexer<Scanner>::setLayer(quint32 slot, QByteArrayView name)
{
    const quint64 hash = RawNameIndex::hash(name);
    m_layers.fetchCell(hash);
    m_pending[m_pendingCount++] = {slot, name, hash};
    if (m_pendingCount == m_pending.size())
        resolveLayers();
}

template <class Scanner>
void DxfIndexer<Scanner>::resolveLayers()
{
    for (std::size_t i = 0; i < m_pendingCount; ++i)
        m_layers.fetchName(m_pending[i].hash);
    for (std::size_t i = 0; i < m_pendingCount; ++i)
        m_store.setLayer(m_pending[i].slot, layerOf(m_pending[i].name, m_pending[i].hash));
    m_pendingCount = 0;
}

template <class Scanner>
quint32 DxfIndexer<Scanner>::layerOf(QByteArrayView name, quint64 hash)
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

template class DxfIndexer<PairScanner>;
template class DxfIndexer<BinaryScanner>;

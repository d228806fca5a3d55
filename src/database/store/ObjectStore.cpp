#include "database/store/ObjectStore.h"

#include "database/objects/OdDbObject.h"

#include <algorithm>

namespace {

/// Names of the fixed record types, in the order of RecordType.
constexpr const char* kTypeNames[] = {
    "",          "SECTION",      "ENDSEC",  "TABLE",         "ENDTAB",
    "BLOCK",     "ENDBLK",       "EOF",     "SEQEND",        "LAYER",
    "LTYPE",     "BLOCK_RECORD", "STYLE",   "DIMSTYLE",      "VIEW",
    "VPORT",     "APPID",        "UCS",     "DICTIONARY",    "XRECORD",
    "LAYOUT",    "VIEWPORT",     "LINE",    "LWPOLYLINE",    "POLYLINE",
    "VERTEX",    "CIRCLE",       "ARC",     "ELLIPSE",       "POINT",
    "TEXT",      "MTEXT",        "INSERT",  "ATTRIB",        "ATTDEF",
    "SPLINE",    "SOLID",        "TRACE",   "3DFACE",        "HATCH",
    "DIMENSION", "LEADER",       "WIPEOUT", "DICTIONARYVAR", "ACDBDICTIONARYWDFLT",
};
static_assert(std::size(kTypeNames) == static_cast<std::size_t>(RecordType::FirstOther));

/// Type numbers are 16 bit; a file with more names than that gets one number for the rest.
constexpr std::size_t kMaxTypes = 60000;

} // namespace

ObjectStore::ObjectStore()
{
    for (const char* name : kTypeNames) {
        m_typeNumbers.insert(QByteArray(name), static_cast<quint16>(m_typeNames.size()));
        m_typeNames.emplace_back(name);
    }
}

ObjectStore::~ObjectStore() = default;

void ObjectStore::reserve(std::size_t records)
{
    m_types.reserve(records);
    m_offsets.reserve(records);
    m_flags.reserve(records);
    m_handles.reserve(records);
    m_owners.reserve(records);
    m_layers.reserve(records);
}

QByteArray ObjectStore::typeName(quint32 slot) const
{
    return m_typeNames[m_types[slot]];
}

RecordType ObjectStore::typeByName(QByteArrayView name)
{
    const QByteArray key = QByteArray::fromRawData(name.data(), name.size());
    if (const auto it = m_typeNumbers.constFind(key); it != m_typeNumbers.constEnd())
        return static_cast<RecordType>(it.value());
    if (m_typeNames.size() >= kMaxTypes)
        return RecordType::None;
    const auto number = static_cast<quint16>(m_typeNames.size());
    m_typeNames.push_back(name.toByteArray());
    m_typeNumbers.insert(m_typeNames.back(), number);
    return static_cast<RecordType>(number);
}

void ObjectStore::setImageEnd(quint64 end)
{
    m_imageEnd = end;
    m_fileRecords = size();
}

void ObjectStore::setFlag(quint32 slot, Flag flag, bool on)
{
    const auto bits = static_cast<unsigned>(m_flags[slot]);
    if (flag == kTouched && on && (bits & kTouched) == 0)
        m_touched.push_back(slot);
    m_flags[slot] = static_cast<quint8>(on ? bits | flag : bits & ~static_cast<unsigned>(flag));
}

quint32 ObjectStore::find(quint64 handle) const
{
    if (handle < m_dense.size())
        return m_dense[handle];
    const auto it = m_sparse.find(handle);
    return it == m_sparse.end() ? kNone : it->second;
}

std::vector<quint32> ObjectStore::indexHandles()
{
    // Handles are given out in sequence, so nearly all of them fit a plain array.
    const std::size_t room = std::max<std::size_t>(1024, std::size_t(size()) * 4);
    quint64 densest = 0;
    m_maxHandle = 0;
    for (const quint64 handle : m_handles) {
        m_maxHandle = std::max(m_maxHandle, handle);
        if (handle < room)
            densest = std::max(densest, handle);
    }
    m_dense.assign(densest + 1, kNone);
    m_sparse.clear();

    std::vector<quint32> duplicates;
    for (quint32 slot = 0; slot < size(); ++slot) {
        const quint64 handle = m_handles[slot];
        if (handle == 0)
            continue;
        quint32& cell = handle < m_dense.size() ? m_dense[handle]
                                                : m_sparse.try_emplace(handle, kNone).first->second;
        if (cell == kNone)
            cell = slot;
        else
            duplicates.push_back(slot);
    }
    return duplicates;
}

void ObjectStore::addHandle(quint64 handle, quint32 slot)
{
    m_handles[slot] = handle;
    m_maxHandle = std::max(m_maxHandle, handle);
    if (handle < m_dense.size())
        m_dense[handle] = slot;
    else
        m_sparse[handle] = slot;
}

void ObjectStore::setHandleSeed(quint64 seed)
{
    m_fileHasHandles = m_maxHandle > 0;
    // After the very last handle there are only gaps left.
    m_firstNewHandle = m_maxHandle == ~quint64(0) ? m_maxHandle : std::max(seed, m_maxHandle + 1);
    m_nextHandle = m_maxHandle == ~quint64(0) ? 1 : m_firstNewHandle;
}

quint64 ObjectStore::takeHandle()
{
    // A drawing may have given out the very last handle.
    while (m_nextHandle == 0 || find(m_nextHandle) != kNone)
        ++m_nextHandle;
    return m_nextHandle++;
}

OdDbObject* ObjectStore::object(quint32 slot) const
{
    const std::size_t page = slot >> kPageBits;
    if (page >= m_pages.size() || m_pages[page].empty())
        return nullptr;
    return m_pages[page][slot & ((1u << kPageBits) - 1)].get();
}

OdDbObject* ObjectStore::adopt(quint32 slot, std::unique_ptr<OdDbObject> object)
{
    const std::size_t page = slot >> kPageBits;
    if (page >= m_pages.size())
        m_pages.resize(page + 1);
    if (m_pages[page].empty())
        m_pages[page].resize(std::size_t(1) << kPageBits);
    auto& cell = m_pages[page][slot & ((1u << kPageBits) - 1)];
    cell = std::move(object);
    return cell.get();
}

std::vector<quint32> ObjectStore::touched() const
{
    std::vector<quint32> slotsTouched = m_touched;
    std::sort(slotsTouched.begin(), slotsTouched.end());
    return slotsTouched;
}

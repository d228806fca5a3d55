#include "io/dxf/DxfStructure.h"

#include "database/ObjectStore.h"
#include "database/OdDbDatabase.h"
#include "io/dxf/DxfObjectSource.h"

DxfStructure::DxfStructure(const DxfObjectSource& source)
    : m_source(source)
    , m_store(source.database().store())
{ }

std::optional<quint32> DxfStructure::sectionEndSlot(QByteArrayView name) const
{
    bool inside = false;
    for (quint32 slot = 0; slot < m_store.fileRecords(); ++slot) {
        const RecordType type = m_store.type(slot);
        if (type == RecordType::Section) {
            DxfCursor groups = m_source.cursor(slot);
            inside = groups.next() && groups.bytes().trimmed() == name;
        } else if (type == RecordType::EndSec && inside) {
            return slot;
        }
    }
    return std::nullopt;
}

std::optional<quint64> DxfStructure::sectionEnd(QByteArrayView name) const
{
    const auto slot = sectionEndSlot(name);
    return slot ? std::optional(m_store.begin(*slot)) : std::nullopt;
}

std::optional<quint64> DxfStructure::behindSection(QByteArrayView name) const
{
    const auto slot = sectionEndSlot(name);
    return slot ? std::optional(m_store.end(*slot)) : std::nullopt;
}

std::optional<quint64> DxfStructure::tableEnd(quint32 slot) const
{
    for (quint32 at = slot; at < m_store.fileRecords(); ++at) {
        if (m_store.type(at) == RecordType::EndTab)
            return m_store.begin(at);
        if (m_store.type(at) == RecordType::EndSec)
            return std::nullopt;
    }
    return std::nullopt;
}

bool DxfStructure::hasClass(QByteArrayView dxfName) const
{
    const RecordType classType = m_source.database().store().typeByName("CLASS");
    for (quint32 slot = 0; slot < m_store.fileRecords(); ++slot) {
        if (m_store.type(slot) != classType)
            continue;
        for (DxfCursor groups = m_source.cursor(slot); groups.next();) {
            if (groups.code() == 1 && groups.bytes().trimmed() == dxfName)
                return true;
        }
    }
    return false;
}

quint64 DxfStructure::endOfFile() const
{
    return m_store.begin(m_store.fileRecords() - 1);
}

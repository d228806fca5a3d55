#include "io/dxf/read/DxfStructure.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "io/dxf/read/DxfObjectSource.h"

DxfStructure::DxfStructure(const DxfObjectSource& source)
    : m_source(source)
    , m_store(source.database().store())
{ }

std::optional<quint64> DxfStructure::beginOf(quint32 slot) const
{
    return slot == ObjectStore::kNone ? std::nullopt : std::optional(m_store.begin(slot));
}

std::optional<quint64> DxfStructure::headerEnd() const
{
    return beginOf(m_source.landmarks().headerEnd);
}

std::optional<quint64> DxfStructure::tablesEnd() const
{
    return beginOf(m_source.landmarks().tablesEnd);
}

std::optional<quint64> DxfStructure::entitiesEnd() const
{
    return beginOf(m_source.landmarks().entitiesEnd);
}

quint64 DxfStructure::beforeObjects() const
{
    quint32 slot = m_source.landmarks().objectsEnd;
    if (slot == ObjectStore::kNone)
        return endOfFile();
    while (m_store.type(slot) != RecordType::Section)
        --slot;
    return m_store.begin(slot);
}

std::optional<quint64> DxfStructure::objectsEnd() const
{
    return beginOf(m_source.landmarks().objectsEnd);
}

quint64 DxfStructure::behindHeader() const
{
    const quint32 end = m_source.landmarks().headerEnd;
    return end == ObjectStore::kNone ? m_store.begin(0) : m_store.end(end);
}

std::optional<quint64> DxfStructure::tableEnd(QByteArrayView name) const
{
    const DxfLandmarks::Table* table = m_source.landmarks().table(name);
    return table ? beginOf(table->end) : std::nullopt;
}

quint64 DxfStructure::endOfFile() const
{
    return m_store.begin(m_store.fileRecords() - 1);
}

std::optional<quint64> DxfStructure::classesEnd() const
{
    return beginOf(endOfClasses());
}

quint64 DxfStructure::behindClasses() const
{
    const quint32 end = endOfClasses();
    return end == ObjectStore::kNone ? behindHeader() : m_store.end(end);
}

quint32 DxfStructure::endOfClasses() const
{
    bool inside = false;
    for (quint32 slot = 0; slot < m_store.fileRecords(); ++slot) {
        const RecordType type = m_store.type(slot);
        if (type == RecordType::Section) {
            DxfCursor groups = m_source.cursor(slot);
            inside = groups.next() && groups.bytes().trimmed() == "CLASSES";
        } else if (type == RecordType::EndSec && inside) {
            return slot;
        }
    }
    return ObjectStore::kNone;
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

#include "io/dwg/read/DwgCursor.h"

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "database/store/ObjectStore.h"
#include "io/dwg/groups/RecordGroups.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/records/FreeRecords.h"

DwgCursor::DwgCursor(const DwgObjectSource& source)
    : DwgCursor(source, source.reader())
{ }

DwgCursor::DwgCursor(const DwgObjectSource& source, const DwgRecord& reader)
    : m_source(source)
    , m_record(reader)
{ }

void DwgCursor::clear()
{
    m_groups.clear();
    m_next = 0;
    m_code = -1;
}

void DwgCursor::openAt(quint64 offset, bool isEntity)
{
    clear();
    if (m_record.open(offset))
        readRecord(isEntity);
}

void DwgCursor::open(quint32 slot)
{
    clear();
    if (m_source.open(m_record, slot))
        readRecord(m_source.database().store().has(slot, ObjectStore::kEntity));
    else
        readMade(slot);
}

void DwgCursor::readRecord(bool isEntity)
{
    DwgHead& head = m_head;
    const QByteArrayView name = m_source.classes().name(m_record.type());
    const GroupContext context{m_record, head, m_entity, *this, m_groups};
    if (isEntity) {
        m_record.readHead(head, m_entity);
        RecordGroups::common(context);
        RecordGroups::entity(context, name);
    } else {
        m_record.readHead(head);
        RecordGroups::object(context, name);
    }
    // An entity without extended data has a length of zero there, which takes two bits.
    const GroupList xData =
        FreeRecords::xData(m_record, head, [this](quint64 handle) { return nameOf(handle); });
    for (const GroupList::Group& group : xData)
        m_groups.canonical(group.code, group.value);
}

void DwgCursor::readMade(quint32 slot)
{
    const OdDbObjectId id = m_source.database().idOfSlot(slot);
    const auto entity = id.openObject<OdDbEntity>(OdDb::kForRead, true);
    if (!entity || !entity->madeGroups())
        return;
    for (const GroupList::Group& group : *entity->madeGroups())
        m_groups.canonical(group.code, group.value);
}

QString DwgCursor::nameOf(quint64 handle) const
{
    if (handle == 0)
        return {};
    const auto known = m_names.constFind(handle);
    if (known != m_names.cend())
        return *known;
    return *m_names.insert(handle, m_source.nameOf(handle));
}

QString DwgCursor::textOf(const GroupSink::Group& group) const
{
    return group.kind == GroupSink::Kind::Name ? nameOf(group.handle) : m_groups.textOf(group);
}

int DwgCursor::viewportNumber(quint64 handle) const
{
    const OdDbObjectId viewport = m_source.id(handle);
    return viewport.isNull() ? 0 : m_source.readViewport(viewport.slot()).number;
}

OdCmColor DwgCursor::bookColor(quint64 handle) const
{
    return m_source.bookColor(handle);
}

bool DwgCursor::next()
{
    if (m_next >= m_groups.size())
        return false;
    m_code = m_groups.at(m_next++).code;
    return true;
}

double DwgCursor::real() const
{
    const GroupSink::Group& group = m_groups.at(m_next - 1);
    switch (group.kind) {
    case GroupSink::Kind::Real:
        return group.real;
    case GroupSink::Kind::Integer:
        return static_cast<double>(group.integer);
    case GroupSink::Kind::Name:
    case GroupSink::Kind::Text:
        return NumberText::real(bytes()).value_or(0.0);
    default:
        return 0.0;
    }
}

qint64 DwgCursor::integer() const
{
    const GroupSink::Group& group = m_groups.at(m_next - 1);
    switch (group.kind) {
    case GroupSink::Kind::Integer:
        return group.integer;
    case GroupSink::Kind::Name:
    case GroupSink::Kind::Text:
        return NumberText::integer(bytes()).value_or(0);
    default:
        return 0;
    }
}

quint64 DwgCursor::handle() const
{
    const GroupSink::Group& group = m_groups.at(m_next - 1);
    switch (group.kind) {
    case GroupSink::Kind::Handle:
        return group.handle;
    case GroupSink::Kind::Name:
    case GroupSink::Kind::Text:
        return NumberText::handle(bytes()).value_or(0);
    default:
        return 0;
    }
}

QString DwgCursor::text() const
{
    const GroupSink::Group& group = m_groups.at(m_next - 1);
    return group.kind == GroupSink::Kind::Text || group.kind == GroupSink::Kind::Name
        ? textOf(group)
        : QString::fromUtf8(bytes());
}

QByteArrayView DwgCursor::bytes() const
{
    const GroupSink::Group& group = m_groups.at(m_next - 1);
    switch (group.kind) {
    case GroupSink::Kind::Mark:
        return group.mark;
    case GroupSink::Kind::Real:
        m_bytes = QByteArray::number(group.real, 'g', 17);
        break;
    case GroupSink::Kind::Integer:
        m_bytes = QByteArray::number(group.integer);
        break;
    case GroupSink::Kind::Handle:
        m_bytes = QByteArray::number(group.handle, 16).toUpper();
        break;
    case GroupSink::Kind::Name:
    case GroupSink::Kind::Text:
        m_bytes = textOf(group).toUtf8();
        break;
    }
    return m_bytes;
}

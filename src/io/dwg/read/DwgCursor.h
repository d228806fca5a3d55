#pragma once

#include "database/values/GroupCursor.h"
#include "io/dwg/groups/GroupContext.h"

#include <QHash>

class DwgObjectSource;

/// The groups that DXF would have for a record of a DWG file. A record is turned into groups as a
/// whole when it is opened; the memory serves the next one again.
class DwgCursor final : public GroupCursor, private RecordNames
{
public:
    explicit DwgCursor(const DwgObjectSource& source);
    /// Of records that stand in another file of the same form, and have the same names.
    DwgCursor(const DwgObjectSource& source, const DwgRecord& reader);

    void open(quint32 slot) override;
    /// Goes to the record at an offset; no groups where there is none.
    void openAt(quint64 offset, bool isEntity);
    bool next() override;

    double real() const override;
    qint64 integer() const override;
    quint64 handle() const override;
    QString text() const override;
    QByteArrayView bytes() const override;
    /// Whether the open record ended before its groups did.
    bool hasFailed() const { return m_record.hasFailed(); }

private:
    /// The name of a table's record; empty for a handle that is none.
    QString nameOf(quint64 handle) const;
    /// Of a group that is a name, or a text.
    QString textOf(const GroupSink::Group& group) const;
    int viewportNumber(quint64 handle) const override;
    OdCmColor bookColor(quint64 handle) const override;
    void clear();
    void readRecord(bool isEntity);
    /// An entity that was made in this session has its groups already.
    void readMade(quint32 slot);

    const DwgObjectSource& m_source;
    DwgRecord m_record;
    DwgHead m_head;
    DwgEntityHead m_entity;
    GroupSink m_groups;
    std::size_t m_next = 0;
    mutable QHash<quint64, QString> m_names;
    mutable QByteArray m_bytes; ///< of the group that is asked for
};

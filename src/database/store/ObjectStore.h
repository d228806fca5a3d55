#pragma once

#include "database/values/OdDbHandle.h"

#include <QByteArray>
#include <QHash>

#include <memory>
#include <unordered_map>
#include <vector>

class OdDbObject;

/// Types of records by number. Those up to `FirstOther` have fixed numbers, others get the next
/// free one.
enum class RecordType : quint16 {
    None,
    Section,
    EndSec,
    Table,
    EndTab,
    Block,
    EndBlk,
    Eof,
    SeqEnd,
    Layer,
    Ltype,
    BlockRecord,
    Style,
    DimStyle,
    View,
    VPort,
    AppId,
    Ucs,
    Dictionary,
    Xrecord,
    Layout,
    Viewport,
    Line,
    LwPolyline,
    Polyline,
    Vertex,
    Circle,
    Arc,
    Ellipse,
    Point,
    Text,
    MText,
    Insert,
    Attrib,
    Attdef,
    Spline,
    Solid,
    Trace,
    Face3d,
    Hatch,
    Dimension,
    Leader,
    Wipeout,
    DictionaryVar,
    DictionaryWithDefault,
    FirstOther,
};

/// All records of a drawing, as parallel arrays indexed by slot. Slots of a loaded drawing stand in
/// file order; one record costs 27 bytes. Objects are made when somebody opens them.
class ObjectStore
{
public:
    enum Flag : quint8 {
        kEntity = 1, ///< has an owner block and a layer
        kErased = 2,
        kSubEntity = 4, ///< vertex, attribute or sequence end: belongs to the entity before it
        kSynthetic = 8, ///< not in the file
        kTouched = 16, ///< changed at least once since it was loaded
    };
    static constexpr quint32 kNone = 0xFFFFFFFFu;

    ObjectStore();
    ~ObjectStore();

    quint32 size() const { return static_cast<quint32>(m_types.size()); }
    void reserve(std::size_t records);

    /// Adds a record at `offset` of the file image (bytes; records are contiguous, so a record ends
    /// where the next begins).
    quint32 append(RecordType type, quint64 offset, quint8 flags)
    {
        m_types.push_back(static_cast<quint16>(type));
        m_offsets.push_back(offset);
        m_flags.push_back(flags);
        m_handles.push_back(0);
        m_owners.push_back(kNone);
        m_layers.push_back(kNone);
        if (type == RecordType::Viewport)
            m_viewports.push_back(size() - 1);
        return size() - 1;
    }

    RecordType type(quint32 slot) const { return static_cast<RecordType>(m_types[slot]); }
    QByteArray typeName(quint32 slot) const;
    /// The number of a type name, given out on first use; names are matched exactly.
    RecordType typeByName(QByteArrayView name);
    /// File image range [begin, end) of a record that is in the file.
    quint64 begin(quint32 slot) const { return m_offsets[slot]; }
    quint64 end(quint32 slot) const
    {
        return slot + 1 < m_fileRecords ? m_offsets[slot + 1] : m_imageEnd;
    }
    void setImageEnd(quint64 end);
    quint32 fileRecords() const { return m_fileRecords; }

    quint64 handle(quint32 slot) const { return m_handles[slot]; }
    void setHandle(quint32 slot, quint64 handle) { m_handles[slot] = handle; }
    quint32 owner(quint32 slot) const { return m_owners[slot]; }
    void setOwner(quint32 slot, quint32 owner) { m_owners[slot] = owner; }
    /// Whether the record is said to belong to that one, or to none: old drawings do not tell.
    bool mayOwn(quint32 owner, quint32 slot) const
    {
        return m_owners[slot] == owner || m_owners[slot] == kNone;
    }
    /// Slot of the layer of an entity.
    quint32 layer(quint32 slot) const { return m_layers[slot]; }
    void setLayer(quint32 slot, quint32 layer) { m_layers[slot] = layer; }
    quint8 flags(quint32 slot) const { return m_flags[slot]; }
    bool has(quint32 slot, Flag flag) const { return (m_flags[slot] & flag) != 0; }
    void setFlag(quint32 slot, Flag flag, bool on);

    const std::vector<quint32>& layers() const { return m_layers; }
    /// Slots of all VIEWPORT entities, ascending.
    const std::vector<quint32>& viewports() const { return m_viewports; }

    /// Slot of a handle, or kNone.
    quint32 find(quint64 handle) const;
    /// Builds the handle index. Returns the slots whose handle an earlier slot has already.
    std::vector<quint32> indexHandles();
    void addHandle(quint64 handle, quint32 slot);
    /// False for a file without handles; those its records have then are of this session only.
    bool fileHasHandles() const { return m_fileHasHandles; }
    /// Ends the loading of handles: `seed` is the next free one by the file, 0 where it tells none.
    void setHandleSeed(quint64 seed);
    /// Whether a handle was given out after loading: the file does not have it.
    bool isNewHandle(quint64 handle) const { return handle >= m_firstNewHandle; }
    /// A handle that no record has and no record had.
    quint64 takeHandle();

    OdDbObject* object(quint32 slot) const;
    OdDbObject* adopt(quint32 slot, std::unique_ptr<OdDbObject> object);
    /// Slots that were touched, in slot order.
    std::vector<quint32> touched() const;

private:
    static constexpr quint32 kPageBits = 10;
    using Page = std::vector<std::unique_ptr<OdDbObject>>;

    std::vector<quint16> m_types;
    std::vector<quint8> m_flags;
    std::vector<quint32> m_owners;
    std::vector<quint32> m_layers;
    std::vector<quint64> m_handles;
    std::vector<quint64> m_offsets;
    quint64 m_imageEnd = 0;
    quint32 m_fileRecords = 0;
    quint64 m_maxHandle = 0;
    quint64 m_nextHandle = 1;
    quint64 m_firstNewHandle = 1;
    bool m_fileHasHandles = false;

    std::vector<quint32> m_dense; ///< slot by handle, for handles below its size
    std::unordered_map<quint64, quint32> m_sparse;
    std::vector<Page> m_pages;
    std::vector<quint32> m_touched;
    std::vector<quint32> m_viewports;
    std::vector<QByteArray> m_typeNames;
    QHash<QByteArray, quint16> m_typeNumbers;
};

#pragma once

#include "io/dwg/bits/BitWriter.h"
#include "io/dwg/records/DwgRecord.h"

#include <vector>

/// Edits of one record: bits of it are replaced, all others are kept, and sizes, the places of the
/// streams and the check sum follow.
class RecordPatch
{
public:
    enum class Stream : quint8 { Data, Text, Handles };

    /// Of a record whose head was read.
    explicit RecordPatch(const DwgRecord& record);

    /// Puts `with` in the place of the bits [begin, end) of the record's body. Edits of one stream
    /// come in ascending order. Up to version 2004 texts are data.
    void replace(Stream stream, quint64 begin, quint64 end, const BitWriter& with);
    void insert(Stream stream, quint64 at, const BitWriter& with) { replace(stream, at, at, with); }
    bool isEmpty() const { return m_edits.empty(); }

    /// The whole record, from its size to its sum. Raises OdError where it grew beyond what the
    /// format can tell.
    QByteArray result() const;

    /// The bits of text as a text of this version has them, length ahead.
    static BitWriter spelled(const DwgFormat& format, const QString& text);

private:
    struct Edit
    {
        Stream stream;
        quint64 begin;
        quint64 end;
        BitWriter with;
    };
    void copy(BitWriter& out, Stream stream, quint64 begin, quint64 end) const;

    DwgVersion m_version;
    QByteArrayView m_body;
    DwgStreams::Layout m_layout;
    quint64 m_lengthAt;
    std::vector<Edit> m_edits;
};

/// The parts of a record that are put together, with sizes and the check sum.
struct RecordParts
{
    DwgVersion version = DwgVersion::V2018;
    BitWriter data; ///< from the type on
    BitWriter text;
    bool hasText = false;
    BitWriter handles;
    quint64 lengthAt = 0; ///< of the length of the data, in versions that tell it among them
    bool onesFill = true; ///< what the last byte is filled up with; most programs take ones

    /// Raises OdError where a part is longer than the format can tell.
    QByteArray assembled() const;
};

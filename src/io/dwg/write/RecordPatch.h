#pragma once

#include "io/dwg/bits/BitWriter.h"
#include "io/dwg/records/DwgRecord.h"

#include <vector>

/// The parts of a record that are put together, with sizes and the check sum.
struct RecordParts
{
    DrawingVersion version = DrawingVersion::V2018;
    BitWriter data; ///< from the type on
    BitWriter text;
    bool hasText = false;
    BitWriter handles;
    quint64 lengthAt = 0; ///< of the length of the data, in versions that tell it among them
    bool onesFill = true; ///< what the last byte is filled up with; most programs take ones
    // Or what it was filled up with, where that takes as many bits.
    unsigned oldFillCount = 0;
    quint8 oldFill = 0;

    /// Raises OdError where a part is longer than the format can tell.
    QByteArray assembled() const;
    /// The streams alone, without sizes and sum around them. `handlesAt` gets the bit at which the
    /// references start.
    QByteArray body(bool tellsLength, quint64& handlesAt) const;
};

/// Edits of one record: bits of it are replaced, all others are kept, and sizes, the places of the
/// streams and the check sum follow.
class RecordPatch
{
public:
    enum class Stream : quint8 { Data, Text, Handles };

    /// Of a record whose head was read.
    explicit RecordPatch(const DwgRecord& record);
    /// Of the body of a section.
    explicit RecordPatch(const DwgStreams& section);

    /// Puts `with` in the place of those bits of the record's body. Edits do not overlap. Up to
    /// version 2004 texts are data.
    void replace(Stream stream, BitSpan at, const BitWriter& with);
    bool isEmpty() const { return m_edits.empty(); }

    /// The whole record, from its size to its sum. Raises OdError where it grew beyond what the
    /// format can tell.
    QByteArray result() const;
    /// The same without sizes and sum; the length of the data stands first where there is a stream
    /// of texts.
    QByteArray body() const;

private:
    struct Edit
    {
        Stream stream;
        BitSpan at;
        BitWriter with;
    };
    RecordParts parts() const;
    void copy(BitWriter& out, Stream stream, quint64 begin, quint64 end) const;

    DrawingVersion m_version;
    QByteArrayView m_body;
    DwgStreams::Layout m_layout;
    quint64 m_lengthAt;
    std::vector<Edit> m_edits;
};

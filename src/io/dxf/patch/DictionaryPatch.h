#pragma once

#include "io/dxf/patch/NewRecords.h"

class RecordPatcher;

/// The entries of a DICTIONARY record of the file.
class DictionaryPatch
{
public:
    DictionaryPatch(const DxfObjectSource& source, RecordPatcher& record);

    /// Turns the entries into `wanted`, keeping what stays in its place. An entry with handle 0
    /// names no object of the drawing: the value of that key in the file stays.
    void turnInto(std::vector<KeyedHandle> wanted, const NewRecords& records, bool hard);

private:
    struct Pair
    {
        std::size_t key; ///< index of its span
        std::size_t value;
        QString text;
        quint64 handle;
    };
    void patchInPlace(const std::vector<KeyedHandle>& wanted);
    /// Removes and appends; false where the order of what stays differs.
    bool removeAndAppend(const std::vector<KeyedHandle>& wanted, const NewRecords& records,
                         int valueCode);
    void append(const std::vector<KeyedHandle>& wanted, std::size_t from, const NewRecords& records,
                int valueCode);

    const DxfObjectSource& m_source;
    RecordPatcher& m_record;
    std::vector<Pair> m_pairs;
    quint64 m_end; ///< where entries can be put behind the others
};

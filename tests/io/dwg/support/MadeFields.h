#pragma once

#include "io/dwg/sections/HeaderLayout.h"
#include "io/dwg/write/RecordPatch.h"

#include <map>
#include <string_view>

struct DwgFormat;

/// Spells values in the order that header variables have; those that nothing was said of are zero.
class MadeFields
{
public:
    explicit MadeFields(const DwgFormat& format)
        : m_format(format)
    { }

    void setNumber(const char* name, double value) { m_numbers[name] = value; }
    void setReference(const char* name, quint64 handle) { m_references[name] = handle; }

    /// All of the version.
    void appendAll(RecordParts& parts, BitWriter& references) const;
    /// From the first field named `first` to the last one named `last`.
    void append(const char* first, const char* last, RecordParts& parts,
                BitWriter& references) const;

private:
    void append(const HeaderField& field, RecordParts& parts, BitWriter& references) const;
    void appendColor(RecordParts& parts) const;
    void appendText(RecordParts& parts) const;

    const DwgFormat& m_format;
    std::map<std::string_view, double> m_numbers;
    std::map<std::string_view, quint64> m_references;
};

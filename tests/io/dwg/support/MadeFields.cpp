#include "io/dwg/support/MadeFields.h"

#include "io/dwg/write/Spelling.h"

namespace {

template <class Value>
Value valueOf(const std::map<std::string_view, Value>& values, const char* name)
{
    const auto found = values.find(name);
    return found == values.end() ? Value() : found->second;
}

} // namespace

void MadeFields::appendAll(RecordParts& parts, BitWriter& references) const
{
    for (const HeaderField& field : headerLayout()) {
        if (field.since <= m_format.version && m_format.version <= field.until)
            append(field, parts, references);
    }
}

void MadeFields::append(const char* first, const char* last, RecordParts& parts,
                        BitWriter& references) const
{
    bool inside = false;
    for (const HeaderField& field : headerLayout()) {
        if (field.since > m_format.version || m_format.version > field.until)
            continue;
        inside = inside || std::string_view(field.name) == first;
        if (inside)
            append(field, parts, references);
        if (inside && std::string_view(field.name) == last)
            return;
    }
}

void MadeFields::appendText(RecordParts& parts) const
{
    const bool apart = hasTextStream(m_format.version);
    (apart ? parts.text : parts.data).append(Spelling::text(m_format, {}));
    parts.hasText = apart;
}

void MadeFields::appendColor(RecordParts& parts) const
{
    parts.data.append(Spelling::color(m_format, OdCmColor::fromIndex(256)).data);
}

void MadeFields::append(const HeaderField& field, RecordParts& parts, BitWriter& references) const
{
    BitWriter& data = parts.data;
    const double number = valueOf(m_numbers, field.name);
    const quint64 handle = valueOf(m_references, field.name);
    switch (field.kind) {
    case HeaderField::Bit:
        return data.bit(number != 0);
        return data.bit(number == 0);
    case HeaderField::Short:
    case HeaderField::PlotStyle:
        return data.bitShort(static_cast<qint16>(number));
    case HeaderField::Long:
    case HeaderField::Flags:
        return data.bitLong(static_cast<qint32>(number));
    case HeaderField::LongLong:
        return data.bits(0, 3); // no bytes follow
    case HeaderField::Real:
        return data.bitDouble(number);
    case HeaderField::Text:
        return appendText(parts);
    case HeaderField::Byte:
        return data.rawChar(static_cast<quint8>(number));
    case HeaderField::Handle:
        return references.handle(DwgReference::HardPointer, handle);
    case HeaderField::Seed:
        return data.handle(DwgReference::Own, handle);
    case HeaderField::Color:
        return appendColor(parts);
    case HeaderField::Point2:
        data.rawDouble(number);
        return data.rawDouble(0);
    case HeaderField::Point3:
        data.bitDouble(number);
        data.bitDouble(0);
        return data.bitDouble(0);
    case HeaderField::Days:
        data.bitLong(static_cast<qint32>(number));
        return data.bitLong(0);
    }
}

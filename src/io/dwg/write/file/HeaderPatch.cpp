#include "io/dwg/write/file/HeaderPatch.h"

#include "io/dwg/write/Spelling.h"

namespace {

constexpr quint32 kLineWeightMask = 0x1F;

} // namespace

HeaderPatch::HeaderPatch(const DwgObjectSource& source)
    : m_source(source)
    , m_header(source.file(), source.format())
    , m_section(source.file(), DwgSection::Header, source.format())
    , m_patch(m_section)
{ }

bool HeaderPatch::setReference(const QString& name, quint64 handle, DwgReference kind)
{
    const HeaderSection::Place* place = m_header.place(name);
    if (!place)
        return false;
    const bool isSeed = place->kind == HeaderField::Seed;
    BitWriter bits;
    bits.handle(isSeed ? DwgReference::Own : kind, handle);
    const bool amongData = isSeed || !hasTextStream(m_section.version());
    m_patch.replace(amongData ? RecordPatch::Stream::Data : RecordPatch::Stream::Handles,
                    amongData ? place->data : place->handles, bits);
    return true;
}

bool HeaderPatch::setFlag(const QString& name, const QString& value)
{
    if (!m_header.place(QStringLiteral("*FLAGS")))
        return false;
    const auto number = static_cast<quint32>(value.toInt());
    if (name == QLatin1String("$CELWEIGHT")) {
        m_flags[kLineWeightMask] =
            static_cast<quint32>(dwgLineWeightNumber(static_cast<qint16>(value.toInt())));
        return true;
    }
    for (const HeaderFlag& flag : headerFlags()) {
        if (name != QLatin1String(flag.name))
            continue;
        m_flags[flag.mask] = ((flag.inverse ? 1 - number : number) << flag.shift) & flag.mask;
        return true;
    }
    return false;
}

bool HeaderPatch::setValue(const QString& name, const QString& value)
{
    const HeaderSection::Place* place = m_header.place(name);
    if (!place)
        return setFlag(name, value);
    BitWriter bits;
    switch (place->kind) {
    case HeaderField::Bit:
        bits.bit(value.toInt() != 0);
        break;
    case HeaderField::Short:
        bits.bitShort(static_cast<qint16>(value.toInt()));
        break;
    case HeaderField::Long:
        bits.bitLong(value.toInt());
        break;
    case HeaderField::Real:
        bits.bitDouble(value.toDouble());
        break;
    case HeaderField::Byte:
        bits.rawChar(static_cast<quint8>(value.toInt()));
        break;
    case HeaderField::Text:
        m_patch.replace(RecordPatch::Stream::Text, place->text,
                        Spelling::text(m_source.format(), value));
        return true;
    case HeaderField::Color: {
        const Spelling::Color color =
            Spelling::color(m_source.format(), OdCmColor::fromIndex(value.toInt()));
        m_patch.replace(RecordPatch::Stream::Data, place->data, color.data);
        if (hasTextStream(m_section.version()))
            m_patch.replace(RecordPatch::Stream::Text, place->text, color.names);
        return true;
    }
    default:
        return false;
    }
    m_patch.replace(RecordPatch::Stream::Data, place->data, bits);
    return true;
}

QByteArray HeaderPatch::result()
{
    if (!m_flags.empty()) {
        const HeaderSection::Place* place = m_header.place(QStringLiteral("*FLAGS"));
        m_section.data.seek(place->data.begin);
        auto flags = static_cast<quint32>(m_section.data.bitLong());
        for (const auto& [mask, bits] : m_flags)
            flags = (flags & ~mask) | bits;
        BitWriter bits;
        bits.bitLong(static_cast<qint32>(flags));
        m_patch.replace(RecordPatch::Stream::Data, place->data, bits);
    }
    return SectionStreams::withBody(m_section, m_source.file().section(DwgSection::Header),
                                    m_patch.body());
}

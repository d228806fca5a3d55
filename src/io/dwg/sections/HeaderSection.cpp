#include "io/dwg/sections/HeaderSection.h"

#include "io/dwg/records/DwgRecord.h"
#include "io/dwg/sections/HeaderLayout.h"
#include "io/dwg/sections/SectionStreams.h"
#include "io/dwg/sections/TemplateSection.h"

namespace {

constexpr quint32 kLineWeight = 0x1F;

QString number(double value)
{
    return QString::number(value, 'g', 16);
}

QString colorIndex(const OdCmColor& color)
{
    switch (color.colorMethod()) {
    case OdCmColor::kByLayer:
        return QStringLiteral("256");
    case OdCmColor::kByBlock:
        return QStringLiteral("0");
    default:
        return QString::number(color.colorIndex());
    }
}

/// The first coordinate, which stands for a point among the variables.
QString firstOf(int count, BitReader& data, bool raw)
{
    double first = 0;
    for (int i = 0; i < count; ++i) {
        const double coordinate = raw ? data.rawDouble() : data.bitDouble();
        if (i == 0)
            first = coordinate;
    }
    return number(first);
}

QString days(BitReader& data)
{
    constexpr double kMillisecondsPerDay = 86400000.0;
    const qint32 whole = data.bitLong();
    return QString::number(whole + data.bitLong() / kMillisecondsPerDay, 'f', 9);
}

} // namespace

void HeaderSection::add(const char* name, int code, const QString& value)
{
    if (*name != '\0')
        m_variables.push_back({QString::fromLatin1(name), code, value, false});
}

struct HeaderSection::Reader
{
    HeaderSection& header;
    SectionStreams& section;

    void flags()
    {
        const auto flags = static_cast<quint32>(section.data.bitLong());
        header.add("$CELWEIGHT", 370,
                   QString::number(dwgLineWeight(static_cast<int>(flags & kLineWeight))));
        for (const HeaderFlag& flag : headerFlags()) {
            const quint32 value = (flags & flag.mask) >> flag.shift;
            header.add(flag.name, flag.code, QString::number(flag.inverse ? 1 - value : value));
        }
    }

    void reference(const HeaderField& field, quint64 handle)
    {
        if (*field.name == '\0')
            return;
        const QString name = QString::fromLatin1(field.name);
        header.m_references.insert(name, handle);
        if (*field.name == '$')
            header.m_variables.push_back({name, field.code, QString::number(handle, 16).toUpper(),
                                          field.kind == HeaderField::Handle});
    }

    QString value(const HeaderField& field)
    {
        BitReader& data = section.data;
        switch (field.kind) {
        case HeaderField::Bit:
            return QString::number(data.bit() ? 1 : 0);
        case HeaderField::Short:
            return QString::number(data.bitShort());
        case HeaderField::Long:
            return QString::number(data.bitLong());
        case HeaderField::LongLong:
            return QString::number(data.bitLongLong());
        case HeaderField::Real:
            return number(data.bitDouble());
        case HeaderField::Text:
            return section.text();
        case HeaderField::Byte:
            return QString::number(data.rawChar());
        case HeaderField::Color:
            return colorIndex(section.color());
        case HeaderField::Point2:
            return firstOf(2, data, true);
        case HeaderField::Point3:
            return firstOf(3, data, false);
        default:
            return days(data);
        }
    }

    void read(const HeaderField& field)
    {
        constexpr int kNamedPlotStyle = 3;
        switch (field.kind) {
        case HeaderField::Seed:
            return reference(field, section.data.handle().value);
        case HeaderField::Handle:
            return reference(field, section.reference());
        case HeaderField::Flags:
            return flags();
        case HeaderField::PlotStyle: {
            const int kind = section.data.bitShort();
            header.add(field.name, field.code, QString::number(kind));
            if (kind == kNamedPlotStyle)
                section.reference();
            return;
        }
        default:
            header.add(field.name, field.code, value(field));
        }
    }
};

HeaderSection::HeaderSection(const DwgFile& file, const DwgFormat& format)
{
    SectionStreams section(file, DwgSection::Header, format);
    Reader reader{*this, section};
    for (const HeaderField& field : headerLayout()) {
        if (field.since > format.version || format.version > field.until)
            continue;
        Place place{field.kind,
                    {section.data.position(), 0},
                    {section.textPosition(), 0},
                    {section.handles.position(), 0}};
        reader.read(field);
        place.data.end = section.data.position();
        place.text.end = section.textPosition();
        place.handles.end = section.handles.position();
        const bool isFlags = field.kind == HeaderField::Flags;
        m_places.insert(isFlags ? QStringLiteral("*FLAGS") : QString::fromLatin1(field.name),
                        place);
    }
    if (const auto metric = TemplateSection::measurement(file.section(DwgSection::Template)))
        add("$MEASUREMENT", 70, QString::number(*metric));
    m_sound = section.isSound() && !section.hasFailed();
}

const HeaderSection::Place* HeaderSection::place(const QString& name) const
{
    const auto found = m_places.constFind(name);
    return found == m_places.cend() ? nullptr : &*found;
}

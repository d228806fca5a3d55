#include "io/dwg/sections/DwgClasses.h"

#include "io/dwg/sections/SectionStreams.h"

#include <algorithm>
#include <array>

namespace {

constexpr quint16 kFirst = 500;
constexpr quint16 kMost = 0x7FFF;
constexpr quint16 kEntityClass = 0x1F2;

struct FixedType
{
    const char* name = "";
    bool isEntity = false;
};

/// By number from 0; records of tables come after the one that holds their handles.
constexpr std::array<FixedType, 0x53> kFixed = {{
    {},
    {"TEXT", true},
    {"ATTRIB", true},
    {"ATTDEF", true},
    {"BLOCK", true},
    {"ENDBLK", true},
    {"SEQEND", true},
    {"INSERT", true},
    {"INSERT", true}, // in rows and columns
    {},
    {"VERTEX", true}, // of a flat polyline
    {"VERTEX", true}, // in space
    {"VERTEX", true}, // of a mesh
    {"VERTEX", true}, // of a polyface
    {"VERTEX", true}, // a face of a polyface
    {"POLYLINE", true},
    {"POLYLINE", true}, // in space
    {"ARC", true},
    {"CIRCLE", true},
    {"LINE", true},
    {"DIMENSION", true}, // ordinate
    {"DIMENSION", true}, // linear
    {"DIMENSION", true}, // aligned
    {"DIMENSION", true}, // angle by three points
    {"DIMENSION", true}, // angle by two lines
    {"DIMENSION", true}, // radius
    {"DIMENSION", true}, // diameter
    {"POINT", true},
    {"3DFACE", true},
    {"POLYLINE", true}, // a polyface
    {"POLYLINE", true}, // a mesh
    {"SOLID", true},
    {"TRACE", true},
    {"SHAPE", true},
    {"VIEWPORT", true},
    {"ELLIPSE", true},
    {"SPLINE", true},
    {"REGION", true},
    {"3DSOLID", true},
    {"BODY", true},
    {"RAY", true},
    {"XLINE", true},
    {"DICTIONARY"},
    {"OLEFRAME", true},
    {"MTEXT", true},
    {"LEADER", true},
    {"TOLERANCE", true},
    {"MLINE", true},
    {"TABLE"},
    {"BLOCK_RECORD"},
    {"TABLE"},
    {"LAYER"},
    {"TABLE"},
    {"STYLE"},
    {},
    {},
    {"TABLE"},
    {"LTYPE"},
    {},
    {},
    {"TABLE"},
    {"VIEW"},
    {"TABLE"},
    {"UCS"},
    {"TABLE"},
    {"VPORT"},
    {"TABLE"},
    {"APPID"},
    {"TABLE"},
    {"DIMSTYLE"},
    {"VX_CONTROL"},
    {"VX"},
    {"GROUP"},
    {"MLINESTYLE"},
    {"OLE2FRAME", true},
    {"DUMMY"},
    {"LONG_TRANSACTION"},
    {"LWPOLYLINE", true},
    {"HATCH", true},
    {"XRECORD"},
    {"ACDBPLACEHOLDER"},
    {"VBA_PROJECT"},
    {"LAYOUT"},
}};
constexpr quint16 kProxyEntity = 0x1F2;
constexpr quint16 kProxyObject = 0x1F3;

} // namespace

DwgClasses::DwgClasses(const DwgFile& file, const DwgFormat& format)
{
    SectionStreams section(file, DwgSection::Classes, format);
    BitReader& data = section.data;
    m_sound = section.isSound();
    // Three bytes more than the highest number, or four of a number and its padding.
    if (section.since(DrawingVersion::V2004)) {
        m_highestAt.begin = data.position();
        data.bitShort();
        m_highestAt.end = data.position();
        data.skip(16);
        data.bit();
    }
    m_dataEnd = data.position();
    m_textEnd = section.textPosition();
    // The shortest class takes more bits; fewer are the padding of the last byte.
    constexpr quint64 kLeast = 16;
    while (data.left() >= kLeast && !section.hasFailed()) {
        const auto number = static_cast<quint16>(data.bitShort());
        data.bitShort(); // what proxies may do
        section.text(); // application
        section.text(); // class name
        Class found{section.text().toLatin1(), false};
        data.bit(); // was a proxy
        found.isEntity = data.bitShort() == kEntityClass;
        if (section.since(DrawingVersion::V2004)) {
            for (int i = 0; i < 5; ++i)
                data.bitLong(); // how many there are, versions
        }
        if (!section.hasFailed()) {
            m_dataEnd = data.position();
            m_textEnd = section.textPosition();
        }
        if (section.hasFailed() || number < kFirst || number > kMost)
            continue;
        m_classes.resize(std::max<std::size_t>(m_classes.size(), number - kFirst + 1u));
        m_classes[number - kFirst] = std::move(found);
    }
}

QByteArrayView DwgClasses::name(quint16 type) const
{
    if (type < kFixed.size())
        return kFixed[type].name;
    if (type >= kFirst && type - kFirst < static_cast<int>(m_classes.size()))
        return m_classes[type - kFirst].name;
    return type == kProxyEntity ? QByteArrayView("ACAD_PROXY_ENTITY")
        : type == kProxyObject  ? QByteArrayView("ACAD_PROXY_OBJECT")
                                : QByteArrayView();
}

bool DwgClasses::isEntity(quint16 type) const
{
    if (type < kFixed.size())
        return kFixed[type].isEntity;
    if (type >= kFirst && type - kFirst < static_cast<int>(m_classes.size()))
        return m_classes[type - kFirst].isEntity;
    return type == kProxyEntity;
}

quint16 DwgClasses::nextNumber() const
{
    return static_cast<quint16>(static_cast<std::size_t>(kFirst) + m_classes.size());
}

quint16 DwgClasses::number(QByteArrayView dxfName) const
{
    const auto found = std::find_if(m_classes.begin(), m_classes.end(),
                                    [&](const Class& c) { return c.name == dxfName; });
    return found == m_classes.end() ? quint16(0)
                                    : static_cast<quint16>(kFirst + (found - m_classes.begin()));
}

#pragma once

#include "io/dwg/container/DwgFile.h"
#include "io/dwg/records/DwgFormat.h"
#include "io/dwg/records/DwgStreams.h"

#include <QByteArray>

#include <vector>

/// The types of records in a drawing: fixed ones by number, others as its class section names them.
class DwgClasses
{
public:
    DwgClasses(const DwgFile& file, const DwgFormat& format);

    /// The DXF name of a type ("LWPOLYLINE"); empty for a number that the drawing does not explain.
    QByteArrayView name(quint16 type) const;
    bool isEntity(quint16 type) const;
    /// The number of a class, 0 where the drawing has none of that DXF name.
    quint16 number(QByteArrayView dxfName) const;
    /// The number that one more class gets.
    quint16 nextNumber() const;
    // For an edit of the section
    BitSpan highestAt() const { return m_highestAt; } ///< of the highest number, since 2004
    quint64 dataEnd() const { return m_dataEnd; } ///< bit behind the last class
    quint64 textEnd() const { return m_textEnd; }
    /// Whether the section and its sum are whole.
    bool isSound() const { return m_sound; }

private:
    struct Class
    {
        QByteArray name;
        bool isEntity = false;
    };
    std::vector<Class> m_classes; ///< by number from kFirst
    BitSpan m_highestAt;
    quint64 m_dataEnd = 0;
    quint64 m_textEnd = 0;
    bool m_sound = false;
};

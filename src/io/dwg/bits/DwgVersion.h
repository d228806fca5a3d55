#pragma once

#include "io/records/DrawingVersion.h"

#include <QByteArray>

#include <optional>

/// The version that a file names, or nothing where this program does not know it.
inline std::optional<DrawingVersion> dwgVersion(QByteArrayView head)
{
    if (head.size() < 6 || !head.startsWith("AC"))
        return std::nullopt;
    for (const DrawingVersion version :
         {DrawingVersion::R13, DrawingVersion::R14, DrawingVersion::V2000, DrawingVersion::V2004,
          DrawingVersion::V2007, DrawingVersion::V2010, DrawingVersion::V2013,
          DrawingVersion::V2018})
    {
        if (head.sliced(2, 4) == QByteArray::number(static_cast<int>(version)))
            return version;
    }
    return std::nullopt;
}

/// Texts stand in a stream of their own, as UTF-16.
inline bool hasTextStream(DrawingVersion version)
{
    return version >= DrawingVersion::V2007;
}

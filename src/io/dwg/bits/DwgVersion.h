#pragma once

#include <QByteArray>

#include <optional>

/// Versions of the DWG format by the number in the first six bytes of a file ("AC1015").
enum class DwgVersion : int {
    R13 = 1012,
    R14 = 1014,
    V2000 = 1015,
    V2004 = 1018,
    V2007 = 1021,
    V2010 = 1024,
    V2013 = 1027,
    V2018 = 1032,
};

/// The version that a file names, or nothing where this program does not know it.
inline std::optional<DwgVersion> dwgVersion(QByteArrayView head)
{
    if (head.size() < 6 || !head.startsWith("AC"))
        return std::nullopt;
    for (const DwgVersion version :
         {DwgVersion::R13, DwgVersion::R14, DwgVersion::V2000, DwgVersion::V2004, DwgVersion::V2007,
          DwgVersion::V2010, DwgVersion::V2013, DwgVersion::V2018})
    {
        if (head.sliced(2, 4) == QByteArray::number(static_cast<int>(version)))
            return version;
    }
    return std::nullopt;
}

/// Texts stand in a stream of their own, as UTF-16.
inline bool hasTextStream(DwgVersion version)
{
    return version >= DwgVersion::V2007;
}

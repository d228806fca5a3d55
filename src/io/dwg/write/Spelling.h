#pragma once

#include "database/values/GroupList.h"
#include "database/values/OdCmColor.h"
#include "io/dwg/bits/BitWriter.h"
#include "io/dwg/records/DwgFormat.h"

#include <functional>

/// Values as the records of a drawing's version have them.
namespace Spelling {

/// T, length ahead. Raises OdError for one that is too long.
BitWriter text(const DwgFormat& format, const QString& text);

/// CMC: the number part, and the names, which stand among the data up to version 2004.
struct Color
{
    BitWriter data;
    BitWriter names;
};
Color color(const DwgFormat& format, const OdCmColor& color);

/// The handle of the table's record with that name, 0 where there is none.
using HandleOf = std::function<quint64(int code, const QString& name)>;

/// The most bytes that extended data of one record have.
inline constexpr quint64 kMostXData = 0x3FFF;

/// Extended data of one application, without the application itself. False where a group cannot
/// stand there.
bool xData(const DwgFormat& format, const GroupList& groups, const HandleOf& handleOf,
           BitWriter& out);

/// Groups of an XRECORD, without their length. False where a group has no form in this format.
bool freeGroups(const DwgFormat& format, const GroupList& groups, BitWriter& out);

} // namespace Spelling

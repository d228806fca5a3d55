#pragma once

#include "io/dwg/bits/DwgVersion.h"

#include <span>

/// One value of the section of header variables.
struct HeaderField
{
    enum Kind : quint8 {
        Bit, ///< B
        Short, ///< BS
        Long, ///< BL
        LongLong, ///< BLL
        Real, ///< BD
        Text, ///< T
        Byte, ///< RC
        Handle, ///< H
        Seed, ///< H among the data in all versions
        Color, ///< CMC
        Point2, ///< 2RD
        Point3, ///< 3BD
        Days, ///< 2BL: days, milliseconds of the day
        Flags, ///< BL, several variables in one
        PlotStyle, ///< BS; a handle follows where it is 3
    };

    Kind kind;
    const char* name = ""; ///< "$LTSCALE"; an empty one is read over
    int code = 0; ///< of its group in DXF
    DrawingVersion since = DrawingVersion::R13;
    DrawingVersion until = DrawingVersion::V2018;
};

/// All values in the order of the section.
std::span<const HeaderField> headerLayout();

/// A setting that shares the number of Kind::Flags: what is left after the mask, shifted down.
struct HeaderFlag
{
    const char* name;
    int code;
    quint32 mask;
    int shift;
    bool inverse;
};
std::span<const HeaderFlag> headerFlags();

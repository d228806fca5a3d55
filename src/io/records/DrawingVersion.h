#pragma once

/// Versions of the drawing formats by the number in $ACADVER and in the first bytes of a DWG
/// file ("AC1015").
enum class DrawingVersion : int {
    R12 = 1009,
    R13 = 1012,
    R14 = 1014,
    V2000 = 1015,
    V2004 = 1018,
    V2007 = 1021,
    V2010 = 1024,
    V2013 = 1027,
    V2018 = 1032,
};

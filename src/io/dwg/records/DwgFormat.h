#pragma once

#include "io/dwg/bits/DwgVersion.h"
#include "io/dxf/text/DxfText.h"

/// What the readers of records must know of a file.
struct DwgFormat
{
    DrawingVersion version = DrawingVersion::V2018;
    DxfText text; ///< of versions before 2007
    int codePage = 0; ///< the format's own number

    /// `codePage` by the format's own numbers; windows-1252 for one that is unknown.
    static DwgFormat of(DrawingVersion version, int codePage);
    /// Texts of a code page of the format's own numbers; made once in a program.
    static const DxfText& textOf(int codePage);
};

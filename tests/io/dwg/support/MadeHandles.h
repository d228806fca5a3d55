#pragma once

#include <QtGlobal>

/// The handles of what every made drawing has.
namespace MadeHandle {
enum : quint64 {
    BlockControl = 0x1,
    LayerControl = 0x2,
    StyleControl = 0x3,
    LtypeControl = 0x5,
    ViewControl = 0x6,
    UcsControl = 0x7,
    VportControl = 0x8,
    AppIdControl = 0x9,
    DimStyleControl = 0xA,
    VxControl = 0xB, ///< up to version 2000
    Named = 0xC,
    Groups = 0xD,
    PlotStyles = 0xE,
    PlotStyle = 0xF,
    Style = 0x11,
    AppAcad = 0x12,
    AppDescription = 0x13,
    ByBlock = 0x14,
    ByLayer = 0x15,
    Continuous = 0x16,
    MultiLineStyles = 0x17,
    AppTransparency = 0x18,
    Dashed = 0x19,
    Layouts = 0x1A,
    PaperSpace = 0x1B,
    PaperBegin = 0x1C,
    PaperEnd = 0x1D,
    Sheet = 0x1E,
    ModelSpace = 0x1F,
    ModelBegin = 0x20,
    ModelEnd = 0x21,
    ModelLayout = 0x22,
    SheetViewport = 0x23, ///< the sheet itself
    Viewport = 0x24,
    Vport = 0x25,
    DimStyle = 0x27,
    LayerExtras = 0x28, ///< dictionary of the layer table
    Filters = 0x29,
    Rule = 0x2A,
    Group = 0x2B,
    States = 0x2C,
    State = 0x2D,
    OverrideExtras = 0x2E,
    ColorOverrides = 0x2F,
    LineWeightOverrides = 0x30,
    Variables = 0x31,
    LayerEval = 0x32,
    FirstLayer = 0x40,
};
} // namespace MadeHandle

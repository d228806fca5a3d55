#pragma once

/// What a restore of a layer state brings back (group 91 of the record, argument of save and
/// restore).
namespace LayerStateMask {
enum Bit : int {
    kOn = 0x001,
    kFrozen = 0x002,
    kLocked = 0x004,
    kPlot = 0x008,
    kNewViewportFrozen = 0x010,
    kColor = 0x020,
    kLinetype = 0x040,
    kLineWeight = 0x080,
    kPlotStyle = 0x100,
    kViewportFrozen = 0x200, ///< in the active viewport
    kTransparency = 0x400,
    kAll = 0x7FF,

    kHidden = 0x8000, ///< kept by a program for itself; users do not see the state
    kLastRestored = 0x10000, ///< of all states this one was restored last
};
} // namespace LayerStateMask

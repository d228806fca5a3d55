#pragma once

#include <QWidget>

#include <span>

class CLayerPaneView;
class OdDbDatabase;

/// A window, pane or menu of the palette that users see.
struct Surface
{
    const char* name;
    /// Makes it, laid out as it comes up. One with a parent stays with that; another belongs to the
    /// caller.
    QWidget* (*make)(CLayerPaneView& palette, OdDbDatabase& drawing);
};

/// All of them. A new dialog gets a line here and is then looked at for texts that are not
/// translated or cut off, keys that clash, and names for assistive programs.
std::span<const Surface> surfaces();

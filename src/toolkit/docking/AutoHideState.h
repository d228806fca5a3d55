#pragma once

#include <QByteArray>

#include <optional>
#include <utility>
#include <vector>

/// A pane that is hidden to a side of the window.
struct AutoHideEntry
{
    Qt::DockWidgetArea side = Qt::LeftDockWidgetArea;
    int extent = 0; ///< how far it slides out, in device-independent pixels
    bool closed = false; ///< hidden to the side and closed: it has no tab
};

/// Panes hidden to the sides by pane id, in the order of their tabs.
using AutoHideState = std::vector<std::pair<int, AutoHideEntry>>;

QByteArray autoHideStateToBytes(const AutoHideState& state);
/// Nothing when the bytes are anything else than a whole state.
std::optional<AutoHideState> autoHideStateFromBytes(const QByteArray& bytes);

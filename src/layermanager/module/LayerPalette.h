#pragma once

/// Identifier of the palette's pane.
inline constexpr int kLayerPaneId = 1000;

/// Shows the palette in the host's main window, creating its pane and view at the first time. The
/// focus stays with the main window.
void ShowLayerPalette();

/// Closes the pane; the view stays alive.
void CloseLayerPalette();

/// Takes the view out of its pane and ends it. For the module's end.
void destroyLayerPalette();

#pragma once

class QWidget;

/// The layer-state manager on the current drawing, modal; nothing without a drawing.
void openLayerStateManager(QWidget* parent);

/// Asks for the name of a new layer state of the current drawing.
void openNewLayerState(QWidget* parent);

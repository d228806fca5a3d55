#pragma once

class QWidget;

/// Gives the keyboard focus to what had it last in `view`, else to the first widget inside that
/// takes it by key. False where there is none.
bool focusInside(QWidget& view);

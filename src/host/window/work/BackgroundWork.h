#pragma once

#include "io/DrawingFile.h"

#include <QString>

#include <functional>

class QWidget;

/// Runs the work in a thread of its own and returns when it has ended; what it raises is raised
/// here. Work that is over within a fifth of a second shows nothing. Longer work shows its
/// progress, can be cancelled and leaves the windows alive. `holdsDrawing`: the work reads a
/// drawing that is on the screen. Nothing is painted from it then, so that no two threads read it
/// at once.
void runInBackground(QWidget* parent, const QString& text, bool holdsDrawing,
                     const std::function<void(const IoProgress&)>& work);

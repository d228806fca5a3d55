#pragma once

#include "host/canvas/tools/PointerTool.h"

#include <QPointF>

class QPainter;
class QPalette;

/// Paints what follows the cursor: a line; a rectangle; blue and solid around what is to be wholly
/// inside, green and dashed across what is to be touched.
class RubberPainter
{
public:
    /// Ends in window pixels.
    static void paint(QPainter& painter, PointerTool::Rubber::Kind kind, QPointF from, QPointF to,
                      const QPalette& palette);
};

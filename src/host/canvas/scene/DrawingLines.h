#pragma once

#include "database/values/OdDbObjectId.h"
#include "host/canvas/scene/lines/LineSettings.h"

/// What a drawing's variables say about lines in the current space.
struct DrawingLines
{
    LineSettings own; ///< of the space itself
    bool isScaledBySheet = false; ///< linetypes in viewports are as large as on the sheet

    /// Through a viewport of that scale, in sheet units per unit of the model.
    LineSettings through(double viewportScale) const
    {
        LineSettings lines = own;
        if (isScaledBySheet)
            lines.patternScale /= viewportScale;
        return lines;
    }

    /// `layout`: the current sheet, or a null id in model space.
    static DrawingLines of(const OdDbDatabase& database, OdDbObjectId layout);
    /// Whether a header variable of that name, without its dollar sign, counts here.
    static bool dependOn(const QString& variable);
};

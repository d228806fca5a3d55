#pragma once

#include <QString>

/// A layer state as CLayerStateUtility lists it.
struct layStateEntry
{
    QString name;
    QString description;
    bool isLayout = false; ///< saved in a layout
    bool sameAsDrawing = false;
};

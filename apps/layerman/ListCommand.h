#pragma once

#include <QStringList>

/// Prints the layer table of each drawing, under its name where there are several. The exit code:
/// 0, or 3 when a drawing could not be read; the others are printed all the same.
int listLayers(const QStringList& files, bool millimetres);

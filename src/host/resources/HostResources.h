#pragma once

#include <QByteArray>

/// Registers the resources of the host library. A static library's resources are found only after
/// this.
void registerHostResources();

/// The drawing that a new document starts from.
QByteArray newDrawingTemplate();

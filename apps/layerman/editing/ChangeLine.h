#pragma once

#include <QString>

/// What a dry run prints of a change: "FILE: LAYER: property before -> after".
QString changeLine(const QString& file, const QString& layer, const QString& property,
                   const QString& before, const QString& after);

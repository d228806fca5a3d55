#pragma once

#include "database/states/PortableLayerState.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// Writes layer-state files as other programs expect them: CR LF, codes in three columns, ASCII but
/// for the name of a state.
namespace LasWriter {

QByteArray bytes(const std::vector<PortableLayerState>& states);
/// As above, and each state followed by its linetypes: for this program's own reading, which
/// others are not known to bear.
QByteArray bytesWithLinetypes(const std::vector<PortableLayerState>& states);
/// Writes atomically. Raises OdError_FileAccess; a file that was there is then as it was.
void writeFile(const std::vector<PortableLayerState>& states, const QString& path);

} // namespace LasWriter

#pragma once

#include "database/states/PortableLayerState.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// Reads layer-state files (.las): two lines a group, codes and values as in drawings, layers and
/// linetypes by name.
namespace LasReader {

/// All states of the file, at least one, each with a name. Groups that would mean nothing in
/// another drawing are left out. `file` is what error sentences call it. Raises
/// OdError_InvalidDrawing with line and expectation.
std::vector<PortableLayerState> read(const QByteArray& bytes, const QString& file);

/// As above, from a file on disk; raises OdError_FileAccess where it cannot be read.
std::vector<PortableLayerState> readFile(const QString& path);

} // namespace LasReader

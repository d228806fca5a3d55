#pragma once

#include <QString>

class OdDbDatabase;

/// Records of a drawing that refer to a layer by its name instead of its handle, beyond those that
/// the codecs spell anew when they write: layer states and variables of the drawing.
namespace LayerNameReferences {

/// To be called while the layer still has its old name. The changes belong to the open undo record.
void renamed(OdDbDatabase& database, const QString& oldName, const QString& newName);

} // namespace LayerNameReferences

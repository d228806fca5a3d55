#pragma once

class OdDbDatabase;

/// Opens the undo record for one edit made from the palette, unless the edit is to join the record
/// of a running command or, by the user's preference, that of the edit before.
void beginLayerUndoRecord(OdDbDatabase& database);

#pragma once

#include <QString>

class OdDbDatabase;

/// Opens the undo record for one edit made from the palette, unless the edit is to join the record
/// of a running command or, by the user's preference, that of the edit before. `command` names
/// the record in the Undo menu.
void beginLayerUndoRecord(OdDbDatabase& database,
                          const QString& command = QStringLiteral("_LAYER"));

/// Opens it for what a command does that runs without a record of its own: joined to the record
/// that the palette left open it would be undone with the edit before. Within a group of commands
/// it joins the group.
void beginLayerUndoRecordOfCommand(OdDbDatabase& database);

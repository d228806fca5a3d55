#pragma once

class OdDbDatabase;

/// Whether the drawing holds at least ten layer filters of its own, and as many as layers or more.
/// The fixed ones and those of the session do not count; every layer of the table does.
bool hasExcessFilters(OdDbDatabase& database);

/// Removes all filters that may be deleted, in one undo record.
void deleteAllFilters(OdDbDatabase& database);

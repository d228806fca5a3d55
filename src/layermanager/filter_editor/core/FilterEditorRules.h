#pragma once

#include "layermanager/filters/LayerFilterRow.h"

#include <QStringList>

class OdDbDatabase;

// What the filter editor accepts, and what rows can say.

/// Whether a property filter can have the name, which loses the blanks around it in place: one that
/// is not empty, has none of the characters that this field refuses (the asterisk and the
/// apostrophe among them, the backslash not: deliberately not those of other names), and equals
/// none of `names`, whatever its case.
bool IsValidFilterName(QString& name, const QStringList& names);

/// Whether a pattern or description can stand in a cell. The asterisk can: it is a wildcard.
bool isFilterCellText(QStringView text);

/// Whether the rows read from an expression say all that it says. An expression without this
/// property must not be rebuilt from them.
bool rowsSayAllOf(const OdDbDatabase& database, const QString& expression,
                  const LayerFilterRows& rows);

/// Whether the expression that was built from rows, the blank entry line behind them, will be read
/// as the same rows again.
bool canBeReadBack(const OdDbDatabase& database, const LayerFilterRows& rows,
                   const QString& expression);

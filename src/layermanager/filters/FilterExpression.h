#pragma once

#include "layermanager/filters/LayerFilterRow.h"

#include <QStringList>

class OdDbDatabase;

// The text of a property filter: rows joined by " OR ", their criteria by " AND ", each one written
// as KEY=="value". Drawings hold texts of this kind, so every blank of it is fixed.

/// The text of one row; empty for an empty row. A linetype that cannot be opened is left out.
QString BuildRowExpression(const LayerFilterRow& row);

/// The text of a whole grid of rows, whose last one is the blank entry line and is left out. An
/// empty row before that still gives an empty text and its " OR ". Replaces both results.
void BuildFilterExpression(const LayerFilterRows& rows, QStringList& rowTexts, QString& expression);

/// Appends the rows of a text; those that set nothing are left out. Never fails: what is not known
/// is skipped, a linetype that the drawing has not counts as not set.
void ParseFilterExpression(const OdDbDatabase& database, const QString& expression,
                           LayerFilterRows& rows);

/// Appends the one row of a text unless it sets nothing. False only for an empty text.
bool ParseRowExpression(const OdDbDatabase& database, const QString& rowText,
                        LayerFilterRows& rows);

/// The lineweight of a text in hundredths of a millimetre, cut off below that; inches where the
/// host's LWUNITS is 0. -1 for "ByLayer", -2 for "ByBlock", 0 for no number and where LWUNITS
/// cannot be read.
qint32 ParseLineweightText(const QString& text);

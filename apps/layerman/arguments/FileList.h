#pragma once

#include <QStringList>

class QIODevice;

/// The drawings that operands name, "-" being names on standard input, one a line. Raises
/// UsageError for "-" given twice, and OdError for a list that cannot be read. A stop signal ends
/// the list.
QStringList fileList(const QStringList& operands);

/// The names that a list holds: lines without their ends, empty ones left out. Raises OdError for a
/// line that is longer than names can be, or holds a null character.
QStringList namesFrom(QIODevice& list);

#pragma once

#include <QHash>
#include <QString>

/// The texts of a language resource by id.
using StringTable = QHash<int, QString>;

/// Reads a JSON object of id to text. What is wrong is logged: a broken file gives an empty table,
/// an entry whose key is no number or whose value is no text is left out.
StringTable readStringTable(const QString& path);

/// The string table beside a module: "<folder>/<module>_<language>.json" for the first of the
/// languages that has one; empty when none has.
QString findStringTable(const QString& modulePath, const QString& localeName);

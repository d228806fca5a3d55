#pragma once

#include <QString>

/// A file that comes with the program: "help/index.md", "linetypes/metric.lin". They lie in
/// share/kest beside the program's folder, in a build as links into the source tree. Empty where
/// there is none.
QString dataFile(const QString& name);

#pragma once

#include <QStringList>

/// Names that a mistyped one may have meant.
namespace nearest_name {

/// Letters to be put in, left out or changed to make one of the other, without regard to case. Of
/// long texts the first 64 characters are compared.
int distance(const QString& a, const QString& b);

/// The nearest names, at most `most` of them, the nearest first.
QStringList of(const QString& name, const QStringList& names, int most = 1);

} // namespace nearest_name

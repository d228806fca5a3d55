#pragma once

#include <QStringView>

/// Numbers at the start of a text: blanks, a sign, decimal digits; what follows is passed over.
/// Without digits they are 0. The locale does not matter.

/// Held within the type's range.
qint32 leadingInteger(QStringView text);

/// With a point and an exponent. Infinite where it is too large.
double leadingReal(QStringView text);

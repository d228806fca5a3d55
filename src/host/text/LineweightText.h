#pragma once

#include <QString>

#include <span>

/// Lineweights that drawings may hold, in hundredths of a millimetre, ascending; the named negative
/// values are not among them.
std::span<const int> validLineweights();

/// The text of a lineweight (hundredths of a millimetre): "0.25 mm", in inches `0.010"`; the names
/// "Default", "ByBlock" and "ByLayer" for -3, -2 and -1. A weight that is not valid shows as the
/// nearest valid one, the thinner of two that are as near.
QString lineweightText(int weight, bool millimetres);

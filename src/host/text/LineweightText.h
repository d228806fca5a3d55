#pragma once

#include <QString>

#include <optional>
#include <span>

/// Lineweights that drawings may hold, in hundredths of a millimetre, ascending; the named negative
/// values are not among them.
std::span<const int> validLineweights();

/// The text of a lineweight (hundredths of a millimetre): "0.25 mm", in inches `0.010"`; the names
/// "Default", "ByBlock" and "ByLayer" for -3, -2 and -1. A weight that is not valid shows as the
/// nearest valid one, the thinner of two that are as near. The texts of all valid weights read back
/// as the weight, by readers that cut off what is below a hundredth of a millimetre; of 2.11 mm
/// they make 2.10.
QString lineweightText(int weight, bool millimetres);

/// The lineweight of a typed text: "0.25", with or without "mm", in inches with or without a quote;
/// "Default". A width between two valid ones is the nearest, the thinner of two that are as near.
/// Nothing for other texts, and for widths below zero or above the widest one.
std::optional<int> lineweightFromText(const QString& text, bool millimetres);
/// What is said of a text that is no lineweight.
QString lineweightRefusal(const QString& text, bool millimetres);

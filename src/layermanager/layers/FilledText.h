#pragma once

#include <QString>

#include <initializer_list>

/// Puts the values in the place of the pattern's "%s" and "%d" marks, one after the other. Marks
/// inside of values stay as they are, and marks without a value too.
QString filledText(const QString& pattern, std::initializer_list<QString> values);

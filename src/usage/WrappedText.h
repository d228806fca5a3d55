#pragma once

#include <QString>

/// Width of what programs print about themselves.
constexpr qsizetype kUsageWidth = 79;

/// Words in lines that begin at `column`; the first line starts behind `head`, or below it where it
/// reaches that far.
QString wrappedText(const QString& head, const QString& text, qsizetype column);
/// A line of a list: what can be typed, and what it means.
QString usageRow(const QString& name, const QString& text);

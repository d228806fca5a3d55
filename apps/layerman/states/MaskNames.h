#pragma once

#include <QString>

#include <span>

/// A property of layers that a restore of a layer state brings back or leaves.
struct MaskName
{
    int bit; ///< LayerStateMask
    const char* name;
    const char* text;
};

std::span<const MaskName> maskNames();
/// The mask of a list with commas between, "all" or "none". Raises UsageError for unknown names.
int maskFrom(const QString& text);
/// The names in a mask with commas between; "all" or "none" for these.
QString maskText(int mask);

#pragma once

#include "sdk/texts/KsResString.h"

/// The texts of the filter editor that have a resource id.
std::span<const KsResText> filterEditorTexts();
inline QString filterEditorText(int id)
{
    return KsResString(filterEditorTexts(), id);
}

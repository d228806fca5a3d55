#include "layermanager/filters/FilterTexts.h"

#include <QtGlobal>

// Misspellings and odd blanks are deliberate: the texts are known like that.
std::span<const KsResText> filterTexts()
{
    static constexpr KsResText texts[] = {
        {40116, QT_TRANSLATE_NOOP3("KsResString", "Vie&wport", "40116")},
        {40117, QT_TRANSLATE_NOOP3("KsResString", "&Select Layers", "40117")},
        {40272, QT_TRANSLATE_NOOP3("KsResString", "Layer - Excess Layer Filters", "40272")},
        {40273,
         QT_TRANSLATE_NOOP3("KsResString",
                            "There are more layer filters in this drawing than layers. What do you "
                            "want to do?",
                            "40273")},
        {40274,
         QT_TRANSLATE_NOOP3("KsResString",
                            "Extra layer filters might have been created in error. Too many layer "
                            "filters can result in slower performance.",
                            "40274")},
        {40275,
         QT_TRANSLATE_NOOP3("KsResString", "Delete all layer filters (recommended)", "40275")},
        {40276, QT_TRANSLATE_NOOP3("KsResString", "Retain all layer filters", "40276")},
        {84538, QT_TRANSLATE_NOOP3("KsResString", "UnReconciled New Layers", "84538")},
        {84539,
         QT_TRANSLATE_NOOP3("KsResString",
                            "Invalid Characters in filter name.\n\nFollowinf characters are not "
                            "valid in Filter names:\n    %1",
                            "84539")},
        {84540,
         QT_TRANSLATE_NOOP3("KsResString", "Invalid Filter name.\n\n Filter name must be unique.",
                            "84540")},
    };
    return texts;
}

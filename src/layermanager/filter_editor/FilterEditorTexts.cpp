#include "layermanager/filter_editor/FilterEditorTexts.h"

#include <QtGlobal>

std::span<const KsResText> filterEditorTexts()
{
    // That blanks are missing after full stops, and one stands at an end, is deliberate.
    static constexpr KsResText kTexts[] = {
        {60089,
         QT_TRANSLATE_NOOP3("KsResString",
                            "Provides a space to enter a name for the layer properties filter ",
                            "60089")},
        {60090,
         QT_TRANSLATE_NOOP3(
             "KsResString",
             "Displays the properties of layers. You can use one or more properties to define the "
             "filter.For example, you can define a filter that displays all layers that are either "
             "red or blue and in use.To include more than one color, linetype, or lineweight, "
             "duplicate the filter on the next line and select a different setting.",
             "60090")},
        {60091,
         QT_TRANSLATE_NOOP3("KsResString",
                            "Displays the examples of layer property filter definition in Layer "
                            "Filter Examples.",
                            "60091")},
        {84503, QT_TRANSLATE_NOOP3("KsResString", "Invalid Filter Name", "84503")},
        {84531, QT_TRANSLATE_NOOP3("KsResString", "Duplicate Row", "84531")},
        {84532, QT_TRANSLATE_NOOP3("KsResString", "Delete Row", "84532")},
    };
    return kTexts;
}

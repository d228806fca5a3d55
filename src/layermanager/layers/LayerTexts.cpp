#include "layermanager/layers/LayerTexts.h"

#include <QtGlobal>

// Capitals, blanks before line ends and missing ones are deliberate: the texts are known like that.
std::span<const KsResText> layerTexts()
{
    static constexpr KsResText texts[] = {
        {40182,
         QT_TRANSLATE_NOOP3("KsResString",
                            "Unable to modify layers while another command is active.", "40182")},
        {40433,
         QT_TRANSLATE_NOOP3("KsResString",
                            "Multiple layers cannot be made current. please select a single layer.",
                            "40433")},
        {84506,
         QT_TRANSLATE_NOOP3("KsResString",
                            "The following characters are not valid in Layer Names:\n", "84506")},
        {84508, QT_TRANSLATE_NOOP3("KsResString", "Not yet supported", "84508")},
        {84515,
         QT_TRANSLATE_NOOP3(
             "KsResString",
             "The Following Layers Cannot be deleted.\n .Layer 0 and Defpoints\n "
             ".current layer \n .Layers containing objects \n .xref-dependent layers",
             "84515")},
        {84516,
         QT_TRANSLATE_NOOP3("KsResString",
                            "The following Layers Cannot be made current.\n .Xref dependent "
                            "layers\n .Frozen layers",
                            "84516")},
        {84782,
         QT_TRANSLATE_NOOP3("KsResString", "Cannot freeze current layer. Specify a different layer",
                            "84782")},
        {84791, QT_TRANSLATE_NOOP3("KsResString", "Layer%d", "84791")},
        {84919,
         QT_TRANSLATE_NOOP3("KsResString", "The name cannot be longer than 255 characters",
                            "84919")},
        {85403, QT_TRANSLATE_NOOP3("KsResString", "Layer - Current Layer off", "85403")},
        {85404,
         QT_TRANSLATE_NOOP3("KsResString",
                            "The current Layer will be turned off.What do you want to do?",
                            "85404")},
        {85405,
         QT_TRANSLATE_NOOP3("KsResString",
                            "Turn the current layer off \n Objects that you create on will not be "
                            "displayed in the drawing until you turn the layer back on",
                            "85405")},
        {85406, QT_TRANSLATE_NOOP3("KsResString", "Keep the current layer on", "85406")},
        {85989,
         QT_TRANSLATE_NOOP3("KsResString",
                            "The selected layer cannot be renamed.\n\n The following layers cannot "
                            "be renamed: \n 1. Layer 0 \n 2. Xref-dependent Layers",
                            "85989")},
    };
    return texts;
}

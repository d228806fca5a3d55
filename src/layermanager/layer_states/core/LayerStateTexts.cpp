#include "layermanager/layer_states/core/LayerStateTexts.h"

#include <QtGlobal>

namespace {

// Missing and doubled blanks, and capitals in odd places, are deliberate.
constexpr KsResText kTexts[] = {
    {60071,
     QT_TRANSLATE_NOOP3("KsResString",
                        "List the named layer states that have been saved in the drawing,the space "
                        "in which they are saved(model space,layout,or xref),whether the layer "
                        "list is the same as in the drawing, and an optional description.",
                        "60071")},
    {60072,
     QT_TRANSLATE_NOOP3("KsResString",
                        "Display the New Layer State to save dialog box, where you can provide a "
                        "name and a description for the new named layer state",
                        "60072")},
    {60073, QT_TRANSLATE_NOOP3("KsResString", "Saves the selected named layer state.", "60073")},
    {60074,
     QT_TRANSLATE_NOOP3("KsResString",
                        "Display the Edit Layer State dialog box,where you can modify a selected "
                        "named layer state.",
                        "60074")},
    {60075,
     QT_TRANSLATE_NOOP3("KsResString", "Allows in-place editing of the layer state name.",
                        "60075")},
    {60076, QT_TRANSLATE_NOOP3("KsResString", "Removes the selected named layer state.", "60076")},
    {60077,
     QT_TRANSLATE_NOOP3(
         "KsResString",
         "Display a standard file selection dialog box, where you can load a previously exported "
         "layer state (LAS) file into the current drawing.Layer state in files (DWG,DWS,or DWT) "
         "can be imported.Additional layers may be created as a result of importing a layer state "
         "file.When a DWG, DWS or DWT file is selected, the select Layer States dialog box is "
         "displayed where you can select layer states to import.",
         "60077")},
    {60078,
     QT_TRANSLATE_NOOP3("KsResString",
                        "Displays a standard file selection dialog box, where you can save the "
                        "selected named layer state to a layer state (LAS) file.",
                        "60078")},
    {60079,
     QT_TRANSLATE_NOOP3("KsResString", "Controls whether layer states in xrefs are displayed.",
                        "60079")},
    {60080,
     QT_TRANSLATE_NOOP3("KsResString",
                        "When a layer state is restored, turns off new layers for which settings "
                        "were not saved so that the drawing looks the same way it did when the "
                        "named layer state was saved.",
                        "60080")},
    {60081,
     QT_TRANSLATE_NOOP3("KsResString",
                        "Applies layer property overrides to the current viewport.This option is "
                        "available when the Layer states Manager is accessed when a layout "
                        "viewport is active.",
                        "60081")},
    {60082,
     QT_TRANSLATE_NOOP3("KsResString",
                        "Restores state and property settings of all layers in a drawing to their "
                        "previously saved settings.Restores only those layer state and property "
                        "settings that you specify with the check boxes. ",
                        "60082")},
    {60083, QT_TRANSLATE_NOOP3("KsResString", "More Restore Options", "60083")},
    {60084, QT_TRANSLATE_NOOP3("KsResString", "Selects all the settings", "60084")},
    {60085, QT_TRANSLATE_NOOP3("KsResString", "Removes selection from all the settings.", "60085")},
    {60086, QT_TRANSLATE_NOOP3("KsResString", "Less Restore Options", "60086")},
    {60087, QT_TRANSLATE_NOOP3("KsResString", "Add layer to layer state", "60087")},
    {60088, QT_TRANSLATE_NOOP3("KsResString", "Remove layer from layer state", "60088")},
    {60092,
     QT_TRANSLATE_NOOP3("KsResString", "Specifies a name for the new layer state to be saved.",
                        "60092")},
    {84504, QT_TRANSLATE_NOOP3("KsResString", "Cannot freeze the current layer", "84504")},
    {84505, QT_TRANSLATE_NOOP3("KsResString", "layer State Manager", "84505")},
    {84517, QT_TRANSLATE_NOOP3("KsResString", "Export Layer State", "84517")},
    {84518, QT_TRANSLATE_NOOP3("KsResString", "Layer State file(*.las)|las", "84518")},
    {84519, QT_TRANSLATE_NOOP3("KsResString", "Import Layer State", "84519")},
    {84520,
     QT_TRANSLATE_NOOP3("KsResString",
                        "Drawing|dwg,Standards|dws,Drawing Template|dwt,Layer state files|las",
                        "84520")},
    {84521, QT_TRANSLATE_NOOP3("KsResString", "Replace Existing Layer State ", "84521")},
    {84522, QT_TRANSLATE_NOOP3("KsResString", "OverWrite Selected Layer State?", "84522")},
    {84523, QT_TRANSLATE_NOOP3("KsResString", "Name", "84523")},
    {84524, QT_TRANSLATE_NOOP3("KsResString", "Space", "84524")},
    {84525, QT_TRANSLATE_NOOP3("KsResString", "Same As Dwg", "84525")},
    {84526, QT_TRANSLATE_NOOP3("KsResString", "Description", "84526")},
    {84527, QT_TRANSLATE_NOOP3("KsResString", "Model", "84527")},
    {84528, QT_TRANSLATE_NOOP3("KsResString", "Layout", "84528")},
    {84529, QT_TRANSLATE_NOOP3("KsResString", "Yes", "84529")},
    {84530, QT_TRANSLATE_NOOP3("KsResString", "No", "84530")},
    {84533,
     QT_TRANSLATE_NOOP3("KsResString",
                        "Layer State '%s' already exists. Do you want to replace it?", "84533")},
    {84534, QT_TRANSLATE_NOOP3("KsResString", "Do you want to replace the state?", "84534")},
    {84535, QT_TRANSLATE_NOOP3("KsResString", "Check LayState", "84535")},
    {84772, QT_TRANSLATE_NOOP3("KsResString", "Layer Name", "84772")},
    {84773, QT_TRANSLATE_NOOP3("KsResString", "On", "84773")},
    {84774, QT_TRANSLATE_NOOP3("KsResString", "Freeze", "84774")},
    {84775, QT_TRANSLATE_NOOP3("KsResString", "Locked", "84775")},
    {84776, QT_TRANSLATE_NOOP3("KsResString", "Color", "84776")},
    {84777, QT_TRANSLATE_NOOP3("KsResString", "Linetype", "84777")},
    {84778, QT_TRANSLATE_NOOP3("KsResString", "Lineweight", "84778")},
    {84779, QT_TRANSLATE_NOOP3("KsResString", "Plot Style", "84779")},
    {84780, QT_TRANSLATE_NOOP3("KsResString", "Plot", "84780")},
    {84781, QT_TRANSLATE_NOOP3("KsResString", "New VPFreeze", "84781")},
    {84790,
     QT_TRANSLATE_NOOP3("KsResString", "Are you sure you want to  permanently delete the LS %s ?",
                        "84790")},
};

} // namespace

std::span<const KsResText> layerStateTexts()
{
    return kTexts;
}

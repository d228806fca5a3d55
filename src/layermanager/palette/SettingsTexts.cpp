#include "layermanager/palette/SettingsTexts.h"

#include <QtGlobal>

namespace {

constexpr KsResText kTexts[] = {
    {40102,
     QT_TRANSLATE_NOOP3("KsResString",
                        "Watch for new layers/Tells new layers from those that were reviewed. "
                        "This is your own setting for all drawings: without it no drawing is "
                        "looked at./System variable LAYEREVALCTL",
                        "40102")},
    {40103,
     QT_TRANSLATE_NOOP3("KsResString",
                        "Evaluate new layers of this drawing/Lists layers that were added and "
                        "not reviewed yet under \"UnReconciled New Layers\". The drawing keeps "
                        "this setting./System variable LAYEREVAL",
                        "40103")},
    {40104,
     QT_TRANSLATE_NOOP3("KsResString",
                        "This drawing only/Looks for new layers in this drawing. Layers of "
                        "attached external references are not listed.",
                        "40104")},
    {40105,
     QT_TRANSLATE_NOOP3("KsResString",
                        "This drawing and its external references/Looks for new layers "
                        "everywhere: in this drawing and in what is attached to it.",
                        "40105")},
    {40106,
     QT_TRANSLATE_NOOP3("KsResString",
                        "Notify about new layers/Tells you when there are layers that nobody "
                        "has reviewed yet. Choose below at which moments. Switched off, the "
                        "choice is kept for later./System variable LAYERNOTIFY",
                        "40106")},
    {40107,
     QT_TRANSLATE_NOOP3("KsResString",
                        "When the drawing is opened/Tells about new layers right after the "
                        "drawing was opened.",
                        "40107")},
    {40108,
     QT_TRANSLATE_NOOP3("KsResString",
                        "When references change/Tells about new layers when an external "
                        "reference is attached, loaded or reloaded.",
                        "40108")},
    {40109,
     QT_TRANSLATE_NOOP3("KsResString",
                        "When a layer state is restored/Tells about layers that the state does "
                        "not know, because they came later.",
                        "40109")},
    {40110,
     QT_TRANSLATE_NOOP3("KsResString",
                        "When the drawing is saved/Tells about new layers before they are "
                        "handed on with the file.",
                        "40110")},
    {40111,
     QT_TRANSLATE_NOOP3("KsResString",
                        "When something is inserted/Tells about layers that a block or another "
                        "drawing brought along.",
                        "40111")},
    {40112,
     QT_TRANSLATE_NOOP3("KsResString",
                        "When the drawing is plotted/Tells about new layers before they come "
                        "on paper.",
                        "40112")},
    {40113,
     QT_TRANSLATE_NOOP3("KsResString",
                        "Filter the layer toolbar/The list of layers in the toolbar shows only "
                        "those that pass the filter selected in the palette.",
                        "40113")},
    {40114,
     QT_TRANSLATE_NOOP3("KsResString",
                        "Show layer usage/Marks layers without objects in the Status column. In "
                        "very large drawings the list is quicker without it./System variable "
                        "SHOWLAYERUSAGE",
                        "40114")},
};

} // namespace

std::span<const KsResText> settingsTexts()
{
    return kTexts;
}

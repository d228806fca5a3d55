#include "layermanager/palette/PaneTexts.h"

#include <QtGlobal>

namespace {

constexpr KsResText kTexts[] = {
    // The blank at the end is kept.
    {pane_text::kCurrentLayer, QT_TRANSLATE_NOOP3("KsResString", "Current Layer: ", "84537")},
    // The blank at the beginning is deliberate.
    {pane_text::kStatus,
     QT_TRANSLATE_NOOP3("KsResString", " %s : %d layers displayed of %d total layers", "85988")},
};

} // namespace

std::span<const KsResText> paneTexts()
{
    return kTexts;
}

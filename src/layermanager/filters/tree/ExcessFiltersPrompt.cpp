#include "layermanager/filters/tree/ExcessFiltersPrompt.h"

#include "layermanager/filters/tree/ExcessFilters.h"
#include "sdk/KsApDocManager.h"
#include "sdk/KsResString.h"
#include "toolkit/Prompts.h"

namespace {

constexpr int kDeleteAll = 1;
constexpr int kRetainAll = 2;
constexpr int kWidth = 150; ///< dialog units

TaskQuestion excessFiltersQuestion()
{
    TaskQuestion question;
    question.windowTitle = KsResString(40272, QStringLiteral("Layer - Excess Layer Filters"));
    question.mainInstruction =
        KsResString(40273,
                    QStringLiteral("There are more layer filters in this drawing than layers. "
                                   "What do you want to do?"));
    question.content = KsResString(
        40274,
        QStringLiteral("Extra layer filters might have been created in error. Too many layer "
                       "filters can result in slower performance."));
    question.links = {
        {kDeleteAll, KsResString(40275, QStringLiteral("Delete all layer filters (recommended)"))},
        {kRetainAll, KsResString(40276, QStringLiteral("Retain all layer filters"))}};
    question.defaultLink = kDeleteAll;
    question.widthInDialogUnits = kWidth;
    return question;
}

} // namespace

bool CheckExcessFilters(KsApDocument* document, QWidget* parent)
{
    const QString mark = QStringLiteral("LayerManager/ExcessFiltersChecked");
    if (!document || !document->database() || document->hasMark(mark))
        return false;
    document->setMark(mark);
    if (!hasExcessFilters(*document->database())
        || Prompts::current().ask(parent, excessFiltersQuestion()) != kDeleteAll)
        return false;
    deleteAllFilters(*document->database());
    return true;
}

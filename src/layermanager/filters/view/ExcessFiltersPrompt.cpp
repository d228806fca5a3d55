#include "layermanager/filters/view/ExcessFiltersPrompt.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/drawing/OdDbDatabaseReactor.h"
#include "layermanager/filters/FilterTexts.h"
#include "layermanager/filters/tree/ExcessFilters.h"
#include "sdk/KsApDocManager.h"
#include "toolkit/Prompts.h"

namespace {

constexpr int kDeleteAll = 1;
constexpr int kRetainAll = 2;
constexpr int kPromptWidth = 150; ///< dialog units

/// Tells whether a drawing was closed while the question stood.
class PromptedDrawing : public OdDbDatabaseReactor
{
public:
    explicit PromptedDrawing(OdDbDatabase& database)
        : m_database(&database)
    {
        m_database->addReactor(this);
    }
    ~PromptedDrawing() override
    {
        if (m_database)
            m_database->removeReactor(this);
    }
    PromptedDrawing(const PromptedDrawing&) = delete;
    PromptedDrawing& operator=(const PromptedDrawing&) = delete;

    bool isGone() const { return !m_database; }

    void goodbye(const OdDbDatabase*) override
    {
        m_database->removeReactor(this);
        m_database = nullptr;
    }

private:
    OdDbDatabase* m_database;
};

TaskQuestion excessFiltersQuestion()
{
    TaskQuestion question;
    question.windowTitle = KsResString(filterTexts(), 40272);
    question.mainInstruction = KsResString(filterTexts(), 40273);
    question.content = KsResString(filterTexts(), 40274);
    question.links = {{kDeleteAll, KsResString(filterTexts(), 40275)},
                      {kRetainAll, KsResString(filterTexts(), 40276)}};
    question.defaultLink = kDeleteAll;
    question.widthInDialogUnits = kPromptWidth;
    return question;
}

} // namespace

bool CheckExcessFilters(KsApDocument* document, QWidget* parent)
{
    const QString mark = QStringLiteral("LayerManager/ExcessFiltersChecked");
    if (!document || !document->database() || document->hasMark(mark))
        return false;
    document->setMark(mark);
    OdDbDatabase& database = *document->database();
    if (!hasExcessFilters(database))
        return false;
    PromptedDrawing watch(database);
    if (Prompts::current().ask(parent, excessFiltersQuestion()) != kDeleteAll || watch.isGone())
        return false;
    deleteAllFilters(database);
    return true;
}

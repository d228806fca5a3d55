#include "host/commands/HostCommand.h"

#include "database/values/OdError.h"
#include "host/application/HostCore.h"
#include "host/text/HostText.h"
#include "sdk/commands/OdEdCommandStack.h"

HostDocument& HostCommandRun::document() const
{
    HostDocument* document = m_core.documents().curDocument();
    if (!document)
        throw OdError(OdResult::NoDatabase, HostText::tr("There is no drawing open."));
    return *document;
}

QString HostCommandRun::answer(const HostQuestion& question) const
{
    if (const auto answer = m_core.commands().nextAnswer(question))
        return *answer;
    if (isInteractive())
        throw OdError(OdResult::Cancelled, HostText::tr("*Cancel*"));
    throw OdError(
        OdResult::InvalidInput,
        HostText::tr("\"%1\" is asked, and the line holds no answer.").arg(question.prompt));
}

QString HostCommandRun::answerOr(const HostQuestion& question, const QString& fallback) const
{
    if (!hasAnswer() && !isInteractive())
        return fallback;
    const QString given = answer(question).trimmed();
    return given.isEmpty() ? fallback : given;
}

void HostCommandRun::askAgain(const OdError& error) const
{
    const bool isAnswer = error.code() == OdResult::InvalidInput
        || error.code() == OdResult::OutOfRange || error.code() == OdResult::KeyNotFound;
    if (!isAnswer || !isInteractive())
        throw;
    m_core.commands().dropAnswers();
    print(error.description());
}

std::optional<int> HostCommandRun::askKeyword(const KeywordQuestion& question) const
{
    const KeywordList keywords(question.words);
    const auto none = question.fallback < 0 ? std::nullopt : std::optional(question.fallback);
    if (!hasAnswer() && !isInteractive())
        return none;
    HostQuestion asks(
        keywords.prompt(question.text, none ? keywords.words().value(*none) : QString()));
    asks.keywords = keywords.words();
    return asked(asks, [&](const QString& answer) -> std::optional<int> {
        return answer.trimmed().isEmpty() ? none : std::optional(keywords.require(answer));
    });
}

int HostCommandRun::requireKeyword(const KeywordQuestion& question) const
{
    const KeywordList keywords(question.words);
    HostQuestion asks(keywords.prompt(question.text));
    asks.keywords = keywords.words();
    return asked(asks, [&](const QString& answer) { return keywords.require(answer); });
}

bool HostCommandRun::yes(const QString& text, bool fallback) const
{
    static constexpr const char* kWords[] = {QT_TRANSLATE_NOOP("Host", "Yes"),
                                             QT_TRANSLATE_NOOP("Host", "No")};
    return askKeyword({text, kWords, fallback ? 0 : 1}) == 0;
}

bool HostCommandRun::hasAnswer() const
{
    return m_core.commands().hasAnswer();
}

bool HostCommandRun::takeWord(const QString& word) const
{
    return m_core.commands().takeWord(word);
}

bool HostCommandRun::isInteractive() const
{
    return m_core.frontEnd().isInteractive();
}

void HostCommandRun::print(const QString& text) const
{
    m_core.frontEnd().print(text);
}

void HostCommandRun::tell(const QString& text) const
{
    if (isInteractive())
        print(text);
}

HostCommand::HostCommand(HostCore& core, const HostCommandDefinition& definition)
    : m_core(core)
    , m_definition(definition)
{ }

void HostCommand::execute(OdEdCommandContext*)
{
    m_definition.run(HostCommandRun(m_core));
}

void HostCommand::undefine(bool)
{
    throw OdError(OdResult::NotApplicable,
                  HostText::tr("%1 cannot be undefined.").arg(localName()));
}

void registerHostCommands(HostCore& core)
{
    for (const auto table :
         {drawCommands(), fileCommands(), layerCommands(), selectionCommands(), undoCommands(),
          variableCommands(), viewCommands(), viewportCommands(), zoomCommands()})
    {
        for (const HostCommandDefinition& row : table)
            odedRegCmds()->addCommand(odrxCreate<HostCommand>(core, row));
    }
}

void unregisterHostCommands()
{
    odedRegCmds()->removeGroup(QStringLiteral("KEST_HOST"));
}

#include "host/commands/HostCommand.h"

#include "database/OdError.h"
#include "host/application/HostCore.h"
#include "host/text/HostText.h"
#include "sdk/OdEdCommandStack.h"

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
    throw OdError(OdResult::InvalidInput,
                  HostText::tr("\"%1\" is asked, and the line holds no answer.").arg(question.prompt));
}

QString HostCommandRun::answerOr(const HostQuestion& question, const QString& fallback) const
{
    if (!hasAnswer() && !isInteractive())
        return fallback;
    const QString given = answer(question).trimmed();
    return given.isEmpty() ? fallback : given;
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
    for (const auto table : {fileCommands(), undoCommands(), variableCommands(), viewCommands()}) {
        for (const HostCommandDefinition& row : table)
            odedRegCmds()->addCommand(odrxCreate<HostCommand>(core, row));
    }
}

void unregisterHostCommands()
{
    odedRegCmds()->removeGroup(QStringLiteral("KEST_HOST"));
}

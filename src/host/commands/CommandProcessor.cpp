#include "host/commands/CommandProcessor.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostFrontEnd.h"
#include "host/commands/CommandLine.h"
#include "host/documents/HostDocManager.h"
#include "host/sysvars/SysvarTable.h"
#include "host/text/HostText.h"
#include "sdk/commands/OdEdCommandStack.h"

#include <QScopeGuard>

namespace {
constexpr int kWithoutUndo = OdEd::kNoUndoMarker | OdEd::kPalette | OdEd::kSession;
constexpr QChar kTransparentMark = QLatin1Char('\'');

CommandOutcome failed(const QString& sentence)
{
    return {CommandOutcome::Kind::Failed, sentence};
}

// The name without marks in front: an apostrophe calls a command while another runs, an underscore
// asks for its English name. "-_NAME" and "_-NAME" are the same.
QString withoutMarks(QString name)
{
    if (name.startsWith(kTransparentMark))
        name.remove(0, 1);
    if (odedRegCmds()->lookup(name))
        return name;
    if (name.startsWith(QLatin1String("-_")))
        name.remove(1, 1);
    else if (name.startsWith(QLatin1Char('_')))
        name.remove(0, 1);
    return name;
}

// An apostrophe alone proves nothing: an answer may begin with one.
bool callsTransparentCommand(const QString& answer)
{
    if (!answer.startsWith(kTransparentMark))
        return false;
    const QStringList words = CommandLine::parse(answer.mid(1)).words;
    if (words.isEmpty())
        return false;
    const QString name = withoutMarks(words.first());
    const OdEdCommandPtr command = odedRegCmds()->lookup(name);
    return findSysvar(name) || (command && (command->flags() & OdEd::kTransparent));
}

QString shownName(const OdEdCommand& command)
{
    const QString name = command.globalName();
    return name.startsWith(QLatin1Char('_')) ? name.mid(1) : name;
}
} // namespace

CommandProcessor::CommandProcessor(CommandState& state, CommandQueue& queue,
                                   HostDocManager& documents)
    : m_state(state)
    , m_queue(queue)
    , m_documents(documents)
{ }

CommandOutcome CommandProcessor::run(const QString& line)
{
    CommandLine parsed = CommandLine::parse(line);
    if (!parsed.error.isEmpty())
        return failed(parsed.error);
    if (parsed.words.isEmpty())
        return {};
    if (!isRunning())
        m_lastLine = line.trimmed();
    return runWords(std::move(parsed.words));
}

CommandOutcome CommandProcessor::runWords(QStringList words)
{
    const QString typed = words.takeFirst();
    const QString name = withoutMarks(typed);
    OdEdCommandPtr command = odedRegCmds()->lookup(name);
    QString undoName = command ? command->globalName() : QString();
    if (const SysvarDefinition* variable = command ? nullptr : findSysvar(name)) {
        words.prepend(name);
        undoName = QLatin1String(variable->name);
        command = odedRegCmds()->lookup(QStringLiteral("SETVAR"));
    }
    if (!command)
        return failed(HostText::tr("There is no command \"%1\".").arg(typed));
    if (isRunning() && !(command->flags() & OdEd::kTransparent)) {
        return failed(HostText::tr("%1 cannot run while another command is running.")
                          .arg(shownName(*command)));
    }
    return execute(command, words, undoName);
}

CommandOutcome CommandProcessor::execute(const OdEdCommandPtr& command, const QStringList& answers,
                                         const QString& undoName)
{
    m_frames.push_back({answers, {}, (command->flags() & OdEd::kUsePickSet) != 0});
    m_state.push(shownName(*command));
    const auto leave = qScopeGuard([this] {
        m_state.pop();
        m_frames.pop_back();
        m_isCancelling = m_isCancelling && isRunning();
    });
    HostDocument* document = m_documents.curDocument();
    const bool recordsUndo = document && m_frames.size() == 1 && !(command->flags() & kWithoutUndo);
    if (recordsUndo)
        document->startUndoRecord(undoName);
    CommandOutcome outcome = guardedCall(*command);
    if (recordsUndo && m_documents.contains(document))
        document->endUndoRecord();
    if (!outcome.isDone())
        return outcome;
    const Frame& frame = m_frames.back();
    if (!frame.failure.isEmpty())
        return failed(frame.failure);
    if (!frame.answers.isEmpty()) {
        return failed(HostText::tr("%1 has no use for the answer \"%2\".")
                          .arg(shownName(*command), frame.answers.first()));
    }
    return outcome;
}

CommandOutcome CommandProcessor::guardedCall(OdEdCommand& command)
{
    const HostDocument* document = m_documents.curDocument();
    try {
        OdDbCommandContext context(document ? document->database() : nullptr);
        command.execute(&context);
        return {};
    } catch (const OdError& error) {
        return CommandOutcome::of(error);
    } catch (const std::exception& error) {
        return failed(HostText::tr("%1 failed: %2")
                          .arg(shownName(command), QString::fromLocal8Bit(error.what())));
    } catch (...) {
        // Modules may raise anything.
        return failed(HostText::tr("%1 failed.").arg(shownName(command)));
    }
}

std::vector<CommandOutcome> CommandProcessor::drainQueue()
{
    std::vector<CommandOutcome> outcomes;
    while (!isRunning()) {
        const auto input = m_queue.take();
        if (!input)
            break;
        if (!input->text.isEmpty())
            outcomes.push_back(run(input->text));
    }
    return outcomes;
}

bool CommandProcessor::hasAnswer() const
{
    return (isRunning() && !m_frames.back().answers.isEmpty()) || m_queue.holdsAnswer();
}

bool CommandProcessor::takeWord(const QString& word)
{
    if (!isRunning() || m_frames.back().answers.isEmpty()
        || m_frames.back().answers.first().compare(word, Qt::CaseInsensitive) != 0)
        return false;
    m_frames.back().answers.removeFirst();
    return true;
}

void CommandProcessor::dropAnswers()
{
    if (isRunning())
        m_frames.back().answers.clear();
}

std::optional<QString> CommandProcessor::nextAnswer(const HostQuestion& question)
{
    if (!m_isCancelling && isRunning() && !m_frames.back().answers.isEmpty())
        return m_frames.back().answers.takeFirst();
    while (!m_isCancelling) {
        if (const auto input = m_queue.take()) {
            if (!input->cancels)
                return input->text;
            cancelRunning(*input);
            return std::nullopt;
        }
        std::optional<QString> answer = answerFromUser(question);
        // A string that was queued meanwhile took the question back, to answer or to cancel it.
        if (answer || m_queue.isEmpty())
            return answer;
    }
    return std::nullopt;
}

void CommandProcessor::cancelRunning(const CommandQueue::Input& input)
{
    m_isCancelling = isRunning();
    // What follows the marker is a command of its own.
    if (!input.text.isEmpty())
        m_queue.putBack({input.text, false});
}

std::optional<QString> CommandProcessor::answerFromUser(const HostQuestion& question)
{
    // A command in between may end with all of them.
    while (m_frontEnd && !m_isCancelling) {
        std::optional<QString> answer = m_frontEnd->ask(question);
        if (!answer || !callsTransparentCommand(*answer))
            return answer;
        if (const CommandOutcome outcome = run(*answer); !outcome.isDone())
            m_frontEnd->print(outcome.sentence);
    }
    return std::nullopt;
}

void CommandProcessor::noteFailure(const QString& sentence)
{
    if (isRunning() && m_frames.back().failure.isEmpty())
        m_frames.back().failure = sentence;
}

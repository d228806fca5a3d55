#pragma once

#include "host/application/HostQuestion.h"
#include "host/commands/CommandOutcome.h"
#include "host/commands/CommandQueue.h"
#include "host/commands/CommandState.h"
#include "sdk/commands/OdEdCommand.h"

#include <QStringList>

#include <optional>
#include <vector>

class HostDocManager;
class HostDocument;
class HostFrontEnd;
class HostSysvarManager;

/// Runs command lines: finds the command, keeps CMDNAMES and the undo record, hands out the
/// answers.
class CommandProcessor
{
public:
    CommandProcessor(CommandState& state, CommandQueue& queue, HostDocManager& documents);

    /// Runs one line: a command, or a system variable's name, with its answers. Never throws.
    CommandOutcome run(const QString& line);
    /// Runs the queued strings; one outcome for each command among them.
    std::vector<CommandOutcome> drainQueue();

    /// The next answer of the running command: from its line, else from the queue, else from the
    /// user. Null when it is cancelled, or when nobody can answer. A cancel in the queue cancels
    /// all running commands, whatever they ask on their way out.
    std::optional<QString> nextAnswer(const HostQuestion& question);
    /// True when the rest of the line, or the queue, holds an answer.
    bool hasAnswer() const;
    /// Takes the next answer of the running command's own line if it is that word, whatever its
    /// case.
    bool takeWord(const QString& word);
    /// Forgets what is left of the running command's line.
    void dropAnswers();
    /// Makes the running command one that failed, for callers that cannot raise an error.
    void noteFailure(const QString& sentence);

    void setFrontEnd(HostFrontEnd& frontEnd) { m_frontEnd = &frontEnd; }
    bool isRunning() const { return !m_frames.empty(); }
    /// Whether the running command keeps the selection that was made before it.
    bool runningKeepsPickSet() const { return isRunning() && m_frames.back().keepsPickSet; }
    /// The last line that was run at the top and was not empty.
    const QString& lastLine() const { return m_lastLine; }

private:
    struct Frame
    {
        QStringList answers;
        QString failure;
        bool keepsPickSet = false;
    };

    CommandOutcome runWords(QStringList words);
    CommandOutcome execute(const OdEdCommandPtr& command, const QStringList& answers,
                           const QString& undoName);
    CommandOutcome guardedCall(OdEdCommand& command);
    void cancelRunning(const CommandQueue::Input& input);
    std::optional<QString> answerFromUser(const HostQuestion& question);

    CommandState& m_state;
    CommandQueue& m_queue;
    HostDocManager& m_documents;
    HostFrontEnd* m_frontEnd = nullptr;
    std::vector<Frame> m_frames;
    bool m_isCancelling = false; ///< until no command runs
    QString m_lastLine;
};

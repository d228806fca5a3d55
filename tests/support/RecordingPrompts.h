#pragma once

#include "toolkit/Prompts.h"

#include <QStringList>

#include <deque>

/// Prompts that answer from a queue and remember every text. In force while it lives. A question
/// that nobody announced fails the test (and is answered like a closed dialog); so does an
/// announced one that was never asked.
class RecordingPrompts : public Prompts
{
public:
    enum class Kind { Message, Confirm, Ask };

    struct Asked
    {
        Kind kind;
        QString text; ///< the message, or the main instruction of a task dialog
        Icon icon; ///< of a message
        TaskQuestion question; ///< of a task dialog
    };

    RecordingPrompts();
    ~RecordingPrompts() override;
    RecordingPrompts(const RecordingPrompts&) = delete;
    RecordingPrompts& operator=(const RecordingPrompts&) = delete;

    /// The next prompt is a message, which is closed.
    void willCloseMessage();
    /// The next prompt is a yes/no question, answered thus.
    void willConfirm(bool yes);
    /// The next prompt is a task dialog, answered with that link, or kCancelled.
    void willChoose(int linkId);

    /// Everything that was asked, in order, unexpected prompts included.
    const QList<Asked>& asked() const { return m_asked; }
    QStringList texts() const;
    /// True when no announced prompt is left over.
    bool allAsked() const { return m_answers.empty(); }
    void clear();

    void message(QWidget* parent, const QString& text, Icon icon) override;
    bool confirm(QWidget* parent, const QString& text) override;
    int ask(QWidget* parent, const TaskQuestion& question) override;

private:
    struct Answer
    {
        Kind kind;
        int value;
    };

    int next(Kind kind, const QString& text, int closed);

    std::deque<Answer> m_answers;
    QList<Asked> m_asked;
    Prompts* m_previous;
};

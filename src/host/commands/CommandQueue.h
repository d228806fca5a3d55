#pragma once

#include <QObject>
#include <QString>

#include <deque>
#include <optional>

/// Command strings that wait to be run as if the user had typed them. Each string is one input: a
/// command with answers, or an answer to what a command asks. The markers "^C" (cancel) and "^P"
/// (menu echo), two characters each, may stand at either end of a string.
class CommandQueue : public QObject
{
    Q_OBJECT
public:
    struct Input
    {
        QString text; ///< without markers and outer blanks
        bool cancels = false;
    };

    void append(const QString& string);
    bool isEmpty() const { return m_inputs.empty(); }
    /// Whether the next input answers what is asked, rather than cancelling it.
    bool holdsAnswer() const { return !m_inputs.empty() && !m_inputs.front().cancels; }
    /// The next input; inputs that say nothing are left out.
    std::optional<Input> take();
    /// Puts an input in front of all others.
    void putBack(Input input) { m_inputs.push_front(std::move(input)); }
    void clear() { m_inputs.clear(); }

signals:
    void queued();

private:
    std::deque<Input> m_inputs;
};

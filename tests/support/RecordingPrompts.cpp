#include "support/RecordingPrompts.h"

#include "support/TestFailure.h"

namespace {

QLatin1String kindName(RecordingPrompts::Kind kind)
{
    switch (kind) {
    case RecordingPrompts::Kind::Message:
        return QLatin1String("message");
    case RecordingPrompts::Kind::Confirm:
        return QLatin1String("yes/no question");
    case RecordingPrompts::Kind::Ask:
        break;
    }
    return QLatin1String("task dialog");
}

} // namespace

RecordingPrompts::RecordingPrompts()
    : m_previous(Prompts::install(this))
{ }

RecordingPrompts::~RecordingPrompts()
{
    Prompts::install(m_previous);
    for (const Answer& answer : m_answers)
        reportTestFailure(QStringLiteral("An announced %1 never came.").arg(kindName(answer.kind)));
}

void RecordingPrompts::willCloseMessage()
{
    m_answers.push_back({Kind::Message, 0});
}

void RecordingPrompts::willConfirm(bool yes)
{
    m_answers.push_back({Kind::Confirm, yes ? 1 : 0});
}

void RecordingPrompts::willChoose(int linkId)
{
    m_answers.push_back({Kind::Ask, linkId});
}

QStringList RecordingPrompts::texts() const
{
    QStringList all;
    for (const Asked& asked : m_asked)
        all.append(asked.text);
    return all;
}

void RecordingPrompts::clear()
{
    m_answers.clear();
    m_asked.clear();
}

void RecordingPrompts::message(QWidget* /*parent*/, const QString& text, Icon icon)
{
    m_asked.append({Kind::Message, text, icon, {}});
    next(Kind::Message, text, 0);
}

bool RecordingPrompts::confirm(QWidget* /*parent*/, const QString& text)
{
    m_asked.append({Kind::Confirm, text, Icon::Information, {}});
    return next(Kind::Confirm, text, 0) != 0;
}

int RecordingPrompts::ask(QWidget* /*parent*/, const TaskQuestion& question)
{
    m_asked.append({Kind::Ask, question.mainInstruction, Icon::Information, question});
    const int chosen = next(Kind::Ask, question.mainInstruction, kCancelled);
    const bool offered = std::any_of(question.links.begin(), question.links.end(),
                                     [chosen](const auto& link) { return link.id == chosen; });
    if (chosen != kCancelled && !offered)
        reportTestFailure(QStringLiteral("The task dialog \"%1\" offers no link %2.")
                              .arg(question.mainInstruction)
                              .arg(chosen));
    return chosen;
}

int RecordingPrompts::next(Kind kind, const QString& text, int closed)
{
    if (m_answers.empty() || m_answers.front().kind != kind) {
        reportTestFailure(QStringLiteral("Unexpected %1: %2").arg(kindName(kind), text));
        return closed;
    }
    const int value = m_answers.front().value;
    m_answers.pop_front();
    return value;
}

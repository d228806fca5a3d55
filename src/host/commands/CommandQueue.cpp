#include "host/commands/CommandQueue.h"

namespace {
// Takes markers off one end of the string; what stands between markers is the user's.
QString takeMarkers(QString& text, bool atStart)
{
    QString markers;
    text = text.trimmed();
    while (text.size() >= 2) {
        const QString pair = atStart ? text.first(2) : text.last(2);
        if (pair.compare(QStringLiteral("^C"), Qt::CaseInsensitive) != 0
            && pair.compare(QStringLiteral("^P"), Qt::CaseInsensitive) != 0)
            break;
        markers += pair.toUpper();
        text = (atStart ? text.sliced(2) : text.chopped(2)).trimmed();
    }
    return markers;
}
} // namespace

void CommandQueue::append(const QString& string)
{
    Input input;
    input.text = string;
    const QString markers = takeMarkers(input.text, true) + takeMarkers(input.text, false);
    input.cancels = markers.contains(QStringLiteral("^C"));
    if (input.text.isEmpty() && !input.cancels)
        return;
    m_inputs.push_back(std::move(input));
    emit queued();
}

std::optional<CommandQueue::Input> CommandQueue::take()
{
    if (m_inputs.empty())
        return std::nullopt;
    Input input = std::move(m_inputs.front());
    m_inputs.pop_front();
    return input;
}

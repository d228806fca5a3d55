#include "host/window/commandline/CommandHistory.h"

#include <algorithm>

void CommandHistory::add(const QString& line)
{
    const bool isKept = !line.isEmpty() && line.size() <= kLongestLine;
    if (isKept && (m_lines.isEmpty() || m_lines.last() != line))
        m_lines.append(line);
    if (m_lines.size() > kMaxLines)
        m_lines.removeFirst();
    m_at = m_lines.size();
    m_draft.clear();
}

void CommandHistory::restore(const QStringList& lines)
{
    m_lines.clear();
    for (const QString& line : lines.mid(std::max(qsizetype(0), lines.size() - kMaxLines)))
        add(line);
}

QString CommandHistory::previous(const QString& typed)
{
    if (m_at == m_lines.size())
        m_draft = typed;
    if (m_at > 0)
        --m_at;
    return m_lines.isEmpty() ? typed : m_lines[m_at];
}

QString CommandHistory::next(const QString& typed)
{
    if (m_at == m_lines.size())
        return typed;
    ++m_at;
    return m_at == m_lines.size() ? m_draft : m_lines[m_at];
}

#pragma once

#include <QStringList>

/// Which commands run at the moment, the outermost first, by the names that CMDNAMES shows.
class CommandState
{
public:
    const QStringList& names() const { return m_names; }
    bool isActive() const { return !m_names.isEmpty(); }
    bool isScript() const { return m_script; }
    void setScript(bool script) { m_script = script; }
    void push(const QString& name) { m_names.append(name); }
    void pop() { m_names.removeLast(); }
    /// Exchanges the running commands, to step out of them for a while.
    void swapNames(QStringList& other) { m_names.swap(other); }

private:
    QStringList m_names;
    bool m_script = false;
};

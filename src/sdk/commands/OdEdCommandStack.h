#pragma once

#include "sdk/commands/OdEdCommand.h"

#include <QHash>
#include <QStringList>

#include <vector>

/// All registered commands, found by global or local name without regard to case.
class OdEdCommandStack
{
public:
    /// False when the group holds a command of that global name already.
    bool addCommand(const OdEdCommandPtr& command);
    void removeCommand(const QString& group, const QString& globalName);
    void removeGroup(const QString& group);
    bool hasGroup(const QString& group) const;
    /// By local name, by global name, or by "_" plus the local name; null when there is none.
    OdEdCommandPtr lookup(const QString& name) const;
    /// Local names of the commands that users type, sorted.
    QStringList localNames() const;
    /// In the order of registration.
    const std::vector<OdEdCommandPtr>& commands() const { return m_commands; }

private:
    std::vector<OdEdCommandPtr> m_commands;
    QHash<QString, OdEdCommandPtr> m_byName;
    void reindex();
};

/// The process's command stack.
OdEdCommandStack* odedRegCmds();

#include "sdk/commands/OdEdCommandStack.h"

#include <algorithm>

namespace {

QString key(const QString& name)
{
    return name.toCaseFolded();
}

bool isNamed(const OdEdCommand& command, const QString& group, const QString& globalName)
{
    return key(command.groupName()) == key(group) && key(command.globalName()) == key(globalName);
}

} // namespace

bool OdEdCommandStack::addCommand(const OdEdCommandPtr& command)
{
    if (!command)
        return false;
    for (const OdEdCommandPtr& known : m_commands) {
        if (isNamed(*known, command->groupName(), command->globalName()))
            return false;
    }
    m_commands.push_back(command);
    reindex();
    return true;
}

void OdEdCommandStack::removeCommand(const QString& group, const QString& globalName)
{
    std::erase_if(m_commands, [&](const OdEdCommandPtr& command) {
        return isNamed(*command, group, globalName);
    });
    reindex();
}

void OdEdCommandStack::removeGroup(const QString& group)
{
    std::erase_if(m_commands, [wanted = key(group)](const OdEdCommandPtr& command) {
        return key(command->groupName()) == wanted;
    });
    reindex();
}

bool OdEdCommandStack::hasGroup(const QString& group) const
{
    return std::any_of(m_commands.begin(), m_commands.end(),
                       [wanted = key(group)](const OdEdCommandPtr& command) {
                           return key(command->groupName()) == wanted;
                       });
}

OdEdCommandPtr OdEdCommandStack::lookup(const QString& name) const
{
    return m_byName.value(key(name));
}

QStringList OdEdCommandStack::localNames() const
{
    QStringList names;
    for (const OdEdCommandPtr& command : m_commands) {
        if (!(command->flags() & OdEd::kNoUndoMarker))
            names.append(command->localName());
    }
    names.sort(Qt::CaseInsensitive);
    names.removeDuplicates();
    return names;
}

void OdEdCommandStack::reindex()
{
    // Ways to name a command from the strongest to the weakest; within one, the first registration
    // wins.
    using NameOf = QString (*)(const OdEdCommand&);
    constexpr NameOf kNames[] = {
        [](const OdEdCommand& command) { return command.localName(); },
        [](const OdEdCommand& command) { return command.globalName(); },
        [](const OdEdCommand& command) { return QString(QLatin1Char('_') + command.localName()); },
    };
    m_byName.clear();
    for (const NameOf nameOf : kNames) {
        for (const OdEdCommandPtr& command : m_commands) {
            const QString name = key(nameOf(*command));
            if (!m_byName.contains(name))
                m_byName.insert(name, command);
        }
    }
}

OdEdCommandStack* odedRegCmds()
{
    static OdEdCommandStack stack;
    return &stack;
}

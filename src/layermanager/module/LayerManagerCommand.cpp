#include "layermanager/module/LayerManagerCommand.h"

LayerManagerCommand::LayerManagerCommand(const QString& globalName, const QString& localName,
                                         int flags)
    : m_localName(localName)
    , m_globalName(globalName)
    , m_groupName(group())
    , m_flags(flags)
{ }

QString LayerManagerCommand::group()
{
    return QStringLiteral("KEST_COMMAND_LAYERMAN");
}

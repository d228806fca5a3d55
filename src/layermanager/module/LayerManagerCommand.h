#pragma once

#include "sdk/commands/OdEdCommand.h"

/// Base of the module's commands: names, group and flags.
class LayerManagerCommand : public OdEdCommand
{
public:
    /// The group of all commands of this module.
    static QString group();

    QString groupName() const override { return m_groupName; }
    QString globalName() const override { return m_globalName; }
    QString localName() const override { return m_localName; }
    int flags() const override { return m_flags; }
    void undefine(bool) override { }

protected:
    LayerManagerCommand(const QString& globalName, const QString& localName, int flags);

    /// The name without its leading underscore.
    static QString withoutUnderscore(const QString& globalName) { return globalName.mid(1); }

private:
    QString m_localName;
    QString m_globalName;
    QString m_groupName;
    int m_flags;
};

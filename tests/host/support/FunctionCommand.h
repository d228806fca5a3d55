#pragma once

#include "sdk/commands/OdEdCommand.h"

#include <functional>

/// A module's command made of a function.
class FunctionCommand : public OdEdCommand
{
public:
    FunctionCommand(const char* name, int flags, std::function<void(OdEdCommandContext*)> function)
        : m_name(QLatin1String(name))
        , m_flags(flags)
        , m_function(std::move(function))
    { }
    QString groupName() const override { return QStringLiteral("TEST"); }
    QString globalName() const override { return QLatin1Char('_') + m_name; }
    QString localName() const override { return m_name; }
    void execute(OdEdCommandContext* context) override { m_function(context); }
    int flags() const override { return m_flags; }
    void undefine(bool) override { }

private:
    QString m_name;
    int m_flags;
    std::function<void(OdEdCommandContext*)> m_function;
};

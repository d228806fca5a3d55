#pragma once

#include "host/support/FunctionCommand.h"
#include "host/support/HostFixture.h"
#include "sdk/commands/OdEdCommandStack.h"

/// A host to which commands made of functions can be added.
class CommandFixture : public HostFixture
{
protected:
    ~CommandFixture() override { odedRegCmds()->removeGroup(QStringLiteral("TEST")); }

    void addCommand(const char* name, std::function<void(OdEdCommandContext*)> function,
                    int flags = 0)
    {
        ASSERT_TRUE(odedRegCmds()->addCommand(
            odrxCreate<FunctionCommand>(name, flags, std::move(function))));
    }
    std::string variable(const char* name)
    {
        return core.sysvars().text(QLatin1String(name)).toStdString();
    }
    QStringList strings(std::initializer_list<const char*> texts)
    {
        QStringList result;
        for (const char* text : texts)
            result << QString::fromUtf8(text);
        return result;
    }
};

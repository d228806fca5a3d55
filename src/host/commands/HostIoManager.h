#pragma once

#include "sdk/IKestIOManager.h"

class CommandProcessor;
class HostFrontEnd;

/// Text in and out of the command line, for modules.
class HostIoManager : public IKestIOManager
{
public:
    explicit HostIoManager(CommandProcessor& commands)
        : m_commands(commands)
    { }
    void setFrontEnd(HostFrontEnd& frontEnd) { m_frontEnd = &frontEnd; }

    void print(const QString& line) override;
    /// An answer that is no integer is asked for again; where nobody can answer the running command
    /// fails.
    int getInt(const QString& prompt, int& value) override;
    int getString(const QString& prompt, QString& value) override;

private:
    CommandProcessor& m_commands;
    HostFrontEnd* m_frontEnd = nullptr;
};

#pragma once

#include "layerman/arguments/CommandTable.h"

#include <QStringList>

#include <map>
#include <optional>

/// A command with its options and operands.
class ParsedCommand
{
public:
    /// The arguments behind the command's name, options and operands in any order; "--" ends the
    /// options. Raises UsageError for what the command does not know.
    ParsedCommand(const CommandInfo& command, const QStringList& arguments);

    const CommandInfo& command() const { return m_command; }
    bool has(OptionId option) const { return m_options.count(option) != 0; }
    /// The option's value, which may be empty; nothing where it was not given.
    std::optional<QString> value(OptionId option) const;
    const QStringList& operands() const { return m_operands; }

private:
    struct Given
    {
        const OptionInfo* option;
        QString spelled; ///< as it was typed, dashes included
        std::optional<QString> value;
    };
    Given longOption(const QString& argument) const;
    Given shortOption(const QString& argument) const;
    void take(Given given, const QStringList& arguments, qsizetype& at);

    const CommandInfo& m_command;
    std::map<OptionId, QString> m_options;
    QStringList m_operands;
};

#pragma once

#include <QStringList>

#include <vector>

/// What a shell may offer for the value of an option.
struct CompletedValue
{
    enum class Kind {
        None, ///< the option takes no value
        Text, ///< anything: nothing is offered
        Words, ///< one of `words`
        WordList, ///< some of `words`, commas between
        File, ///< a file whose suffix is one of `words`, without dots; any file where there are
              ///< none
        Folder,
    };

    Kind kind = Kind::None;
    QStringList words;
};

struct CompletedOption
{
    QStringList names; ///< with their dashes
    QString text;
    CompletedValue value;
};

/// An operand NAME=VALUE.
struct CompletedAssignment
{
    QString name;
    QStringList values; ///< none: any text
};

/// What can follow a command's name.
struct CompletedCommand
{
    QString name;
    QString text;
    std::vector<CompletedOption> options;
    QStringList words; ///< operands that are meant word by word
    std::vector<CompletedAssignment> assignments;
    QStringList suffixes; ///< of operands that are files; none: no files
};

/// A program's command line, as the completions of shells are made from it.
struct CompletedProgram
{
    QString name;
    /// What stands without a command. A program that has no commands has its operands here.
    CompletedCommand plain;
    std::vector<CompletedCommand> commands;
};

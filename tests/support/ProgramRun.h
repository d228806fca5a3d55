#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QStringList>

#include <string>

/// How a program ended, and what it said.
struct Finished
{
    int exitCode = -1;
    std::string output;
    std::string errors;
};

/// The environment of the test without any display: a program that started the window system would
/// end at once, since there is no such platform.
QProcessEnvironment environmentWithoutDisplay();

/// Runs a program in a process of its own to its normal end, in a folder, or in that of the test.
Finished runProgram(const QString& program, const QStringList& arguments, const QByteArray& input,
                    const QProcessEnvironment& environment, const QString& folder = {});

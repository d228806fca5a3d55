#pragma once

#include <QString>
#include <QStringList>

/// Text in and out of the host's command line. Calls that ask answer kest::kNormal, kest::kNone
/// (empty answer) or kest::kCancel.
class IKestIOManager
{
public:
    virtual ~IKestIOManager() = default;

    /// A line in the command history.
    virtual void print(const QString& line) = 0;
    virtual int getInt(const QString& prompt, int& value) = 0;
    virtual int getString(const QString& prompt, QString& value) = 0;
};

/// The host's input/output manager, or null while there is no host.
IKestIOManager* getIOManagerInterface();

#pragma once

#include <QIODevice>

/// What is piped or typed into the program, for reading. A stop signal ends it, also while it waits
/// for more.
class StandardInput : public QIODevice
{
public:
    StandardInput() { open(QIODevice::ReadOnly); }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char*, qint64) override { return -1; }
};

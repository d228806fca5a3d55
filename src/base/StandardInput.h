#pragma once

#include <QIODevice>

/// What is piped or typed into the program, for reading. A stop signal ends it, also while it waits
/// for more.
class StandardInput : public QIODevice
{
public:
    StandardInput() { open(QIODevice::ReadOnly); }
    bool isSequential() const override { return true; }
    /// Whether it ended because it could not be read, not because there was no more.
    bool hasFailed() const { return m_hasFailed; }

protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    bool m_hasFailed = false;
};

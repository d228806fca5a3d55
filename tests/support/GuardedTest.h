#pragma once

#include "support/LogGuard.h"

#include <QObject>

#include <memory>

/// Base of Qt Test classes: every test function runs under a LogGuard. A class that needs its own
/// set-up per function overrides prepare() and finish() instead of the slots init() and cleanup().
class GuardedTest : public QObject
{
    Q_OBJECT
public:
    GuardedTest();
    ~GuardedTest() override;

protected:
    virtual void prepare() { }
    virtual void finish() { }

private slots:
    void init();
    void cleanup();

private:
    std::unique_ptr<LogGuard> m_guard;
};

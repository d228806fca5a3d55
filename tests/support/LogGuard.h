#pragma once

#include <QtGlobal>

/// While it lives, a warning or a critical message in the log fails the running test at once,
/// unless an ExpectedWarning announced it. GoogleTest programs have one for their whole run; Qt
/// Test programs get one per test function from GuardedTest.
class LogGuard
{
public:
    LogGuard();
    ~LogGuard();
    LogGuard(const LogGuard&) = delete;
    LogGuard& operator=(const LogGuard&) = delete;

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text);

    QtMessageHandler m_previous;
    LogGuard* m_outer;
};

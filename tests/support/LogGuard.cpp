#include "support/LogGuard.h"

#include "support/ExpectedWarning.h"
#include "support/TestFailure.h"

#include <QString>

namespace {

LogGuard* s_guard = nullptr;

/// What the offscreen platform says about itself on every machine; it tells nothing about the
/// program.
bool isPlatformNotice(const QString& text)
{
    return text.startsWith(QLatin1String("This plugin does not support "))
        || text.startsWith(QLatin1String("QStandardPaths: "));
}

} // namespace

LogGuard::LogGuard()
    : m_previous(qInstallMessageHandler(&LogGuard::handle))
    , m_outer(s_guard)
{
    s_guard = this;
}

LogGuard::~LogGuard()
{
    qInstallMessageHandler(m_previous);
    s_guard = m_outer;
}

void LogGuard::handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    // A handler that other code had asked for before the guard ended may still be called after it.
    if (!s_guard)
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        if (isPlatformNotice(text) || ExpectedWarning::consume(text))
            return;
        reportTestFailure(QStringLiteral("Unexpected message in the log: %1").arg(text));
    }
    s_guard->m_previous(type, context, text);
}

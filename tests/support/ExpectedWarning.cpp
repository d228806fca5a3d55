#include "support/ExpectedWarning.h"

#include "support/TestFailure.h"

#include <QMutex>

#include <algorithm>
#include <vector>

namespace {

/// Warnings may come from worker threads.
QMutex s_mutex;
std::vector<ExpectedWarning*> s_open;

} // namespace

ExpectedWarning::ExpectedWarning(const QString& part)
    : m_part(part)
{
    const QMutexLocker lock(&s_mutex);
    s_open.push_back(this);
}

ExpectedWarning::~ExpectedWarning()
{
    {
        const QMutexLocker lock(&s_mutex);
        std::erase(s_open, this);
    }
    if (!m_seen)
        reportTestFailure(QStringLiteral("The expected warning was not logged: %1").arg(m_part));
}

bool ExpectedWarning::consume(const QString& message)
{
    const QMutexLocker lock(&s_mutex);
    const auto fits = [&](const ExpectedWarning* expected) {
        return !expected->m_seen && message.contains(expected->m_part);
    };
    const auto found = std::find_if(s_open.begin(), s_open.end(), fits);
    if (found == s_open.end())
        return false;
    (*found)->m_seen = true;
    return true;
}

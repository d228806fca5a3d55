#include "io/files/DrawingLock.h"

#include "io/files/AtomicFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLockFile>

QString DrawingLock::lockPath(const QString& drawing)
{
    const QFileInfo file(AtomicFile::resolved(drawing));
    return QStringLiteral("%1/.%2.lock").arg(file.path(), file.fileName());
}

DrawingLock::DrawingLock(const QString& drawing)
    : m_lock(std::make_unique<QLockFile>(lockPath(drawing)))
{
    // Stale is what a dead process left, never what is merely old.
    m_lock->setStaleLockTime(0);
    retry();
}

DrawingLock::~DrawingLock() = default;

DrawingLock::State DrawingLock::retry()
{
    if (m_state == State::Held)
        return m_state;
    if (m_lock->tryLock(0))
        m_state = State::Held;
    else
        m_state =
            m_lock->error() == QLockFile::LockFailedError ? State::Elsewhere : State::Unavailable;
    return m_state;
}

QString DrawingLock::holder() const
{
    qint64 process = 0;
    QString host;
    QString program;
    if (!m_lock->getLockInfo(&process, &host, &program))
        return {};
    return QCoreApplication::translate("DrawingLock", "process %1 on %2").arg(process).arg(host);
}

QString DrawingLock::refusal(const QString& drawing) const
{
    const QString who = holder();
    return who.isEmpty()
        ? QCoreApplication::translate(
              "DrawingLock", "%1 is being edited in another program; it is not overwritten.")
              .arg(drawing)
        : QCoreApplication::translate("DrawingLock",
                                      "%1 is being edited by %2; it is not overwritten.")
              .arg(drawing, who);
}

#include "host/recovery/RecoveryFolder.h"

#include "database/values/OdError.h"
#include "host/text/HostText.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QLockFile>
#include <QRandomGenerator>
#include <QStandardPaths>

namespace {
const QLatin1String kJournalSuffix(".journal");

QString folderFor(const QString& configFolder)
{
    const QString base = configFolder.isEmpty()
        ? QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
        : QDir(configFolder).absolutePath();
    return base + QStringLiteral("/recovery");
}

/// Journals are called SESSION-NUMBER.journal.
QString sessionOf(const QString& journal)
{
    return journal.section(QLatin1Char('-'), 0, 0);
}

std::unique_ptr<QLockFile> lockFile(const QString& path)
{
    auto lock = std::make_unique<QLockFile>(path);
    lock->setStaleLockTime(0); // only a dead process makes it stale
    return lock;
}
} // namespace

RecoveryFolder::RecoveryFolder(const QString& configFolder)
    : m_path(folderFor(configFolder))
{ }

RecoveryFolder::~RecoveryFolder() = default;

QString RecoveryFolder::lockPath(const QString& session) const
{
    return QStringLiteral("%1/%2.lock").arg(m_path, session);
}

std::vector<RecoveryFolder::Abandoned> RecoveryFolder::abandoned() const
{
    std::vector<Abandoned> found;
    QHash<QString, std::shared_ptr<QLockFile>> claims;
    const QStringList names =
        QDir(m_path).entryList({QLatin1Char('*') + kJournalSuffix}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        const QString session = sessionOf(name);
        if (session == m_session)
            continue;
        if (!claims.contains(session)) {
            std::shared_ptr<QLockFile> claim = lockFile(lockPath(session));
            claims.insert(session, claim->tryLock(0) ? claim : nullptr);
        }
        if (claims[session])
            found.push_back({QDir(m_path).filePath(name), claims[session]});
    }
    return found;
}

QString RecoveryFolder::newJournal()
{
    if (!m_mark) {
        // What people draw is nobody else's business.
        const bool isMade = QDir().mkpath(m_path);
        QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        const QString session = QString::number(QRandomGenerator::system()->generate64(), 16);
        m_mark = lockFile(lockPath(session));
        if (!isMade || !m_mark->tryLock(0)) {
            m_mark.reset();
            throw OdError_FileAccess(OdResult::CantWriteFile,
                                     HostText::tr("Unsaved edits cannot be kept in %1; nothing can "
                                                  "be written there.")
                                         .arg(m_path));
        }
        m_session = session;
    }
    return QStringLiteral("%1/%2-%3%4").arg(m_path, m_session).arg(++m_count).arg(kJournalSuffix);
}

QString RecoveryFolder::setAside(const QString& journal)
{
    QString aside = journal.chopped(kJournalSuffix.size()) + QStringLiteral(".kept");
    for (int number = 2; QFileInfo::exists(aside); ++number)
        aside =
            QStringLiteral("%1-%2.kept").arg(journal.chopped(kJournalSuffix.size())).arg(number);
    return QFile::rename(journal, aside) ? aside : journal;
}

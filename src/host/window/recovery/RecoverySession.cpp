#include "host/window/recovery/RecoverySession.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostFrontEnd.h"
#include "host/documents/DocumentFiles.h"
#include "host/documents/HostDocument.h"
#include "host/recovery/RecoveryFolder.h"
#include "host/text/HostText.h"
#include "host/window/recovery/JournalKeeper.h"
#include "io/files/RecoveryJournal.h"

#include <QDateTime>
#include <QFile>

void RecoverySession::offer()
{
    for (const RecoveryFolder::Abandoned& journal : m_folder.abandoned())
        offer(journal.path);
}

void RecoverySession::offer(const QString& path)
{
    RecoveryJournal journal;
    try {
        journal = RecoveryJournal::load(path);
    } catch (const OdError& error) {
        setAside(path, error.description());
        return;
    }
    const QString drawing = journal.path.isEmpty() ? journal.title : journal.path;
    switch (m_frontEnd.askToRecover(drawing, QDateTime::fromMSecsSinceEpoch(journal.written))) {
    case HostFrontEnd::RecoveryAnswer::Recover:
        recover(path, journal);
        break;
    case HostFrontEnd::RecoveryAnswer::Discard:
        QFile::remove(path);
        break;
    case HostFrontEnd::RecoveryAnswer::Later:
        break;
    }
}

void RecoverySession::recover(const QString& path, const RecoveryJournal& journal)
{
    try {
        HostDocument& document = m_files.openRecovered(journal);
        m_keeper.flush();
        // Until the edits are kept anew the old journal stays.
        if (!m_keeper.journalOf(document).isEmpty())
            QFile::remove(path);
    } catch (const OdError& error) {
        // Who cancels, or cannot go on now, is asked again at the next start.
        if (error.code() == OdResult::Cancelled)
            return;
        setAside(path, error.description());
    }
}

void RecoverySession::setAside(const QString& path, const QString& why)
{
    m_frontEnd.notify(HostText::tr("%1 The unsaved edits are kept in %2.")
                          .arg(why, RecoveryFolder::setAside(path)));
}

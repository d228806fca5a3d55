#include "host/window/recovery/JournalKeeper.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostFrontEnd.h"
#include "host/documents/HostDocManager.h"
#include "host/recovery/RecoveryFolder.h"
#include "host/text/HostText.h"
#include "host/window/views/DatabaseWatch.h"
#include "io/DrawingFile.h"
#include "io/files/AtomicFile.h"
#include "io/files/RecoveryJournal.h"

#include <QFile>

#include <algorithm>
#include <array>

namespace {
constexpr int kSettleTime = 3000; // milliseconds
/// Edits that never settle are written at least this often.
constexpr int kLongestWait = 30000;
/// Writing takes a twentieth of the time at most.
constexpr int kPauseForWork = 20;
} // namespace

JournalKeeper::JournalKeeper(HostDocManager& documents, RecoveryFolder& folder,
                             HostFrontEnd& frontEnd)
    : m_documents(documents)
    , m_folder(folder)
    , m_frontEnd(frontEnd)
{
    m_settled.setSingleShot(true);
    m_settled.setInterval(kSettleTime);
    connect(&m_settled, &QTimer::timeout, this, &JournalKeeper::flush);
    m_documents.addReactor(this);
    for (HostDocument* document : m_documents.documents())
        documentCreated(document);
}

JournalKeeper::~JournalKeeper()
{
    m_documents.removeReactor(this);
}

JournalKeeper::Entry* JournalKeeper::find(const KsApDocument* document)
{
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& e) { return e.document == document; });
    return entry == m_entries.end() ? nullptr : &*entry;
}

QString JournalKeeper::journalOf(const HostDocument& document) const
{
    const Entry* entry = const_cast<JournalKeeper*>(this)->find(&document);
    return entry ? entry->journal : QString();
}

void JournalKeeper::documentCreated(KsApDocument* document)
{
    auto& created = static_cast<HostDocument&>(*document);
    Entry entry;
    entry.document = &created;
    entry.watch = std::make_unique<DatabaseWatch>();
    entry.watch->setDatabase(created.database());
    connect(entry.watch.get(), &DatabaseWatch::changed, this, &JournalKeeper::edited);
    connect(&created, &HostDocument::fileStateChanged, this,
            [this, &created] { fileStateChanged(created); });
    m_entries.push_back(std::move(entry));
}

void JournalKeeper::documentToBeDestroyed(KsApDocument* document)
{
    Entry* entry = find(document);
    if (!entry)
        return;
    drop(*entry);
    m_entries.erase(m_entries.begin() + (entry - m_entries.data()));
}

void JournalKeeper::edited()
{
    if (std::none_of(m_entries.begin(), m_entries.end(),
                     [](const Entry& entry) { return entry.document->isModified(); }))
        return;
    if (!m_settled.isActive())
        m_firstEdit.start();
    if (!m_settled.isActive() || m_firstEdit.elapsed() < kLongestWait)
        m_settled.start();
}

void JournalKeeper::fileStateChanged(HostDocument& document)
{
    Entry* entry = find(&document);
    if (!entry)
        return;
    // After a save the journal belongs to a file that is no more.
    if (!document.isModified())
        drop(*entry);
    else
        edited();
}

void JournalKeeper::flush()
{
    m_settled.stop();
    // A drawing that is being read or written is not to be touched now.
    if (m_documents.isBusy()) {
        m_settled.start();
        return;
    }
    QElapsedTimer spent;
    spent.start();
    for (Entry& entry : m_entries)
        update(entry);
    // What takes long is done less often: the user waits for it.
    m_settled.setInterval(std::max(kSettleTime, static_cast<int>(spent.elapsed()) * kPauseForWork));
}

void JournalKeeper::update(Entry& entry)
{
    const quint64 stamp = entry.document->database()->editStamp();
    // Edits that can never be saved are not recovered either.
    const bool canBeSaved = writingRefusal(*entry.document->database()).isEmpty();
    if (!entry.document->isModified() || !canBeSaved) {
        drop(entry);
    } else if (entry.stamp != stamp) {
        try {
            write(entry);
            entry.stamp = stamp;
        } catch (const OdError& error) {
            if (!std::exchange(entry.toldProblem, true))
                m_frontEnd.print(
                    HostText::tr("The unsaved edits of %1 cannot be kept for recovery: "
                                 "%2")
                        .arg(entry.document->displayName(), error.description()));
        }
    }
}

void JournalKeeper::write(Entry& entry)
{
    HostDocument& document = *entry.document;
    RecoveryJournal journal = RecoveryJournal::of(*document.database(), document.fileLayout());
    journal.path = document.hasFile() ? document.fileName() : QString();
    journal.title = document.displayName();
    const QString path = entry.journal.isEmpty() ? m_folder.newJournal() : entry.journal;
    const QByteArray bytes = journal.toBytes();
    AtomicFile file(path);
    file.write(std::array{QByteArrayView(bytes)});
    file.commit();
    entry.journal = path;
}

void JournalKeeper::drop(Entry& entry)
{
    if (!entry.journal.isEmpty())
        QFile::remove(entry.journal);
    entry.journal.clear();
    entry.stamp.reset();
}

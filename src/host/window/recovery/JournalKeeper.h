#pragma once

#include "sdk/KsApDocManager.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

class DatabaseWatch;
class HostDocManager;
class HostDocument;
class HostFrontEnd;
class RecoveryFolder;

/// Keeps a journal of each drawing's unsaved edits, written when the edits have settled, and taken
/// away as soon as there is nothing to lose: saved, undone, or closed. What is left when this ends
/// before the documents do stays for the next start.
class JournalKeeper : public QObject, private KsApDocManagerReactor
{
    Q_OBJECT
public:
    JournalKeeper(HostDocManager& documents, RecoveryFolder& folder, HostFrontEnd& frontEnd);
    ~JournalKeeper() override;

    /// Writes the journals that are due, without waiting.
    void flush();
    /// The journal of a document; empty while it has none.
    QString journalOf(const HostDocument& document) const;
    /// Runs from an edit until the edits have settled.
    const QTimer& timer() const { return m_settled; }

private:
    struct Entry
    {
        HostDocument* document = nullptr;
        std::unique_ptr<DatabaseWatch> watch;
        QString journal;
        std::optional<quint64> stamp; ///< of the edits that the journal holds
        bool toldProblem = false;
    };

    void documentCreated(KsApDocument* document) override;
    void documentToBeDestroyed(KsApDocument* document) override;
    void edited();
    void fileStateChanged(HostDocument& document);
    void update(Entry& entry);
    void write(Entry& entry);
    static void drop(Entry& entry);
    Entry* find(const KsApDocument* document);

    HostDocManager& m_documents;
    RecoveryFolder& m_folder;
    HostFrontEnd& m_frontEnd;
    std::vector<Entry> m_entries;
    QTimer m_settled;
    QElapsedTimer m_firstEdit;
};

#include "host/documents/UndoNames.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/drawing/UndoJournal.h"
#include "host/text/HostText.h"

void UndoNames::announce(const QString& globalName)
{
    settle();
    m_pending = globalName.startsWith(QLatin1Char('_')) ? globalName.mid(1) : globalName;
    m_pendingRecord = m_database.journal().undoCount();
}

void UndoNames::settle()
{
    if (!m_pending || m_database.journal().undoCount() <= m_pendingRecord)
        return;
    m_names.resize(m_pendingRecord);
    m_names.push_back(*std::exchange(m_pending, std::nullopt));
}

QString UndoNames::nameAt(std::size_t record) const
{
    const QString name = record < m_names.size() ? m_names[record] : QString();
    return name.isEmpty() ? HostText::tr("Edit") : name;
}

QString UndoNames::undoName()
{
    settle();
    const std::size_t count = m_database.journal().undoCount();
    return count == 0 ? QString() : nameAt(count - 1);
}

QString UndoNames::redoName()
{
    settle();
    return m_database.hasRedo() ? nameAt(m_database.journal().undoCount()) : QString();
}

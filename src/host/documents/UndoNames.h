#pragma once

#include <QString>

#include <optional>
#include <vector>

class OdDbDatabase;

/// Names of the commands behind the undo records of one drawing. A name is announced before its
/// record is started and kept only if the record comes to hold a change.
class UndoNames
{
public:
    explicit UndoNames(const OdDbDatabase& database)
        : m_database(database)
    { }

    /// Names the record that is started next.
    void announce(const QString& globalName);
    /// Name of the record that undo takes back, or redo brings back; empty when there is none.
    QString undoName();
    QString redoName();

private:
    void settle();
    QString nameAt(std::size_t record) const;

    const OdDbDatabase& m_database;
    std::vector<QString> m_names; ///< by position of the record, the oldest first
    std::optional<QString> m_pending;
    std::size_t m_pendingRecord = 0;
};

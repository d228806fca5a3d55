#pragma once

#include <QStringList>

class OdDbDatabase;

/// Names of the commands behind a drawing's undo records, for the Undo and Redo menus.
class CKsUndoRedoCommandHistory
{
public:
    /// Names the undo record that is started next in the current document.
    virtual void AddCommand(const QString& globalName) = 0;
    virtual ~CKsUndoRedoCommandHistory() = default;
};

/// The current document's history, or null without one.
CKsUndoRedoCommandHistory* ksUndoRedoHistory();

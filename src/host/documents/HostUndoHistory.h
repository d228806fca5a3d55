#pragma once

#include "sdk/commands/CKsUndoRedoCommandHistory.h"

class HostDocManager;

/// Command names of the current document's undo records, for modules.
class HostUndoHistory : public CKsUndoRedoCommandHistory
{
public:
    explicit HostUndoHistory(const HostDocManager& documents)
        : m_documents(documents)
    { }
    void AddCommand(const QString& globalName) override;

private:
    const HostDocManager& m_documents;
};

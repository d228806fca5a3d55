#include "host/documents/HostUndoHistory.h"

#include "host/documents/HostDocManager.h"

void HostUndoHistory::AddCommand(const QString& globalName)
{
    if (HostDocument* document = m_documents.curDocument())
        document->undoNames().announce(globalName);
}

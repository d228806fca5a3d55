#include "host/documents/ChangedFiles.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostFrontEnd.h"
#include "host/documents/DocumentFiles.h"
#include "host/documents/HostDocManager.h"
#include "host/text/HostText.h"

#include <QScopedValueRollback>

void ChangedFiles::check()
{
    // A question makes the window active again when it is closed.
    if (m_isChecking || m_documents.isBusy())
        return;
    const QScopedValueRollback checking(m_isChecking, true);
    for (HostDocument* document : m_documents.documents()) {
        if (!m_documents.contains(document))
            continue;
        const auto change = DocumentFiles::changeOf(*document);
        if (change == DocumentFiles::Change::None)
            continue;
        const FileIdentity now = FileIdentity::of(document->fileName());
        if (document->file().noticed == now)
            continue;
        document->file().noticed = now;
        tell(*document);
    }
}

void ChangedFiles::tell(HostDocument& document)
{
    if (DocumentFiles::changeOf(document) == DocumentFiles::Change::Gone) {
        m_frontEnd.print(HostText::tr("%1 was deleted or moved by another program. SAVE writes it "
                                      "anew.")
                             .arg(document.fileName()));
    } else if (document.isModified()) {
        m_frontEnd.notify(HostText::tr("%1 was changed by another program, and the drawing has "
                                       "unsaved changes. SAVE asks which of them to keep.")
                              .arg(document.fileName()));
    } else if (m_frontEnd.askToReload(document) && m_documents.contains(&document)) {
        const HostDocument& fresh = m_files.reload(document);
        const QString readOnly = DocumentFiles::readOnlySentence(fresh);
        if (!readOnly.isEmpty())
            m_frontEnd.notify(readOnly);
    }
}

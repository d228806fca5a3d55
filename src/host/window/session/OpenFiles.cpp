#include "host/window/session/OpenFiles.h"

#include "host/documents/HostDocManager.h"
#include "host/sysvars/UserSettings.h"

namespace {
const QString kFiles = QStringLiteral("Session/Files");
const QString kCurrent = QStringLiteral("Session/Current");
} // namespace

OpenFiles::OpenFiles(HostDocManager& documents, UserSettings& settings)
    : m_documents(documents)
    , m_settings(settings)
    , m_lastFiles(settings.value(kFiles).toStringList())
    , m_lastCurrent(settings.value(kCurrent).toString())
{
    m_documents.addReactor(this);
}

OpenFiles::~OpenFiles()
{
    m_documents.removeReactor(this);
}

void OpenFiles::ignore()
{
    m_ignores = true;
    m_lastFiles.clear();
    m_lastCurrent.clear();
}

void OpenFiles::note()
{
    if (m_ignores || m_documents.isBusy())
        return;
    QStringList files;
    for (const HostDocument* document : m_documents.documents()) {
        if (document->hasFile())
            files.append(document->fileName());
    }
    const HostDocument* current = m_documents.curDocument();
    m_settings.setValue(kFiles, files);
    m_settings.setValue(kCurrent, current && current->hasFile() ? current->fileName() : QString());
}

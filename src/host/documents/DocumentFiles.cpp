#include "host/documents/DocumentFiles.h"

#include "database/OdDbDatabase.h"
#include "host/documents/HostDocManager.h"
#include "host/resources/HostResources.h"
#include "host/text/HostText.h"
#include "io/DrawingFile.h"

#include <QDir>
#include <QFileInfo>

namespace {
QString absolutePath(const QString& path)
{
    if (path.isEmpty()) {
        throw OdError_FileAccess(OdResult::CantOpenFile,
                                 HostText::tr("A file name is needed; the one given is empty."));
    }
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}
} // namespace

bool DocumentFiles::isPristine(const HostDocument& document)
{
    const OdDbDatabase& drawing = *document.database();
    return !document.hasFile() && !document.isModified() && !drawing.hasUndo()
        && !drawing.hasRedo();
}

HostDocument& DocumentFiles::open(const QString& path)
{
    const QString file = absolutePath(path);
    if (HostDocument* open = m_documents.findByFile(file)) {
        m_documents.setCurrent(*open);
        return *open;
    }
    std::unique_ptr<OdDbDatabase> drawing;
    {
        const HostDocManager::BusyScope busy(m_documents);
        drawing = m_frontEnd->readDrawingFile(file);
    }
    const auto before = m_documents.documents();
    HostDocument& document = m_documents.add(std::move(drawing), file, true);
    if (before.size() == 1 && isPristine(*before.front()))
        m_documents.close(*before.front());
    m_frontEnd->fileUsed(file);
    return document;
}

HostDocument& DocumentFiles::createNew()
{
    auto drawing = readDrawing(newDrawingTemplate(), HostText::tr("new drawing"));
    const QString name = HostText::tr("Drawing%1").arg(++m_newCount);
    return m_documents.add(std::move(drawing), name, false);
}

SaveReport DocumentFiles::save(HostDocument& document)
{
    return saveAs(document, document.fileName());
}

SaveReport DocumentFiles::saveAs(HostDocument& document, const QString& path)
{
    QString file = absolutePath(path);
    if (QFileInfo(file).suffix().isEmpty())
        file += QStringLiteral(".dxf");
    const HostDocument* other = m_documents.findByFile(file);
    if (other && other != &document) {
        throw OdError_FileAccess(
            OdResult::CantWriteFile,
            HostText::tr("%1 is open as another drawing; close that one first.").arg(file));
    }
    SaveReport report;
    {
        const HostDocManager::BusyScope busy(m_documents);
        report = m_frontEnd->writeDrawingFile(*document.database(), file);
    }
    document.saved(file);
    m_frontEnd->fileUsed(file);
    return report;
}

#include "host/documents/DocumentFiles.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/documents/HostDocManager.h"
#include "host/resources/HostResources.h"
#include "host/sysvars/HostSysvarManager.h"
#include "host/text/HostText.h"
#include "io/DrawingFile.h"
#include "io/FileImage.h"
#include "io/files/AtomicFile.h"
#include "io/files/RecoveryJournal.h"

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

[[noreturn]] void refuseToWrite(const QString& sentence)
{
    throw OdError_FileAccess(OdResult::CantWriteFile, sentence);
}
} // namespace

bool DocumentFiles::isPristine(const HostDocument& document)
{
    const OdDbDatabase& drawing = *document.database();
    return !document.hasFile() && !document.isModified() && !drawing.hasUndo()
        && !drawing.hasRedo();
}

DocumentFiles::Change DocumentFiles::changeOf(const HostDocument& document)
{
    if (!document.hasFile())
        return Change::None;
    const FileIdentity now = FileIdentity::of(document.fileName());
    if (!now.exists)
        return Change::Gone;
    return now == document.file().identity ? Change::None : Change::Changed;
}

DocumentFileState DocumentFiles::claim(const QString& path)
{
    DocumentFileState state;
    // Taken before the file is read: a change during that counts as one.
    state.identity = FileIdentity::of(path);
    if (!m_locks || !QFileInfo(path).isFile())
        return state;
    state.lock = std::make_unique<DrawingLock>(path);
    if (state.lock->state() != DrawingLock::State::Elsewhere || !m_frontEnd->isInteractive())
        return state;
    switch (m_frontEnd->askAboutLock(path, state.lock->holder())) {
    case HostFrontEnd::LockAnswer::ReadOnly:
        state.isReadOnly = true;
        state.lock.reset();
        break;
    case HostFrontEnd::LockAnswer::OpenAnyway:
        state.ignoresLock = true;
        break;
    case HostFrontEnd::LockAnswer::Cancel:
        throw OdError(OdResult::Cancelled, HostText::tr("*Cancel*"));
    }
    return state;
}

/// Nobody is kept from a drawing that cannot be saved here anyway.
void DocumentFiles::settleLock(DocumentFileState& state, const OdDbDatabase& drawing)
{
    if (!writingRefusal(drawing).isEmpty())
        state.lock.reset();
}

HostDocument& DocumentFiles::add(std::unique_ptr<OdDbDatabase> drawing, const QString& path,
                                 DocumentFileState state)
{
    const auto before = m_documents.documents();
    HostDocument& document = m_documents.add(std::move(drawing), path, true, std::move(state));
    if (before.size() == 1 && isPristine(*before.front()))
        m_documents.close(*before.front());
    return document;
}

HostDocument& DocumentFiles::open(const QString& path)
{
    const QString file = absolutePath(path);
    if (HostDocument* open = m_documents.findByFile(file)) {
        m_documents.setCurrent(*open);
        return *open;
    }
    DocumentFileState state = claim(file);
    std::unique_ptr<OdDbDatabase> drawing;
    {
        const HostDocManager::BusyScope busy(m_documents);
        drawing = m_frontEnd->readDrawingFile(file);
    }
    settleLock(state, *drawing);
    HostDocument& document = add(std::move(drawing), file, std::move(state));
    m_frontEnd->fileUsed(file);
    return document;
}

HostDocument& DocumentFiles::openRecovered(const RecoveryJournal& journal)
{
    if (journal.path.isEmpty()) {
        auto drawing = readDrawing(journal.applyTo({}), journal.title);
        HostDocument& document = m_documents.add(std::move(drawing), journal.title, false);
        document.file().layout = FileLayout{};
        document.markModified();
        return document;
    }
    if (m_documents.findByFile(journal.path)) {
        throw OdError_FileAccess(
            OdResult::CantOpenFile,
            HostText::tr("%1 is open already; close it to recover its edits.").arg(journal.path));
    }
    DocumentFileState state = claim(journal.path);
    std::unique_ptr<OdDbDatabase> drawing;
    {
        const HostDocManager::BusyScope busy(m_documents);
        const auto original = FileImage::load(journal.path);
        original->waitFor(original->size());
        if (!journal.fits(original->view())) {
            throw OdError_FileAccess(
                OdResult::CantOpenFile,
                HostText::tr("%1 is not the file any more that was edited; the unsaved edits do "
                             "not fit it.")
                    .arg(journal.path));
        }
        drawing =
            readDrawing(journal.applyTo(original->view()), QFileInfo(journal.path).fileName());
    }
    state.layout = FileLayout{state.identity, journal.fileHash, journal.runs()};
    HostDocument& document = add(std::move(drawing), journal.path, std::move(state));
    document.markModified();
    m_frontEnd->fileUsed(journal.path);
    return document;
}

HostDocument& DocumentFiles::reload(HostDocument& document)
{
    const QString path = document.fileName();
    const FileIdentity identity = FileIdentity::of(path);
    std::unique_ptr<OdDbDatabase> drawing;
    {
        const HostDocManager::BusyScope busy(m_documents);
        drawing = m_frontEnd->readDrawingFile(path);
    }
    DocumentFileState state = std::move(document.file());
    state.identity = identity;
    state.noticed.reset();
    state.layout.reset();
    settleLock(state, *drawing);
    // First the new one: palettes stay open while there is a drawing.
    HostDocument& fresh = m_documents.add(std::move(drawing), path, true, std::move(state));
    m_documents.close(document);
    return fresh;
}

HostDocument& DocumentFiles::createNew()
{
    auto drawing = readDrawing(newDrawingTemplate(), HostText::tr("new drawing"));
    const QString name = HostText::tr("Drawing%1").arg(++m_newCount);
    return m_documents.add(std::move(drawing), name, false);
}

QString DocumentFiles::readOnlySentence(const HostDocument& document)
{
    const QString why = writingRefusal(*document.database());
    return why.isEmpty()
        ? QString()
        : HostText::tr("%1 is open for reading only. %2").arg(document.fileName(), why);
}

void DocumentFiles::requireWritable(const HostDocument& document)
{
    const QString sentence = readOnlySentence(document);
    if (!sentence.isEmpty())
        refuseToWrite(HostText::tr("%1 Its layer states can be exported and used in other "
                                   "drawings.")
                          .arg(sentence));
}

SaveReport DocumentFiles::save(HostDocument& document, bool overwrites)
{
    requireWritable(document);
    if (document.isReadOnly()) {
        refuseToWrite(HostText::tr("%1 is open read-only. SAVEAS writes the drawing to another "
                                   "file.")
                          .arg(document.fileName()));
    }
    const Change change = changeOf(document);
    if (change == Change::Changed && !overwrites) {
        refuseToWrite(HostText::tr("%1 was changed by another program since it was opened. SAVE "
                                   "Overwrite replaces it, SAVEAS writes to another file.")
                          .arg(document.fileName()));
    }
    SaveReport report = write(document, document.fileName());
    if (change == Change::Gone) {
        report.warnings.prepend(HostText::tr("%1 was deleted or moved meanwhile; it is written "
                                             "anew.")
                                    .arg(document.fileName()));
    }
    return report;
}

SaveReport DocumentFiles::saveAs(HostDocument& document, const QString& path)
{
    requireWritable(document);
    QString file = absolutePath(path);
    if (QFileInfo(file).suffix().isEmpty())
        file += QLatin1Char('.') + drawingSuffix(*document.database());
    const HostDocument* other = m_documents.findByFile(file);
    if (other && other != &document)
        refuseToWrite(
            HostText::tr("%1 is open as another drawing; close that one first.").arg(file));
    return write(document, file);
}

/// The lock to hold from now on; null when the document's own stays.
std::unique_ptr<DrawingLock> DocumentFiles::lockForSaving(HostDocument& document,
                                                          const QString& path) const
{
    DocumentFileState& state = document.file();
    const bool isOwn = document.hasFile()
        && AtomicFile::resolved(path) == AtomicFile::resolved(document.fileName());
    if (!m_locks || (isOwn && state.lock && state.lock->state() == DrawingLock::State::Held))
        return nullptr;
    auto lock = std::make_unique<DrawingLock>(path);
    if (lock->state() == DrawingLock::State::Elsewhere && !(isOwn && state.ignoresLock))
        refuseToWrite(lock->refusal(path));
    return lock;
}

SaveReport DocumentFiles::write(HostDocument& document, const QString& path)
{
    std::unique_ptr<DrawingLock> lock = lockForSaving(document, path);
    DocumentFileState& state = document.file();
    const bool isOwn = document.hasFile() && path == document.fileName();
    int keepsBackups = 1;
    m_sysvars.getInt(QStringLiteral("ISAVEBAK"), keepsBackups);
    SaveOptions options;
    options.keepBackup = keepsBackups != 0 && !(isOwn && state.hasBackup);
    SaveReport report;
    {
        const HostDocManager::BusyScope busy(m_documents);
        report = m_frontEnd->writeDrawingFile(*document.database(), path, options);
    }
    if (lock)
        state.lock = std::move(lock);
    state.isReadOnly = false;
    state.ignoresLock = state.ignoresLock && isOwn;
    state.hasBackup = true;
    state.identity = report.file.identity;
    state.noticed.reset();
    ++state.saves;
    state.layout = report.file;
    document.saved(path);
    m_frontEnd->fileUsed(path);
    return report;
}

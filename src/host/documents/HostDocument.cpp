#include "host/documents/HostDocument.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/drawing/UndoJournal.h"
#include "io/DrawingCodec.h"
#include "io/DrawingFile.h"

#include <QFileInfo>

HostDocument::HostDocument(std::unique_ptr<OdDbDatabase> database, const QString& fileName,
                           bool hasFile, DocumentFileState file)
    : m_database(std::move(database))
    , m_fileName(fileName)
    , m_hasFile(hasFile)
    , m_savedStamp(m_database->editStamp())
    , m_file(std::move(file))
    , m_undoNames(*m_database)
    , m_selection(*m_database)
    , m_picks(*m_database)
{ }

HostDocument::~HostDocument() = default;

QString HostDocument::displayName() const
{
    return QFileInfo(m_fileName).fileName();
}

bool HostDocument::isModified() const
{
    return m_database->editStamp() != m_savedStamp;
}

bool HostDocument::isReadOnly() const
{
    return m_file.isReadOnly || !writingRefusal(*m_database).isEmpty();
}

void HostDocument::saved(const QString& path)
{
    m_fileName = path;
    m_hasFile = true;
    m_savedStamp = m_database->editStamp();
    emit fileStateChanged();
}

void HostDocument::markModified()
{
    m_savedStamp.reset();
    emit fileStateChanged();
}

const FileLayout& HostDocument::fileLayout()
{
    if (!m_file.layout) {
        m_file.layout = m_hasFile
            ? FileLayout::of(DrawingSource::of(*m_database).image(), m_file.identity)
            : FileLayout{};
    }
    return *m_file.layout;
}

void HostDocument::startUndoRecord(const QString& globalName)
{
    if (m_groupOpen)
        return;
    m_undoNames.announce(globalName);
    m_database->startUndoRecord();
}

void HostDocument::endUndoRecord()
{
    if (!m_groupOpen)
        m_database->endUndoRecord();
}

bool HostDocument::undo()
{
    endUndoGroup();
    m_undoNames.undoName(); // settles the name of the record that is about to move
    const bool done = m_database->undo();
    std::erase_if(m_undoMarks,
                  [this](std::size_t mark) { return mark > m_database->journal().undoCount(); });
    emit fileStateChanged();
    return done;
}

bool HostDocument::redo()
{
    endUndoGroup();
    m_undoNames.undoName();
    const bool done = m_database->redo();
    emit fileStateChanged();
    return done;
}

void HostDocument::beginUndoGroup()
{
    if (m_groupOpen)
        return;
    startUndoRecord(tr("Group"));
    m_groupOpen = true;
}

void HostDocument::endUndoGroup()
{
    if (!m_groupOpen)
        return;
    m_groupOpen = false;
    m_database->endUndoRecord();
}

void HostDocument::setUndoMark()
{
    endUndoGroup();
    m_undoMarks.push_back(m_database->journal().undoCount());
}

int HostDocument::undoToMark()
{
    endUndoGroup();
    const std::size_t target = m_undoMarks.empty() ? 0 : m_undoMarks.back();
    if (!m_undoMarks.empty())
        m_undoMarks.pop_back();
    int steps = 0;
    while (m_database->journal().undoCount() > target && undo())
        ++steps;
    return steps;
}

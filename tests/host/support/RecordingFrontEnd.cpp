#include "host/support/RecordingFrontEnd.h"

#include "host/documents/HostDocument.h"
#include "io/DrawingFile.h"

std::optional<QString> RecordingFrontEnd::ask(const HostQuestion& question)
{
    prompts << question.prompt;
    if (answers.empty())
        return std::nullopt;
    const auto answer = answers.front();
    answers.pop_front();
    return answer;
}

std::unique_ptr<OdDbDatabase> RecordingFrontEnd::readDrawingFile(const QString& path)
{
    return readDrawing(path);
}

SaveReport RecordingFrontEnd::writeDrawingFile(const OdDbDatabase& drawing, const QString& path,
                                               const SaveOptions& options)
{
    return writeDrawing(drawing, path, {}, options);
}

QString RecordingFrontEnd::chooseFileToSave(const QString& suggestion, const QString& format)
{
    suggestions << suggestion;
    savedFormats << format;
    return chosenFile;
}

HostFrontEnd::CloseAnswer RecordingFrontEnd::askToSave(const HostDocument& document)
{
    askedToSave << document.displayName();
    return closeAnswer;
}

HostFrontEnd::LockAnswer RecordingFrontEnd::askAboutLock(const QString& path, const QString& holder)
{
    lockQuestions << path + QLatin1Char(' ') + holder;
    return lockAnswer;
}

HostFrontEnd::ChangeAnswer RecordingFrontEnd::askAboutChange(const HostDocument& document)
{
    changeQuestions << document.displayName();
    return changeAnswer;
}

bool RecordingFrontEnd::askToReload(const HostDocument& document)
{
    reloadQuestions << document.displayName();
    return reloads;
}

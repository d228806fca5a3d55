#include "host/support/RecordingFrontEnd.h"

#include "host/documents/HostDocument.h"
#include "io/DrawingFile.h"

std::optional<QString> RecordingFrontEnd::ask(const QString& prompt)
{
    prompts << prompt;
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

SaveReport RecordingFrontEnd::writeDrawingFile(const OdDbDatabase& drawing, const QString& path)
{
    return writeDrawing(drawing, path);
}

QString RecordingFrontEnd::chooseFileToSave(const QString& suggestion)
{
    suggestions << suggestion;
    return chosenFile;
}

HostFrontEnd::CloseAnswer RecordingFrontEnd::askToSave(const HostDocument& document)
{
    askedToSave << document.displayName();
    return closeAnswer;
}

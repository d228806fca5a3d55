#include "host/batch/BatchSession.h"

#include "base/StandardInput.h"
#include "base/StopSignal.h"
#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/batch/BatchFrontEnd.h"
#include "host/batch/ScriptReader.h"
#include "host/text/HostText.h"
#include "io/DrawingFile.h"

#include <QFile>
#include <QFileInfo>

namespace {
constexpr QLatin1String kStandardInput("-");
}

BatchSession::BatchSession(HostCore& core, BatchFrontEnd& frontEnd, std::FILE* errors)
    : m_core(core)
    , m_frontEnd(frontEnd)
    , m_errors(errors)
{ }

void BatchSession::complain(const QString& place, const QString& sentence)
{
    const QByteArray bytes = QStringLiteral("%1: %2\n").arg(place, sentence).toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), m_errors);
    std::fflush(m_errors);
}

void BatchSession::start()
{
    if (const QString problem = m_core.settings().loadProblem(); !problem.isEmpty())
        complain(QStringLiteral("kest"), problem);
    tellUnsavedEdits();
    if (const QString problem = m_core.modules().loadLayerManager(); !problem.isEmpty())
        complain(QStringLiteral("kest"), problem);
}

void BatchSession::tellUnsavedEdits()
{
    for (const RecoveryFolder::Abandoned& journal : m_core.recovery().abandoned()) {
        complain(QStringLiteral("kest"),
                 HostText::tr("The recovery file %1 holds edits that were not saved; start kest "
                              "with a window to recover them.")
                     .arg(journal.path));
    }
}

void BatchSession::openStandardInput()
{
    const QString name = HostText::tr("standard input");
    m_core.documents().add(readDrawing(StandardInput().readAll(), name), name, false);
}

ExitCode BatchSession::openDrawing(const QString& path)
{
    try {
        if (path == kStandardInput)
            openStandardInput();
        else
            m_core.files().open(path);
        return ExitCode::Ok;
    } catch (const OdError& error) {
        complain(QStringLiteral("kest"), error.description());
        return ExitCode::BadInput;
    }
}

ExitCode BatchSession::runFile(const QString& path)
{
    if (path == kStandardInput) {
        StandardInput input;
        return run(input, path);
    }
    QFile file(path);
    // Opening a folder succeeds on some systems, and reading it then gives nothing.
    const bool isFolder = QFileInfo(path).isDir();
    if (!isFolder && file.open(QIODevice::ReadOnly))
        return run(file, path);
    const QString why = isFolder ? HostText::tr("It is a folder") : file.errorString();
    complain(QStringLiteral("kest"),
             HostText::tr("The script %1 cannot be read: %2.").arg(path, why));
    return ExitCode::BadInput;
}

ExitCode BatchSession::run(QIODevice& script, const QString& name)
{
    m_core.commandState().setScript(true);
    ExitCode result = ExitCode::Ok;
    ScriptReader reader(script);
    QString line;
    while (StopSignal::number() == 0 && !m_frontEnd.hasQuit() && reader.next(line))
        result = worse(result,
                       runLine(line, QStringLiteral("%1:%2").arg(name).arg(reader.lineNumber())));
    if (!reader.error().isEmpty()) {
        complain(QStringLiteral("%1:%2").arg(name).arg(reader.lineNumber()),
                 reader.error() + QLatin1Char(' ') + HostText::tr("The script ends here."));
        result = worse(result, ExitCode::BadInput);
    }
    if (StopSignal::number() != 0) {
        complain(QStringLiteral("%1:%2").arg(name).arg(reader.lineNumber()),
                 HostText::tr("The script was stopped here."));
    }
    m_core.commandState().setScript(false);
    return result;
}

ExitCode BatchSession::runLine(const QString& line, const QString& place)
{
    std::vector<CommandOutcome> outcomes{m_core.commands().run(line)};
    for (CommandOutcome& queued : m_core.commands().drainQueue())
        outcomes.push_back(std::move(queued));
    ExitCode result = ExitCode::Ok;
    for (const CommandOutcome& outcome : outcomes) {
        if (!outcome.isDone())
            complain(place, outcome.sentence);
        result = worse(result, exitCodeOf(outcome));
    }
    return result;
}

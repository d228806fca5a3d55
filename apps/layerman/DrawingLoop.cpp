#include "layerman/DrawingLoop.h"

#include "base/StopSignal.h"
#include "io/DrawingFile.h"
#include "layerman/Output.h"

namespace {
/// Sentences about a file may leave out its folder; of several drawings it must be clear which one.
QString sentenceOn(const QString& file, const QString& sentence)
{
    return sentence.contains(file) ? sentence : QStringLiteral("%1: %2").arg(file, sentence);
}
} // namespace

std::unique_ptr<OdDbDatabase> DrawingLoop::read(const QString& file)
{
    return readDrawing(file, [](quint64, quint64) { return StopSignal::number() == 0; });
}

void DrawingLoop::run(const QStringList& files, const Work& work, const Failure& failed)
{
    for (const QString& file : files) {
        if (StopSignal::number() != 0)
            return;
        try {
            work(file);
            m_report.drawingDone();
        } catch (const OdError& error) {
            const QString why = sentenceOn(file, error.description());
            if (failed)
                failed(file, why);
            m_output.complain(QStringLiteral("layerman"), why);
            m_report.drawingFailed(error.code() == OdResult::CantWriteFile ? ExitStatus::CannotWrite
                                                                           : ExitStatus::BadInput);
        }
    }
}

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/commands/HostCommand.h"
#include "host/documents/SaveSentences.h"
#include "host/text/HostText.h"
#include "io/DrawingFile.h"

#include <QFileInfo>
#include <QLocale>

namespace {
using CloseAnswer = HostFrontEnd::CloseAnswer;

[[noreturn]] void cancel()
{
    throw OdError(OdResult::Cancelled, HostText::tr("*Cancel*"));
}

bool asksInDialogs(const HostCommandRun& run)
{
    int dialogs = 1;
    run.core().sysvars().getInt(QStringLiteral("FILEDIA"), dialogs);
    return run.isInteractive() && dialogs != 0 && !run.hasAnswer();
}

void tellOpened(const HostCommandRun& run, const HostDocument& document)
{
    const QString readOnly = DocumentFiles::readOnlySentence(document);
    if (readOnly.isEmpty()) {
        run.tell(HostText::tr("%1 is open.").arg(document.fileName()));
    } else {
        run.tell(readOnly);
        // There is room for the short of it.
        run.core().frontEnd().showStatus(
            HostText::tr("%1 is open for reading only.").arg(document.displayName()));
    }
    for (const QString& note : document.database()->loadNotes()) {
        if (!readOnly.contains(note))
            run.tell(note);
    }
}

QString suggestedName(const HostDocument& document, const QString& format)
{
    const QString name = document.fileName();
    return QFileInfo(name).suffix().isEmpty() ? name + QLatin1Char('.') + format : name;
}

void open(const HostCommandRun& run)
{
    QString path;
    if (asksInDialogs(run)) {
        path = run.core().frontEnd().chooseFileToOpen();
        if (path.isEmpty())
            cancel();
    } else {
        path = run.answer(HostText::tr("File to open:"));
    }
    const HostDocument& document = run.core().files().open(path);
    tellOpened(run, document);
}

void createNew(const HostCommandRun& run)
{
    run.core().files().createNew();
}

void tellSaved(const HostCommandRun& run, const SaveReport& report)
{
    const QString records = recordsSentence(report, run.document().file().saves > 1);
    run.tell(HostText::tr("Saved %1: %2 bytes.")
                 .arg(run.document().fileName(), QLocale().toString(report.bytes)));
    run.tell(records);
    run.core().frontEnd().showStatus(records);
    // Losses are told in scripts too.
    for (const QString& sentence : report.notKept + report.warnings)
        run.print(sentence);
}

void saveAs(const HostCommandRun& run)
{
    HostDocument& document = run.document();
    QString path;
    if (asksInDialogs(run)) {
        // Before the user looks for a place.
        DocumentFiles::requireWritable(document);
        const QString format = drawingSuffix(*document.database());
        path = run.core().frontEnd().chooseFileToSave(suggestedName(document, format), format);
        if (path.isEmpty())
            cancel();
    } else {
        path = run.answer(HostText::tr("File to save to:"));
    }
    tellSaved(run, run.core().files().saveAs(document, path));
}

void save(const HostCommandRun& run)
{
    HostDocument& document = run.document();
    if (!document.hasFile()) {
        saveAs(run);
        return;
    }
    bool overwrites = run.takeWord(QStringLiteral("Overwrite"));
    const bool isChanged = DocumentFiles::changeOf(document) == DocumentFiles::Change::Changed;
    if (isChanged && !overwrites && !document.isReadOnly() && run.isInteractive()) {
        const auto answer = run.core().frontEnd().askAboutChange(document);
        if (answer == HostFrontEnd::ChangeAnswer::Cancel)
            cancel();
        if (answer == HostFrontEnd::ChangeAnswer::SaveAs) {
            saveAs(run);
            return;
        }
        overwrites = true;
    }
    tellSaved(run, run.core().files().save(document, overwrites));
}

CloseAnswer closeAnswer(const HostCommandRun& run, const HostDocument& document)
{
    if (run.isInteractive() && !run.hasAnswer())
        return run.core().frontEnd().askToSave(document);
    static constexpr const char* kWords[] = {QT_TRANSLATE_NOOP("Host", "Yes"),
                                             QT_TRANSLATE_NOOP("Host", "No"),
                                             QT_TRANSLATE_NOOP("Host", "Cancel")};
    static constexpr CloseAnswer kAnswers[] = {CloseAnswer::Save, CloseAnswer::Discard,
                                               CloseAnswer::Cancel};
    const QString question = HostText::tr("Save the changes to %1?").arg(document.displayName());
    return kAnswers[run.requireKeyword({question, kWords})];
}

// Asks about unsaved changes, and saves them where that is the answer.
void settleChanges(const HostCommandRun& run, HostDocument& document)
{
    if (!document.isModified())
        return;
    // The question is about a drawing that the user can see.
    run.core().documents().setCurrent(document);
    const CloseAnswer answer = closeAnswer(run, document);
    if (answer == CloseAnswer::Cancel)
        cancel();
    if (answer == CloseAnswer::Save)
        save(run);
}

void close(const HostCommandRun& run)
{
    HostDocument& document = run.document();
    settleChanges(run, document);
    run.core().documents().close(document);
}

void closeAll(const HostCommandRun& run)
{
    HostDocManager& documents = run.core().documents();
    HostDocument* current = &run.document();
    for (HostDocument* document : documents.documents())
        settleChanges(run, *document);
    documents.setCurrent(*current);
    documents.closeAll();
}

void quit(const HostCommandRun& run)
{
    HostDocManager& documents = run.core().documents();
    HostDocument* current = documents.curDocument();
    // Nothing is closed before everything is answered: Cancel leaves all as it was.
    for (HostDocument* document : documents.documents())
        settleChanges(run, *document);
    if (current)
        documents.setCurrent(*current);
    const HostDocManager::BusyScope busy(documents);
    documents.closeAll();
    run.core().frontEnd().quit();
}

constexpr HostCommandDefinition kCommands[] = {
    {"CLOSE", OdEd::kSession, close},   {"CLOSEALL", OdEd::kSession, closeAll},
    {"NEW", OdEd::kSession, createNew}, {"OPEN", OdEd::kSession, open},
    {"QUIT", OdEd::kSession, quit},     {"SAVE", OdEd::kSession, save},
    {"SAVEAS", OdEd::kSession, saveAs},
};
} // namespace

std::span<const HostCommandDefinition> fileCommands()
{
    return kCommands;
}

#include "host/window/FileQuestions.h"

#include "host/documents/HostDocument.h"
#include "host/text/HostText.h"
#include "toolkit/Prompts.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace {
// Ids of links; 101 and up as in the question about unsaved changes.
constexpr int kFirst = 101;
constexpr int kSecond = 102;

int ask(QWidget* parent, const QString& title, const QString& instruction, const QString& content,
        const QStringList& links)
{
    TaskQuestion question;
    question.windowTitle = title;
    question.mainInstruction = instruction;
    question.content = content;
    for (const QString& link : links)
        question.links << TaskQuestion::Link{kFirst + static_cast<int>(question.links.size()),
                                             link};
    question.defaultLink = kFirst;
    return Prompts::current().ask(parent, question);
}
} // namespace

namespace file_questions {

HostFrontEnd::LockAnswer aboutLock(QWidget* parent, const QString& path, const QString& holder)
{
    const QString who = holder.isEmpty()
        ? HostText::tr("Another program edits this drawing.")
        : HostText::tr("This drawing is being edited by %1.").arg(holder);
    switch (ask(parent, HostText::tr("Drawing in Use"),
                HostText::tr("%1 is in use.").arg(QFileInfo(path).fileName()),
                who + QLatin1Char('\n') + QDir::toNativeSeparators(path),
                {HostText::tr("Open read-only\nThe drawing can be looked at, and saved to another "
                              "file."),
                 HostText::tr("Open anyway\nWhoever saves last wins; changes by the other may be "
                              "lost.")}))
    {
    case kFirst:
        return HostFrontEnd::LockAnswer::ReadOnly;
    case kSecond:
        return HostFrontEnd::LockAnswer::OpenAnyway;
    default:
        return HostFrontEnd::LockAnswer::Cancel;
    }
}

HostFrontEnd::ChangeAnswer aboutChange(QWidget* parent, const HostDocument& document)
{
    switch (ask(parent, HostText::tr("File Changed"),
                HostText::tr("%1 was changed by another program.").arg(document.displayName()),
                HostText::tr("The file is not the one that was opened or saved here last."),
                {HostText::tr("Save to another file\nThe file stays as the other program left it."),
                 HostText::tr("Overwrite\nWhat the other program changed is lost.")}))
    {
    case kFirst:
        return HostFrontEnd::ChangeAnswer::SaveAs;
    case kSecond:
        return HostFrontEnd::ChangeAnswer::Overwrite;
    default:
        return HostFrontEnd::ChangeAnswer::Cancel;
    }
}

bool reload(QWidget* parent, const HostDocument& document)
{
    return ask(parent, HostText::tr("File Changed"),
               HostText::tr("%1 was changed by another program.").arg(document.displayName()),
               HostText::tr("There are no unsaved changes here."),
               {HostText::tr("Read it again\nThe drawing is shown as it is in the file."),
                HostText::tr("Keep the drawing\nThe drawing stays as it was opened.")})
        == kFirst;
}

HostFrontEnd::RecoveryAnswer aboutRecovery(QWidget* parent, const QString& drawing,
                                           const QDateTime& written)
{
    switch (
        ask(parent, HostText::tr("Unsaved Edits"),
            HostText::tr("Recover the unsaved edits of %1?").arg(drawing),
            HostText::tr("The program ended before they were saved. They were kept on %1.")
                .arg(QLocale().toString(written, QLocale::ShortFormat)),
            {HostText::tr("Recover\nThe drawing opens with the edits, which can then be saved."),
             HostText::tr("Discard\nThe edits are lost; the drawing's file stays as it is."),
             HostText::tr("Ask later\nThe edits are kept until the next start.")}))
    {
    case kFirst:
        return HostFrontEnd::RecoveryAnswer::Recover;
    case kSecond:
        return HostFrontEnd::RecoveryAnswer::Discard;
    default:
        return HostFrontEnd::RecoveryAnswer::Later;
    }
}

} // namespace file_questions

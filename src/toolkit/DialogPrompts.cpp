#include "toolkit/DialogPrompts.h"

#include "toolkit/CXTPTaskDialog.h"
#include "toolkit/MessageSign.h"

#include <QFileDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QRegularExpression>

namespace {

QMessageBox::Icon boxIcon(Prompts::Icon icon)
{
    switch (icon) {
    case Prompts::Icon::Information:
        return QMessageBox::Information;
    case Prompts::Icon::Warning:
        return QMessageBox::Warning;
    case Prompts::Icon::Error:
        break;
    }
    return QMessageBox::Critical;
}

MessageSign signOf(Prompts::Icon icon)
{
    switch (icon) {
    case Prompts::Icon::Information:
        return MessageSign::Information;
    case Prompts::Icon::Warning:
        return MessageSign::Warning;
    case Prompts::Icon::Error:
        break;
    }
    return MessageSign::Error;
}

/// A parent that goes while the dialog is open must not delete it: it belongs to who asks.
void outliveParent(QDialog& dialog)
{
    if (const QWidget* parent = dialog.parentWidget())
        QObject::connect(parent, &QObject::destroyed, &dialog, [&dialog] {
            dialog.setParent(nullptr);
            dialog.done(QDialog::Rejected);
        });
}

/// The box keeps its kind, which assistive programs are told; only the picture is another.
void draw(QMessageBox& box, MessageSign sign)
{
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label")))
        label->setPixmap(messageSign(sign, box));
}

/// Layer names may hold what looks like mark-up, so the text is always taken as it stands.
void prepare(QMessageBox& box, const QString& text, const QString& caption)
{
    outliveParent(box);
    box.setWindowTitle(caption.isEmpty() ? QGuiApplication::applicationDisplayName() : caption);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
}

/// The extension of the first pattern: "las" of "Layer states (*.las *.LAS)"; empty for all files.
QString extensionOf(const QString& filter)
{
    static const QRegularExpression pattern(QStringLiteral("\\(\\*\\.([^ *?)]+)"));
    return pattern.match(filter).captured(1);
}

/// Starts where the question says and with its filter; the path picked, or empty.
QString runFileDialog(QFileDialog& dialog, const FileQuestion& question)
{
    outliveParent(dialog);
    const QStringList filters = question.filter.split(QStringLiteral(";;"), Qt::SkipEmptyParts);
    dialog.setNameFilters(filters);
    const QString first = filters.value(qMax(question.filterIndex, 0));
    dialog.selectNameFilter(first);
    if (dialog.acceptMode() == QFileDialog::AcceptSave)
        dialog.setDefaultSuffix(extensionOf(first));
    const QFileInfo start(question.path);
    if (start.isDir()) {
        dialog.setDirectory(question.path);
    } else if (!question.path.isEmpty()) {
        if (!start.path().isEmpty() && start.dir().exists())
            dialog.setDirectory(start.path());
        dialog.selectFile(start.fileName());
    }
    if (dialog.exec() != QDialog::Accepted)
        return {};
    if (question.chosenFilter)
        *question.chosenFilter = static_cast<int>(filters.indexOf(dialog.selectedNameFilter()));
    return dialog.selectedFiles().value(0);
}

void showMessage(QWidget* parent, const QString& text, Prompts::Icon icon, const QString& caption)
{
    QMessageBox box(parent);
    prepare(box, text, caption);
    box.setIcon(boxIcon(icon));
    draw(box, signOf(icon));
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

} // namespace

void DialogPrompts::message(QWidget* parent, const QString& text, Icon icon)
{
    showMessage(parent, text, icon, {});
}

void DialogPrompts::messageCaptioned(QWidget* parent, const QString& text, const QString& caption)
{
    showMessage(parent, text, Icon::Warning, caption);
}

bool DialogPrompts::confirm(QWidget* parent, const QString& text)
{
    return confirmCaptioned(parent, text, {});
}

bool DialogPrompts::confirmCaptioned(QWidget* parent, const QString& text, const QString& caption)
{
    QMessageBox box(parent);
    prepare(box, text, caption);
    box.setIcon(QMessageBox::Question);
    draw(box, MessageSign::Question);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

int DialogPrompts::ask(QWidget* parent, const TaskQuestion& question)
{
    CXTPTaskDialog dialog(question, parent);
    outliveParent(dialog);
    return dialog.DoModal();
}

QString DialogPrompts::openFile(QWidget* parent, const FileQuestion& question)
{
    QFileDialog dialog(parent, question.title);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return runFileDialog(dialog, question);
}

QString DialogPrompts::saveFile(QWidget* parent, const FileQuestion& question)
{
    QFileDialog dialog(parent, question.title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // The extension that a name gets is that of the filter in force, or of the last one that had
    // any: the dialog can only ask about the file that is meant.
    const auto follow = [&dialog](const QString& filter) {
        if (const QString extension = extensionOf(filter); !extension.isEmpty())
            dialog.setDefaultSuffix(extension);
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    return runFileDialog(dialog, question);
}

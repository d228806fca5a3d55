#include "toolkit/DialogPrompts.h"

#include "toolkit/CXTPTaskDialog.h"

#include <QFileDialog>
#include <QGuiApplication>
#include <QMessageBox>

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

/// Layer names may hold what looks like mark-up, so the text is always taken as it stands.
void prepare(QMessageBox& box, const QString& text)
{
    box.setWindowTitle(QGuiApplication::applicationDisplayName());
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
}

} // namespace

void DialogPrompts::message(QWidget* parent, const QString& text, Icon icon)
{
    QMessageBox box(parent);
    prepare(box, text);
    box.setIcon(boxIcon(icon));
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

bool DialogPrompts::confirm(QWidget* parent, const QString& text)
{
    QMessageBox box(parent);
    prepare(box, text);
    box.setIcon(QMessageBox::Question);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

int DialogPrompts::ask(QWidget* parent, const TaskQuestion& question)
{
    CXTPTaskDialog dialog(question, parent);
    return dialog.DoModal();
}

QString DialogPrompts::openFile(QWidget* parent, const FileQuestion& question)
{
    return QFileDialog::getOpenFileName(parent, question.title, question.path, question.filter);
}

QString DialogPrompts::saveFile(QWidget* parent, const FileQuestion& question)
{
    return QFileDialog::getSaveFileName(parent, question.title, question.path, question.filter);
}

#pragma once

#include "toolkit/Prompts.h"

/// Prompts that are dialogs on the screen.
class DialogPrompts : public Prompts
{
public:
    void message(QWidget* parent, const QString& text, Icon icon = Icon::Warning) override;
    /// The default answer is yes; Esc and closing the box are no.
    bool confirm(QWidget* parent, const QString& text) override;
    void messageCaptioned(QWidget* parent, const QString& text, const QString& caption) override;
    bool confirmCaptioned(QWidget* parent, const QString& text, const QString& caption) override;
    int ask(QWidget* parent, const TaskQuestion& question) override;
    QString openFile(QWidget* parent, const FileQuestion& question) override;
    QString saveFile(QWidget* parent, const FileQuestion& question) override;
};

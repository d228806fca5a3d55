#pragma once

#include <QCommandLinkButton>

/// A command link of a task dialog: its arrow follows the palette, and the focus is always framed,
/// since the focused link is the one that Enter answers.
class CTaskLinkButton : public QCommandLinkButton
{
    Q_OBJECT
public:
    CTaskLinkButton(const QString& heading, const QString& explanation, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void drawArrow();
};

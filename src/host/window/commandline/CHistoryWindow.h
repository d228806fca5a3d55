#pragma once

#include <QWidget>

class QPlainTextEdit;

/// The command line's history in a window of its own, for reading more of it at once. F2 or Escape
/// hides it.
class CHistoryWindow : public QWidget
{
    Q_OBJECT
public:
    /// Shows the same document as that view.
    CHistoryWindow(const QPlainTextEdit& history, QWidget* parent);

    /// Shows the window at its last line, or hides it.
    void toggle();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPlainTextEdit* m_text;
};

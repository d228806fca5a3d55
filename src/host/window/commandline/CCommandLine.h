#pragma once

#include "host/application/HostQuestion.h"

#include <QWidget>

#include <optional>

class CCommandEdit;
class CElidedLabel;
class CHistoryWindow;
class HistoryHighlighter;
class QEventLoop;
class QPlainTextEdit;

/// The command line: what was said above, the line to type in below. While a question is open that
/// words answer, the line completes these words, else the names of commands and variables.
class CCommandLine : public QWidget
{
    Q_OBJECT
public:
    explicit CCommandLine(QWidget* parent = nullptr);
    ~CCommandLine() override;

    void print(const QString& text);
    void printInput(const QString& text);
    void printFailure(const QString& text);

    /// Asks and waits in a loop of its own; null when cancelled. One question at a time: while one
    /// is open, another is answered null at once.
    std::optional<QString> ask(const HostQuestion& question);
    bool isAsking() const { return m_loop != nullptr; }
    /// The open question, or null.
    const HostQuestion* question() const { return m_question; }
    /// Answers the open question from elsewhere; null cancels it. Nothing happens without one.
    void answer(const std::optional<QString>& text);
    /// Answers the open question by what the mouse did; it is shown like an answer that was typed.
    void answerByPointing(const QString& text);
    /// As when Enter is pressed in the empty line.
    void enter() { submit(QString()); }
    /// Types into the line, as when a key is pressed over the drawing.
    void type(const QString& text);
    CCommandEdit& edit() const { return *m_edit; }
    QString historyText() const;

signals:
    /// A command line was typed; empty when Enter alone was pressed.
    void lineEntered(const QString& line);
    /// A question was opened or closed.
    void questionChanged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void append(const QString& text, int kind);
    void submit(const QString& text);
    void cancel();
    void runTypedAhead();
    void refreshNames();
    void toggleHistoryWindow();
    void showPrompt(const QString& prompt);

    QPlainTextEdit* m_history;
    CElidedLabel* m_prompt;
    CCommandEdit* m_edit;
    HistoryHighlighter* m_highlighter;
    CHistoryWindow* m_historyWindow = nullptr;
    QEventLoop* m_loop = nullptr;
    const HostQuestion* m_question = nullptr;
    std::optional<QString> m_answer;
    QStringList m_typedAhead; ///< lines that were entered before the one before them was taken
};

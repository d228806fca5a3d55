#pragma once

#include "toolkit/Prompts.h"

#include <QStringList>
#include <QVariant>

#include <deque>

/// Prompts that answer from a queue and remember every text. In force while it lives. A question
/// that nobody announced fails the test (and is answered like a closed dialog); so does an
/// announced one that was never asked.
class RecordingPrompts : public Prompts
{
public:
    enum class Kind {
        Message,
        Confirm,
        Ask,
        Colour,
        Linetype,
        Lineweight,
        PlotStyle,
        OpenFile,
        SaveFile
    };

    struct Asked
    {
        Kind kind;
        QString text; ///< the message, the main instruction of a task dialog, a dialog's title
        Icon icon; ///< of a message
        TaskQuestion question; ///< of a task dialog
        QString caption = {}; ///< of a message or question that has one
    };

    RecordingPrompts();
    ~RecordingPrompts() override;
    RecordingPrompts(const RecordingPrompts&) = delete;
    RecordingPrompts& operator=(const RecordingPrompts&) = delete;

    /// The next prompt is a message, which is closed.
    void willCloseMessage();
    /// The next prompt is a yes/no question, answered thus.
    void willConfirm(bool yes);
    /// The next prompt is a task dialog, answered with that link, or kCancelled.
    void willChoose(int linkId);

    /// The next prompt is a pick dialog, answered thus or cancelled.
    void willPickColour(const std::optional<ColourValue>& colour);
    void willPickLinetype(const std::optional<QString>& name);
    void willPickLineweight(std::optional<int> weight);
    void willPickPlotStyle(const std::optional<QString>& name);
    /// The next prompt is a file dialog; an empty path cancels it.
    void willOpenFile(const QString& path, int filterIndex = -1);
    void willSaveFile(const QString& path, int filterIndex = -1);

    /// The pick questions that were asked, in order.
    QList<ColourQuestion> colourQuestions;
    QList<LinetypeQuestion> linetypeQuestions;
    QList<LineweightQuestion> lineweightQuestions;
    QList<PlotStyleQuestion> plotStyleQuestions;
    QList<FileQuestion> fileQuestions;

    /// Everything that was asked, in order, unexpected prompts included.
    const QList<Asked>& asked() const { return m_asked; }
    QStringList texts() const;
    /// True when no announced prompt is left over.
    bool allAsked() const { return m_answers.empty(); }
    void clear();

    void message(QWidget* parent, const QString& text, Icon icon) override;
    bool confirm(QWidget* parent, const QString& text) override;
    void messageCaptioned(QWidget* parent, const QString& text, const QString& caption) override;
    bool confirmCaptioned(QWidget* parent, const QString& text, const QString& caption) override;
    int ask(QWidget* parent, const TaskQuestion& question) override;
    QString openFile(QWidget* parent, const FileQuestion& question) override;
    QString saveFile(QWidget* parent, const FileQuestion& question) override;
    std::optional<ColourValue> pickColour(QWidget* parent, const ColourQuestion& question) override;
    std::optional<QString> pickLinetype(QWidget* parent, const LinetypeQuestion& question) override;
    std::optional<int> pickLineweight(QWidget* parent, const LineweightQuestion& question) override;
    std::optional<QString> pickPlotStyle(QWidget* parent,
                                         const PlotStyleQuestion& question) override;

private:
    struct Answer
    {
        Kind kind;
        int value;
        QVariant picked = {}; ///< of a pick dialog; not valid: cancelled
    };

    /// The answer of a pick dialog that was announced; nothing where it was not.
    std::optional<Answer> nextPick(Kind kind, const QString& title);
    QString pickFile(Kind kind, const FileQuestion& question);
    int next(Kind kind, const QString& text, int closed);

    std::deque<Answer> m_answers;
    QList<Asked> m_asked;
    Prompts* m_previous;
};

#pragma once

#include "toolkit/PickQuestions.h"

#include <QList>
#include <QString>

#include <optional>

class QWidget;

/// A question with command links; buttons are answered by their id.
struct TaskQuestion
{
    struct Link
    {
        int id;
        QString text; ///< heading, then after " \n " or "\n" the explanation
    };
    QString windowTitle;
    QString mainInstruction;
    QString content;
    QList<Link> links;
    bool allowCancel = true;
    int defaultLink = 0; ///< id of the link that has the focus at first; 0: the first one
    int widthInDialogUnits =
        0; ///< wanted width in quarters of an average character; 0: as the texts need
};

/// A question for a file.
struct FileQuestion
{
    QString title;
    QString path; ///< where to start: a folder, or a suggested file
    QString filter; ///< as file dialogs spell it: "DXF drawings (*.dxf)"
    int filterIndex = -1; ///< the filter to start with; -1: the dialog's own choice
    int* chosenFilter = nullptr; ///< where wanted: the filter that was in force at the end
};

/// The one way to the user's attention: every message box, task dialog and picker goes through it,
/// so that tests answer questions and compare their exact texts.
class Prompts
{
public:
    static constexpr int kCancelled =
        2; ///< answer of ask() when the dialog was closed without a choice

    enum class Icon { Information, Warning, Error };

    virtual ~Prompts() = default;

    /// A modal message with one button.
    virtual void message(QWidget* parent, const QString& text, Icon icon = Icon::Warning) = 0;
    /// A modal yes/no question.
    virtual bool confirm(QWidget* parent, const QString& text) = 0;
    /// The same under a caption; where it is empty, under that of the program.
    virtual void messageCaptioned(QWidget* parent, const QString& text, const QString& /*caption*/)
    {
        message(parent, text);
    }
    virtual bool confirmCaptioned(QWidget* parent, const QString& text, const QString& /*caption*/)
    {
        return confirm(parent, text);
    }
    /// A modal task dialog; the id of the chosen link, or kCancelled.
    virtual int ask(QWidget* parent, const TaskQuestion& question) = 0;

    /// A file to read, or to write (asking before one is overwritten); empty when cancelled.
    virtual QString openFile(QWidget* /*parent*/, const FileQuestion&) { return {}; }
    virtual QString saveFile(QWidget* /*parent*/, const FileQuestion&) { return {}; }

    /// Pick dialogs; nothing when cancelled, and where the prompts have no such dialog.
    virtual std::optional<ColourValue> pickColour(QWidget* /*parent*/, const ColourQuestion&)
    {
        return std::nullopt;
    }
    virtual std::optional<QString> pickLinetype(QWidget* /*parent*/, const LinetypeQuestion&)
    {
        return std::nullopt;
    }
    virtual std::optional<int> pickLineweight(QWidget* /*parent*/, const LineweightQuestion&)
    {
        return std::nullopt;
    }
    virtual std::optional<QString> pickPlotStyle(QWidget* /*parent*/, const PlotStyleQuestion&)
    {
        return std::nullopt;
    }

    /// The prompts in force: real dialogs, unless somebody put others in place.
    static Prompts& current();
    /// Puts other prompts in place (null: the real ones) and returns those before.
    static Prompts* install(Prompts* prompts);
};

#include "support/RecordingPrompts.h"

#include "support/TestFailure.h"

namespace {

QLatin1String kindName(RecordingPrompts::Kind kind)
{
    switch (kind) {
    case RecordingPrompts::Kind::Message:
        return QLatin1String("message");
    case RecordingPrompts::Kind::Confirm:
        return QLatin1String("yes/no question");
    case RecordingPrompts::Kind::Ask:
        return QLatin1String("task dialog");
    case RecordingPrompts::Kind::Colour:
        return QLatin1String("colour dialog");
    case RecordingPrompts::Kind::Linetype:
        return QLatin1String("linetype dialog");
    case RecordingPrompts::Kind::Lineweight:
        return QLatin1String("lineweight dialog");
    case RecordingPrompts::Kind::PlotStyle:
        return QLatin1String("plot style dialog");
    case RecordingPrompts::Kind::OpenFile:
        return QLatin1String("dialog to open a file");
    case RecordingPrompts::Kind::SaveFile:
        break;
    }
    return QLatin1String("dialog to save a file");
}

} // namespace

RecordingPrompts::RecordingPrompts()
    : m_previous(Prompts::install(this))
{ }

RecordingPrompts::~RecordingPrompts()
{
    Prompts::install(m_previous);
    for (const Answer& answer : m_answers)
        reportTestFailure(QStringLiteral("An announced %1 never came.").arg(kindName(answer.kind)));
}

void RecordingPrompts::willCloseMessage()
{
    m_answers.push_back({Kind::Message, 0});
}

void RecordingPrompts::willConfirm(bool yes)
{
    m_answers.push_back({Kind::Confirm, yes ? 1 : 0});
}

void RecordingPrompts::willChoose(int linkId)
{
    m_answers.push_back({Kind::Ask, linkId});
}

void RecordingPrompts::willPickColour(const std::optional<ColourValue>& colour)
{
    m_answers.push_back({Kind::Colour, 0, colour ? QVariant::fromValue(*colour) : QVariant()});
}

void RecordingPrompts::willPickLinetype(const std::optional<QString>& name)
{
    m_answers.push_back({Kind::Linetype, 0, name ? QVariant(*name) : QVariant()});
}

void RecordingPrompts::willPickLineweight(std::optional<int> weight)
{
    m_answers.push_back({Kind::Lineweight, 0, weight ? QVariant(*weight) : QVariant()});
}

void RecordingPrompts::willPickPlotStyle(const std::optional<QString>& name)
{
    m_answers.push_back({Kind::PlotStyle, 0, name ? QVariant(*name) : QVariant()});
}

void RecordingPrompts::willOpenFile(const QString& path, int filterIndex)
{
    m_answers.push_back({Kind::OpenFile, filterIndex, path});
}

void RecordingPrompts::willSaveFile(const QString& path, int filterIndex)
{
    m_answers.push_back({Kind::SaveFile, filterIndex, path});
}

QStringList RecordingPrompts::texts() const
{
    QStringList all;
    for (const Asked& asked : m_asked)
        all.append(asked.text);
    return all;
}

void RecordingPrompts::clear()
{
    m_answers.clear();
    m_asked.clear();
}

void RecordingPrompts::message(QWidget* /*parent*/, const QString& text, Icon icon)
{
    m_asked.append({Kind::Message, text, icon, {}});
    next(Kind::Message, text, 0);
}

bool RecordingPrompts::confirm(QWidget* /*parent*/, const QString& text)
{
    m_asked.append({Kind::Confirm, text, Icon::Information, {}});
    return next(Kind::Confirm, text, 0) != 0;
}

void RecordingPrompts::messageCaptioned(QWidget* parent, const QString& text,
                                        const QString& caption)
{
    message(parent, text, Icon::Warning);
    m_asked.last().caption = caption;
}

bool RecordingPrompts::confirmCaptioned(QWidget* parent, const QString& text,
                                        const QString& caption)
{
    const bool yes = confirm(parent, text);
    m_asked.last().caption = caption;
    return yes;
}

int RecordingPrompts::ask(QWidget* /*parent*/, const TaskQuestion& question)
{
    m_asked.append({Kind::Ask, question.mainInstruction, Icon::Information, question});
    const int chosen = next(Kind::Ask, question.mainInstruction, kCancelled);
    const bool offered = std::any_of(question.links.begin(), question.links.end(),
                                     [chosen](const auto& link) { return link.id == chosen; });
    if (chosen != kCancelled && !offered)
        reportTestFailure(QStringLiteral("The task dialog \"%1\" offers no link %2.")
                              .arg(question.mainInstruction)
                              .arg(chosen));
    return chosen;
}

std::optional<RecordingPrompts::Answer> RecordingPrompts::nextPick(Kind kind, const QString& title)
{
    m_asked.append({kind, title, Icon::Information, {}});
    if (m_answers.empty() || m_answers.front().kind != kind) {
        reportTestFailure(QStringLiteral("Unexpected %1: %2").arg(kindName(kind), title));
        return std::nullopt;
    }
    const Answer answer = m_answers.front();
    m_answers.pop_front();
    return answer.picked.isValid() ? std::optional(answer) : std::nullopt;
}

QString RecordingPrompts::pickFile(Kind kind, const FileQuestion& question)
{
    fileQuestions.append(question);
    const auto answer = nextPick(kind, question.title);
    if (answer && question.chosenFilter)
        *question.chosenFilter = answer->value;
    return answer ? answer->picked.toString() : QString();
}

QString RecordingPrompts::openFile(QWidget* /*parent*/, const FileQuestion& question)
{
    return pickFile(Kind::OpenFile, question);
}

QString RecordingPrompts::saveFile(QWidget* /*parent*/, const FileQuestion& question)
{
    return pickFile(Kind::SaveFile, question);
}

std::optional<ColourValue> RecordingPrompts::pickColour(QWidget* /*parent*/,
                                                        const ColourQuestion& question)
{
    colourQuestions.append(question);
    const auto answer = nextPick(Kind::Colour, question.title);
    return answer ? std::optional(answer->picked.value<ColourValue>()) : std::nullopt;
}

std::optional<QString> RecordingPrompts::pickLinetype(QWidget* /*parent*/,
                                                      const LinetypeQuestion& question)
{
    linetypeQuestions.append(question);
    const auto answer = nextPick(Kind::Linetype, question.title);
    return answer ? std::optional(answer->picked.toString()) : std::nullopt;
}

std::optional<int> RecordingPrompts::pickLineweight(QWidget* /*parent*/,
                                                    const LineweightQuestion& question)
{
    lineweightQuestions.append(question);
    const auto answer = nextPick(Kind::Lineweight, question.title);
    return answer ? std::optional(answer->picked.toInt()) : std::nullopt;
}

std::optional<QString> RecordingPrompts::pickPlotStyle(QWidget* /*parent*/,
                                                       const PlotStyleQuestion& question)
{
    plotStyleQuestions.append(question);
    const auto answer = nextPick(Kind::PlotStyle, question.title);
    return answer ? std::optional(answer->picked.toString()) : std::nullopt;
}

int RecordingPrompts::next(Kind kind, const QString& text, int closed)
{
    if (m_answers.empty() || m_answers.front().kind != kind) {
        reportTestFailure(QStringLiteral("Unexpected %1: %2").arg(kindName(kind), text));
        return closed;
    }
    const int value = m_answers.front().value;
    m_answers.pop_front();
    return value;
}

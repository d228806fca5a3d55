#include "host/window/commandline/CCommandLine.h"

#include "host/sysvars/SysvarTable.h"
#include "host/window/commandline/CCommandEdit.h"
#include "host/window/commandline/CHistoryWindow.h"
#include "host/window/commandline/HistoryHighlighter.h"
#include "host/window/look/CElidedLabel.h"
#include "sdk/commands/OdEdCommandStack.h"

#include <QBoxLayout>
#include <QEvent>
#include <QEventLoop>
#include <QFontDatabase>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyle>
#include <QTextBlock>

namespace {
constexpr int kMaxHistoryLines = 10000;
constexpr int kLeastCharacters = 24; // of the line, beside a long question
} // namespace

CCommandLine::CCommandLine(QWidget* parent)
    : QWidget(parent)
    , m_history(new QPlainTextEdit(this))
    , m_prompt(new CElidedLabel(this))
    , m_edit(new CCommandEdit(this))
    , m_highlighter(new HistoryHighlighter(m_history->document(), palette()))
{
    setObjectName(QStringLiteral("commandLine"));
    m_history->setObjectName(QStringLiteral("commandHistory"));
    m_history->setAccessibleName(tr("Command history"));
    m_history->setReadOnly(true);
    m_history->setUndoRedoEnabled(false);
    m_history->setMaximumBlockCount(kMaxHistoryLines);
    m_history->setLineWrapMode(QPlainTextEdit::NoWrap); // tables stay tables
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::Monospace);
    m_history->setFont(font);
    m_history->setFrameShape(QFrame::NoFrame);
    m_history->setTabChangesFocus(true);
    m_history->setMinimumHeight(m_history->fontMetrics().lineSpacing() * 2);
    m_prompt->setObjectName(QStringLiteral("commandPrompt"));
    m_prompt->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    m_edit->setMinimumWidth(m_edit->fontMetrics().averageCharWidth() * kLeastCharacters);

    auto* inputRow = new QHBoxLayout;
    const int margin = style()->pixelMetric(QStyle::PM_LayoutLeftMargin) / 2;
    inputRow->setContentsMargins(margin, 0, margin, margin / 2);
    inputRow->addWidget(m_prompt);
    inputRow->addWidget(m_edit, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(margin / 2);
    layout->addWidget(m_history, 1);
    layout->addLayout(inputRow);
    setFocusProxy(m_edit);
    showPrompt(tr("Command:"));

    connect(m_edit, &CCommandEdit::submitted, this, &CCommandLine::submit);
    connect(m_edit, &CCommandEdit::cancelled, this, &CCommandLine::cancel);
    connect(m_edit, &CCommandEdit::namesWanted, this, &CCommandLine::refreshNames);
    connect(m_edit, &CCommandEdit::historyWanted, this, &CCommandLine::toggleHistoryWindow);
    connect(this, &CCommandLine::questionChanged, this, &CCommandLine::refreshNames);
}

CCommandLine::~CCommandLine()
{
    answer(std::nullopt);
}

void CCommandLine::showPrompt(const QString& prompt)
{
    m_prompt->setText(prompt);
    m_edit->setAccessibleDescription(prompt);
}

void CCommandLine::refreshNames()
{
    QStringList names = m_question ? m_question->keywords : odedRegCmds()->localNames();
    if (!m_question) {
        for (const SysvarDefinition& variable : sysvarTable())
            names << QLatin1String(variable.name);
    }
    names.removeDuplicates();
    names.sort(Qt::CaseInsensitive);
    m_edit->setNames(names);
}

void CCommandLine::toggleHistoryWindow()
{
    if (!m_historyWindow)
        m_historyWindow = new CHistoryWindow(*m_history, this);
    m_historyWindow->toggle();
}

void CCommandLine::append(const QString& text, int kind)
{
    QScrollBar& bar = *m_history->verticalScrollBar();
    const bool isEmpty = m_history->document()->isEmpty();
    QTextCursor cursor(m_history->document());
    cursor.movePosition(QTextCursor::End);
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (!isEmpty || i > 0)
            cursor.insertBlock();
        cursor.block().setUserState(kind);
        cursor.insertText(lines[i]);
    }
    bar.setValue(bar.maximum());
    m_history->horizontalScrollBar()->setValue(0);
}

void CCommandLine::print(const QString& text)
{
    append(text, HistoryHighlighter::Answer);
}

void CCommandLine::printInput(const QString& text)
{
    append(text, HistoryHighlighter::Input);
}

void CCommandLine::printFailure(const QString& text)
{
    append(text, HistoryHighlighter::Failure);
}

std::optional<QString> CCommandLine::ask(const HostQuestion& question)
{
    if (m_loop)
        return std::nullopt;
    if (!m_typedAhead.isEmpty()) {
        const QString text = m_typedAhead.takeFirst();
        printInput(question.prompt + QLatin1Char(' ') + text);
        return text;
    }
    QEventLoop loop;
    m_loop = &loop;
    m_question = &question;
    m_answer.reset();
    showPrompt(question.prompt.isEmpty() ? tr("Answer:") : question.prompt);
    m_edit->setFocus();
    emit questionChanged();
    loop.exec();
    m_loop = nullptr;
    m_question = nullptr;
    showPrompt(tr("Command:"));
    emit questionChanged();
    return std::exchange(m_answer, std::nullopt);
}

void CCommandLine::answer(const std::optional<QString>& text)
{
    if (!m_loop || !m_loop->isRunning())
        return;
    m_answer = text;
    m_loop->quit();
}

void CCommandLine::submit(const QString& text)
{
    if (isAsking() && m_loop->isRunning()) {
        printInput(m_prompt->text() + QLatin1Char(' ') + text);
        answer(text);
    } else if (isAsking()) {
        // The line before is not taken yet: this one answers what is asked next, or is a command.
        m_typedAhead.append(text);
        QMetaObject::invokeMethod(this, &CCommandLine::runTypedAhead, Qt::QueuedConnection);
    } else {
        emit lineEntered(text);
    }
}

void CCommandLine::answerByPointing(const QString& text)
{
    if (!isAsking())
        return;
    m_edit->clear();
    submit(text);
}

void CCommandLine::runTypedAhead()
{
    if (!isAsking() && !m_typedAhead.isEmpty())
        emit lineEntered(m_typedAhead.takeFirst());
}

void CCommandLine::cancel()
{
    m_typedAhead.clear();
    if (isAsking())
        answer(std::nullopt);
}

void CCommandLine::type(const QString& text)
{
    m_edit->setFocus();
    m_edit->insert(text);
}

QString CCommandLine::historyText() const
{
    return m_history->toPlainText();
}

void CCommandLine::mousePressEvent(QMouseEvent* event)
{
    // The prompt belongs to the line beside it.
    if (event->button() == Qt::LeftButton)
        m_edit->setFocus(Qt::MouseFocusReason);
}

void CCommandLine::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        m_highlighter->setPalette(palette());
    QWidget::changeEvent(event);
}

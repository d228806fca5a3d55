#include "toolkit/CXTPTaskDialog.h"

#include "toolkit/CTaskLinkButton.h"
#include "toolkit/ControlRegistry.h"

#include <QCommandLinkButton>
#include <QEvent>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

namespace {

/// Width that texts wrap at where the question asks for none, in average characters.
constexpr int kComfortableCharacters = 62;
constexpr qreal kInstructionScale = 1.3;
constexpr int kUnitsPerCharacter = 4;

struct LinkText
{
    QString heading;
    QString explanation;
};

/// The heading ends at the first line break; blanks around the break are not shown.
LinkText splitLink(const QString& text)
{
    const qsizetype lineBreak = text.indexOf(QLatin1Char('\n'));
    if (lineBreak < 0)
        return {text.trimmed(), {}};
    return {text.left(lineBreak).trimmed(), text.mid(lineBreak + 1).trimmed()};
}

QLabel* makeLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    return label;
}

} // namespace

CXTPTaskDialog::CXTPTaskDialog(const TaskQuestion& question, QWidget* parent)
    : QDialog(parent)
    , m_allowCancel(question.allowCancel)
    , m_wantedUnits(question.widthInDialogUnits)
{
    setModal(true);
    setWindowTitle(question.windowTitle);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowCloseButtonHint, m_allowCancel);
    setAccessibleName(question.mainInstruction);
    setAccessibleDescription(question.content);

    auto* layout = new QVBoxLayout(this);
    addTexts(question, *layout);
    layout->addSpacing(style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing));
    addLinks(question, *layout);
    fit();
}

void CXTPTaskDialog::addTexts(const TaskQuestion& question, QVBoxLayout& layout)
{
    QLabel* instruction = makeLabel(question.mainInstruction, this);
    instruction->setObjectName(QStringLiteral("mainInstruction"));
    layout.addWidget(instruction);
    if (question.content.isEmpty())
        return;
    QLabel* content = makeLabel(question.content, this);
    content->setObjectName(QStringLiteral("content"));
    layout.addWidget(content);
}

void CXTPTaskDialog::addLinks(const TaskQuestion& question, QVBoxLayout& layout)
{
    for (const TaskQuestion::Link& entry : question.links) {
        const LinkText text = splitLink(entry.text);
        // An ampersand in a text is a character of it, not an access key.
        const QString shown = QString(text.heading).replace(QLatin1Char('&'), QLatin1String("&&"));
        auto* button = new CTaskLinkButton(shown, text.explanation, this);
        button->setAccessibleName(text.heading);
        button->setAccessibleDescription(text.explanation);
        button->setAutoDefault(true);
        registerControl(this, entry.id, button);
        layout.addWidget(button);
        connect(button, &QCommandLinkButton::clicked, this, [this, id = entry.id] {
            m_answer = id;
            accept();
        });
    }
    const int first = question.links.isEmpty() ? 0 : question.links.first().id;
    QCommandLinkButton* chosen = link(question.defaultLink ? question.defaultLink : first);
    if (chosen) {
        chosen->setDefault(true);
        chosen->setFocus();
    }
}

int CXTPTaskDialog::DoModal()
{
    m_answer = Prompts::kCancelled;
    exec();
    return m_answer;
}

QCommandLinkButton* CXTPTaskDialog::link(int id) const
{
    return qobject_cast<QCommandLinkButton*>(controlById(this, id));
}

void CXTPTaskDialog::reject()
{
    if (m_allowCancel)
        QDialog::reject();
}

void CXTPTaskDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fit();
}

void CXTPTaskDialog::showEvent(QShowEvent* event)
{
    fit();
    QDialog::showEvent(event);
}

void CXTPTaskDialog::fit()
{
    if (auto* instruction = findChild<QLabel*>(QStringLiteral("mainInstruction"))) {
        QFont larger = font();
        larger.setPointSizeF(QFontInfo(larger).pointSizeF() * kInstructionScale);
        instruction->setFont(larger);
    }
    const int character = QFontMetrics(font()).averageCharWidth();
    const int wanted = m_wantedUnits > 0 ? m_wantedUnits * character / kUnitsPerCharacter
                                         : kComfortableCharacters * character;
    const int padding = style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, this);
    int linkWidth = 0;
    for (const auto* button : findChildren<QCommandLinkButton*>())
        linkWidth = qMax(linkWidth, button->sizeHint().width() + padding);
    const QMargins margins = layout()->contentsMargins();
    const int width = qMax(wanted, linkWidth + margins.left() + margins.right());
    setFixedWidth(width);
    setFixedHeight(layout()->totalHeightForWidth(width));
}

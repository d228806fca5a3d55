#include "host/dialogs/CPlotStyleDialog.h"

#include "host/dialogs/DialogButtons.h"
#include "host/help/HelpTopics.h"
#include "toolkit/ControlRegistry.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int kWidthCharacters = 44;
constexpr int kHeightLines = 18;
constexpr int kRowSpace = 6;
} // namespace

CPlotStyleDialog::CPlotStyleDialog(const PlotStyleQuestion& question, QWidget* parent)
    : QDialog(parent)
    , m_list(new QListWidget(this))
{
    setModal(true);
    setWindowTitle(question.title.isEmpty() ? tr("Select Plot Style") : question.title);
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(tr("&Plot styles of the drawing:"), this);
    label->setBuddy(m_list);
    m_list->setAccessibleName(tr("Plot styles"));
    layout->addWidget(label);
    layout->addWidget(m_list, 1);
    auto* before = new QLabel(tr("Before: %1").arg(question.current), this);
    before->setTextFormat(Qt::PlainText);
    layout->addWidget(before);
    auto* why = new QLabel(question.whyFixed, this);
    why->setObjectName(QStringLiteral("whyFixed"));
    why->setWordWrap(true);
    why->setVisible(!question.whyFixed.isEmpty());
    layout->addWidget(why);
    QPushButton* ok =
        addDialogButtons(*this, help_topics::kPlotStyle)->button(QDialogButtonBox::Ok);
    registerControl(this, List, m_list);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &CPlotStyleDialog::accept);
    const QFontMetrics metrics(font());
    resize(kWidthCharacters * metrics.averageCharWidth(), kHeightLines * metrics.lineSpacing());

    for (const QString& name : question.names) {
        auto* item = new QListWidgetItem(name, m_list);
        item->setSizeHint(QSize(0, metrics.height() + kRowSpace));
    }
    const auto found = m_list->findItems(question.current, Qt::MatchFixedString);
    m_list->setCurrentItem(found.isEmpty() ? m_list->item(0) : found.first());
    const bool canChoose = question.whyFixed.isEmpty() && m_list->count() > 0;
    m_list->setEnabled(canChoose);
    ok->setEnabled(canChoose);
    if (canChoose)
        m_list->setFocus();
}

QString CPlotStyleDialog::value() const
{
    return m_list->currentItem() ? m_list->currentItem()->text() : QString();
}

std::optional<QString> CPlotStyleDialog::run()
{
    return exec() == Accepted ? std::optional(value()) : std::nullopt;
}

#include "host/dialogs/CLineweightDialog.h"

#include "host/dialogs/DialogButtons.h"
#include "host/dialogs/LineweightSampleDelegate.h"
#include "host/help/HelpTopics.h"
#include "host/text/LineweightText.h"
#include "toolkit/ControlRegistry.h"

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace {
constexpr int kByLayer = -1;
constexpr int kByBlock = -2;
constexpr int kDefault = -3;
constexpr int kWidthCharacters = 44;
constexpr int kHeightLines = 24;
} // namespace

CLineweightDialog::CLineweightDialog(const LineweightQuestion& question, QWidget* parent)
    : QDialog(parent)
    , m_list(new QListWidget(this))
{
    setModal(true);
    setWindowTitle(question.title.isEmpty() ? tr("Select Lineweight") : question.title);
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(tr("&Lineweights:"), this);
    label->setBuddy(m_list);
    m_list->setAccessibleName(tr("Lineweights"));
    m_list->setUniformItemSizes(true);
    m_list->setItemDelegate(new LineweightSampleDelegate(m_list));
    layout->addWidget(label);
    layout->addWidget(m_list, 1);
    layout->addWidget(new QLabel(
        tr("Before: %1").arg(lineweightText(question.current, question.inMillimetres)), this));
    addDialogButtons(*this, help_topics::kLineweight);
    registerControl(this, List, m_list);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &CLineweightDialog::accept);
    const QFontMetrics metrics(font());
    resize(kWidthCharacters * metrics.averageCharWidth(), kHeightLines * metrics.lineSpacing());
    fill(question);
    m_list->setFocus();
}

void CLineweightDialog::fill(const LineweightQuestion& question)
{
    const auto add = [&](int weight) {
        auto* item = new QListWidgetItem(lineweightText(weight, question.inMillimetres), m_list);
        item->setData(LineweightSampleDelegate::kWeightRole, weight);
        item->setSizeHint(QSize(0, fontMetrics().height() + 4));
        if (weight == question.current)
            m_list->setCurrentItem(item);
    };
    if (question.offersByLayer)
        add(kByLayer);
    if (question.offersByBlock)
        add(kByBlock);
    if (question.offersDefault)
        add(kDefault);
    for (const int weight : validLineweights())
        add(weight);
    // A weight that is none of these shows as the one it is printed as.
    const auto shown = m_list->findItems(lineweightText(question.current, question.inMillimetres),
                                         Qt::MatchExactly);
    if (!m_list->currentItem())
        m_list->setCurrentItem(shown.isEmpty() ? m_list->item(0) : shown.first());
}

void CLineweightDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_list->scrollToItem(m_list->currentItem(), QAbstractItemView::PositionAtCenter);
}

int CLineweightDialog::value() const
{
    return m_list->currentItem()->data(LineweightSampleDelegate::kWeightRole).toInt();
}

std::optional<int> CLineweightDialog::run()
{
    return exec() == Accepted ? std::optional(value()) : std::nullopt;
}

#include "host/window/work/CProgressDialog.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace {
constexpr int kSteps = 1000;
constexpr int kWidthInCharacters = 60;
} // namespace

CProgressDialog::CProgressDialog(const QString& text, QWidget* parent)
    : QDialog(parent)
    , m_label(new QLabel(text, this))
    , m_bar(new QProgressBar(this))
{
    setObjectName(QStringLiteral("progressDialog"));
    setWindowTitle(QApplication::applicationDisplayName());
    setWindowModality(Qt::ApplicationModal);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_label->setMinimumWidth(fontMetrics().averageCharWidth() * kWidthInCharacters);
    m_label->setBuddy(m_bar);
    m_bar->setAccessibleName(tr("Progress"));
    m_bar->setRange(0, 0);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    m_cancel = buttons->button(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::rejected, this, &CProgressDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void CProgressDialog::setFraction(double fraction)
{
    if (fraction < 0) {
        m_bar->setRange(0, 0);
        return;
    }
    m_bar->setRange(0, kSteps);
    m_bar->setValue(qBound(0, qRound(fraction * kSteps), kSteps));
}

void CProgressDialog::reject()
{
    if (m_cancelled)
        return;
    m_cancelled = true;
    m_cancel->setEnabled(false);
    m_label->setText(tr("Cancelling..."));
    emit cancelled();
}

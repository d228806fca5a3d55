#include "layermanager/layer_states/CLSImportPromptDlg.h"

#include "layermanager/layer_states/parts/StateDialogParts.h"
#include "layermanager/layers/FilledText.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

CLSImportPromptDlg::CLSImportPromptDlg(const QString& state, QWidget* parent)
    : QDialog(parent)
    , m_watch([this] { reject(); })
{
    constexpr int kCharacters = 48;
    setUpStateDialog(*this, tr("Layer State Imported"));
    auto* text = new QLabel(this);
    text->setText(tr("The layer state '%s' was imported. Do you want to restore it now?"));
    text->setTextFormat(Qt::PlainText); // names may hold what looks like mark-up
    text->setText(filledText(text->text(), {state}));
    text->setWordWrap(true);
    text->setMinimumWidth(sizeInCharacters(*this, kCharacters, 1).width());
    registerStateControl(*this, kText, text);
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* restoreButton =
        buttons->addButton(tr("&Restore State"), QDialogButtonBox::ActionRole);
    QPushButton* cancel = buttons->addButton(QDialogButtonBox::Close);
    restoreButton->setDefault(true);
    registerStateControl(*this, kRestore, restoreButton, tr("Restore state"));
    registerStateControl(*this, kCancel, cancel, tr("Close"));
    connect(restoreButton, &QPushButton::clicked, this, &CLSImportPromptDlg::restore);
    connect(cancel, &QPushButton::clicked, this, &CLSImportPromptDlg::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
}

void CLSImportPromptDlg::restore()
{
    m_bRestore = true;
    QDialog::reject();
}

void CLSImportPromptDlg::reject()
{
    m_bRestore = false;
    QDialog::reject();
}

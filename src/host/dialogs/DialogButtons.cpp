#include "host/dialogs/DialogButtons.h"

#include "host/help/HelpKey.h"
#include "sdk/LocalSearch.h"
#include "toolkit/ControlRegistry.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLayout>
#include <QPushButton>

namespace {
constexpr int kOk = 1;
constexpr int kCancel = 2;
constexpr int kHelp = 9;
} // namespace

QDialogButtonBox* addDialogButtons(QDialog& dialog, int helpTopic)
{
    auto* box = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, &dialog);
    box->button(QDialogButtonBox::Ok)->setDefault(true);
    registerControl(&dialog, kOk, box->button(QDialogButtonBox::Ok));
    registerControl(&dialog, kCancel, box->button(QDialogButtonBox::Cancel));
    registerControl(&dialog, kHelp, box->button(QDialogButtonBox::Help));
    QObject::connect(box, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(box, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    QObject::connect(box, &QDialogButtonBox::helpRequested, &dialog,
                     [helpTopic] { LocalSearch::CommandRefHelp(helpTopic); });
    HelpKey::setTopic(dialog, helpTopic);
    dialog.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    dialog.layout()->addWidget(box);
    return box;
}

#include "layermanager/palette/CLayer_Filter_ViolationPromptDlg.h"

#include "layermanager/palette/BoxPalette.h"
#include "layermanager/resources/LayerIcons.h"
#include "sdk/CKestPreferenceManager.h"
#include "toolkit/ControlRegistry.h"
#include "toolkit/MessageSign.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

namespace {

constexpr int kHelpTopic = 1001;
constexpr int kIconSize = 32;
constexpr int kLineCharacters = 52;

} // namespace

CLayer_Filter_ViolationPromptDlg::CLayer_Filter_ViolationPromptDlg(QWidget* parent)
    : QDialog(parent)
    , m_showAgain(new QCheckBox(tr("&Tell me when layers no longer agree with the filter"), this))
{
    setWindowTitle(tr("Layer Filter"));
    setWindowIcon(LayerIcons().pixmap(LayerIcon::StatusInUse, kIconSize, devicePixelRatioF(),
                                      LayerIconGround::Light));
    setProperty("helpTopic", kHelpTopic);
    auto* sign = new QLabel(this);
    sign->setPixmap(messageSign(MessageSign::Information, *this));
    auto* text = new QLabel(tr("A layer was changed and no longer agrees with the filter that is "
                               "selected in the palette. It is listed, or left out, accordingly."),
                            this);
    text->setWordWrap(true);
    text->setMinimumWidth(kLineCharacters * fontMetrics().averageCharWidth());
    setAccessibleDescription(text->text());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    auto* layout = new QGridLayout(this);
    const int gap = fontMetrics().height();
    layout->setHorizontalSpacing(gap);
    layout->setVerticalSpacing(gap);
    layout->addWidget(sign, 0, 0, Qt::AlignTop);
    layout->addWidget(text, 0, 1);
    layout->addWidget(m_showAgain, 1, 1);
    layout->addWidget(buttons, 2, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    m_showAgain->setPalette(boxPalette(palette()));
    registerControl(this, kShowAgain, m_showAgain);
    m_showAgain->setChecked(CKestPreferenceManager::s_Layer_FilterViolationPrompt);
    // Kept at once: however the notice is closed, the choice counts.
    connect(m_showAgain, &QCheckBox::clicked, this,
            [](bool checked) { CKestPreferenceManager::s_Layer_FilterViolationPrompt = checked; });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}

void CLayer_Filter_ViolationPromptDlg::run(QWidget* parent)
{
    if (!CKestPreferenceManager::s_Layer_FilterViolationPrompt)
        return;
    const QPointer<CLayer_Filter_ViolationPromptDlg> dialog =
        new CLayer_Filter_ViolationPromptDlg(parent);
    dialog->exec();
    delete dialog;
}

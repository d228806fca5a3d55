#include "layermanager/layer_states/CEdLayStateDlg.h"

#include "layermanager/layer_states/CLayStateMgrAddDlg.h"
#include "layermanager/layer_states/core/LayerStateSteps.h"
#include "layermanager/layer_states/core/LayerStateTexts.h"
#include "layermanager/layer_states/parts/CEdLayStateListCtrl.h"
#include "layermanager/layer_states/parts/StateDialogParts.h"
#include "sdk/LocalSearch.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

CEdLayStateDlg::CEdLayStateDlg(const QString& state, QWidget* parent)
    : QDialog(parent)
    , m_list(new CEdLayStateListCtrl(this))
    , m_watch([this] {
        m_list->leave();
        QDialog::reject();
    })
{
    build(state);
    setToolTipOwner(this);
    AddTool(kAdd, layerStateText(60087));
    AddTool(kRemove, layerStateText(60088));
    if (m_watch.database())
        m_list->initialise(*m_watch.database(), state);
    resize(sizeHint());
}

void CEdLayStateDlg::build(const QString& state)
{
    setUpStateDialog(*this, tr("Edit Layer State: %1").arg(state), kLayerStateHelp);
    registerStateControl(*this, kList, m_list, tr("Layers in the state"));
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(tr("La&yers in the state:"), this);
    label->setBuddy(m_list);
    layout->addWidget(label);
    layout->addWidget(m_list, 1);
    auto* row = new QHBoxLayout;
    auto* add = new QPushButton(tr("&Add Layers..."), this);
    auto* remove = new QPushButton(tr("&Remove Layers"), this);
    for (QPushButton* button : {add, remove}) {
        button->setAutoDefault(false);
        row->addWidget(button);
    }
    registerStateControl(*this, kAdd, add, tr("Add layers"));
    registerStateControl(*this, kRemove, remove, tr("Remove layers"));
    connect(add, &QPushButton::clicked, this, &CEdLayStateDlg::addLayers);
    connect(remove, &QPushButton::clicked, this, &CEdLayStateDlg::removeLayers);
    row->addStretch();
    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    registerStateControl(*this, kOk, buttons->button(QDialogButtonBox::Ok), tr("OK"));
    registerStateControl(*this, kCancel, buttons->button(QDialogButtonBox::Cancel), tr("Cancel"));
    registerStateControl(*this, kHelp, buttons->button(QDialogButtonBox::Help), tr("Help"));
    connect(buttons, &QDialogButtonBox::accepted, this, &CEdLayStateDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CEdLayStateDlg::reject);
    connect(buttons, &QDialogButtonBox::helpRequested, this,
            [] { LocalSearch::CommandRefHelp(kLayerStateHelp); });
    row->addWidget(buttons);
    layout->addLayout(row);
    m_list->setFocus();
}

void CEdLayStateDlg::addLayers()
{
    const QStringList missing = m_list->missingLayers();
    if (missing.isEmpty())
        return;
    ModalDialog dialog(new CLayStateMgrAddDlg(missing, this));
    if (!dialog.accepted() || !m_watch.database())
        return;
    m_list->addLayers(dialog->chosen());
}

void CEdLayStateDlg::removeLayers()
{
    m_list->removeChosen();
}

void CEdLayStateDlg::accept()
{
    if (!m_watch.database())
        return;
    beginLayerStateStep(*m_watch.database());
    m_list->store();
    m_bSameAsDrawing = m_list->isSameAsDrawing();
    QDialog::accept();
}

#include "layermanager/layer_states/CLayStateMgrAddDlg.h"

#include "layermanager/layer_states/parts/StateDialogParts.h"
#include "layermanager/layer_states/parts/StateRowDelegate.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

CLayStateMgrAddDlg::CLayStateMgrAddDlg(const QStringList& names, QWidget* parent)
    : QDialog(parent)
    , m_model(names)
    , m_names(new QListView(this))
    , m_watch([this] { reject(); })
{
    constexpr int kCharacters = 44;
    constexpr int kLines = 16;
    setUpStateDialog(*this, tr("Add Layers to Layer State"));
    m_names->setModel(&m_model);
    m_names->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_names->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_names->setUniformItemSizes(true);
    m_names->setItemDelegate(new StateRowDelegate(m_names));
    m_names->setMinimumSize(sizeInCharacters(*this, kCharacters, kLines));
    registerStateControl(*this, kNames, m_names, tr("Layers"));
    auto* label = new QLabel(tr("&Layers to add to the state:"), this);
    label->setBuddy(m_names);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    registerStateControl(*this, kOk, buttons->button(QDialogButtonBox::Ok), tr("OK"));
    registerStateControl(*this, kCancel, buttons->button(QDialogButtonBox::Cancel), tr("Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &CLayStateMgrAddDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CLayStateMgrAddDlg::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_names, 1);
    layout->addWidget(buttons);
    m_names->setFocus();
}

void CLayStateMgrAddDlg::accept()
{
    QModelIndexList selected = m_names->selectionModel()->selectedIndexes();
    std::ranges::sort(selected, {}, &QModelIndex::row);
    m_chosen.clear();
    for (const QModelIndex& index : selected)
        m_chosen.append(index.data().toString());
    QDialog::accept();
}

#include "layermanager/layer_states/CNewLayStateDlg.h"

#include "layermanager/layer_states/core/LayerStateSteps.h"
#include "layermanager/layer_states/core/LayerStateTexts.h"
#include "layermanager/layer_states/parts/StateDialogParts.h"
#include "sdk/CLayerStateUtility.h"
#include "sdk/LocalSearch.h"
#include "toolkit/Prompts.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

namespace {
constexpr int kListedNames = 4;
constexpr int kCharacters = 44;
} // namespace

CNewLayStateDlg::CNewLayStateDlg(const ExistingStates& existing, QWidget* parent)
    : QDialog(parent)
    , m_names(new QComboBox(this))
    , m_description(new QLineEdit(this))
    , m_watch([this] { QDialog::reject(); })
{
    build();
    setToolTipOwner(this);
    AddTool(kName, layerStateText(60092));
    m_names->setMaxVisibleItems(kListedNames);
    for (const auto& [name, description] : existing)
        m_names->addItem(name, description);
    m_names->setCurrentIndex(-1);
    m_names->clearEditText();
    connect(m_names, &QComboBox::editTextChanged, this, &CNewLayStateDlg::nameChanged);
    connect(m_names, &QComboBox::activated, this, &CNewLayStateDlg::existingChosen);
}

void CNewLayStateDlg::build()
{
    setUpStateDialog(*this, tr("New Layer State to Save"), kLayerStateHelp);
    m_names->setEditable(true);
    m_names->setInsertPolicy(QComboBox::NoInsert);
    m_names->setCompleter(nullptr); // it would put an existing name in the place of a new one
    m_names->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_names->setMinimumWidth(sizeInCharacters(*this, kCharacters, 1).width());
    m_description->setMaxLength(kLongestDescription);
    registerStateControl(*this, kName, m_names, tr("New layer state name"));
    registerStateControl(*this, kDescription, m_description, tr("Description"));
    auto* layout = new QFormLayout(this);
    layout->addRow(tr("&New layer state name:"), m_names);
    layout->addRow(tr("&Description:"), m_description);
    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    m_ok->setDefault(true);
    registerStateControl(*this, kOk, m_ok, tr("OK"));
    registerStateControl(*this, kCancel, buttons->button(QDialogButtonBox::Cancel), tr("Cancel"));
    registerStateControl(*this, kHelp, buttons->button(QDialogButtonBox::Help), tr("Help"));
    connect(buttons, &QDialogButtonBox::accepted, this, &CNewLayStateDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CNewLayStateDlg::reject);
    connect(buttons, &QDialogButtonBox::helpRequested, this,
            [] { LocalSearch::CommandRefHelp(kLayerStateHelp); });
    layout->addRow(buttons);
    m_names->setFocus();
}

void CNewLayStateDlg::nameChanged(const QString& text)
{
    m_ok->setEnabled(!text.trimmed().isEmpty());
}

void CNewLayStateDlg::existingChosen(int index)
{
    if (index >= 0)
        m_description->setText(m_names->itemData(index).toString());
}

void CNewLayStateDlg::accept()
{
    m_strDescription = m_description->text();
    m_strName = m_names->currentText().trimmed();
    if (!m_strName.isEmpty() && !store())
        return;
    QDialog::accept();
}

bool CNewLayStateDlg::store()
{
    // Only the description is replaced; the settings in the state stay as they were. Deliberate.
    const bool exists = m_names->findText(m_strName, Qt::MatchFixedString) >= 0;
    if (exists) {
        const QPointer<CNewLayStateDlg> dialog(this);
        const bool replace =
            Prompts::current().confirmCaptioned(this, layerStateText(84534), layerStateText(84535));
        if (!dialog)
            return false;
        m_result = replace ? Outcome::Replaced : Outcome::Declined;
    }
    if (!m_watch.database())
        return false;
    if (m_result == Outcome::Declined)
        return true;
    CLayerStateUtility service;
    beginLayerStateStep(*m_watch.database());
    tellStateResult(exists ? service.SetLayStateDesc(m_strName, m_strDescription)
                           : service.AddNewLayStateToDB(m_strName, m_strDescription),
                    service);
    return true;
}

#include "layermanager/layer_states/CLayerStateManDlg.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/values/OdError.h"
#include "layermanager/layer_states/CEdLayStateDlg.h"
#include "layermanager/layer_states/CNewLayStateDlg.h"
#include "layermanager/layer_states/core/LayerStateSteps.h"
#include "layermanager/layer_states/core/LayerStateTexts.h"
#include "layermanager/layer_states/parts/CLayerStateListCtrl.h"
#include "layermanager/layer_states/parts/StateDialogParts.h"
#include "layermanager/layers/FilledText.h"
#include "layermanager/layers/HostVariables.h"
#include "sdk/CKestPreferenceManager.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/LocalSearch.h"
#include "toolkit/ControlRegistry.h"
#include "toolkit/Prompts.h"

#include <QCheckBox>
#include <QLayout>

using namespace StateControl;

namespace {

// Bits of m_iOffNotfoundLayer
constexpr int kTurnOffBit = 1;
constexpr int kOverridesBit = 2;

} // namespace

CLayerStateManDlg::CLayerStateManDlg(QWidget* parent)
    : QDialog(parent)
    , m_watch([this] { QDialog::reject(); })
{
    build();
    registerHelpTexts();
    initialUpdate();
}

CLayerStateManDlg::~CLayerStateManDlg() = default;

void CLayerStateManDlg::initialUpdate()
{
    try {
        fill();
        checkAll(true);
        loadPreferences();
        toggleRestoreOptions();
    } catch (const OdError& error) {
        // It opens all the same.
        qInfo("Layer states: %s", qPrintable(error.description()));
    }
    showStoredMask();
}

void CLayerStateManDlg::fill()
{
    std::vector<layStateEntry> entries;
    tell(m_util.GetDBLayStateIDs(entries));
    const bool isEmpty = entries.empty();
    m_list->states().fill(std::move(entries));
    m_list->fitColumns();
    if (!isEmpty)
        m_list->chooseOnly(0);
    enableFor(isEmpty ? 0 : 1);
}

// Rules

void CLayerStateManDlg::enableFor(int selected)
{
    StateSpace space;
    space.isModel = m_util.IsModelSpace();
    space.isSheet = readHostInt(QStringLiteral("CVPORT")) == 1;
    for (const int id : ruledStateControls())
        controlById(this, id)->setEnabled(isStateControlEnabled(id, selected, space));
}

void CLayerStateManDlg::followClick()
{
    const std::size_t selected = m_list->chosenRows().size();
    enableFor(static_cast<int>(std::min<std::size_t>(selected, 2)));
    if (selected == 1)
        showStoredMask();
    else if (selected > 1)
        checkAll(false);
}

void CLayerStateManDlg::showStoredMask()
{
    checkAll(false);
    const int row = chosenRow();
    if (row >= 0)
        tell(m_util.RestoreLayMask(m_list->states().entry(row).name, m_nMask));
    for (const RestoreOption& option : restoreOptions()) {
        if (m_nMask & option.bit)
            box(option.control)->setChecked(true);
    }
}

void CLayerStateManDlg::checkAll(bool check)
{
    for (const RestoreOption& option : restoreOptions()) {
        if (box(option.control)->isEnabled())
            box(option.control)->setChecked(check);
    }
    for (const RestoreOption& option : restoreOptions())
        optionClicked(option);
}

void CLayerStateManDlg::optionClicked(const RestoreOption& option)
{
    if (box(option.control)->isChecked())
        m_nMask |= option.bit;
    else
        m_nMask &= ~option.bit;
}

void CLayerStateManDlg::loadPreferences()
{
    const CKestPreferenceManager& preferences = CKestPreferenceManager::instance();
    box(kHideExternal)->setChecked(preferences.m_iDontListinXref != 0);
    box(kTurnOffOthers)->setChecked(preferences.m_iOffNotfoundLayer & kTurnOffBit);
    box(kAsOverrides)->setChecked(preferences.m_iOffNotfoundLayer & kOverridesBit);
}

void CLayerStateManDlg::storePreferences() const
{
    CKestPreferenceManager& preferences = CKestPreferenceManager::instance();
    preferences.m_iDontListinXref = box(kHideExternal)->isChecked() ? 1 : 0;
    preferences.m_iOffNotfoundLayer = (box(kTurnOffOthers)->isChecked() ? kTurnOffBit : 0)
        | (box(kAsOverrides)->isChecked() ? kOverridesBit : 0);
}

int CLayerStateManDlg::chosenRow() const
{
    const std::vector<int> rows = m_list->chosenRows();
    return rows.empty() ? -1 : rows.front();
}

QCheckBox* CLayerStateManDlg::box(int id) const
{
    return static_cast<QCheckBox*>(controlById(this, id));
}

bool CLayerStateManDlg::tell(bool done) const
{
    return tellStateResult(done, m_util);
}

std::optional<bool> CLayerStateManDlg::confirmed(const QString& text, const QString& caption)
{
    const QPointer<CLayerStateManDlg> dialog(this);
    const bool yes = Prompts::current().confirmCaptioned(this, text, caption);
    return dialog && drawing() ? std::optional(yes) : std::nullopt;
}

// Commands

void CLayerStateManDlg::accept()
{
    const int row = chosenRow();
    if (row < 0 || !drawing())
        return;
    const QString name = m_list->states().entry(row).name;
    // First: of the boxes the service is told one only, the other it reads from the preferences.
    storePreferences();
    beginLayerStateStep(*drawing());
    tell(m_util.RestoreLayState(name, m_nMask, box(kTurnOffOthers)->isChecked() ? 1 : 0));
    // The options just used become those of the state: deliberate.
    tell(m_util.SaveLayState(name, m_nMask));
    if (IKestServicesManager* services = getServicesManagerInterface())
        services->refreshView();
    QDialog::accept();
}

void CLayerStateManDlg::reject()
{
    storePreferences();
    QDialog::reject();
}

void CLayerStateManDlg::newState()
{
    if (!drawing())
        return;
    ExistingStates existing;
    LayerStateListModel& states = m_list->states();
    for (int row = 0; row < states.rowCount(); ++row)
        existing.append({states.entry(row).name, states.entry(row).description});
    ModalDialog dialog(new CNewLayStateDlg(existing, this));
    if (!dialog.accepted() || !drawing())
        return;
    int row = -1;
    switch (dialog->outcome()) {
    case CNewLayStateDlg::Outcome::Added:
        row = states.append({dialog->name(), dialog->description(), !m_util.IsModelSpace(), true});
        m_list->fitColumns();
        break;
    case CNewLayStateDlg::Outcome::Replaced:
        row = states.rowOf(dialog->name());
        if (row >= 0)
            states.setDescription(row, dialog->description());
        break;
    case CNewLayStateDlg::Outcome::Declined:
        break;
    }
    if (row < 0)
        return;
    checkAll(true);
    m_list->setFocus();
    m_list->chooseOnly(row);
    m_list->viewport()->update();
    enableFor(1);
    checkAll(true); // boxes that were disabled for want of a selection
}

void CLayerStateManDlg::saveState()
{
    const int row = chosenRow();
    if (row < 0 || !confirmed(layerStateText(84522)).value_or(false))
        return;
    beginLayerStateStep(*drawing());
    tell(m_util.SaveLayState(m_list->states().entry(row).name, m_nMask));
    m_list->states().setSameAsDrawing(row, true);
}

void CLayerStateManDlg::editState()
{
    const int row = chosenRow();
    if (row < 0 || !drawing())
        return;
    ModalDialog dialog(new CEdLayStateDlg(m_list->states().entry(row).name, this));
    if (!dialog.accepted() || !drawing())
        return;
    m_list->states().setSameAsDrawing(row, dialog->isSameAsDrawing());
    enableFor(1);
}

void CLayerStateManDlg::renameState()
{
    const int row = chosenRow();
    if (row < 0)
        return;
    m_list->setFocus();
    m_list->edit(m_list->states().index(row, LayerStateListModel::Name));
}

void CLayerStateManDlg::rename(const QString& oldName, const QString& newName)
{
    if (!drawing())
        return;
    beginLayerStateStep(*drawing());
    tell(m_util.RenameLayerState(oldName, newName));
}

void CLayerStateManDlg::deleteStates()
{
    std::vector<int> deleted;
    for (const int row : m_list->chosenRows()) {
        const QString name = m_list->states().entry(row).name;
        const std::optional<bool> answer = confirmed(filledText(layerStateText(84790), {name}));
        if (!answer)
            return;
        if (!*answer)
            continue;
        if (deleted.empty())
            beginLayerStateStep(*drawing());
        tell(m_util.DeleteLayerState(name));
        deleted.push_back(row);
    }
    if (deleted.empty())
        return;
    m_list->states().removeAll(deleted);
    followClick();
}

void CLayerStateManDlg::help()
{
    LocalSearch::CommandRefHelp(kLayerStateHelp);
}

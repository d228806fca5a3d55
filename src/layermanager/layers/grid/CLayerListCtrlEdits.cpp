// Edits that start with a click on a cell of the layer grid.

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/LayerTexts.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/layers/grid/LayerValuePick.h"
#include "layermanager/layers/grid/UpdatesOff.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"
#include "layermanager/layers/operations/LayerActions.h"
#include "layermanager/layers/operations/LayerEdits.h"
#include "layermanager/layers/operations/LayerOperations.h"
#include "sdk/IKestServicesManager.h"
#include "toolkit/Prompts.h"

#include <QPointer>

namespace {

constexpr int kKeepCurrentOn = 102;

/// The question before the current layer is turned off. The missing blank after the full stop and
/// the line breaks are deliberate.
TaskQuestion turnOffQuestion()
{
    TaskQuestion question;
    question.windowTitle = KsResString(layerTexts(), 85403);
    question.mainInstruction = KsResString(layerTexts(), 85404);
    question.links = {
        {101, KsResString(layerTexts(), 85405)},
        {kKeepCurrentOn, KsResString(layerTexts(), 85406)},
    };
    return question;
}

} // namespace

bool CLayerListCtrl::preCheck()
{
    if (m_switchedOff)
        return true;
    const QString running = readHostString(QStringLiteral("CMDNAMES")).value_or(QString());
    if (running.compare(QLatin1String("-LAYER"), Qt::CaseInsensitive) != 0)
        return false;
    Prompts::current().message(this, KsResString(layerTexts(), 40182));
    return true;
}

bool CLayerListCtrl::checksCharacters(int column) const
{
    // A description may hold any character.
    return column != static_cast<int>(LayerColumn::Description);
}

bool CLayerListCtrl::cellAction(int row, int column)
{
    if (!leaveEditor())
        return true; // its text is refused and wants correcting first
    setFocus(Qt::MouseFocusReason);
    const auto clicked = static_cast<LayerColumn>(columnData(column).subItem);
    if (clickModifiers() || clicked == LayerColumn::Status)
        return false;
    if (clicked == LayerColumn::Name || clicked == LayerColumn::Description) {
        if (!isStartOfTextEdit(row, clicked))
            return false;
        startTextEdit(row, clicked);
        return true;
    }
    changeCell(row, clicked);
    return true;
}

bool CLayerListCtrl::cellDoubleClicked(int row, int column)
{
    if ((clickModifiers() & Qt::ControlModifier) && chosenRowCount() > 1) {
        Prompts::current().message(this, severalCurrentLayersText());
        return true;
    }
    if (column != static_cast<int>(LayerColumn::Status))
        return false;
    if (!leaveEditor() || !m_database)
        return true;
    const LayerOutcome outcome = setCurrentLayer(*m_database, m_model.layerId(row));
    const QPointer<CLayerListCtrl> self(this);
    finishEdit(outcome);
    if (self && findRow(currentLayer()) == row)
        selectCurrentRow();
    return true;
}

bool CLayerListCtrl::leaveEditor()
{
    const QPointer<CLayerListCtrl> self(this); // it may go while a refusal is shown
    closeInPlaceEditor();
    if (!self)
        return false;
    if (CInPlaceEdit* open = editor())
        open->setFocus(Qt::OtherFocusReason);
    return !editor();
}

void CLayerListCtrl::changeCell(int row, LayerColumn column)
{
    const OdDbObjectId layer = m_model.layerId(row);
    if (!isRowChosen(row))
        chooseOnly(row);
    focusCell(row, static_cast<int>(column));
    OdDbDatabase* database = m_database;
    // The drawing may end while a question about it is open.
    if (!database || !mayChange(layer, column) || m_database != database)
        return;
    std::optional<LayerValue> value = layerCellValue(*database, layer, column);
    if (!value)
        return;
    const bool isFlag = std::holds_alternative<bool>(*value);
    if (!isFlag)
        value = pickLayerValue(this, *value);
    if (!value || m_database != database)
        return;
    LayerListModel::Ids others = chosenLayers();
    std::erase(others, layer);
    LayerOutcome outcome;
    {
        const UpdatesOff still(*this);
        outcome = isFlag ? toggleLayerFlag(*database, column, layer, others)
                         : giveLayers(*database, column, *value, layer, others);
    }
    finishEdit(outcome, redrawAfterCell(column));
}

CLayerListCtrl::Redraw CLayerListCtrl::redrawAfterCell(LayerColumn column)
{
    switch (column) {
    case LayerColumn::VpFreeze:
        return Redraw::RegenerateAll;
    case LayerColumn::VpColor:
    case LayerColumn::VpLinetype:
    case LayerColumn::VpLineweight:
        return Redraw::Regenerate;
    default:
        return Redraw::Refresh;
    }
}

void CLayerListCtrl::finishEdit(const LayerOutcome& outcome, Redraw redraw)
{
    const QPointer<CLayerListCtrl> self(this); // it may go while the message is shown
    if (!outcome.message.isEmpty())
        Prompts::current().message(this, outcome.message);
    if (!self || outcome.isEmpty())
        return;
    viewport()->update();
    IKestServicesManager* services = getServicesManagerInterface();
    if (redraw == Redraw::RegenerateAll)
        ksedRegenAll();
    else if (redraw == Redraw::Regenerate)
        ksedRegen();
    else if (services)
        services->refreshView();
    emit layersChanged();
}

bool CLayerListCtrl::mayChange(OdDbObjectId layer, LayerColumn column)
{
    LayerVerdict verdict = LayerVerdict::NotByClick;
    if (const auto record = layer.openObject<OdDbLayerTableRecord>())
        verdict = mayEditLayerCell(*record, column, readHostId(QStringLiteral("CLAYER")));
    return isAllowed(verdict);
}

bool CLayerListCtrl::isAllowed(LayerVerdict verdict)
{
    Prompts& prompts = Prompts::current();
    switch (verdict) {
    case LayerVerdict::Allowed:
        return true;
    case LayerVerdict::AskTurnOffCurrent:
        // Only this one answer keeps the layer on; closing the question turns it off. Deliberate.
        return prompts.ask(this, turnOffQuestion()) != kKeepCurrentOn;
    case LayerVerdict::CannotFreezeCurrent:
    case LayerVerdict::CannotRename:
        prompts.message(this, layerVerdictText(verdict));
        return false;
    case LayerVerdict::NotByClick:
        break;
    }
    return false;
}

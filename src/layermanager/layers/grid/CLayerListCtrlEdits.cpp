// Edits that start with a click on a cell of the layer grid.

#include "database/OdDbDatabase.h"
#include "database/OdDbLayerTableRecord.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/layers/operations/LayerOperations.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/KsResString.h"
#include "toolkit/Prompts.h"

namespace {

constexpr int kKeepCurrentOn = 102;

/// The question before the current layer is turned off. The missing blank after the full stop and
/// the line breaks are deliberate.
TaskQuestion turnOffQuestion()
{
    TaskQuestion question;
    question.windowTitle = KsResString(85403, QStringLiteral("Layer - Current Layer off"));
    question.mainInstruction = KsResString(
        85404, QStringLiteral("The current Layer will be turned off.What do you want to do?"));
    question.links = {
        {101,
         KsResString(85405,
                     QStringLiteral("Turn the current layer off \n Objects that you create on will "
                                    "not be displayed in the drawing until you turn the layer back "
                                    "on"))},
        {kKeepCurrentOn, KsResString(85406, QStringLiteral("Keep the current layer on"))},
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
    Prompts::current().message(
        this,
        KsResString(40182,
                    QStringLiteral("Unable to modify layers while another command is active.")));
    return true;
}

bool CLayerListCtrl::checksCharacters(int column) const
{
    // A description may hold any character.
    return column != static_cast<int>(LayerColumn::Description);
}

bool CLayerListCtrl::cellAction(int row, int column)
{
    closeInPlaceEditor();
    if (editor())
        return true; // its text is refused and wants correcting first
    setFocus(Qt::MouseFocusReason);
    const auto clicked = static_cast<LayerColumn>(columnData(column).subItem);
    const LayerColumnInfo& info = layerColumnInfo(clicked);
    if (clickModifiers() || info.kind != LayerCellKind::Flag || info.layoutsOnly)
        return false;
    toggleFlag(row, clicked);
    return true;
}

void CLayerListCtrl::toggleFlag(int row, LayerColumn column)
{
    const OdDbObjectId layer = m_model.layerId(row);
    if (!isRowChosen(row))
        chooseOnly(row);
    focusCell(row, static_cast<int>(column));
    LayerVerdict verdict = LayerVerdict::NotByClick;
    if (const auto record = layer.openObject<OdDbLayerTableRecord>())
        verdict = mayEditLayerCell(*record, column, readHostId(QStringLiteral("CLAYER")));
    if (!isAllowed(verdict) || !m_database)
        return;
    LayerListModel::Ids others;
    for (const int chosen : chosenRows()) {
        if (chosen != row)
            others.push_back(m_model.layerId(chosen));
    }
    if (toggleLayerFlag(*m_database, column, layer, others).isEmpty())
        return;
    viewport()->update();
    if (IKestServicesManager* services = getServicesManagerInterface())
        services->refreshView();
    emit layersChanged();
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

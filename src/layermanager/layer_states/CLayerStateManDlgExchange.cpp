// Import and export of the layer-state manager.

#include "database/drawing/OdDbDatabase.h"
#include "database/states/LayerStateMask.h"
#include "layermanager/layer_states/CLSImportPromptDlg.h"
#include "layermanager/layer_states/CLayStateImportDlg.h"
#include "layermanager/layer_states/CLayerStateManDlg.h"
#include "layermanager/layer_states/core/LasStateName.h"
#include "layermanager/layer_states/core/LayerStateSteps.h"
#include "layermanager/layer_states/core/LayerStateTexts.h"
#include "layermanager/layer_states/core/StateImportStart.h"
#include "layermanager/layer_states/parts/CLayerStateListCtrl.h"
#include "layermanager/layer_states/parts/StateDialogParts.h"
#include "sdk/IKestIOManager.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/KestStatus.h"

#include <QFileInfo>

namespace {

bool isLayerStateFile(const QString& path)
{
    return QFileInfo(path).suffix().compare(QLatin1String("las"), Qt::CaseInsensitive) == 0;
}

} // namespace

void CLayerStateManDlg::exportState()
{
    const int row = chosenRow();
    IKestIOManager* io = getIOManagerInterface();
    if (row < 0 || !io || !drawing())
        return;
    const QString name = m_list->states().entry(row).name;
    KestFileRequest request;
    request.title = layerStateText(84517);
    request.filters = layerStateText(84518);
    request.toSave = true;
    request.parent = this;
    QString path;
    int filter = -1;
    const QPointer<CLayerStateManDlg> dialog(this);
    const int status = io->selectFile(request, path, filter);
    if (status == kest::kNormal && dialog && drawing())
        tell(m_util.ExportLayState(name, path));
}

void CLayerStateManDlg::importStates()
{
    IKestIOManager* io = getIOManagerInterface();
    if (!io || !drawing())
        return;
    KestFileRequest request;
    request.title = layerStateText(84519);
    request.start = StateImportStart::s_folder;
    // Drawings of DWG and layer state files are always offered; DXF, which this host reads too,
    // stands behind them, so that their numbers stay.
    request.filters =
        layerStateText(84520) + QLatin1Char(',') + tr("DXF Drawing") + QLatin1String("|dxf");
    request.parent = this;
    QString path;
    int filter = StateImportStart::s_filter;
    const QPointer<CLayerStateManDlg> dialog(this);
    const int status = io->selectFile(request, path, filter);
    if (status != kest::kNormal || !dialog || !drawing())
        return;
    if (isLayerStateFile(path))
        importLayerStateFile(path);
    else
        importDrawing(path);
}

void CLayerStateManDlg::importDrawing(const QString& path)
{
    IKestIOManager* io = getIOManagerInterface();
    std::unique_ptr<OdDbDatabase> source;
    QString why;
    const QPointer<CLayerStateManDlg> dialog(this);
    const int status = io->openDrawing(path, source, why);
    if (!dialog || !drawing())
        return;
    if (status != kest::kNormal || !source) {
        if (!why.isEmpty())
            io->print(why);
        return;
    }
    ModalDialog import(new CLayStateImportDlg(std::move(source), m_list->states().names(), this));
    if (import.accepted() && drawing())
        refill();
}

void CLayerStateManDlg::importLayerStateFile(const QString& path)
{
    StateImportStart::s_folder = QFileInfo(path).path();
    StateImportStart::s_filter = StateImportStart::kLayerStateFiles;
    checkAll(true);
    const QString name = readStateName(path);
    beginLayerStateStep(*drawing());
    bool exists = false;
    bool imported = m_util.ImportLayState(path, exists);
    if (!imported && !exists) {
        tell(false);
        return;
    }
    if (!imported) {
        const QString question = layerStateText(84521) + name + QLatin1String(" ?");
        if (!confirmed(question, windowTitle()).value_or(false))
            return;
        beginLayerStateStep(*drawing());
        bool existsStill = false;
        tell(m_util.DeleteLayerState(name));
        imported = tell(m_util.ImportLayState(path, existsStill));
    }
    if (!imported)
        return;
    refill();
    if (!exists)
        offerRestore(name);
}

/// Lists the states anew; the boxes are those of the state that is selected then.
void CLayerStateManDlg::refill()
{
    fill();
    showStoredMask();
}

void CLayerStateManDlg::offerRestore(const QString& name)
{
    ModalDialog prompt(new CLSImportPromptDlg(name, this));
    prompt.run();
    if (!prompt.isThere() || !drawing() || !prompt->isToRestore())
        return;
    beginLayerStateStep(*drawing());
    tell(m_util.RestoreLayState(name, LayerStateMask::kAll, 0));
    if (IKestServicesManager* services = getServicesManagerInterface())
        services->refreshView();
    const int row = m_list->states().rowStartingWith(name);
    if (row >= 0)
        m_list->states().setSameAsDrawing(row, true);
    storePreferences();
    QDialog::accept();
}

#include "layermanager/layer_states/parts/CEdLayStateListCtrl.h"

#include "database/drawing/OdDbDatabase.h"
#include "layermanager/layer_states/core/LayerStateSteps.h"
#include "layermanager/layer_states/core/LayerStateTexts.h"
#include "layermanager/layer_states/parts/StateDialogParts.h"
#include "layermanager/layer_states/parts/StateLayerDelegate.h"
#include "layermanager/layers/HostVariables.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/KestStatus.h"
#include "toolkit/Prompts.h"

#include <QHeaderView>
#include <QPointer>
#include <QSet>

#include <algorithm>

namespace {

/// Asks the host's dialog for the value of a column; false where the user gave up.
bool pick(IKestServicesManager& services, const KestPickRequest& request, StateLayerColumn column,
          LayerInfoInLS& layer)
{
    switch (column) {
    case StateLayerColumn::Color: {
        OdCmColor color = layer.fullColor();
        if (services.pickColor(request, color) != kest::kNormal)
            return false;
        layer.setFullColor(color);
        return true;
    }
    case StateLayerColumn::Linetype:
        return services.pickLinetype(request, layer.linetypeId) == kest::kNormal;
    case StateLayerColumn::Lineweight: {
        int weight = layer.lineWeight;
        const bool picked = services.pickLineweight(request, weight) == kest::kNormal;
        layer.lineWeight = picked ? weight : layer.lineWeight;
        return picked;
    }
    default:
        return false; // names and plot styles are not changed here
    }
}

} // namespace

CEdLayStateListCtrl::CEdLayStateListCtrl(QWidget* parent)
    : CKestListCtrl(parent)
{
    setModel(&m_model);
    setItemDelegate(new StateLayerDelegate(m_model, this));
    horizontalHeader()->setSortIndicatorShown(false);
    horizontalHeader()->setHighlightSections(false);
}

QSize CEdLayStateListCtrl::sizeHint() const
{
    constexpr int kCharacters = 128;
    constexpr int kLines = 22;
    return sizeInCharacters(*this, kCharacters, kLines);
}

void CEdLayStateListCtrl::initialise(OdDbDatabase& database, const QString& state)
{
    m_database = &database;
    m_state = state;
    m_util = CLayerStateUtility(m_database);
    m_model.setLayers({});
    if (m_columns.empty())
        insertColumns();
    std::vector<LayerInfoInLS> layers;
    tellStateResult(m_util.SetLayersInLS(state, layers), m_util);
    m_model.setLayers(std::move(layers));
    fitColumns();
}

/// Widens columns that are too narrow for what they hold, within bounds.
void CEdLayStateListCtrl::fitColumns()
{
    const int most = sizeInCharacters(*this, kWidestStateColumn, 1).width();
    const int room = sizeInCharacters(*this, 2, 1).width();
    for (ListCtrlColumnData& column : m_columns) {
        const int text = sizeHintForColumn(column.subItem) + room;
        column.width = std::max(column.width, std::min(most, text));
        setColumnWidth(column.subItem, column.width);
    }
}

void CEdLayStateListCtrl::insertColumns()
{
    const int nameWidth = sizeInCharacters(*this, 24, 1).width();
    int number = 0;
    for (const StateLayerListModel::ColumnInfo& info : StateLayerListModel::columns()) {
        // At least as wide as the table says; titles are not cut off.
        const int least = info.column == StateLayerColumn::Name ? nameWidth : 0;
        const int width =
            std::max({info.width, horizontalHeader()->sectionSizeHint(number), least});
        m_columns.push_back(
            {info.identifier, layerStateText(info.titleId), width, number, number, true});
        setColumnWidth(number++, width);
    }
}

bool CEdLayStateListCtrl::cellAction(int row, int column)
{
    if (clickModifiers() || !m_database)
        return false; // rows are being selected
    const StateLayerListModel::ColumnInfo& info =
        StateLayerListModel::columns()[static_cast<std::size_t>(column)];
    if (info.column == StateLayerColumn::Freeze)
        toggleFreeze(row);
    else if (info.flag != 0)
        m_model.toggle(row, info.flag);
    else
        pickValue(row, info.column);
    return false;
}

void CEdLayStateListCtrl::toggleFreeze(int row)
{
    const std::optional<OdDbObjectId> current = readHostId(QStringLiteral("CLAYER"));
    if (!current)
        return;
    if (*current == m_model.layer(row).layerId)
        // The small l of the caption is deliberate.
        Prompts::current().messageCaptioned(this, layerStateText(84504), layerStateText(84505));
    else
        m_model.toggle(row, LayerInfoInLS::kFrozen);
}

void CEdLayStateListCtrl::pickValue(int row, StateLayerColumn column)
{
    IKestServicesManager* services = getServicesManagerInterface();
    if (!services)
        return;
    LayerInfoInLS layer = m_model.layer(row);
    KestPickRequest request;
    request.parent = this;
    const QPointer<CEdLayStateListCtrl> list(this);
    if (pick(*services, request, column, layer) && list && m_database)
        m_model.setLayer(row, layer);
}

QStringList CEdLayStateListCtrl::missingLayers()
{
    QStringList names;
    if (!m_database)
        return names;
    tellStateResult(m_util.AddLayerList(names), m_util);
    QSet<QString> recorded;
    for (const LayerInfoInLS& layer : layers())
        recorded.insert(layer.name);
    names.removeIf([&](const QString& name) { return recorded.contains(name); });
    return names;
}

void CEdLayStateListCtrl::addLayers(const QStringList& names)
{
    if (!m_database)
        return;
    std::vector<LayerInfoInLS> added;
    for (const QString& name : names) {
        LayerInfoInLS layer;
        if (tellStateResult(m_util.FilLSInfo(name, layer), m_util))
            added.push_back(std::move(layer));
    }
    m_model.append(added);
}

void CEdLayStateListCtrl::removeChosen()
{
    const std::vector<int> rows = chosenRows();
    if (m_database && !rows.empty())
        m_model.removeAtPositions(rows);
}

bool CEdLayStateListCtrl::store()
{
    return tellStateResult(m_util.UpdateLayerStateInfo(m_state, layers()), m_util);
}

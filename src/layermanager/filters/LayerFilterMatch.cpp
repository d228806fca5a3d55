#include "layermanager/filters/LayerFilterMatch.h"

#include "database/OdDbDatabase.h"

namespace {

/// Values other than 1 and 2 ask for nothing.
bool agrees(qint32 wanted, bool value)
{
    return wanted == (value ? 1 : 2) || wanted < 1 || wanted > 2;
}

} // namespace

LayerRowMatcher::LayerRowMatcher(const OdDbDatabase& database, const LayerFilterRow& row)
    : m_row(row)
{
    if (!m_row.m_strName.isEmpty())
        m_name.emplace(m_row.m_strName);
    if (!database.getTILEMODE())
        m_viewport = database.activeViewportId();
    if (m_row.m_nVpFrozen != 0 && !m_viewport.isNull())
        m_freezing = m_viewport.safeOpenObject<OdDbViewport>();
}

bool LayerRowMatcher::matches(const OdDbLayerTableRecord& layer) const
{
    return usageMatches(layer) && flagsMatch(layer) && looksMatch(layer);
}

bool LayerRowMatcher::usageMatches(const OdDbLayerTableRecord& layer) const
{
    const qint32 wanted = m_row.m_nUsed;
    return wanted < 1 || wanted > 4
        || (layer.isInUse() == (wanted == 1 || wanted == 3)
            && layer.hasOverrides(m_viewport) == (wanted >= 3));
}

bool LayerRowMatcher::flagsMatch(const OdDbLayerTableRecord& layer) const
{
    return agrees(m_row.m_nOn, !layer.isOff()) && agrees(m_row.m_nFrozen, layer.isFrozen())
        && agrees(m_row.m_nLocked, layer.isLocked())
        && agrees(m_row.m_nPlottable, layer.isPlottable())
        && agrees(m_row.m_nNewVpFrozen, layer.VPDFLT())
        && (!m_freezing
            || agrees(m_row.m_nVpFrozen, m_freezing->isLayerFrozenInViewport(layer.objectId())));
}

bool LayerRowMatcher::looksMatch(const OdDbLayerTableRecord& layer) const
{
    const auto isColor = [](qint32 wanted, const OdCmColor& color) {
        return wanted == LayerFilterRow::kNoColor || color.colorIndex() == wanted;
    };
    const auto isWeight = [](qint32 wanted, qint16 weight) {
        return wanted == LayerFilterRow::kNoLineweight || weight == wanted;
    };
    const LayerFilterRow& row = m_row;
    return isColor(row.m_nColor, layer.color()) && isColor(row.m_nVpColor, layer.color(m_viewport))
        && (!m_name || m_name->matches(layer.getName()))
        && (row.m_strDesc.isEmpty() || layer.description() == row.m_strDesc)
        && (row.m_idLinetype.isNull() || layer.linetypeObjectId() == row.m_idLinetype)
        && (row.m_idVpLinetype.isNull() || layer.linetypeObjectId(m_viewport) == row.m_idVpLinetype)
        && isWeight(row.m_nLineweight, layer.lineWeight())
        && isWeight(row.m_nVpLineweight, layer.lineWeight(m_viewport));
}

bool LayerMatchesRow(const OdDbDatabase& database, const LayerFilterRow& row,
                     OdDbLayerTableRecordPtr layer)
{
    // Moved here, the record closes before the caller goes on, exceptions included.
    const OdDbLayerTableRecordPtr taken = std::move(layer);
    return taken && LayerRowMatcher(database, row).matches(*taken);
}

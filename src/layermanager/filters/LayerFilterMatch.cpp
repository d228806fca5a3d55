#include "layermanager/filters/LayerFilterMatch.h"

#include "database/drawing/OdDbDatabase.h"

#include <algorithm>

namespace {

/// Values other than 1 and 2 ask for nothing.
bool agrees(qint32 wanted, bool value)
{
    return wanted == (value ? 1 : 2) || wanted < 1 || wanted > 2;
}

int squaredDistance(OdRgb a, OdRgb b)
{
    const auto channel = [&](int shift) {
        const int difference = int(a >> shift & 0xFF) - int(b >> shift & 0xFF);
        return difference * difference;
    };
    return channel(16) + channel(8) + channel(0);
}

/// Whether some index is nearer to a true color. Found early for most: searching the nearest index
/// of each layer would cost more than all other criteria.
bool isOtherNearer(const OdCmColor& color, qint32 index)
{
    const std::array<OdRgb, 256>& table = aci::table();
    if (color.colorMethod() != OdCmColor::kByColor || index < 1 || index > 255)
        return false;
    const int distance = squaredDistance(table[static_cast<std::size_t>(index)], color.color());
    return std::any_of(table.begin() + 1, table.end(), [&](OdRgb other) {
        return squaredDistance(other, color.color()) < distance;
    });
}

bool hasIndex(const OdCmColor& color, qint32 index)
{
    return !isOtherNearer(color, index) && color.colorIndex() == index;
}

} // namespace

OdDbObjectId LayerRowMatcher::currentViewport(const OdDbDatabase& database)
{
    return database.getTILEMODE() ? OdDbObjectId() : database.activeViewportId();
}

LayerRowMatcher::LayerRowMatcher(const LayerFilterRow& row, OdDbObjectId viewport)
    : m_row(row)
    , m_viewport(viewport)
{
    if (!m_row.m_strName.isEmpty())
        m_name.emplace(m_row.m_strName);
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
    // What is not asked for is not fetched either: large drawings are mostly waiting for memory.
    const auto isColor = [&](qint32 wanted, OdDbObjectId viewport) {
        return wanted == LayerFilterRow::kNoColor || hasIndex(layer.color(viewport), wanted);
    };
    const auto isLinetype = [&](OdDbObjectId wanted, OdDbObjectId viewport) {
        return wanted.isNull() || layer.linetypeObjectId(viewport) == wanted;
    };
    const auto isWeight = [&](qint32 wanted, OdDbObjectId viewport) {
        return wanted == LayerFilterRow::kNoLineweight || layer.lineWeight(viewport) == wanted;
    };
    constexpr OdDbObjectId kOwn;
    return isColor(m_row.m_nColor, kOwn) && isColor(m_row.m_nVpColor, m_viewport)
        && (!m_name || m_name->matches(layer.getName()))
        && (m_row.m_strDesc.isEmpty() || layer.description() == m_row.m_strDesc)
        && isLinetype(m_row.m_idLinetype, kOwn) && isLinetype(m_row.m_idVpLinetype, m_viewport)
        && isWeight(m_row.m_nLineweight, kOwn) && isWeight(m_row.m_nVpLineweight, m_viewport);
}

bool LayerMatchesRow(const OdDbDatabase& database, const LayerFilterRow& row,
                     OdDbLayerTableRecordPtr layer)
{
    // Moved here, the record closes before the caller goes on, exceptions included.
    const OdDbLayerTableRecordPtr taken = std::move(layer);
    return taken && LayerRowMatcher(database, row).matches(*taken);
}

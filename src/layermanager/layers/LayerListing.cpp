#include "layermanager/layers/LayerListing.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"

namespace {

/// Layers with this character in their names belong to the program that made the drawing.

} // namespace

LayerListing::LayerListing(Filter shows, bool inverted, const QString& pattern)
    : m_shows(std::move(shows))
    , m_inverted(inverted)
{
    if (!pattern.isEmpty() && pattern != QLatin1String("~"))
        m_pattern.emplace(pattern);
}

RowDecision LayerListing::decide(OdDbObjectId layer) const
{
    const auto record = layer.openObject<OdDbLayerTableRecord>();
    if (!record)
        return RowDecision::Hidden;
    const QString name = record->getName();
    if (name.contains(QLatin1Char(kHiddenLayerMark)))
        return RowDecision::Hidden;
    if (m_shows && m_shows(layer) == m_inverted)
        return RowDecision::FailsFilter;
    return m_pattern && !m_pattern->matches(name) ? RowDecision::FailsSearch : RowDecision::Listed;
}

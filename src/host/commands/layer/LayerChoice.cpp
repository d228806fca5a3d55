#include "host/commands/layer/LayerChoice.h"

#include "base/WildcardPattern.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/store/NameIndex.h"
#include "database/tables/OdDbLayerTable.h"

#include <algorithm>

LayerChoice::LayerChoice(const OdDbDatabase& drawing, const QString& list)
{
    for (const QString& alternative : WildcardPattern::alternatives(list))
        add(drawing, alternative);
}

void LayerChoice::add(const OdDbDatabase& drawing, const QString& alternative)
{
    const OdDbLayerTable& table = drawing.layerTable();
    OdDbObjectId named = table.getAt(alternative);
    if (named.isNull() && WildcardPattern::isLiteral(alternative))
        named = table.getAt(WildcardPattern::unescaped(alternative));
    if (!named.isNull())
        add(named, true);
    else if (WildcardPattern::isLiteral(alternative))
        m_missing << WildcardPattern::unescaped(alternative);
    else
        addMatches(drawing, alternative);
}

void LayerChoice::addMatches(const OdDbDatabase& drawing, const QString& text)
{
    const WildcardPattern pattern(text);
    const OdDbLayerTable& table = drawing.layerTable();
    const NameIndex& names = table.names();
    bool any = false;
    // The names of the index are folded, as the pattern is; no layer has to be opened.
    for (quint32 position = 0; position < names.size(); ++position) {
        if (!names.isActive(position) || names.key(position).startsWith('*'))
            continue;
        if (pattern.matches(QString::fromUtf8(names.key(position)))) {
            add(drawing.idOfSlot(table.slotsInOrder()[position]), false);
            any = true;
        }
    }
    if (!any)
        m_unmatched << text;
}

void LayerChoice::add(OdDbObjectId layer, bool isNamed)
{
    const std::size_t slot = layer.slot();
    if (slot >= m_isChosen.size())
        m_isChosen.resize(std::max(slot + 1, m_isChosen.size() * 2));
    if (m_isChosen[slot])
        return;
    m_isChosen[slot] = true;
    m_layers.push_back({layer, isNamed});
}

bool LayerChoice::contains(OdDbObjectId layer) const
{
    return std::any_of(m_layers.begin(), m_layers.end(),
                       [layer](const Layer& chosen) { return chosen.id == layer; });
}

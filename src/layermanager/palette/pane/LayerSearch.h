#pragma once

#include "layermanager/layers/LayerSort.h"

#include <QString>

#include <vector>

class OdDbDatabase;

/// The layers of a drawing in the order of the grid, ready to be searched by name as fast as
/// somebody types. It keeps what it read until told to forget it.
class LayerSearch
{
public:
    using Ids = std::vector<OdDbObjectId>;

    /// Reads names and order of all layers, where they are not known already. Layers that belong to
    /// programs are left out.
    void read(const OdDbDatabase& database, LayerSortOrder order, const LayerCellContext& context);
    /// Layers may have come, gone or changed.
    void forget();

    /// Takes note of what a filter shows and of what it does not.
    void setFilter(const Ids& in, const Ids& other);
    bool hasFilter() const { return m_hasFilter; }
    /// Whether it knew no layers at all, as no filter of a drawing does.
    bool isFilterEmpty() const { return m_isFilterEmpty; }
    /// The filter may show other layers, and what rows are ordered by may have changed; names did
    /// not.
    void forgetFilter();

    /// The layers that the filter shows, or those that it does not, whose names match a wildcard
    /// pattern, upper and lower case being alike. Of equal names the first one alone, unless the
    /// pattern is for everything. In the grid's order.
    Ids matching(const QString& pattern, bool inverted) const;
    /// Whether the pattern leaves nothing out: "*", an empty one and "~".
    static bool isEverything(const QString& pattern);

private:
    /// Layers by name, A to Z.
    struct Layer
    {
        OdDbObjectId id;
        quint32 name = 0; ///< where its name begins in m_text
        quint32 length = 0;
        bool isDouble = false; ///< has the name of the layer before
    };
    enum Side : quint8 { None, In, Other };

    void readNames(const OdDbDatabase& database);
    void readOrder(LayerSortOrder order, const LayerCellContext& context);
    void note(const Ids& layers, Side side);
    QStringView nameOf(const Layer& layer) const
    {
        return QStringView(m_text).sliced(layer.name, layer.length);
    }

    std::vector<Layer> m_layers;
    QString m_text; ///< all names, one behind the other
    std::vector<quint32> m_rows; ///< m_layers in the grid's order
    LayerSortOrder m_order;
    std::vector<Side> m_sides; ///< by slot
    bool m_hasNames = false;
    bool m_hasOrder = false;
    bool m_isFilterEmpty = true;
    bool m_hasFilter = false;
};

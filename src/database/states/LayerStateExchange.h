#pragma once

#include "database/states/PortableLayerState.h"
#include "database/values/OdDbObjectId.h"

#include <QHash>

class OdDbDatabase;
struct StoredLayer;

/// Takes layer states out of a drawing and into it.
class LayerStateExchange
{
public:
    explicit LayerStateExchange(OdDbDatabase& drawing)
        : m_drawing(drawing)
    { }

    /// Layers that are gone and groups that only make sense in their drawing are left out.
    PortableLayerState exported(const QString& name, const GroupList& state) const;

    /// The state as this drawing stores it. Layers that it lacks are made, with the settings of the
    /// state; so are linetypes that came along, for others Continuous stands in. A layer whose name
    /// no layer can have stays in the state by name.
    GroupList imported(const PortableLayerState& state);

private:
    void appendValues(const StoredLayer& saved, GroupList& groups);
    OdDbObjectId layerFor(const StoredLayer& saved, bool& made);
    OdDbObjectId linetypeFor(const QByteArray& name);
    void addLinetype(const LinetypeState& linetype);

    OdDbDatabase& m_drawing;
    QHash<QByteArray, OdDbObjectId> m_linetypes; ///< by the name that the state has
};

#pragma once

#include "database/OdDbObjectId.h"

#include <vector>

class Scene;

/// What the layers of a scene look like at the moment, by the scene's layer index; for the drawing
/// as a whole or for one viewport.
class LayerLooks
{
public:
    struct Look
    {
        quint32 colour = 0xC3000007u; ///< packed as OdCmColor::color()
        bool isFrozen = false;
        bool isOff = false;
        bool isLocked = false;
        bool hasOverrides = false; ///< in some viewport
    };

    /// Reads the layers that were not read yet.
    void extend(const OdDbDatabase& database, const Scene& scene);
    /// Reads one layer again.
    void refresh(const OdDbDatabase& database, const Scene& scene, quint32 layer);
    /// These looks with what differs in a viewport: frozen there, other colours there.
    LayerLooks inViewport(const OdDbDatabase& database, const Scene& scene,
                          OdDbObjectId viewport) const;

    const Look& operator[](quint32 layer) const { return m_looks[layer]; }
    std::size_t size() const { return m_looks.size(); }

private:
    std::vector<Look> m_looks;
};

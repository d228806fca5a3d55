#pragma once

#include "database/values/OdDbObjectId.h"

#include <vector>

class Scene;

/// Opaqueness, 0 to 255, of a transparency as drawings store it; 255 where none is stated.
quint8 alphaOf(quint32 transparency);

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
        quint8 alpha = 255;
        qint16 weight = -3; ///< hundredths of a millimetre, or one of OdDb::LineWeight
        quint32 linetype = 0; ///< index into the scene's linetypes
    };

    /// Reads the layers that were not read yet.
    void extend(const OdDbDatabase& database, Scene& scene);
    /// Reads one layer again.
    void refresh(const OdDbDatabase& database, Scene& scene, quint32 layer);
    /// These looks with what differs in a viewport: frozen there, other colours and lines there.
    LayerLooks inViewport(const OdDbDatabase& database, Scene& scene, OdDbObjectId viewport) const;

    const Look& operator[](quint32 layer) const { return m_looks[layer]; }
    std::size_t size() const { return m_looks.size(); }

private:
    std::vector<Look> m_looks;
};

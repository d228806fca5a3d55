#pragma once

#include "database/OdDbObject.h"

#include <vector>

/// An entity. Its geometry stays in the file image and is read through a GroupCursor.
class OdDbEntity : public OdDbObject
{
public:
    static constexpr const char* kClassName = "OdDbEntity";
    static bool isKind(OdDbObjectKind kind)
    {
        return kind == OdDbObjectKind::Entity || kind == OdDbObjectKind::Viewport;
    }

    OdDbObjectKind kind() const override { return OdDbObjectKind::Entity; }
    OdDbObjectId layerId() const;
};

struct ViewportState
{
    std::vector<OdDbObjectId> frozenLayers; ///< in file order
    int status = 0; ///< group 68: 0 off, -1 off screen, 1 active, n stacking order
    int number = 0; ///< group 69; not a key
};

/// A viewport of a layout.
class OdDbViewport : public OdDbStateful<OdDbEntity, ViewportState>
{
public:
    static constexpr const char* kClassName = "OdDbViewport";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::Viewport; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::Viewport; }
    bool isLayerFrozenInViewport(OdDbObjectId layer) const;
    const std::vector<OdDbObjectId>& frozenLayers() const { return m_state.frozenLayers; }
    int status() const { return m_state.status; }
    int number() const { return m_state.number; }

protected:
    void imageSwapped() override { m_lookup.clear(); }

private:
    mutable std::vector<quint32>
        m_lookup; ///< slots of the frozen layers, sorted; made when asked for
};

using OdDbEntityPtr = OdSmartPtr<OdDbEntity>;
using OdDbViewportPtr = OdSmartPtr<OdDbViewport>;

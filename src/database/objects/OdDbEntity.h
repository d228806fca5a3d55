#pragma once

#include "database/objects/OdDbObject.h"

#include <vector>

class GroupList;

using OdDbObjectIdArray = std::vector<OdDbObjectId>;

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
    /// Undoable; raises OdError with InvalidInput for what is no layer of the drawing.
    void setLayer(OdDbObjectId layer);
    /// The groups of an entity that was made in this session; null for one of the file.
    virtual const GroupList* madeGroups() const { return nullptr; }
};

struct ViewportState
{
    std::vector<OdDbObjectId> frozenLayers; ///< in file order
    int status = 0; ///< group 68: 0 off, -1 off screen, 1 active, n stacking order
    int number = 0; ///< group 69; not a key
    bool operator==(const ViewportState&) const = default;
};

/// A viewport of a layout.
class OdDbViewport : public OdDbStateful<OdDbEntity, ViewportState>
{
public:
    static constexpr const char* kClassName = "OdDbViewport";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::Viewport; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::Viewport; }
    bool isLayerFrozenInViewport(OdDbObjectId layer) const;
    /// In file order, those frozen later at the end.
    const std::vector<OdDbObjectId>& frozenLayers() const { return m_state.frozenLayers; }
    /// Layers that are in that state already, erased ones and ids of other kinds are passed over.
    void freezeLayersInViewport(const OdDbObjectIdArray& layers);
    void thawLayersInViewport(const OdDbObjectIdArray& layers);
    void thawAllLayersInViewport();
    int status() const { return m_state.status; }
    int number() const { return m_state.number; }

protected:
    void imageSwapped() override { m_lookup.clear(); }

private:
    const std::vector<quint32>& lookup() const;

    mutable std::vector<quint32> m_lookup; ///< slots of the frozen layers, sorted; made on demand
};

using OdDbViewportPtr = OdSmartPtr<OdDbViewport>;

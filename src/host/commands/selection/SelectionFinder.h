#pragma once

#include "database/values/OdDbObjectId.h"
#include "host/canvas/geometry/Box2.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class HostDocument;
class HostView;

/// Finds entities of the current space of a drawing for a selection.
class SelectionFinder
{
public:
    using Entities = std::vector<OdDbObjectId>;

    /// Without a view a point picks as if the whole drawing were seen in a window of 1,000 pixels.
    SelectionFinder(HostDocument& document, const HostView* view)
        : m_document(document)
        , m_view(view)
    { }

    /// The entity at a point, or none.
    Entities at(Vec2 point) const;
    Entities inside(const Box2& box) const;
    Entities touched(const Box2& box) const;
    /// Everything on layers that are thawed, also what is not drawn.
    Entities all() const;
    /// All of that layer's; null without such a layer.
    std::optional<Entities> onLayer(const QString& name) const;
    /// The entity made last of those that can be seen.
    Entities last() const;

    /// Keeps those of the DXF types and, unless locked ones are wanted, on layers that are not.
    struct Kept
    {
        Entities entities;
        std::size_t otherTypes = 0;
        std::size_t locked = 0;
    };
    static Kept keep(const Entities& entities, const QStringList& types, bool keepsLocked);

private:
    OdDbObjectId space() const;
    Entities toIds(const std::vector<quint32>& found) const;
    double reach() const;

    HostDocument& m_document;
    const HostView* m_view;
};

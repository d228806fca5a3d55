#pragma once

#include "database/values/OdDbObjectId.h"
#include "host/canvas/geometry/Vec3.h"

#include <QByteArray>
#include <QString>

class GroupList;
class OdDbDatabase;

/// Makes entities in the current space of a drawing, on the current layer, with the color,
/// linetype, lineweight and linetype scale that the drawing gives to new ones. In a viewport that
/// is worked in, the current space is model space.
class EntityMaker
{
public:
    explicit EntityMaker(OdDbDatabase& drawing)
        : m_drawing(drawing)
    { }

    OdDbObjectId line(Vec3 from, Vec3 to) const;
    OdDbObjectId circle(Vec3 centre, double radius) const;
    /// `angle` in degrees.
    OdDbObjectId text(Vec3 position, double height, double angle, const QString& text) const;

private:
    OdDbObjectId add(const QByteArray& type, const GroupList& groups) const;

    OdDbDatabase& m_drawing;
};

#pragma once

#include "host/canvas/display/Style.h"
#include "host/canvas/geometry/Vec2.h"

#include <QString>

class EntityFields;

/// Names and properties that entities refer to.
class BlockSource
{
public:
    virtual ~BlockSource() = default;
    /// Index of the scene's block of that name, to be read later if it was not yet; kNoIndex
    /// without one.
    virtual quint32 blockByName(const QString& name) = 0;
    virtual quint32 blockByHandle(quint64 handle) = 0;
    /// Whether a block of the scene is an external reference whose drawing is not at hand.
    virtual bool isMissingReference(quint32 block) const = 0;
    /// Base point of a block of the scene.
    virtual Vec2 basePoint(quint32 block) const = 0;
    /// Font family of a text style; empty for the default font.
    virtual QString fontFamily(const QString& textStyle) = 0;
    /// Layer and colour of the entity in `slot`.
    virtual Style styleOf(quint32 slot, const EntityFields& fields) = 0;
};

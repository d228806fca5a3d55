#pragma once

#include "host/canvas/display/TextPool.h"
#include "host/canvas/entities/scope/EntityFields.h"
#include "host/canvas/entities/scope/GeometrySink.h"
#include "host/canvas/entities/scope/SpaceInfo.h"

class BlockSource;
class GroupCursor;
class ObjectStore;

/// What reading an entity needs: its groups, where the geometry goes, and the way to its vertices,
/// attributes, blocks and text styles.
struct EntityScope
{
    GroupCursor& cursor;
    const ObjectStore& store;
    EntityFields& fields;
    GeometrySink& sink;
    DisplayList& list;
    TextPool& texts;
    BlockSource& source;
    SpaceInfo space;
    std::size_t& patternStrokes; ///< how many the patterns of the drawing may still have
    quint32 slot = 0;

    /// Slot behind the last vertex, attribute or sequence end of the entity.
    quint32 subEntitiesEnd() const;
};

/// Reads one entity into the scope's sink; false when this kind of it is not drawn.
using EntityReader = bool (*)(EntityScope&);

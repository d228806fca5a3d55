#pragma once

#include "database/store/ObjectStore.h"
#include "host/canvas/entities/EntityReaders.h"

class Scene;

/// Turns entities of one block or space into display items. What it cannot draw is counted there.
class EntityTessellator
{
public:
    struct Services
    {
        GroupCursor& cursor;
        const ObjectStore& store;
        Scene& scene;
        BlockSource& source;
    };

    explicit EntityTessellator(const Services& services)
        : m_services(services)
    { }

    /// Reads the entity in `slot`, with its vertices or attributes, into `list`.
    void draw(quint32 slot, DisplayList& list, const SpaceInfo& space);

private:
    /// A small file may ask for any number of strokes; these take 150 MB.
    static constexpr std::size_t kMostPatternStrokes = 4'000'000;
    struct Entry;

    static const Entry* find(RecordType type, const QByteArray& name);
    const Entry* entryOf(quint32 slot);

    Services m_services;
    EntityFields m_fields;
    std::size_t m_patternStrokes = kMostPatternStrokes;
    std::vector<const Entry*> m_entries; ///< by type number
    std::vector<bool> m_known;
};

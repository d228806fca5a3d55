#include "host/canvas/entities/EntityTessellator.h"

#include "host/canvas/entities/scope/BlockSource.h"
#include "host/canvas/scene/Scene.h"

struct EntityTessellator::Entry
{
    RecordType type;
    const char* name; ///< of types without a fixed number
    EntityReader read;
    bool needsTexts;
};

const EntityTessellator::Entry* EntityTessellator::find(RecordType type, const QByteArray& name)
{
    using enum RecordType;
    static constexpr Entry kEntries[] = {
        {Line, nullptr, readLine, false},
        {LwPolyline, nullptr, readLwPolyline, false},
        {Polyline, nullptr, readPolyline, false},
        {Circle, nullptr, readCircle, false},
        {Arc, nullptr, readArc, false},
        {Ellipse, nullptr, readEllipse, false},
        {Point, nullptr, readPoint, false},
        {Text, nullptr, readText, true},
        {MText, nullptr, readMText, true},
        {Attdef, nullptr, readAttributeDefinition, true},
        {Insert, nullptr, readInsert, true},
        {Spline, nullptr, readSpline, false},
        {Solid, nullptr, readSolid, false},
        {Trace, nullptr, readSolid, false},
        {Face3d, nullptr, readFace, false},
        {Hatch, nullptr, readHatch, false},
        {Dimension, nullptr, readDimension, true},
        {Leader, nullptr, readLeader, false},
        {Viewport, nullptr, readViewport, false},
        {Wipeout, nullptr, readImageFrame, false},
        {FirstOther, "IMAGE", readImageFrame, false},
        {FirstOther, "MLINE", readMultiLine, false},
        {FirstOther, "RAY", readRay, false},
        {FirstOther, "XLINE", readXLine, false},
        {FirstOther, "MULTILEADER", readMultiLeader, false},
        {FirstOther, "MLEADER", readMultiLeader, false},
        {FirstOther, "ACAD_TABLE", readTable, true},
        {FirstOther, "ARC_DIMENSION", readDimension, true},
        {FirstOther, "LARGE_RADIAL_DIMENSION", readDimension, true},
    };
    for (const Entry& entry : kEntries) {
        if (entry.name ? name == entry.name : entry.type == type)
            return &entry;
    }
    return nullptr;
}

const EntityTessellator::Entry* EntityTessellator::entryOf(quint32 slot)
{
    const RecordType type = m_services.store.type(slot);
    const auto number = static_cast<std::size_t>(type);
    if (m_known.size() <= number) {
        m_known.resize(number + 1);
        m_entries.resize(number + 1);
    }
    if (!m_known[number]) {
        m_known[number] = true;
        m_entries[number] = find(type, m_services.store.typeName(slot));
    }
    return m_entries[number];
}

void EntityTessellator::draw(quint32 slot, DisplayList& list, const SpaceInfo& space)
{
    const Entry* const entry = entryOf(slot);
    m_fields.read(m_services.cursor, slot, entry && entry->needsTexts);
    const bool isHidden = m_fields.integer(60) == 1;
    if (isHidden)
        return;
    if (!entry) {
        list.countUndrawn(m_services.store.typeName(slot));
        return;
    }
    GeometrySink sink(list);
    sink.begin(m_services.source.styleOf(slot, m_fields), slot);
    EntityScope scope{m_services.cursor,
                      m_services.store,
                      m_fields,
                      sink,
                      list,
                      m_services.scene.texts(),
                      m_services.source,
                      space,
                      m_patternStrokes,
                      slot};
    if (!entry->read(scope) || sink.hasRejected())
        list.countUndrawn(m_services.store.typeName(slot));
}

#pragma once

#include "database/values/OdDbObjectId.h"
#include "host/canvas/scene/lines/DashPattern.h"
#include "host/canvas/scene/lines/Pen.h"

#include <QHash>

#include <deque>

/// Linetypes of a scene by index, read when something first has them. Index Pen::kContinuous is the
/// line without gaps.
class Linetypes
{
public:
    Linetypes() { m_patterns.emplace_back(); }

    /// Index of a linetype; Pen::kContinuous for a null id.
    quint32 indexOf(const OdDbDatabase& database, OdDbObjectId linetype);
    /// Reads a linetype again; false when nothing has it.
    bool refresh(const OdDbDatabase& database, OdDbObjectId linetype);
    const DashPattern& operator[](quint32 index) const { return m_patterns[index]; }

private:
    static DashPattern read(const OdDbDatabase& database, OdDbObjectId linetype);

    std::deque<DashPattern> m_patterns; ///< pictures under way point at them
    QHash<quint32, quint32> m_index; ///< by slot
};

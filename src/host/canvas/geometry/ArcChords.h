#pragma once

#include "host/canvas/geometry/Box2.h"
#include "host/canvas/geometry/CurveArc.h"

#include <vector>

/// Calls for the chords of an arc that come near a box, each over `longestSweep` radians at most,
/// in order, until the call answers true; answers whether one did. An arc of any number of turns
/// costs what is near the box, by halves.
template <class Call>
bool anyChordNear(const CurveArc& arc, const Box2& box, double longestSweep, Call call)
{
    std::vector<CurveArc> pending{arc};
    while (!pending.empty()) {
        CurveArc part = pending.back();
        pending.pop_back();
        if (!part.box().meets(box))
            continue;
        if (std::abs(part.sweep) <= longestSweep) {
            if (call(part.first(), part.last()))
                return true;
            continue;
        }
        part.sweep /= 2;
        CurveArc second = part;
        second.start += part.sweep;
        pending.push_back(second);
        pending.push_back(part);
    }
    return false;
}

#pragma once

#include "database/values/GroupList.h"
#include "io/dwg/support/DwgMaker.h"

/// DWG drawings for benchmarks, made from nothing: lines, circles and texts in turn, on layers in
/// turn.
namespace made_dwg {

inline GroupList point(int code, double x, double y)
{
    GroupList groups;
    groups.append(code, QByteArray::number(x, 'g', 15));
    groups.append(code + 10, QByteArray::number(y, 'g', 15));
    groups.append(code + 20, "0");
    return groups;
}

inline GroupList groups(int kind, int number)
{
    // Coordinates as drawn ones are: no short form of a number fits them.
    const double x = 0.137 * (number % 997);
    const double y = 0.731 * (number / 997) + 0.01;
    GroupList groups = point(10, x, y);
    if (kind == 0) {
        for (const GroupList::Group& group : point(11, x + 3.3, y + 0.7))
            groups.append(group);
    } else {
        groups.append(40, kind == 1 ? "1.75" : "2.5");
        if (kind == 2)
            groups.append(1, "Text " + QByteArray::number(number));
    }
    return groups;
}

inline QByteArray bytes(DrawingVersion version, int layers, int entities)
{
    constexpr const char* kTypes[] = {"LINE", "CIRCLE", "TEXT"};
    MadeDrawing drawing = MadeDrawing::sample(version);
    for (int i = static_cast<int>(drawing.layers.size()); i < layers; ++i) {
        MadeDrawing::Layer layer;
        layer.state.name = QStringLiteral("Layer %1").arg(i);
        layer.state.color = OdCmColor::fromIndex(static_cast<quint8>(1 + i % 255));
        drawing.layers.push_back(layer);
    }
    for (int i = 0; i < entities; ++i)
        drawing.entities.push_back(
            {kTypes[i % 3], groups(i % 3, i), static_cast<std::size_t>(i) % drawing.layers.size()});
    return DwgMaker(drawing).bytes();
}

} // namespace made_dwg

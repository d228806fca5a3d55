#pragma once

#include "host/canvas/scene/lines/Pen.h"

#include <QHash>

#include <vector>

/// The different pens of a scene. They come in threes, so that a style can be turned into one for
/// lines that no linetype breaks up (patterns of hatches), or for edges of filled areas, which are
/// thin besides, by adding to its index.
class PenTable
{
public:
    enum Variant : quint32 { kAsStated, kUnbroken, kEdge };

    PenTable() { intern(Pen()); }

    quint32 intern(const Pen& pen)
    {
        const auto known = m_index.constFind(pen);
        if (known != m_index.cend())
            return known.value();
        const auto index = static_cast<quint32>(m_pens.size());
        m_index.insert(pen, index);
        m_pens.push_back(pen);
        m_pens.push_back({Pen::kContinuous, pen.weight, pen.transparency, 1});
        m_pens.push_back({Pen::kContinuous, 0, pen.transparency, 1});
        return index;
    }
    const Pen& operator[](quint32 index) const { return m_pens[index]; }

private:
    std::vector<Pen> m_pens;
    QHash<Pen, quint32> m_index;
};

#pragma once

#include "host/canvas/display/DisplayItems.h"

#include <QHash>
#include <QString>

#include <vector>

/// How a piece of text is set; lengths in heights of a capital letter.
struct TextSpec
{
    enum class Horizontal : quint8 { Left, Centre, Right, Fit, Aligned };
    enum class Vertical : quint8 { Baseline, Bottom, Middle, Top };

    QString text; ///< lines separated by '\n'
    QString font; ///< family, empty: the default
    Horizontal horizontal = Horizontal::Left;
    Vertical vertical = Vertical::Baseline;
    double width =
        0; ///< Fit and Aligned: between the two points; else where lines wrap, 0: nowhere
    double lineStep = 5.0 / 3;

    friend bool operator==(const TextSpec&, const TextSpec&) = default;
};

inline size_t qHash(const TextSpec& spec, size_t seed = 0)
{
    return qHashMulti(seed, spec.text, spec.font, static_cast<int>(spec.horizontal),
                      static_cast<int>(spec.vertical), spec.width, spec.lineStep);
}

/// The different texts of a scene; many entities show the same few.
class TextPool
{
public:
    /// `extent`: estimated, relative to the alignment point.
    quint32 intern(const TextSpec& spec, const Box2& extent)
    {
        const auto index = static_cast<quint32>(m_specs.size());
        const size_t hash = qHash(spec, QHashSeed::globalSeed());
        const quint32 last = m_lastOfHash.value(hash, kNoIndex);
        for (quint32 same = last; same != kNoIndex; same = m_sameHash[same]) {
            if (m_specs[same] == spec)
                return same;
        }
        m_lastOfHash.insert(hash, index);
        m_sameHash.push_back(last);
        m_specs.push_back(spec);
        m_extents.push_back(extent);
        return index;
    }
    const TextSpec& operator[](quint32 index) const { return m_specs[index]; }
    const Box2& extent(quint32 index) const { return m_extents[index]; }
    std::size_t size() const { return m_specs.size(); }

private:
    std::vector<TextSpec> m_specs;
    std::vector<Box2> m_extents;
    // Texts by what they hash to: keys that stay small, for there are many.
    QHash<size_t, quint32> m_lastOfHash;
    std::vector<quint32> m_sameHash; ///< the one before with the same hash, by index
};

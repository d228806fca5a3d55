#include "host/canvas/support/DamagedDrawing.h"

#include <algorithm>

namespace {

constexpr const char* kBadValues[] = {
    "",     "0",       "-1",     "nan",        "inf",         "-inf",        "1e308", "-1e308",
    "1e16", "-1e15",   "1e-300", "4294967295", "-2147483648", "99999999999", "1e400", "3.5.7",
    "x",    "1e15",    "0.0",    "-0",         "65536",       "32767",       "256",   "1e-9",
    "{",    "\\S1/2;", "%%",     "\\",         "BYLAYER",     "A",
};

} // namespace

DamagedDrawing::DamagedDrawing(const QByteArray& text, const QByteArray& from)
    : m_lines(text.split('\n'))
{
    if (m_lines.size() % 2 == 1)
        m_lines.removeLast();
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        if (m_lines[i].endsWith('\r'))
            m_lines[i].chop(1);
        if (i % 2 == 0)
            m_lines[i] = m_lines[i].trimmed();
    }
    for (qsizetype i = 0; i + 3 < m_lines.size() && m_firstGroup == 0; i += 2) {
        if (m_lines[i + 1] == "SECTION" && m_lines[i + 3] == from)
            m_firstGroup = i / 2 + 2;
    }
}

std::size_t DamagedDrawing::below(std::size_t end, Random& random)
{
    // Not a distribution: those differ between libraries.
    return end == 0 ? 0 : random() % end;
}

QByteArray DamagedDrawing::badValue(const QByteArray& value, Random& random)
{
    switch (below(4, random)) {
    case 0:
        return value.left(
            static_cast<qsizetype>(below(static_cast<std::size_t>(value.size()) + 1, random)));
    case 1: {
        QByteArray flipped = value;
        if (!flipped.isEmpty()) {
            const auto at =
                static_cast<qsizetype>(below(static_cast<std::size_t>(value.size()), random));
            const auto flip = static_cast<char>(1u << below(7, random));
            const char c = static_cast<char>(flipped[at] ^ flip);
            flipped[at] = c == '\n' || c == '\r' ? '9' : c;
        }
        return flipped;
    }
    default:
        return kBadValues[below(std::size(kBadValues), random)];
    }
}

QByteArray DamagedDrawing::copy(unsigned seed) const
{
    Random random(seed);
    QList<QByteArray> lines = m_lines;
    const std::size_t hits = 1 + below(12, random);
    for (std::size_t hit = 0; hit < hits; ++hit) {
        const auto group =
            static_cast<qsizetype>(2 * below(static_cast<std::size_t>(lines.size() / 2), random));
        // Marks of records and sections stay: without them the drawing would only be refused.
        if (lines.size() < group + 4 || lines[group] == "0" || lines[group] == "2")
            continue;
        switch (below(8, random)) {
        case 0:
            lines.remove(group, 2);
            break;
        case 1:
            lines.insert(group, lines[group + 1]);
            lines.insert(group, lines[group + 1]);
            break;
        case 2:
            if (lines[group + 2] != "0")
                std::swap(lines[group + 1], lines[group + 3]);
            break;
        default:
            lines[group + 1] = badValue(lines[group + 1], random);
            break;
        }
    }
    return lines.join('\n') + '\n';
}

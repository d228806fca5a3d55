#include "host/canvas/entities/scope/EntityFields.h"

#include "database/values/GroupCursor.h"

#include <limits>

namespace {

enum class Kind { Skip, Real, Integer, Text, Linetype };

constexpr int kEmbeddedObject = 101;
constexpr int kFirstExtendedData = 1000;

/// What becomes of a group, by its code: handles and names of no use here are not even decoded.
Kind kindOf(int code)
{
    if ((code >= 10 && code < 60) || (code >= 140 && code < 150) || (code >= 210 && code < 240))
        return Kind::Real;
    if ((code >= 60 && code < 80) || (code >= 90 && code < 100) || (code >= 170 && code < 180)
        || (code >= 270 && code < 290) || code == 370 || code == 420 || code == 421 || code == 440
        || code == 450)
    {
        return Kind::Integer;
    }
    if ((code >= 1 && code <= 4) || code == 7)
        return Kind::Text;
    return code == 6 ? Kind::Linetype : Kind::Skip;
}

} // namespace

void EntityFields::keep(int code, double value)
{
    m_groups.push_back({code, value});
    if (has(code))
        return;
    m_stamps[index(code)] = m_stamp;
    m_values[index(code)] = value;
}

void EntityFields::read(GroupCursor& cursor, quint32 slot, bool withTexts)
{
    ++m_stamp;
    m_groups.clear();
    m_texts.clear();
    m_hasLinetype = false;
    cursor.open(slot);
    while (cursor.next()) {
        const int code = cursor.code();
        if (code >= kFirstExtendedData || code == kEmbeddedObject)
            break;
        const Kind kind = kindOf(code);
        if (kind == Kind::Real)
            keep(code, cursor.real());
        else if (kind == Kind::Integer)
            keep(code, static_cast<double>(cursor.integer()));
        else if (kind == Kind::Text && withTexts)
            m_texts.push_back({code, cursor.text()});
        else if (kind == Kind::Linetype && !m_hasLinetype)
            keepLinetype(cursor);
    }
}

void EntityFields::keepLinetype(const GroupCursor& cursor)
{
    m_hasLinetype = true;
    const QByteArrayView coded = cursor.bytes();
    if (coded == m_codedLinetype)
        return;
    m_codedLinetype = coded.toByteArray();
    m_linetype = cursor.text();
}

int EntityFields::integer(int code, int fallback) const
{
    if (!has(code))
        return fallback;
    const double value = m_values[index(code)];
    if (!(std::abs(value) <= std::numeric_limits<int>::max()))
        return fallback;
    return static_cast<int>(value);
}

double EntityFields::radians(int code, double fallbackDegrees) const
{
    constexpr double kDegree = 3.14159265358979323846 / 180;
    // A whole turn more or less is no difference, a huge number is none that sine could take.
    return std::fmod(real(code, fallbackDegrees), 360) * kDegree;
}

Ocs EntityFields::ocs() const
{
    return has(230) || has(210) || has(220) ? Ocs::fromNormal({real(210), real(220), real(230, 1)})
                                            : Ocs();
}

QString EntityFields::text(int code) const
{
    for (const Text& entry : m_texts) {
        if (entry.code == code)
            return entry.value;
    }
    return {};
}

#pragma once

#include "host/canvas/geometry/Ocs.h"

#include <QString>

#include <array>
#include <vector>

class GroupCursor;

/// The groups of one entity that drawing needs. One object serves many entities and keeps its
/// memory. Extended data and embedded objects are left out.
class EntityFields
{
public:
    struct Group
    {
        int code;
        double value;
    };
    struct Text
    {
        int code;
        QString value;
    };

    /// Reads the record in `slot`; texts only when asked for, since decoding them costs most.
    void read(GroupCursor& cursor, quint32 slot, bool withTexts);

    bool has(int code) const { return m_stamps[index(code)] == m_stamp; }
    /// First value of that code.
    double real(int code, double fallback = 0) const
    {
        return has(code) ? m_values[index(code)] : fallback;
    }
    int integer(int code, int fallback = 0) const;
    /// The point of group codes `code`, `code` + 10, `code` + 20.
    Vec3 point(int code) const { return {real(code), real(code + 10), real(code + 20)}; }
    double radians(int code, double fallbackDegrees = 0) const;
    Ocs ocs() const;
    /// First text of that code, or an empty one.
    QString text(int code) const;
    /// Name of the entity's own linetype, group 6; empty: by layer.
    const QString& linetype() const { return m_hasLinetype ? m_linetype : m_none; }

    /// All numbers in file order, for entities whose groups repeat.
    const std::vector<Group>& groups() const { return m_groups; }
    const std::vector<Text>& texts() const { return m_texts; }

private:
    static constexpr int kCodes = 512;
    static std::size_t index(int code) { return static_cast<std::size_t>(code) % kCodes; }
    void keep(int code, double value);
    void keepLinetype(const GroupCursor& cursor);

    std::array<double, kCodes> m_values{};
    std::array<quint32, kCodes> m_stamps{};
    quint32 m_stamp = 0;
    std::vector<Group> m_groups;
    std::vector<Text> m_texts;
    bool m_hasLinetype = false;
    QByteArray m_codedLinetype; ///< of an entity before: most have the same few
    QString m_linetype;
    QString m_none;
};

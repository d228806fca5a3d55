#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

class GroupCursor;
class OdDbDatabase;

/// The groups of an entity that its picture is made from.
class DrawnGroups
{
public:
    /// Nothing for a type that is not drawn.
    static bool draws(const QByteArray& type);

    DrawnGroups(const OdDbDatabase& drawing, GroupCursor& cursor, quint32 slot);

    struct Difference
    {
        int code;
        QString sentence;
    };
    /// Where two entities would not look alike; values left out count as the usual ones.
    std::vector<Difference> differences(const DrawnGroups& other) const;

private:
    struct Value
    {
        int code;
        double number;
        QString text;
    };

    std::vector<Value> of(int code, double usual) const;
    static bool agree(const std::vector<Value>& a, const std::vector<Value>& b);
    static QString spelled(const std::vector<Value>& values);

    QByteArray m_type;
    std::vector<Value> m_values; ///< in their order
};

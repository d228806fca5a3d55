#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

/// Takes up the groups of one record in their order.
class GroupSink
{
public:
    enum class Kind : quint8 { Real, Integer, Handle, Name, Text, Mark };
    struct Group
    {
        int code;
        Kind kind;
        union {
            double real;
            qint64 integer;
            quint64 handle; ///< of Handle, and of Name: of what has the name
            std::size_t text; ///< number in texts()
            const char* mark;
        };
    };

    void clear()
    {
        m_groups.clear();
        m_texts.clear();
    }
    /// A name that the format has ("AcDbLine"); not copied.
    void mark(int code, const char* name) { add(code, Kind::Mark).mark = name; }
    void real(int code, double value) { add(code, Kind::Real).real = value; }
    void integer(int code, qint64 value) { add(code, Kind::Integer).integer = value; }
    void handle(int code, quint64 value) { add(code, Kind::Handle).handle = value; }
    /// The name of the record with that handle; looked up when somebody asks for it.
    void name(int code, quint64 handle) { add(code, Kind::Name).handle = handle; }
    void text(int code, const QString& value)
    {
        add(code, Kind::Text).text = m_texts.size();
        m_texts.push_back(value);
    }
    /// A value spelled as GroupList has it.
    void canonical(int code, QByteArrayView value) { text(code, QString::fromUtf8(value)); }
    /// Three coordinates under `code`, `code` + 10 and `code` + 20.
    void point(int code, const double (&value)[3])
    {
        for (int axis = 0; axis < 3; ++axis)
            real(code + 10 * axis, value[axis]);
    }
    void point(int code, const double (&value)[2])
    {
        real(code, value[0]);
        real(code + 10, value[1]);
    }

    std::size_t size() const { return m_groups.size(); }
    const Group& at(std::size_t number) const { return m_groups[number]; }
    const QString& textOf(const Group& group) const { return m_texts[group.text]; }

private:
    Group& add(int code, Kind kind)
    {
        Group group;
        group.code = code;
        group.kind = kind;
        group.integer = 0;
        m_groups.push_back(group);
        return m_groups.back();
    }

    std::vector<Group> m_groups;
    std::vector<QString> m_texts;
};

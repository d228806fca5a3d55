#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <cstring>
#include <iterator>

/// A sequence of tagged groups in one block of memory. Values are canonical, whatever the file
/// spells: text as UTF-8, numbers in decimal, handles and binary chunks in hexadecimal.
class GroupList
{
public:
    struct Group
    {
        int code = 0;
        QByteArrayView value; ///< valid while the list is not changed
    };

    class const_iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Group;
        using difference_type = std::ptrdiff_t;
        using pointer = const Group*;
        using reference = Group;

        const_iterator() = default;
        Group operator*() const
        {
            Head head;
            std::memcpy(&head, m_at, sizeof head);
            return {head.code, QByteArrayView(m_at + sizeof head, head.length)};
        }
        const_iterator& operator++()
        {
            Head head;
            std::memcpy(&head, m_at, sizeof head);
            m_at += sizeof head + static_cast<std::size_t>(head.length);
            return *this;
        }
        const_iterator operator++(int)
        {
            const_iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const const_iterator&, const const_iterator&) = default;

    private:
        friend class GroupList;
        explicit const_iterator(const char* at)
            : m_at(at)
        { }
        const char* m_at = nullptr;
    };

    GroupList() = default;
    GroupList(std::initializer_list<Group> groups)
    {
        for (const Group& group : groups)
            append(group.code, group.value);
    }

    void append(int code, QByteArrayView value)
    {
        const Head head{code, static_cast<int>(value.size())};
        m_bytes.append(reinterpret_cast<const char*>(&head), sizeof head);
        m_bytes.append(value.data(), value.size());
        ++m_count;
    }
    void append(int code, qint64 number) { append(code, QByteArray::number(number)); }
    void append(const Group& group) { append(group.code, group.value); }

    const_iterator begin() const { return const_iterator(m_bytes.constData()); }
    const_iterator end() const { return const_iterator(m_bytes.constData() + m_bytes.size()); }
    qsizetype size() const { return m_count; }
    bool isEmpty() const { return m_count == 0; }
    void clear() { *this = {}; }
    void reserve(qsizetype bytes) { m_bytes.reserve(bytes); }

    friend bool operator==(const GroupList& a, const GroupList& b)
    {
        return a.m_count == b.m_count && a.m_bytes == b.m_bytes;
    }

private:
    struct Head
    {
        int code;
        int length;
    };
    QByteArray m_bytes;
    qsizetype m_count = 0;
};

#pragma once

#include <QString>

#include <compare>

/// Persistent identity of an object within its drawing: a 64-bit number, written as upper-case
/// hexadecimal text. Zero is "no object".
class OdDbHandle
{
public:
    constexpr OdDbHandle() = default;
    constexpr explicit OdDbHandle(quint64 value)
        : m_value(value)
    { }

    constexpr quint64 value() const { return m_value; }
    constexpr bool isNull() const { return m_value == 0; }
    QString ascii() const { return QString::number(m_value, 16).toUpper(); }

    constexpr auto operator<=>(const OdDbHandle&) const = default;

private:
    quint64 m_value = 0;
};

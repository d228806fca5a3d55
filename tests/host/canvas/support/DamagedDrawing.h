#pragma once

#include <QByteArrayList>

#include <random>

/// Copies of a drawing's text that are damaged in ways a foreign file may be: values cut short,
/// huge, no numbers or empty; groups lost, doubled or exchanged; bytes flipped. Equal seeds give
/// equal copies.
class DamagedDrawing
{
public:
    /// `text`: a DXF drawing; `from`: name of the section where damage begins, so that the drawing
    /// itself can still be read.
    DamagedDrawing(const QByteArray& text, const QByteArray& from);

    QByteArray copy(unsigned seed) const;

private:
    using Random = std::mt19937;
    static QByteArray badValue(const QByteArray& value, Random& random);
    static std::size_t below(std::size_t end, Random& random);

    QByteArrayList m_lines; ///< group codes and values by turns
    qsizetype m_firstGroup = 0; ///< that may be damaged
};

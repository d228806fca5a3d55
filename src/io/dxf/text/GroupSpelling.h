#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// How a drawing file spells groups: text with its line end, width of codes and padding of numbers,
/// or binary with one or two bytes for a code. Values come in one canonical form: text encoded for
/// the file, numbers in decimal, handles and chunks in hexadecimal.
class GroupSpelling
{
public:
    /// Chunks are cut into groups of this many bytes, as other programs do.
    static constexpr qsizetype kLongestChunk = 127;

    /// A padded number gets the columns that other programs give its kind.
    static GroupSpelling text(QByteArray lineEnd, int codeWidth, bool padsNumbers);
    /// `codeBytes`: 1 (drawings up to R12) or 2.
    static GroupSpelling binary(int codeBytes);
    /// As the groups of that stretch of a text drawing are spelled; it starts with a group code.
    static GroupSpelling sample(QByteArrayView groups);

    bool isBinary() const { return m_codeBytes > 0; }
    /// Appends a whole group; a chunk that is too long for one becomes several.
    void append(QByteArray& out, int code, QByteArrayView value) const;
    /// The value's bytes with what ends them: a line end, a zero. A chunk must have at most 255
    /// bytes.
    QByteArray value(int code, QByteArrayView value) const;

private:
    void appendCode(QByteArray& out, int code) const;
    QByteArray textValue(int code, QByteArrayView value) const;
    static QByteArray binaryValue(int code, QByteArrayView value);

    QByteArray m_lineEnd;
    int m_codeWidth = 0;
    bool m_padsNumbers = false;
    int m_codeBytes = 0; ///< 0 for text
};

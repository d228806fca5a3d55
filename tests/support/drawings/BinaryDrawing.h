#pragma once

#include <QByteArray>

/// Binary DXF drawings for tests, made from text ones.
class BinaryDrawing
{
public:
    /// The same groups in binary. `codeBytes`: 1 as in drawings up to R12, 2 as in later ones.
    static QByteArray fromText(const QByteArray& text, int codeBytes);
    /// The mark that every binary drawing starts with.
    static QByteArray head();
    /// The bytes of a group code.
    static QByteArray code(int code, int codeBytes);
};

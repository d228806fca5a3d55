#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

/// The text encoding of a DXF file: UTF-8 from AC1021 on, before that the code page that
/// $DWGCODEPAGE names; escapes \U+XXXX, \M+nXXXX and ^x in either.
class DxfText
{
public:
    DxfText() = default;
    /// `version` as $ACADVER has it, `codePage` as $DWGCODEPAGE has it; either may be empty.
    DxfText(QByteArrayView version, QByteArrayView codePage);

    /// Text of a value line. Bytes that the encoding does not know become U+FFFD.
    QString decode(QByteArrayView bytes) const;
    /// Bytes for a value line; characters outside the code page as \U+XXXX, line breaks as ^J.
    QByteArray encode(QStringView text) const;
    bool isUtf8() const { return m_codec.isEmpty(); }

private:
    QString decodePlain(QByteArrayView bytes) const;

    QByteArray m_codec; ///< name of the code page's converter; empty for UTF-8
};

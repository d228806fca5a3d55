#pragma once

#include "io/dxf/text/CodePage.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <mutex>

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
    /// Bytes for a value line: characters outside the encoding as \U+XXXX, control characters and
    /// the caret as ^x. decode() gives the same text back.
    QByteArray encode(QStringView text) const;
    /// Whether the encoding has all characters of the text, so that none becomes \U+XXXX.
    bool holds(QStringView text) const;
    bool isUtf8() const { return !m_page; }

private:
    /// Its tables are made when the first character beyond ASCII asks for them.
    struct Page
    {
        QByteArray name;
        std::once_flag once;
        std::shared_ptr<const CodePage> tables;
    };
    const CodePage& page() const;

    std::shared_ptr<Page> m_page; ///< none for UTF-8
};

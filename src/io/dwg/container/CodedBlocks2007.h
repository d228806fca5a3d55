#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The Reed-Solomon code of DWG files of version 2007. A page consists of blocks of 255 bytes, data
/// and behind them check bytes; the first bytes of all blocks stand first, then the second ones...
/// Errors are noticed, not corrected.
class CodedBlocks2007
{
public:
    static constexpr qsizetype kBlockSize = 255;
    enum Kind : int {
        System, ///< heads and maps: 239 bytes of data in a block
        Data, ///< pages of sections: 251 bytes
    };

    explicit CodedBlocks2007(Kind kind);

    /// Size in the file of the blocks for so many bytes of data.
    quint64 codedSize(quint64 size) const;
    /// The data of whole blocks.
    QByteArray data(QByteArrayView coded) const;
    /// Whether the check bytes of whole blocks are right.
    bool areSound(QByteArrayView coded) const;

private:
    Kind m_kind;
    qsizetype m_dataSize; ///< in a block
};

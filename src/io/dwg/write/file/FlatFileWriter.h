#pragma once

#include "io/DrawingCodec.h"
#include "io/dwg/container/FlatFile.h"

#include <QByteArray>

#include <map>

/// Builds a flat file anew, with some sections and the stretch of objects replaced: all else is
/// copied in its order; addresses, the second header and check sums follow.
class FlatFileWriter
{
public:
    explicit FlatFileWriter(const FlatFile& file)
        : m_file(file)
    { }

    /// Sections that stand before the objects come first.
    void replace(int number, const QByteArray& bytes);
    void setSeed(quint64 seed) { m_seed = seed; }
    void replaceObjects(quint64 begin, quint64 end, const QByteArray& bytes);
    /// Where an offset of the old file comes to stand, after the sections replaced so far.
    quint64 movedObjects(quint64 offset) const { return moved(offset); }
    bool isEmpty() const { return m_edits.empty(); }
    DrawingPieces result();

private:
    struct Edit
    {
        quint64 end;
        QByteArray bytes;
    };
    quint64 moved(quint64 offset) const;
    void patchLocators();
    /// The preview lists its pictures by their place in the file.
    void movePreview();
    /// False where there is one that cannot be read.
    bool rebuildSecondHeader();
    QByteArray secondHeader(QByteArrayView old, quint64 place) const;

    const FlatFile& m_file;
    std::map<quint64, Edit> m_edits; ///< by where they begin in the old file
    quint64 m_seed = 0; ///< 0: as it was
};

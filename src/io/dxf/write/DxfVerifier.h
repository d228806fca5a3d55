#pragma once

#include "io/DrawingCodec.h"
#include "io/dxf/write/DxfMeant.h"

class DxfObjectSource;
class DxfCursor;

/// Reads the changed records of a written file and compares each with what it was meant to say.
class DxfVerifier
{
public:
    DxfVerifier(const DxfObjectSource& source, const DrawingPieces& pieces,
                const WrittenBytes& written);

    /// Raises OdError_FileAccess for the first record that says something else.
    void run();

private:
    bool isAsMeant(const DrawingPieces::ChangedRecord& record, const DxfCursor& groups) const;
    bool isLayerAsMeant(quint32 slot, const DxfCursor& groups) const;
    bool isDictionaryAsMeant(quint32 slot, const DxfCursor& groups) const;
    bool isMadeAsMeant(const DxfMeant::Made& made, const DxfCursor& groups) const;
    bool isEntityAsMeant(const GroupList& meant, DxfCursor groups) const;
    QString entityLayerName(quint32 slot) const;

    const DxfObjectSource& m_source;
    const DrawingPieces& m_pieces;
    const WrittenBytes& m_written;
    const DxfMeant& m_meant;
    mutable std::size_t m_nextMade = 0;
};

#pragma once

#include "io/DrawingCodec.h"
#include "io/dwg/container/DwgFile.h"
#include "io/dwg/records/DwgRecord.h"
#include "io/dwg/sections/ObjectMap.h"
#include "io/dwg/write/DwgMeant.h"

class DwgObjectSource;
class HeaderSection;

/// Reads a written DWG file and compares each record with what it was meant to be: those that were
/// edited, and all others with the file that the drawing was read from.
class DwgVerifier
{
public:
    DwgVerifier(const DwgObjectSource& source, const OdDbDatabase& database,
                const DrawingPieces& pieces, const WrittenBytes& written);

    /// Raises OdError_FileAccess for the first record that says something else.
    void run() const;

private:
    void compareRecords(const DwgFile& file, const ObjectMap& map) const;
    void compareMeanings(const DwgFile& file, const ObjectMap& map) const;
    void compareSettings(const DwgFile& file) const;
    /// Whether an edited or new record, whose head was read, says what is meant.
    bool says(DwgRecord& record, const DwgHead& head, const DwgEntityHead& entity) const;
    bool saysLayer(DwgRecord& record, const DwgHead& head, quint32 slot) const;
    bool saysXData(DwgRecord& record, const DwgHead& head) const;
    bool saysEntity(const DwgFile& file, const ObjectMap::Entry& entry,
                    const DwgEntityHead& entity) const;
    bool saysVariables(const HeaderSection& header) const;
    /// Of an application or a layer, one that is new too.
    QString nameOf(quint64 handle) const;
    [[noreturn]] static void fail(quint64 handle);

    const DwgObjectSource& m_source;
    const OdDbDatabase& m_database;
    const DrawingPieces& m_pieces;
    const WrittenBytes& m_written;
    const DwgMeant& m_meant;
};

#pragma once

#include "database/tables/OdDbSymbolTable.h"
#include "io/dwg/read/DwgIndex.h"
#include "io/dwg/sections/HeaderSection.h"

class DwgObjectSource;
class OdDbDatabase;
class ObjectStore;
enum class RecordType : quint16;

/// Turns the index of a DWG file into a database: slots, tables and their names, blocks, owners,
/// current settings. Raises OdError_InvalidDrawing where there is no layer table to show; lesser
/// gaps are noted.
class DwgAssembler
{
public:
    DwgAssembler(OdDbDatabase& database, DwgObjectSource& source, const DwgIndex& index,
                 const HeaderSection& header);
    /// Returns why the file must not be written over, in sentences.
    QStringList run();

private:
    void assignSlots();
    void relations();
    void tables();
    void makeTable(OdDbTableKind kind, quint64 control);
    void addRecords(OdDbTableKind kind, quint64 control);
    void requireRecords();
    quint32 makeRecord(OdDbTableKind kind, const QString& name);
    void blocks();
    void variables();
    void currentSettings();
    void fault(const QString& sentence) { m_faults << sentence; }
    /// Slot of a handle, or ObjectStore::kNone.
    quint32 slotOf(quint64 handle) const;

    OdDbDatabase& m_database;
    ObjectStore& m_store;
    DwgObjectSource& m_source;
    const DwgIndex& m_index;
    const HeaderSection& m_header;
    std::vector<quint32> m_slots; ///< by number of the record in the index
    QStringList m_faults;
};

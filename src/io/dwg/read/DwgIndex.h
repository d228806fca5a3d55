#pragma once

#include "io/DrawingFile.h"
#include "io/dwg/container/DwgFile.h"
#include "io/dwg/read/HandleIndex.h"
#include "io/dwg/records/DwgFormat.h"
#include "io/dwg/records/TableRecords.h"
#include "io/dwg/sections/DwgClasses.h"

#include <QStringList>

#include <vector>

/// What one pass over the records of a DWG file found, and the order in which they get their slots:
/// those of each table in its order, others that are no entities by handle, then the entities of
/// one block after the other, each with its parts behind it.
class DwgIndex
{
public:
    struct Record
    {
        quint64 handle = 0;
        quint64 offset = 0; ///< from the start of the object section
        quint64 owner = 0; ///< 0: none, or a space
        quint64 layer = 0; ///< of an entity
        quint64 next = 0; ///< up to version 2000: the next entity of a chain
        quint16 type = 0;
        bool entity = false;
        bool part = false; ///< a vertex, an attribute or the end of a sequence
        bool readable = false; ///< its values are whole, and it has the handle that the map says
        bool sound = false; ///< and its sum is right
        quint8 space = 0; ///< DwgEntityHead::Space
    };
    struct BlockRecord
    {
        quint32 record; ///< of its table record
        TableRecords::Block block;
    };

    struct Table
    {
        quint32 control; ///< the table's own record
        std::vector<quint32> records; ///< in its order
    };

    DwgIndex(const DwgFile& file, const DwgFormat& format, const DwgClasses& classes);
    /// Raises OdError (cancelled) where `progress` says so.
    void run(const IoProgress& progress);

    const std::vector<Record>& records() const { return m_records; }
    /// Numbers of records in the order of their slots.
    const std::vector<quint32>& order() const { return m_order; }
    const std::vector<BlockRecord>& blocks() const { return m_blocks; }
    /// The table whose own record has that handle, or null.
    const Table* table(quint64 handle) const;
    quint32 find(quint64 handle) const { return m_handles.find(handle); }
    /// Why the file must not be written over, in sentences.
    const QStringList& faults() const { return m_faults; }

private:
    void readMap();
    /// A save writes all records of a flat file in one run.
    void requireOneRun();
    void scan(std::size_t first, std::size_t end);
    void scanAll(const IoProgress& progress);
    void readBlocks();
    void readTables();
    void orderRecords();
    void orderBlock(const BlockRecord& block);
    void take(quint32 record);
    void takeWithParts(quint32 record);
    /// The entities that a record owns, by number, whether they stand in a list or in a chain.
    std::vector<quint32> owned(const OwnedEntities& entities);
    void addFault(const QString& sentence);

    const DwgFile& m_file;
    const DwgFormat& m_format;
    const DwgClasses& m_classes;
    QByteArrayView m_objects;
    std::vector<Record> m_records;
    HandleIndex m_handles{0};
    std::vector<quint32> m_order;
    std::vector<bool> m_taken;
    std::vector<quint32> m_chainOf; ///< the chain that last came by a record
    quint32 m_chains = 0;
    std::vector<BlockRecord> m_blocks;
    std::vector<Table> m_tables;
    QStringList m_faults;
};

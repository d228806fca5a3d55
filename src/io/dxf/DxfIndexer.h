#pragma once

#include "database/ObjectStore.h"
#include "io/FileImage.h"
#include "io/dxf/DxfText.h"
#include "io/dxf/PairScanner.h"
#include "io/dxf/RawNameIndex.h"

#include <array>
#include <vector>

/// What one pass over an ASCII DXF text found, beyond the records in the store.
struct DxfIndex
{
    struct HeaderVariable
    {
        QByteArrayView name;
        int code;
        QByteArrayView value;
    };
    struct TableRecord
    {
        quint32 slot;
        QByteArrayView name;
    };
    struct Table
    {
        quint32 slot;
        QByteArrayView name;
        std::vector<TableRecord> records;
    };
    struct Block
    {
        quint32 slot;
        QByteArrayView name;
        quint32 firstEntity;
        quint32 endEntity;
    };
    struct Owner
    {
        quint32 slot;
        quint64 handle;
    };

    std::vector<HeaderVariable> header;
    std::vector<Table> tables;
    std::vector<Block> blocks;
    std::vector<Owner> owners; ///< of table records and objects
    std::vector<QByteArrayView> missingLayers; ///< entities refer to number n as kMissingLayer + n
    std::vector<quint32> paperEntities; ///< slots in the ENTITIES section that carry 67 = 1
    quint32 firstEntity = 0;
    quint32 endEntity = 0;
    quint32 firstObject = ObjectStore::kNone;

    static constexpr quint32 kMissingLayer = 0xF0000000u;
    static constexpr quint32 kMostMissingLayers = 0x0FFFFFF0u;
};

/// Builds the record index of an ASCII DXF text in one pass. Values are looked at only where the
/// index needs them; every group code is checked.
class DxfIndexer
{
public:
    DxfIndexer(const FileImage& image, ObjectStore& store, const IoProgress& progress);

    /// Raises OdError_InvalidDrawing, or OdError with Cancelled.
    DxfIndex run();

private:
    enum class Section { None, Header, Tables, Blocks, Entities, Objects, Other };
    struct CachedType
    {
        QByteArrayView name;
        RecordType type = RecordType::None;
    };

    [[noreturn]] void fail(const char* at, const QString& found) const;
    [[noreturn]] void failAtEnd() const;
    void checkCode() const;
    bool nextGroup()
    {
        if (m_scan.nextBegin() > m_ready) [[unlikely]]
            awaitBytes();
        if (!m_scan.next()) {
            m_ended = true;
            return false;
        }
        if (m_scan.code() < PairScanner::kLowestCode) [[unlikely]]
            checkCode();
        return true;
    }
    void awaitBytes();
    void skipRecord();
    void reportProgress();

    RecordType typeOf(QByteArrayView name);
    quint32 beginRecord(RecordType type, quint8 flags);
    void startText();
    void dispatch(RecordType type);
    void section();
    void headerVariables();
    void table(RecordType type);
    void tableRecord(RecordType type);
    void block();
    void entity(RecordType type);
    void object(RecordType type);
    quint64 handleValue() const;
    void setLayer(quint32 slot, QByteArrayView name);
    void resolveLayers();
    quint32 layerOf(QByteArrayView name, quint64 hash);
    bool atRecord() const { return !m_ended && m_scan.code() == 0; }

    const FileImage& m_image;
    ObjectStore& m_store;
    const IoProgress& m_progress;
    PairScanner m_scan;
    const char* m_ready; ///< a step from here or before reads loaded bytes only
    DxfIndex m_index;
    RawNameIndex m_layers;
    struct PendingLayer
    {
        quint32 slot;
        QByteArrayView name;
        quint64 hash;
    };
    std::array<PendingLayer, 16> m_pending;
    std::size_t m_pendingCount = 0;
    std::array<CachedType, 64> m_types;
    Section m_section = Section::None;
    bool m_inBlock = false;
    bool m_inTable = false;
    bool m_ended = false;
    quint64 m_nextReport = 0;
};

#pragma once

#include "database/store/ObjectStore.h"
#include "io/FileImage.h"
#include "io/dxf/scan/BinaryScanner.h"
#include "io/dxf/scan/DxfIndex.h"
#include "io/dxf/scan/PairScanner.h"
#include "io/dxf/scan/RawNameIndex.h"

#include <array>
#include <vector>

/// Builds the record index of a DXF file in one pass. Values are looked at only where the index
/// needs them; every group code is checked. `Scanner` is PairScanner or BinaryScanner.
template <class Scanner>
class Q_DECL_HIDDEN DxfIndexer
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
    [[noreturn]] void failAtCode() const;
    bool nextGroup()
    {
        if (m_scan.nextBegin() > m_ready) [[unlikely]]
            awaitBytes();
        if (!m_scan.next()) {
            m_ended = true;
            return false;
        }
        // One comparison finds faults, which are below, and names of layers among the rare codes.
        if (static_cast<unsigned>(m_scan.code() - Scanner::kLowestCode)
            >= static_cast<unsigned>(kLayerName - Scanner::kLowestCode)) [[unlikely]]
            takeRareCode();
        return true;
    }
    void takeRareCode();
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
    void endSection(quint32 slot);

    static constexpr int kLayerName = 1003; ///< in extended data
    static constexpr int kComment = 999;

    const FileImage& m_image;
    ObjectStore& m_store;
    const IoProgress& m_progress;
    Scanner m_scan;
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

extern template class DxfIndexer<PairScanner>;
extern template class DxfIndexer<BinaryScanner>;

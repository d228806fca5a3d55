#pragma once

#include "io/DrawingCodec.h"

#include <QByteArray>

#include <vector>

/// Replaced byte ranges of a file image. Ranges do not overlap; what is inserted at one place keeps
/// the order in which it came.
class PatchList
{
public:
    void replace(quint64 begin, quint64 end, const QByteArray& bytes)
    {
        m_patches.push_back({begin, end, false, bytes});
    }
    void insert(quint64 at, const QByteArray& bytes) { replace(at, at, bytes); }
    /// Whole records between that which ends at `at` and that which begins there.
    void insertRecords(quint64 at, const QByteArray& bytes)
    {
        m_patches.push_back({at, at, true, bytes});
    }
    void remove(quint64 begin, quint64 end) { replace(begin, end, {}); }
    std::size_t size() const { return m_patches.size(); }

    /// The image with the patches in it. To be called once, before newOffset().
    DrawingPieces assemble(const FileImage& image);

    /// Where the byte at `offset` of the image, the begin or the end of a record, stands in the
    /// patched file: behind what was inserted there, but before records that were.
    quint64 newOffset(quint64 offset) const;

private:
    struct Patch
    {
        quint64 begin;
        quint64 end;
        bool records;
        QByteArray bytes;
    };
    void dropRangesInside();

    std::vector<Patch> m_patches;
    std::vector<qint64> m_shift; ///< of the bytes behind the patch of the same position
};

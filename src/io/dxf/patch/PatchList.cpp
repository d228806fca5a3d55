#include "io/dxf/patch/PatchList.h"

#include <algorithm>

void PatchList::dropRangesInside()
{
    // A record that goes takes the edits inside it along.
    quint64 removedTo = 0;
    std::erase_if(m_patches, [&](const Patch& patch) {
        const bool inside = patch.begin < removedTo;
        if (!inside && patch.bytes.isEmpty())
            removedTo = std::max(removedTo, patch.end);
        return inside;
    });
}

DrawingPieces PatchList::assemble(const FileImage& image)
{
    // At one place a record's last groups come first, then whole records, then what is replaced.
    const auto rank = [](const Patch& patch) {
        return patch.end > patch.begin ? 2 : patch.records ? 1 : 0;
    };
    std::stable_sort(m_patches.begin(), m_patches.end(), [&](const Patch& a, const Patch& b) {
        return a.begin != b.begin ? a.begin < b.begin : rank(a) < rank(b);
    });
    dropRangesInside();
    DrawingPieces pieces;
    pieces.parts.reserve(2 * m_patches.size() + 1);
    m_shift.reserve(m_patches.size());
    quint64 copied = 0;
    qint64 shift = 0;
    for (const Patch& patch : m_patches) {
        if (patch.begin > copied)
            pieces.parts.push_back(image.view(copied, patch.begin));
        if (!patch.bytes.isEmpty()) {
            pieces.owned.push_back(patch.bytes);
            pieces.parts.push_back(pieces.owned.back());
        }
        copied = patch.end;
        shift += patch.bytes.size() - static_cast<qint64>(patch.end - patch.begin);
        m_shift.push_back(shift);
    }
    if (copied < image.size())
        pieces.parts.push_back(image.view(copied, image.size()));
    return pieces;
}

quint64 PatchList::newOffset(quint64 offset) const
{
    const auto after =
        std::partition_point(m_patches.begin(), m_patches.end(), [&](const Patch& patch) {
            return patch.end < offset || (patch.end == offset && !patch.records);
        });
    const auto count = after - m_patches.begin();
    return count == 0 ? offset
                      : offset + static_cast<quint64>(m_shift[static_cast<std::size_t>(count - 1)]);
}

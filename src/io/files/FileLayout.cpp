#include "io/files/FileLayout.h"

#include "io/DrawingCodec.h"
#include "io/files/ContentHash.h"

#include <algorithm>

FileLayout FileLayout::of(const FileImage& image, const FileIdentity& identity)
{
    return {identity, ContentHash::of(image.view()), {{0, 0, image.size()}}};
}

std::vector<ImageRun> FileLayout::runsOf(const DrawingPieces& pieces, const FileImage& image)
{
    std::vector<ImageRun> runs;
    quint64 fileBegin = 0;
    for (const QByteArrayView part : pieces.parts) {
        const auto size = static_cast<quint64>(part.size());
        if (size > 0 && image.holds(part))
            runs.push_back({static_cast<quint64>(part.data() - image.begin()), fileBegin, size});
        fileBegin += size;
    }
    std::stable_sort(runs.begin(), runs.end(), [](const ImageRun& a, const ImageRun& b) {
        return a.imageBegin < b.imageBegin;
    });
    // A stretch that was written twice counts once.
    quint64 end = 0;
    std::erase_if(runs, [&end](const ImageRun& run) {
        if (run.imageBegin < end)
            return true;
        end = run.imageBegin + run.size;
        return false;
    });
    return runs;
}

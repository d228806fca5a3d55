#pragma once

#include "io/files/FileIdentity.h"

#include <vector>

class FileImage;
struct DrawingPieces;

/// A stretch of the image in memory that stands in a file on the disk.
struct ImageRun
{
    quint64 imageBegin = 0;
    quint64 fileBegin = 0;
    quint64 size = 0;
    bool operator==(const ImageRun&) const = default;
};

/// The file on the disk, as seen from the image that its drawing was read from: the two differ once
/// the drawing was edited and saved.
struct FileLayout
{
    FileIdentity identity;
    quint64 hash = 0; ///< ContentHash of the file
    std::vector<ImageRun> runs; ///< by their place in the image, not overlapping

    /// A file that is what the image holds.
    static FileLayout of(const FileImage& image, const FileIdentity& identity);
    static std::vector<ImageRun> runsOf(const DrawingPieces& pieces, const FileImage& image);
};

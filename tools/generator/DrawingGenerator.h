#pragma once

#include "generator/DrawingOptions.h"

#include <filesystem>
#include <iosfwd>
#include <string>

/// Writes a drawing to a stream opened in binary mode.
void generateDrawing(const DrawingOptions& options, std::ostream& sink);

/// Writes the drawing to a file, replacing it; the number of bytes. Raises std::runtime_error with
/// a sentence when the file cannot be written; what was begun is removed then.
std::uint64_t generateDrawingFile(const DrawingOptions& options, const std::filesystem::path& path);

/// The drawing as bytes.
std::string generateDrawingBytes(const DrawingOptions& options);

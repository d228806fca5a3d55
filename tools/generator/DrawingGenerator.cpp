#include "generator/DrawingGenerator.h"

#include "generator/DrawingPlan.h"
#include "generator/SectionWriters.h"
#include "generator/TagWriter.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

void generateDrawing(const DrawingOptions& options, std::ostream& sink)
{
    const DrawingPlan plan(options);
    TagWriter out(sink, options.binary);
    writeHeaderSection(out, plan);
    writeClassesSection(out, plan);
    writeTablesSection(out, plan);
    writeBlocksSection(out, plan);
    writeEntitiesSection(out, plan);
    writeObjectsSection(out, plan);
    out.record("EOF");
    out.flush();
}

std::uint64_t generateDrawingFile(const DrawingOptions& options, const std::filesystem::path& path)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file)
        throw std::runtime_error("Cannot open " + path.string() + " for writing.");
    generateDrawing(options, file);
    const auto bytes = static_cast<std::uint64_t>(file.tellp());
    file.close();
    if (!file) {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
        throw std::runtime_error("Cannot write " + path.string() + ": the disk may be full.");
    }
    return bytes;
}

std::string generateDrawingBytes(const DrawingOptions& options)
{
    std::ostringstream sink(std::ios::binary);
    generateDrawing(options, sink);
    return std::move(sink).str();
}

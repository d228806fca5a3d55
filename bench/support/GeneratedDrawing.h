#pragma once

#include "generator/DrawingGenerator.h"

#include <QByteArray>
#include <QString>

#include <filesystem>
#include <functional>
#include <string>

/// The drawings that benchmarks read: made on first use, then kept in the temporary folder.
namespace generated_drawing {

/// Changes when the generator writes something else, so that no stale file is measured.
inline std::size_t fingerprint()
{
    static const std::size_t value = [] {
        DrawingOptions small;
        small.entities = 500;
        const std::string text = generateDrawingBytes(small);
        small.binary = true;
        return std::hash<std::string>()(text + generateDrawingBytes(small));
    }();
    return value;
}

/// Path of a drawing of that size; raises std::runtime_error when it cannot be written.
inline QString path(int layers, qint64 entities, bool binary = false)
{
    namespace fs = std::filesystem;
    DrawingOptions options;
    options.layers = layers;
    options.entities = entities;
    options.binary = binary;
    const fs::path folder = fs::temp_directory_path() / "kest-bench";
    const std::string name = std::to_string(layers) + "x" + std::to_string(entities)
        + (binary ? "-binary-" : "-") + std::to_string(fingerprint()) + ".dxf";
    const fs::path file = folder / name;
    if (!fs::exists(file)) {
        fs::create_directories(folder);
        // Under another name first: a run that was stopped half-way must not leave half a drawing.
        const fs::path unfinished = folder / (name + ".part");
        generateDrawingFile(options, unfinished);
        fs::rename(unfinished, file);
    }
    return QString::fromStdString(file.string());
}

/// The same drawing as bytes, for what measures no file access.
inline QByteArray bytes(int layers, qint64 entities)
{
    DrawingOptions options;
    options.layers = layers;
    options.entities = entities;
    return QByteArray::fromStdString(generateDrawingBytes(options));
}

} // namespace generated_drawing

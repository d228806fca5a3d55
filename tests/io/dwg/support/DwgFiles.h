#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <string>

class OdDbDatabase;

/// DWG files among the real drawings.
namespace DwgFiles {

/// One of each version that can be written.
inline constexpr const char* kWritable[] = {
    "LibreDWG+libredwg__example_2000.dwg",
    "DomCR+ACadSharp__sample_AC1018.dwg",
    "AsiaPoli+QM-D_3__ELEMENTAL-QUINTA-MONROY-ARQ.dwg",
    "apache+tika__testDWG-AC1027.dwg",
    "DomCR+ACadSharp__sample_AC1032.dwg",
};

/// The bytes of one of the real drawings; empty where there is none of that name.
QByteArray bytes(const QString& name);
/// Full paths of all that can be read, but for the one of 2007.
QStringList readable();
/// Why the drawing that was read must not be written, in sentences.
QStringList faults(const OdDbDatabase& database);
/// A file's name as a part of a test's name: letters, digits and underscores.
std::string testName(const QString& file);

} // namespace DwgFiles

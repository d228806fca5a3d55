#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <string>

class OdDbDatabase;

/// DWG files: real drawings, and made ones.
namespace DwgFiles {

/// One of each version that can be written.
inline constexpr const char* kWritable[] = {
    "LibreDWG+libredwg__example_2000.dwg",
    "DomCR+ACadSharp__sample_AC1018.dwg",
    "AsiaPoli+QM-D_3__ELEMENTAL-QUINTA-MONROY-ARQ.dwg",
    "apache+tika__testDWG-AC1027.dwg",
    "DomCR+ACadSharp__sample_AC1032.dwg",
};

/// The names of those that are made from nothing, of the same versions.
inline constexpr const char* kMade[] = {"made AC1015", "made AC1018", "made AC1024", "made AC1027",
                                        "made AC1032"};
bool isMade(const QString& name);

/// The bytes of one of the real drawings or of a made one; empty where there is none of that name.
QByteArray bytes(const QString& name);
/// Full paths of all that can be read, but for the one of 2007.
QStringList readable();
/// Why the drawing that was read must not be written, in sentences.
QStringList faults(const OdDbDatabase& database);
/// A file's name as a part of a test's name: letters, digits and underscores.
std::string testName(const QString& file);

} // namespace DwgFiles

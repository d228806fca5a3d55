#pragma once

#include <QString>

/// Copies of real DWG drawings, for tests that change files.
namespace DwgCopy {

/// One of each state that the host can meet.
inline constexpr const char* kVersion2000 = "LibreDWG+libredwg__example_2000.dwg";
inline constexpr const char* kVersion2004 = "DomCR+ACadSharp__sample_AC1018.dwg";
inline constexpr const char* kVersion2018 = "DomCR+ACadSharp__sample_AC1032.dwg";
inline constexpr const char* kVersion2007 = "LibreDWG+libredwg__example_2007.dwg";
inline constexpr const char* kVersionR14 = "LibreDWG+libredwg__example_r14.dwg";

/// Writes a copy of one of the real drawings to that path, in the place of what stood there, and
/// returns the path. A test that cannot have its copy fails.
QString make(const char* drawing, const QString& path);
/// The same with the sum of a record spoiled: it can be read and not written. The drawing has to be
/// one of 2000, whose records stand in the file as they are.
QString makeDamaged(const QString& path);

} // namespace DwgCopy

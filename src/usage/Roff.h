#pragma once

#include <QString>

/// Parts of a manual page, in the language that man reads. All texts are plain ones; what would be
/// a request or an escape there is spelled so that it is printed.
namespace roff {
/// The start of a page: PROGRAM(1), and its section NAME.
QString pageHead(const QString& program, const QString& version, const QString& summary);
QString section(const QString& title);
QString subsection(const QString& title);
QString line(const QString& text);
/// Paragraphs with an empty line between.
QString paragraphs(const QString& text);
/// A paragraph that continues a list's section.
QString paragraph(const QString& text);
/// What can be typed, and indented below it what it means.
QString item(const QString& name, const QString& text);
/// A way to call a program: its name in bold, and what may follow. `isFirst` of the section.
QString call(const QString& name, const QString& rest, bool isFirst);
} // namespace roff

#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class OdDbDatabase;

/// An optional folder with drawings from many programs: the environment variable
/// KEST_SHARED_DRAWINGS, else "shared/drawings" beside the source folder. Tests that need it start
/// with one of the macros below.
class SharedDrawings
{
public:
    static bool available();
    static QString folder();
    /// Full path of a drawing; it need not exist.
    static QString file(const QString& name);
    /// Full paths, sorted by name.
    static QStringList files(const QStringList& nameFilters = {QStringLiteral("*.dxf")});
    /// Reads all drawings, one after the other; those that are damaged on purpose are left out.
    static void eachReadable(
        const std::function<void(const QString& path, std::unique_ptr<OdDbDatabase>)>& visit);
    /// The sentence that a skipped test shows.
    static QByteArray skipSentence();
};

/// Skips the running GoogleTest test, saying why, where the drawings are absent.
#define KEST_GTEST_NEEDS_DRAWINGS()                                                                \
    do {                                                                                           \
        if (!SharedDrawings::available())                                                          \
            GTEST_SKIP() << SharedDrawings::skipSentence().constData();                            \
    } while (false)

/// Skips the running Qt Test function, saying why, where the drawings are absent.
#define KEST_QTEST_NEEDS_DRAWINGS()                                                                \
    do {                                                                                           \
        if (!SharedDrawings::available())                                                          \
            QSKIP(SharedDrawings::skipSentence().constData());                                     \
    } while (false)

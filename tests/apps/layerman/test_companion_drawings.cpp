#include "CompanionFixture.h"
#include "RawLayers.h"
#include "io/DrawingFile.h"
#include "support/drawings/SharedDrawings.h"

#include <QFile>
#include <QFileInfo>

#include <map>

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool isBinary(const QByteArray& bytes)
{
    return bytes.contains('\0');
}

} // namespace

/// Drawings as programs write them, each with the filters that it holds.
class CompanionDrawings : public CompanionFixture
{
protected:
    /// Compares what the program lists for each filter with what the groups say. Filters whose
    /// names are not the only ones of their kind are left out: which one is meant is another test's
    /// matter. The number of filters compared.
    int compare(const QString& file)
    {
        const RawLayers raw(contents(file));
        std::map<QString, int> named;
        for (const RawLayers::Filter& filter : raw.filters())
            ++named[filter.name.toCaseFolded()];
        int compared = 0;
        for (const RawLayers::Filter& filter : raw.filters()) {
            const auto expected = raw.layersOf(filter);
            EXPECT_TRUE(expected) << filter.expression.toStdString();
            if (!expected || named[filter.name.toCaseFolded()] > 1)
                continue;
            EXPECT_EQ(*expected, listed(file, filter.name))
                << file.toStdString() << ", filter " << filter.name.toStdString();
            ++compared;
        }
        return compared;
    }

    QStringList listed(const QString& file, const QString& filter)
    {
        const Finished done = layerman({QStringLiteral("list"), file, QStringLiteral("--columns"),
                                        QStringLiteral("name"), QStringLiteral("--format"),
                                        QStringLiteral("csv"), QStringLiteral("--filter"), filter});
        EXPECT_EQ(0, done.exitCode) << done.errors;
        QStringList names = QString::fromStdString(done.output).split(QLatin1Char('\n'));
        EXPECT_EQ(QStringLiteral("name"), names.takeFirst());
        names.removeLast();
        names.sort();
        return names;
    }
};

TEST_F(CompanionDrawings, TheSamplesFiltersShowWhatItsGroupsSay)
{
    EXPECT_EQ(9, compare(QStringLiteral(KEST_SAMPLES "/office.dxf")));
}

TEST_F(CompanionDrawings, FiltersOfOtherProgramsShowWhatTheirGroupsSay)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    int compared = 0;
    for (const QString& file : SharedDrawings::files()) {
        const QByteArray bytes = contents(file);
        if (!isBinary(bytes) && bytes.contains("AcLyLayer"))
            compared += compare(file);
    }
    EXPECT_GT(compared, 0) << "no drawing of the folder holds a filter";
    RecordProperty("filters", compared);
}

TEST_F(CompanionDrawings, EveryDrawingIsListedOrToldAndCopiedByteForByte)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    for (const QString& file : SharedDrawings::files()) {
        const Finished copied =
            layerman({QStringLiteral("set"), file, QStringLiteral("-o"), QStringLiteral("copy.dxf"),
                      QStringLiteral("--search=~*"), QStringLiteral("locked=yes")});
        const Finished listed = layerman({QStringLiteral("list"), file});
        EXPECT_EQ(listed.exitCode, copied.exitCode) << file.toStdString();
        if (listed.exitCode == 0) {
            EXPECT_TRUE(contents(file) == bytesOf(QStringLiteral("copy.dxf")))
                << file.toStdString();
        } else {
            EXPECT_EQ(3, listed.exitCode) << file.toStdString();
            EXPECT_EQ(0u, listed.errors.find("layerman: " + file.toStdString())) << listed.errors;
        }
    }
}

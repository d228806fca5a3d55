#include "database/tables/OdDbLayerTable.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <random>

namespace {

/// The sentence that refuses the drawing; empty when it opens.
QString refusal(const QByteArray& bytes)
{
    try {
        readDrawing(bytes, QStringLiteral("bad.dxf"));
        return {};
    } catch (const OdError& error) {
        return error.description();
    }
}

QByteArray good()
{
    return DrawingText::withLayers({{"Walls"}, {"Doors"}});
}

TEST(DxfBadInput, FilesThatAreNoneAreRefusedByName)
{
    QTemporaryDir folder;
    const auto sentence = [](const QString& path) {
        try {
            readDrawing(path);
            return QString();
        } catch (const OdError& error) {
            return error.description();
        }
    };
    const QString empty = folder.filePath(QStringLiteral("empty.dxf"));
    ASSERT_TRUE(QFile(empty).open(QIODevice::WriteOnly));
    EXPECT_EQ(sentence(empty), empty + QStringLiteral(" is empty."));
    EXPECT_EQ(sentence(folder.path()),
              folder.path() + QStringLiteral(" is a folder, not a drawing."));
    EXPECT_EQ(sentence(folder.filePath(QStringLiteral("none.dxf"))),
              folder.filePath(QStringLiteral("none.dxf")) + QStringLiteral(" does not exist."));
}

TEST(DxfBadInput, NoiseIsRefusedAsNoDrawing)
{
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        QByteArray noise(static_cast<qsizetype>(random() % 5000) + 1, '\0');
        for (char& c : noise)
            c = static_cast<char>(random());
        EXPECT_TRUE(refusal(noise).contains(QStringLiteral("this is no DXF drawing"))) << round;
    }
}

TEST(DxfBadInput, OtherDrawingFormatsAreNamed)
{
    EXPECT_EQ(refusal("AC1032\0\0\0"),
              QStringLiteral("bad.dxf, byte 0: the file ends too early; expected 21 more bytes "
                             "here."));
    EXPECT_EQ(refusal("AC1009\0\0\0"),
              QStringLiteral("bad.dxf: this DWG drawing is of a version that cannot be read; "
                             "expected R13 to 2018."));
}

TEST(DxfBadInput, ADrawingCutOffAtAnyByteIsRefusedOrWhole)
{
    const QByteArray whole = good();
    // Only the line end of the last line may be missing.
    for (qsizetype length = 1; length < whole.size() - 1; ++length) {
        const QString sentence = refusal(whole.first(length));
        ASSERT_FALSE(sentence.isEmpty()) << "opens when cut at byte " << length;
        ASSERT_TRUE(sentence.startsWith(QStringLiteral("bad.dxf, line ")))
            << sentence.toStdString();
    }
    EXPECT_EQ(refusal(whole.first(whole.size() - 1)), QString());
}

TEST(DxfBadInput, ATruncatedDrawingSaysWhereAndWhatWasExpected)
{
    const QByteArray whole = good();
    const QByteArray cut = whole.first(whole.indexOf("AcDbLine\n") + 9);
    EXPECT_EQ(
        refusal(cut),
        QStringLiteral(
            "bad.dxf, line %1: the drawing breaks off here; expected its end mark (group 0, EOF).")
            .arg(cut.count('\n') + 1));
}

TEST(DxfBadInput, AWrongGroupCodeIsNamedWithItsLine)
{
    QByteArray bytes = good();
    const qsizetype at = bytes.indexOf("\n100\nAcDbLine\n") + 1;
    bytes.replace(at, 3, "1x0");
    EXPECT_EQ(
        refusal(bytes),
        QStringLiteral(
            "bad.dxf, line %1: expected a group code (a number from -5 to 1071), found \"1x0\".")
            .arg(bytes.first(at).count('\n') + 1));
    bytes.replace(at, 3, "1072");
    EXPECT_TRUE(refusal(bytes).contains(QStringLiteral("found \"1072\"")));
}

TEST(DxfBadInput, AHandleThatIsNoneIsNamed)
{
    EXPECT_TRUE(refusal(good().replace("5\n1000\n", "5\nwall\n"))
                    .endsWith(QStringLiteral(
                        "expected a handle (1 to 16 hexadecimal digits), found \"wall\".")));
}

TEST(DxfBadInput, NestingIsChecked)
{
    EXPECT_TRUE(refusal(good().replace("0\nENDSEC\n0\nSECTION\n2\nTABLES", "0\nSECTION\n2\nTABLES"))
                    .contains(QStringLiteral("a section begins inside another")));
    EXPECT_TRUE(refusal(good().replace("0\nENDTAB\n0\nTABLE\n2\nLAYER", "0\nTABLE\n2\nLAYER"))
                    .contains(QStringLiteral("a table begins inside another")));
    QByteArray bytes = good();
    bytes.replace("0\nENDBLK\n5\n53E\n330\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockEnd\n", "");
    EXPECT_TRUE(refusal(bytes).contains(QStringLiteral("a block begins inside another")));
    EXPECT_TRUE(refusal("0\nSECTION\n2\nTABLES\n0\nENDSEC\n0\nLINE\n0\nEOF\n")
                    .contains(QStringLiteral("expected a section, found \"LINE\"")));
    EXPECT_TRUE(refusal("0\nSECTION\n70\n1\n0\nENDSEC\n0\nEOF\n")
                    .contains(QStringLiteral("expected the section's name")));
}

TEST(DxfBadInput, ALineOfManyMegabytesIsRefusedAndALongOneIsKept)
{
    const auto withValue = [](qsizetype size) {
        return good().replace("$INSBASE", "$MENU\n1\n" + QByteArray(size, 'x') + "\n9\n$INSBASE");
    };
    EXPECT_TRUE(refusal(withValue(qsizetype(5) << 20))
                    .contains(QStringLiteral("a line is longer than 4 MB")));
    const QByteArray longLine = withValue(qsizetype(1) << 20);
    EXPECT_EQ(drawingBytes(*readDrawing(longLine, QStringLiteral("long.dxf"))), longLine);
}

TEST(DxfBadInput, MissingSectionsAndTablesAreMadeInMemoryOnly)
{
    for (const QByteArray& bytes :
         {QByteArray("0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nWalls\n0\nENDSEC\n0\nEOF\n"),
          QByteArray("0\nSECTION\n2\nTABLES\n0\nENDSEC\n0\nEOF\n"),
          QByteArray("0\nSECTION\n2\nHEADER\n0\nENDSEC\n0\nEOF\n")})
    {
        const auto database = readDrawing(bytes, QStringLiteral("sparse.dxf"));
        EXPECT_FALSE(database->getLayerZeroId().isNull());
        EXPECT_FALSE(database->getModelSpaceId().isNull());
        EXPECT_EQ(database->audit(), QStringList());
        EXPECT_EQ(drawingBytes(*database), bytes);
    }
}

TEST(DxfBadInput, RandomDamageNeverCrashesAndNeverChangesOtherBytes)
{
    std::mt19937 random(11);
    const QByteArray whole = good();
    int opened = 0;
    for (int round = 0; round < 1000; ++round) {
        QByteArray bytes = whole;
        for (int hits = 1 + static_cast<int>(random() % 3); hits > 0; --hits)
            bytes[static_cast<qsizetype>(random() % static_cast<quint32>(bytes.size()))] =
                static_cast<char>(random() % 128);
        try {
            const auto database = readDrawing(bytes, QStringLiteral("damaged.dxf"));
            ++opened;
            for (const OdDbObjectId id : database->layerTable().records())
                ASSERT_TRUE(id.openObject());
            database->layouts();
            ASSERT_EQ(drawingBytes(*database), bytes);
        } catch (const OdError& error) {
            ASSERT_FALSE(error.description().isEmpty());
        }
    }
    EXPECT_GT(opened, 30);
}

} // namespace

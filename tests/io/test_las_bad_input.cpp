#include "database/states/stored/StoredLayerReader.h"
#include "database/values/OdError.h"
#include "io/las/LasReader.h"
#include "io/las/LasWriter.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const QByteArray kHead = "0\nLAYERSTATEDICTIONARY\n0\nLAYERSTATE\n1\nA\n";

struct Failure
{
    qint64 line = 0;
    QString sentence;
};

/// The refusal of a file; a test failure where it is read.
Failure failureOf(const QByteArray& bytes)
{
    try {
        LasReader::read(bytes, QStringLiteral("bad.las"));
    } catch (const OdError_InvalidDrawing& error) {
        return {error.line(), error.description()};
    }
    ADD_FAILURE() << "was read: " << bytes.left(60).constData();
    return {};
}

TEST(BadLasFiles, AreRefusedWithLineAndExpectation)
{
    struct Case
    {
        const char* what;
        QByteArray bytes;
        qint64 line;
        const char* expectation;
    };
    const Case cases[] = {
        {"empty", {}, 0, "expected group 0 with LAYERSTATEDICTIONARY"},
        {"blank", "\n\n", 0, "expected group 0 with LAYERSTATEDICTIONARY"},
        {"a drawing", "0\nSECTION\n2\nHEADER\n", 2, "LAYERSTATEDICTIONARY"},
        {"other text", "Dear reader,\n", 1, "expected a group code, found \"Dear reader,\""},
        {"no state", "0\nLAYERSTATEDICTIONARY\n", 2, "expected group 0 with LAYERSTATE"},
        {"no name", "0\nLAYERSTATEDICTIONARY\n0\nLAYERSTATE\n91\n1\n", 6, "expected group 1"},
        {"no name before the next", "0\nLAYERSTATEDICTIONARY\n0\nLAYERSTATE\n0\nLAYERSTATE\n", 6,
         "expected group 1"},
        {"empty name", "0\nLAYERSTATEDICTIONARY\n0\nLAYERSTATE\n1\n  \n91\n1\n", 6, "is empty"},
        {"code without value", kHead + "91", 7, "expected its value"},
        {"code without value, line ended", kHead + "91\n", 7, "expected its value"},
        {"code that is no number", kHead + "9x\n1\n", 7, "expected a group code, found \"9x\""},
        {"code too large", kHead + "1072\n1\n", 7, "expected a group code"},
        {"code below zero", kHead + "-1\n1\n", 7, "expected a group code"},
        {"code beyond numbers", kHead + "99999999999999999999\n1\n", 7, "expected a group code"},
        {"mask that is no number", kHead + "91\nall\n", 8, "whole number in range for group 91"},
        {"flags with a fraction", kHead + "8\nL\n90\n1.5\n", 10, "group 90, found \"1.5\""},
        {"color out of range", kHead + "8\nL\n62\n70000\n", 10, "group 62"},
        {"packed color out of range", kHead + "8\nL\n92\n4294967296\n", 10, "group 92"},
        {"switch that is neither", kHead + "290\n2\n", 8, "group 290"},
        {"real that is none", kHead + "40\nwide\n", 8, "expected a number for group 40"},
        {"layer without name", kHead + "8\n\n90\n1\n", 8, "name of the layer is empty"},
        {"line without end", kHead + "301\n" + QByteArray(70000, 'x'), 8, "expected at most"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const Failure failure = failureOf(c.bytes);
        EXPECT_EQ(failure.line, c.line);
        EXPECT_TRUE(failure.sentence.startsWith(QLatin1String("bad.las")));
        EXPECT_TRUE(failure.sentence.endsWith(QLatin1Char('.')));
        EXPECT_TRUE(failure.sentence.contains(QString::fromLatin1(c.expectation)))
            << qPrintable(failure.sentence);
        EXPECT_LT(failure.sentence.size(), 200) << "a long line is not shown whole";
    }
}

TEST(BadLasFiles, CutOffAnywhereAreRefusedOrGiveTheLayersBefore)
{
    PortableLayerState whole{QStringLiteral("Gr\u00fcn"), {}};
    for (const char* name : {"Walls", "Roof", "Floor"})
        for (const GroupList::Group group :
             GroupList{{8, name}, {90, "8"}, {62, "30"}, {370, "-3"}, {6, "DASHED"}, {440, "0"}})
            whole.groups.append(group);
    const QByteArray bytes = LasWriter::bytes({whole, whole});
    int refused = 0;
    for (qsizetype length = 0; length < bytes.size(); ++length) {
        try {
            const auto states = LasReader::read(bytes.first(length), QStringLiteral("cut.las"));
            ASSERT_FALSE(states.empty());
            auto expected = whole.groups.begin();
            const auto& last = states.back();
            for (qsizetype i = 0; i + 1 < last.groups.size(); ++i, ++expected) {
                const auto got = *std::next(last.groups.begin(), i);
                ASSERT_EQ(got.code, (*expected).code);
                ASSERT_EQ(got.value, (*expected).value) << "only the last value may be cut";
            }
        } catch (const OdError_InvalidDrawing& error) {
            ++refused;
            EXPECT_TRUE(error.description().contains(QLatin1String("cut.las")));
        }
    }
    EXPECT_GT(refused, bytes.size() / 3);
    EXPECT_LT(refused, bytes.size());
}

TEST(BadLasFiles, OfManyBlankLinesAreReadInOnePass)
{
    // Each group would look through all blanks behind it.
    QByteArray bytes = kHead;
    for (int i = 0; i < 50000; ++i)
        bytes += "8\nL\n";
    bytes += QByteArray(10'000'000, ' ');
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(LasReader::read(bytes, QStringLiteral("blank.las"))[0].groups.size(), 50000);
    EXPECT_LT(clock.elapsed(), 20000);
}

TEST(BadLasFiles, WithTooManyLayersOrStatesAreRefused)
{
    QByteArray layers = kHead;
    for (int i = 0; i <= 1'000'000; ++i)
        layers += "8\nL\n";
    EXPECT_TRUE(failureOf(layers).sentence.contains(QLatin1String("more than 1000000 layers")));
    QByteArray states = "0\nLAYERSTATEDICTIONARY\n";
    for (int i = 0; i <= 10'000; ++i)
        states += "0\nLAYERSTATE\n1\nA\n";
    EXPECT_TRUE(failureOf(states).sentence.contains(QLatin1String("more than 10000 layer states")));
}

TEST(BadLasFiles, OnDiskAreNamedInTheSentence)
{
    const QTemporaryDir folder;
    const QString missing = folder.filePath(QStringLiteral("missing.las"));
    for (const QString& path : {missing, folder.path()}) {
        try {
            LasReader::readFile(path);
            ADD_FAILURE() << "was read";
        } catch (const OdError_FileAccess& error) {
            EXPECT_TRUE(error.description().contains(QDir::toNativeSeparators(path)));
        }
    }
    const QString target = folder.filePath(QStringLiteral("no folder/x.las"));
    try {
        LasWriter::writeFile({}, target);
        ADD_FAILURE() << "was written";
    } catch (const OdError_FileAccess& error) {
        EXPECT_EQ(error.code(), OdResult::CantWriteFile);
        EXPECT_TRUE(error.description().contains(QDir::toNativeSeparators(target)));
    }
}

} // namespace

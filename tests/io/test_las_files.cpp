#include "database/values/OdError.h"
#include "io/las/LasReader.h"
#include "io/las/LasText.h"
#include "io/las/LasWriter.h"

#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// What a program does that wants only the name of the first state: the line after the code that
/// follows LAYERSTATE, in the system's code page.
QString nameByTheSimpleRule(const QByteArray& file)
{
    const QString text = QString::fromLocal8Bit(file);
    constexpr qsizetype kWord = 20; // LAYERSTATEDICTIONARY
    const qsizetype dictionary = text.indexOf(QLatin1String("LAYERSTATEDICTIONARY"));
    const qsizetype state = text.indexOf(QLatin1String("LAYERSTATE"), dictionary + kWord);
    const qsizetype codeLine = text.indexOf(QLatin1Char('\n'), state);
    const qsizetype nameLine = text.indexOf(QLatin1Char('\n'), codeLine + 1) + 1;
    const qsizetype end = text.indexOf(QLatin1Char('\n'), nameLine);
    return text.mid(nameLine, end - 1 - nameLine).trimmed();
}

PortableLayerState plan()
{
    return {QStringLiteral("PLAN-A"),
            {{91, "2047"},
             {301, "ground floor"},
             {290, "0"},
             {302, "0"},
             {8, "0"},
             {90, "8"},
             {62, "7"},
             {370, "-3"},
             {6, "Continuous"},
             {2, "Color_7"},
             {440, "0"},
             {8, "M-DUCT"},
             {90, "12"},
             {62, "30"},
             {370, "35"},
             {6, "Continuous"},
             {2, "Color_30"},
             {440, "33554559"},
             {92, "-1023443200"}}};
}

const char kPlanText[] = "  0\nLAYERSTATEDICTIONARY\n  0\nLAYERSTATE\n  1\nPLAN-A\n 91\n2047\n"
                         "301\nground floor\n290\n0\n302\n0\n"
                         "  8\n0\n 90\n8\n 62\n7\n370\n-3\n  6\nContinuous\n  2\nColor_7\n440\n0\n"
                         "  8\nM-DUCT\n 90\n12\n 62\n30\n370\n35\n  6\nContinuous\n  2\nColor_30\n"
                         "440\n33554559\n 92\n-1023443200\n";

std::vector<PortableLayerState> read(const QByteArray& bytes)
{
    return LasReader::read(bytes, QStringLiteral("test.las"));
}

TEST(LasFiles, OfOtherProgramsAreRead)
{
    EXPECT_EQ(read(kPlanText), std::vector<PortableLayerState>{plan()});
}

TEST(LasFiles, AreWrittenInTheShapeThatOtherProgramsHave)
{
    EXPECT_EQ(LasWriter::bytes({plan()}), QByteArray(kPlanText).replace("\n", "\r\n"));
}

TEST(LasFiles, AreReadWithEitherLineEndAndLooseSpacing)
{
    const QByteArray loose = QByteArray(kPlanText).replace("\n  ", "\n").replace("\n 9", "\n   9");
    EXPECT_EQ(read(loose), std::vector<PortableLayerState>{plan()});
    EXPECT_EQ(read(QByteArray(kPlanText).replace("\n", "\r\n")),
              std::vector<PortableLayerState>{plan()});
    EXPECT_EQ(read(QByteArray(kPlanText) + "\r\n  \n\n"), std::vector<PortableLayerState>{plan()});
    EXPECT_EQ(read(QByteArray(kPlanText) + "\x1a"), std::vector<PortableLayerState>{plan()});
    EXPECT_EQ(read(QByteArray(kPlanText).chopped(1)), std::vector<PortableLayerState>{plan()})
        << "no line end after the last value";
    EXPECT_EQ(read(QByteArray("999\nmade by hand\n") + kPlanText),
              std::vector<PortableLayerState>{plan()});
}

TEST(LasFiles, MayEndWithAnEmptyDescription)
{
    const auto states = read("0\nLAYERSTATEDICTIONARY\n0\nLAYERSTATE\n1\nA\n301\n\n");
    ASSERT_EQ(states.size(), 1u);
    EXPECT_EQ(states[0].groups, (GroupList{{301, ""}}));
}

TEST(LasFiles, LoseAMarkOfByteOrderInFrontOfAValue)
{
    const auto states =
        read("0\nLAYERSTATEDICTIONARY\n0\nLAYERSTATE\n1\nA\n301\n\\U+FEFF\xEF\xBB\xBFtext\n");
    ASSERT_EQ(states.size(), 1u);
    EXPECT_EQ(states[0].groups, (GroupList{{301, "text"}}));
    EXPECT_EQ(read(LasWriter::bytes(states)), states);
}

TEST(LasFiles, MayHoldSeveralStates)
{
    PortableLayerState second = plan();
    second.name = QStringLiteral("PLAN-B");
    const std::vector<PortableLayerState> both = {plan(), second};
    EXPECT_EQ(read(LasWriter::bytes(both)), both);
}

TEST(LasFiles, CarryLinetypesWithinThisProgram)
{
    PortableLayerState state = plan();
    state.linetypes = {{QStringLiteral("D\u00e4shed"), QStringLiteral("_ _"), {0.5, -0.25, 0.1}}};
    const auto states = read(LasWriter::bytesWithLinetypes({state, plan()}));
    ASSERT_EQ(states.size(), 2u);
    EXPECT_EQ(states[0].groups, state.groups);
    ASSERT_EQ(states[0].linetypes.size(), 1u);
    EXPECT_EQ(states[0].linetypes[0].name, state.linetypes[0].name);
    EXPECT_EQ(states[0].linetypes[0].description, QStringLiteral("_ _"));
    EXPECT_EQ(states[0].linetypes[0].dashes, (std::vector<double>{0.5, -0.25, 0.1}));
    EXPECT_TRUE(states[1].linetypes.empty());
    EXPECT_FALSE(LasWriter::bytes({state}).contains("LINETYPE"));
}

TEST(LasFiles, PassOverRecordsAndGroupsOfOtherPrograms)
{
    const auto states = read(
        "0\nLAYERSTATEDICTIONARY\n0\nSOMETHING\n8\nX\n0\nLAYERSTATE\n1\nA\n91\n1\n8\nL\n90\n1\n"
        "330\nFF\n5\n1F\n102\n{X\n310\nAB\n93\n0\n309\nnote\n40\n1.5\n1001\nAPP\n999\nremark\n"
        "0\nEOF\n");
    ASSERT_EQ(states.size(), 1u);
    EXPECT_EQ(states[0].groups,
              (GroupList{{91, "1"}, {8, "L"}, {90, "1"}, {93, "0"}, {309, "note"}, {40, "1.5"}}))
        << "handles and structure mean nothing in another drawing";
}

TEST(LasFiles, NormaliseNumbers)
{
    const auto states = read("0\nLAYERSTATEDICTIONARY\n0\nLAYERSTATE\n1\nA\n91\n 007 \n8\nL\n"
                             "92\n3271524096\n62\n+5\n");
    EXPECT_EQ(states[0].groups, (GroupList{{91, "7"}, {8, "L"}, {92, "-1023443200"}, {62, "5"}}));
}

const QString kOdd = QStringLiteral("Gr\u00fcn \u4e2d\u6587 \U0001F600 a^Jb \\U+0041 tab\tx");

TEST(LasFiles, KeepNamesOfAnyScript)
{
    PortableLayerState state = plan();
    state.groups.append(8, kOdd.toUtf8());
    state.groups.append(301, QStringLiteral("one\ntwo\r\nthree").toUtf8());
    for (const QString& name : {kOdd, QStringLiteral("Gr\u00fcn"), QStringLiteral("A^B")}) {
        state.name = name;
        const QByteArray bytes = LasWriter::bytes({state});
        EXPECT_EQ(read(bytes), std::vector<PortableLayerState>{state}) << qPrintable(name);
        EXPECT_EQ(bytes.count('\n'), 2 * (2 + 1 + state.groups.size())) << "no line is broken";
    }
}

TEST(LasFiles, GiveTheNameToProgramsThatReadNothingElse)
{
    PortableLayerState state = plan();
    for (const QString& name : {QStringLiteral("PLAN-A"), QStringLiteral("Gr\u00fcn \u4e2d\u6587"),
                                QStringLiteral("a<b>:*?|\"=;,`^ \\"), QStringLiteral("LAYERSTATE")})
    {
        state.name = name;
        EXPECT_EQ(nameByTheSimpleRule(LasWriter::bytes({state})), name);
    }
}

TEST(LasFiles, AreAsciiButForTheName)
{
    PortableLayerState state = plan();
    state.groups.append(8, QStringLiteral("Gr\u00fcn").toUtf8());
    const QByteArray bytes = LasWriter::bytes({state});
    EXPECT_TRUE(bytes.contains("\r\n  8\r\nGr\\U+00FCn\r\n"));
    EXPECT_TRUE(std::all_of(bytes.begin(), bytes.end(),
                            [](char c) { return static_cast<unsigned char>(c) < 0x80; }));
}

TEST(LasFiles, AreReadInWhateverEncodingTheyAre)
{
    const QString text = QString::fromLatin1(kPlanText).replace(QStringLiteral("M-DUCT"),
                                                                QStringLiteral("Gr\u00fcn"));
    const QByteArray expected = QStringLiteral("Gr\u00fcn").toUtf8();
    QStringEncoder utf16(QStringConverter::Utf16, QStringConverter::Flag::WriteBom);
    const QByteArray inUtf16 = utf16(text);
    const QByteArray inputs[] = {text.toUtf8(), "\xEF\xBB\xBF" + text.toUtf8(), inUtf16,
                                 text.toLatin1(),
                                 QByteArray(kPlanText).replace("M-DUCT", "Gr\\U+00fcn")};
    for (const QByteArray& input : inputs) {
        const auto states = read(input);
        ASSERT_EQ(states.size(), 1u);
        const auto group = std::next(states[0].groups.begin(), 11);
        EXPECT_EQ((*group).value, expected) << input.left(30).constData();
    }
}

TEST(LasFiles, ResolveEscapesOfFourDigitsOnly)
{
    EXPECT_EQ(LasText::unescaped(QStringLiteral("\\U+22052.3794")),
              QStringLiteral("\u22052.3794").replace(0, 1, QChar(0x2205)));
    EXPECT_EQ(LasText::unescaped(QStringLiteral("\\U+22 \\U+XYZW \\U+123")),
              QStringLiteral("\\U+22 \\U+XYZW \\U+123"));
    EXPECT_EQ(LasText::unescaped(QStringLiteral("\\u+00e9")), QStringLiteral("\u00e9"));
    EXPECT_EQ(LasText::unescaped(QStringLiteral("\\U+D83D\\U+DE00")), QStringLiteral("\U0001F600"));
}

TEST(LasFiles, LieOnDisk)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("gr\u00fcn.las"));
    LasWriter::writeFile({plan()}, path);
    EXPECT_EQ(LasReader::readFile(path), std::vector<PortableLayerState>{plan()});
}

} // namespace

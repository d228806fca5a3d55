#include "database/store/HeaderVariables.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/GroupCursor.h"
#include "io/DrawingFile.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/text/GroupCode.h"
#include "support/drawings/BinaryDrawing.h"
#include "support/drawings/DrawingText.h"
#include "support/drawings/SharedDrawings.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <random>

namespace {

constexpr int kLayouts[] = {1, 2};

std::unique_ptr<OdDbDatabase> read(const QByteArray& bytes)
{
    return readDrawing(bytes, QStringLiteral("binary.dxf"));
}

/// The sentence that refuses the drawing; empty when it opens.
QString refusal(const QByteArray& bytes)
{
    try {
        read(bytes);
        return {};
    } catch (const OdError& error) {
        return error.description();
    }
}

/// A drawing with groups of every kind.
QByteArray rich()
{
    const QByteArray everyKind = DrawingText::groups(
        {"0",    "XRECORD",     "5",    "70",      "330",  "60",
         "100",  "AcDbXrecord", "280",  "1",       "1",    "text",
         "10",   "0.1",         "40",   "-1e+300", "41",   "1.0",
         "62",   "    -5",      "90",   "-100000", "91",   "2147483647",
         "102",  "{OWN",        "102",  "}",       "160",  "-9223372036854775808",
         "170",  "32767",       "290",  "     1",  "300",  "",
         "310",  "00FF7A",      "330",  "31",      "340",  "D9B071D01A0ACD1C",
         "420",  "16744192",    "1001", "KEST",    "1000", "plain",
         "1003", "Walls",       "1004", "0102",    "1005", "31",
         "1010", "1.5",         "1040", "2.25",    "1070", "-1",
         "1071", "33554559"});
    QByteArray bytes = DrawingText::withLayers(
        {{"M-DUCT", 1 | 2 | 4, -30,
          DrawingText::groups({"420", "16744192", "290", "0", "1001", "AcAecLayerStandard", "1000",
                               "", "1000", "Supply ducts", "1001", "AcCmTransparency", "1071",
                               "33554559"})},
         {"W\xE4nde \\U+0421^J"},
         {"Walls"}});
    return bytes.replace("0\nENDSEC\n0\nEOF", everyKind + "0\nENDSEC\n0\nEOF");
}

/// One line for each group of a record: its code, what it says as text and as what it is.
std::string groupsOf(const OdDbDatabase& database, quint32 slot)
{
    std::string lines;
    const std::unique_ptr<GroupCursor> groups = database.makeCursor();
    for (groups->open(slot); groups->next();) {
        QString value = groups->text().trimmed();
        switch (groupKind(groups->code())) {
        case GroupKind::Text:
        case GroupKind::Chunk:
            break;
        case GroupKind::Handle:
            value += QStringLiteral(" = %1").arg(groups->handle());
            break;
        case GroupKind::Real: // may be spelled in other ways
            value = QString::number(groups->real(), 'g', 17);
            break;
        default:
            value += QStringLiteral(" = %1 = %2").arg(groups->integer()).arg(groups->real());
            break;
        }
        lines += QStringLiteral("%1: %2\n").arg(groups->code()).arg(value).toStdString();
    }
    return lines;
}

TEST(BinaryDxf, HasTheGroupsOfItsTextTwinWhateverTheirKind)
{
    const auto text = read(rich());
    for (const int codeBytes : kLayouts) {
        const auto binary = read(BinaryDrawing::fromText(rich(), codeBytes));
        ASSERT_EQ(binary->store().fileRecords(), text->store().fileRecords());
        for (quint32 slot = 0; slot < text->store().fileRecords(); ++slot) {
            EXPECT_EQ(binary->store().typeName(slot), text->store().typeName(slot));
            EXPECT_EQ(binary->store().handle(slot), text->store().handle(slot));
            EXPECT_EQ(binary->store().owner(slot), text->store().owner(slot));
            EXPECT_EQ(binary->store().layer(slot), text->store().layer(slot));
            EXPECT_EQ(groupsOf(*binary, slot), groupsOf(*text, slot));
        }
        EXPECT_EQ(binary->audit(), QStringList());
    }
}

TEST(BinaryDxf, HasTheLayersAndSettingsOfItsTextTwin)
{
    const auto text = read(rich());
    for (const int codeBytes : kLayouts) {
        const auto binary = read(BinaryDrawing::fromText(rich(), codeBytes));
        const auto wanted = text->layerTable().records();
        const auto found = binary->layerTable().records();
        ASSERT_EQ(found.size(), wanted.size());
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            const auto was = wanted[i].safeOpenObject<OdDbLayerTableRecord>();
            const auto is = found[i].safeOpenObject<OdDbLayerTableRecord>();
            EXPECT_EQ(is->getName(), was->getName());
            EXPECT_EQ(is->color(), was->color());
            EXPECT_EQ(is->description(), was->description());
            EXPECT_EQ(is->state().transparency, was->state().transparency);
            EXPECT_EQ(is->isFrozen(), was->isFrozen());
            EXPECT_EQ(is->isPlottable(), was->isPlottable());
        }
        EXPECT_EQ(binary->getCLAYER().getHandle(), text->getCLAYER().getHandle());
        EXPECT_EQ(binary->header().value(QStringLiteral("$TILEMODE")), QStringLiteral("1"));
        EXPECT_EQ(binary->header().value(QStringLiteral("$INSBASE")), QStringLiteral("0.0"));
        EXPECT_EQ(binary->layouts().size(), text->layouts().size());
    }
}

TEST(BinaryDxf, AHeaderVariableKnowsItsBytes)
{
    for (const int codeBytes : kLayouts) {
        const QByteArray bytes = BinaryDrawing::fromText(rich(), codeBytes);
        const auto database = read(bytes);
        const auto valueBytes = [&](const char* name) {
            for (const auto& variable : database->header().all()) {
                if (variable.name == QLatin1String(name))
                    return bytes.mid(
                        static_cast<qsizetype>(variable.valueBegin),
                        static_cast<qsizetype>(variable.valueEnd - variable.valueBegin));
            }
            return QByteArray("none");
        };
        EXPECT_EQ(valueBytes("$CLAYER"), "0");
        EXPECT_EQ(valueBytes("$HANDSEED"), "FFFFF");
        EXPECT_EQ(valueBytes("$TILEMODE"), QByteArray("\1\0", 2));
        EXPECT_EQ(valueBytes("$INSBASE"), QByteArray(8, '\0'));
    }
}

TEST(BinaryDxf, AGroupKnowsItsBytes)
{
    for (const int codeBytes : kLayouts) {
        const QByteArray bytes = BinaryDrawing::fromText(rich(), codeBytes);
        const auto database = read(bytes);
        const auto* source = dynamic_cast<const DxfObjectSource*>(database->source());
        ASSERT_TRUE(source);
        DxfCursor groups = source->cursor(database->getOdDbObjectId(OdDbHandle(0x70)).slot());
        const GroupSpelling spelling = groups.spelling();
        EXPECT_TRUE(spelling.isBinary());
        const auto part = [&](quint64 from, quint64 to) {
            return bytes.mid(static_cast<qsizetype>(from), static_cast<qsizetype>(to - from));
        };
        int seen = 0;
        for (; groups.next(); ++seen) {
            const QByteArray value = groups.bytes().toByteArray();
            QByteArray group;
            spelling.append(group, groups.code(), value);
            EXPECT_EQ(part(groups.groupBegin(), groups.groupEnd()), group) << groups.code();
            const QByteArray closed = spelling.value(groups.code(), value);
            EXPECT_EQ(part(groups.valueBegin(), groups.groupEnd()), closed) << groups.code();
            const bool hasZero = groupKind(groups.code()) == GroupKind::Text
                || groupKind(groups.code()) == GroupKind::Handle;
            EXPECT_EQ(groups.groupEnd() - groups.valueEnd(), hasZero ? 1u : 0u) << groups.code();
        }
        EXPECT_EQ(seen, 30);
    }
}

TEST(BinaryDxf, AnUneditedDrawingHasTheSameBytes)
{
    for (const int codeBytes : kLayouts) {
        for (const char* behind : {"", "\x1a", "\r\n"}) {
            const QByteArray bytes = BinaryDrawing::fromText(rich(), codeBytes) + behind;
            EXPECT_EQ(drawingBytes(*read(bytes)), bytes);
        }
    }
}

TEST(BinaryDxf, TheWidthOfCodesIsToldByTheFirstGroup)
{
    for (const int codeBytes : kLayouts) {
        for (const QByteArray& start : {QByteArray(), QByteArray("999\nmade by hand\n")}) {
            const auto database = read(BinaryDrawing::fromText(start + rich(), codeBytes));
            const auto* source = dynamic_cast<const DxfObjectSource*>(database->source());
            ASSERT_TRUE(source);
            EXPECT_EQ(source->landmarks().codeBytes, codeBytes);
        }
    }
}

TEST(BinaryDxf, AFileIsReadLikeBytesInMemory)
{
    // Long enough for the second thread that loads large files.
    QByteArray text = rich();
    QByteArray lines;
    const QByteArray name(400, 'x');
    for (int i = 0; i < 15000; ++i)
        lines += DrawingText::groups({"0", "TEXT", "5", QByteArray::number(0x100000 + i, 16), "8",
                                      i % 2 ? "Walls" : "0", "10", "1.5", "20", "2.5", "1", name});
    text.replace("0\nSECTION\n2\nENTITIES\n", "0\nSECTION\n2\nENTITIES\n" + lines);
    const QByteArray bytes = BinaryDrawing::fromText(text, 2);
    ASSERT_GT(bytes.size(), 5 << 20);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("large.dxf")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    const auto database = readDrawing(file.fileName());
    EXPECT_GT(database->store().fileRecords(), 15000u);
    EXPECT_TRUE(drawingBytes(*database) == bytes);
}

TEST(BinaryDxf, ADrawingCutOffAtAnyByteIsRefused)
{
    for (const int codeBytes : kLayouts) {
        const QByteArray whole = BinaryDrawing::fromText(rich(), codeBytes);
        for (qsizetype length = BinaryDrawing::head().size(); length < whole.size(); ++length)
            ASSERT_EQ(refusal(whole.first(length)).toStdString(),
                      QStringLiteral("binary.dxf, byte %1: the drawing breaks off here; expected "
                                     "its end mark (group 0, EOF).")
                          .arg(length)
                          .toStdString());
        for (qsizetype length = 1; length < BinaryDrawing::head().size(); ++length)
            ASSERT_TRUE(refusal(whole.first(length)).contains(QStringLiteral("is no DXF drawing")));
    }
}

TEST(BinaryDxf, AWrongGroupCodeIsNamedWithItsByte)
{
    for (const int codeBytes : kLayouts) {
        for (const int code : {80, 150, 205, 254, 500, 998, 1072, 32767, 65535}) {
            QByteArray bytes = BinaryDrawing::fromText(rich(), codeBytes);
            const QByteArray mark = BinaryDrawing::code(100, codeBytes) + "AcDbLine";
            const qsizetype at = bytes.indexOf(mark);
            bytes.replace(at, mark.size() - 8, BinaryDrawing::code(code, codeBytes));
            EXPECT_EQ(refusal(bytes),
                      QStringLiteral("binary.dxf, byte %1: expected a group code of binary "
                                     "drawings, found %2.")
                          .arg(at)
                          .arg(code));
        }
    }
}

TEST(BinaryDxf, AChunkThatIsLongerThanTheFileIsRefused)
{
    QByteArray bytes = BinaryDrawing::fromText(rich(), 2);
    const qsizetype last = bytes.lastIndexOf(BinaryDrawing::code(0, 2) + "ENDSEC");
    bytes.insert(last, BinaryDrawing::code(310, 2) + '\xFF');
    EXPECT_TRUE(refusal(bytes).contains(QStringLiteral("the drawing breaks off here")));
}

TEST(BinaryDxf, ATextOfManyMegabytesIsRefusedAndALongOneIsKept)
{
    const auto withValue = [](qsizetype size) {
        return BinaryDrawing::fromText(
            rich().replace("$INSBASE", "$MENU\n1\n" + QByteArray(size, 'x') + "\n9\n$INSBASE"), 2);
    };
    EXPECT_TRUE(refusal(withValue(qsizetype(5) << 20))
                    .contains(QStringLiteral("a text is longer than 4 MB")));
    const QByteArray longText = withValue(qsizetype(1) << 20);
    EXPECT_EQ(drawingBytes(*read(longText)), longText);
}

TEST(BinaryDxf, NotesNameTheByte)
{
    QByteArray text = rich();
    text.replace("8\nWalls\n", "8\nGhost\n");
    text.replace("0\nLINE\n5\n1000\n330\n50\n100\nAcDbEntity\n8\nM-DUCT",
                 "0\nLINE\n5\n1000\n330\n50\n100\nAcDbEntity\n8\nGhost");
    const QByteArray bytes = BinaryDrawing::fromText(text, 1);
    const auto database = read(bytes);
    EXPECT_EQ(database->loadNotes(),
              QStringList(QStringLiteral("Byte %1: layer \"Ghost\" is used and missing from the "
                                         "layer table.")
                              .arg(bytes.indexOf("Ghost"))));
}

TEST(BinaryDxf, RandomDamageNeverCrashesAndNeverChangesOtherBytes)
{
    std::mt19937 random(5);
    const QByteArray whole[] = {BinaryDrawing::fromText(rich(), 1),
                                BinaryDrawing::fromText(rich(), 2)};
    int opened = 0;
    for (int round = 0; round < 1200; ++round) {
        QByteArray bytes = whole[round % 2];
        for (int hits = 1 + static_cast<int>(random() % 3); hits > 0; --hits)
            bytes[static_cast<qsizetype>(random() % static_cast<quint32>(bytes.size()))] =
                static_cast<char>(random());
        try {
            const auto database = read(bytes);
            ++opened;
            for (quint32 slot = 0; slot < database->store().fileRecords(); ++slot)
                groupsOf(*database, slot);
            database->layouts();
            ASSERT_EQ(drawingBytes(*database), bytes);
        } catch (const OdError& error) {
            ASSERT_FALSE(error.description().isEmpty());
        }
    }
    EXPECT_GT(opened, 30);
}

TEST(BinaryDxf, RealDrawingsHaveTheLayersOfTheirTextTwins)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    for (const char* version : {"AC1009", "AC1018", "AC1032"}) {
        SCOPED_TRACE(version);
        const QString twin =
            QStringLiteral("DomCR+ACadSharp__sample_%1_%2.dxf").arg(QLatin1String(version));
        const auto text = readDrawing(SharedDrawings::file(twin.arg(QStringLiteral("ascii"))));
        const auto binary = readDrawing(SharedDrawings::file(twin.arg(QStringLiteral("binary"))));
        EXPECT_EQ(binary->audit(), QStringList());
        EXPECT_EQ(binary->layerTable().count(), text->layerTable().count());
        for (const OdDbObjectId id : text->layerTable().records()) {
            const auto was = id.safeOpenObject<OdDbLayerTableRecord>();
            const OdDbObjectId there = binary->layerTable().getAt(was->getName());
            ASSERT_FALSE(there.isNull()) << was->getName().toStdString();
            const auto is = there.safeOpenObject<OdDbLayerTableRecord>();
            EXPECT_EQ(is->isFrozen(), was->isFrozen());
            EXPECT_EQ(is->isLocked(), was->isLocked());
            EXPECT_EQ(is->isOff(), was->isOff());
            EXPECT_EQ(is->isPlottable(), was->isPlottable());
            EXPECT_EQ(is->VPDFLT(), was->VPDFLT());
            EXPECT_EQ(is->color(), was->color());
            EXPECT_EQ(is->lineWeight(), was->lineWeight());
            EXPECT_EQ(is->description(), was->description());
            EXPECT_EQ(is->state().transparency, was->state().transparency);
            EXPECT_EQ(is->state().reconciled, was->state().reconciled);
        }
        EXPECT_EQ(binary->header().all().size(), text->header().all().size());
    }
}

} // namespace

#include "layerman/arguments/UsageError.h"
#include "layerman/editing/PropertyTable.h"
#include "layerman/listing/ColumnTable.h"
#include "layerman/listing/CsvWriter.h"
#include "layerman/listing/JsonText.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace {

QStringList names(const ListColumns& columns)
{
    QStringList result;
    for (const ListColumn* column : columns)
        result << QLatin1String(column->name);
    return result;
}

PropertyEdit edit(const char* operand)
{
    return propertiesFrom({QString::fromUtf8(operand)}).front();
}

std::string refusal(const QStringList& operands)
{
    try {
        propertiesFrom(operands);
    } catch (const UsageError& error) {
        return error.sentence().toStdString();
    }
    return "nothing was refused";
}

std::string refusal(const char* operand)
{
    return refusal(QStringList{QString::fromUtf8(operand)});
}

} // namespace

TEST(Columns, AreThoseOfTheGridInItsOrderAndAFewMore)
{
    ASSERT_EQ(static_cast<std::size_t>(kLayerColumnCount) + 4, listColumns().size());
    QStringList all;
    for (const ListColumn& column : listColumns())
        all << QLatin1String(column.name);
    EXPECT_EQ("status,name,on,freeze,locked,color,linetype,lineweight,plotstyle,plot,newvpfreeze,"
              "description,vpfreeze,vpcolor,vplinetype,vplineweight,vpplotstyle,handle,reconciled,"
              "used,file",
              all.join(QLatin1Char(',')).toStdString());
    for (int i = 0; i < kLayerColumnCount; ++i)
        EXPECT_EQ(static_cast<LayerColumn>(i), listColumns()[static_cast<std::size_t>(i)].cell);
    EXPECT_STREQ("used", listColumn(ExtraColumn::Used).name);
    EXPECT_STREQ("file", listColumn(ExtraColumn::File).name);
}

TEST(Columns, WithoutAChoiceAreThoseThatModelSpaceShows)
{
    EXPECT_EQ("status,name,on,freeze,locked,color,linetype,lineweight,plotstyle,plot,newvpfreeze,"
              "description",
              names(defaultColumns(false)).join(QLatin1Char(',')).toStdString());
    EXPECT_EQ(QStringLiteral("file"), names(defaultColumns(true)).first());
}

TEST(Columns, AreChosenByNameInAnyOrder)
{
    EXPECT_EQ((QStringList{QStringLiteral("used"), QStringLiteral("name"), QStringLiteral("name")}),
              names(columnsFrom(QStringLiteral("Used, name,NAME"))));
    for (const auto& [text, sentence] :
         {std::pair("", "--columns holds an empty name; expected columns with commas between."),
          std::pair("name,,on",
                    "--columns holds an empty name; expected columns with commas between."),
          std::pair("nam", "There is no column \"nam\"; the nearest is name."),
          std::pair("name,colour", "There is no column \"colour\"; the nearest is color.")})
    {
        try {
            columnsFrom(QString::fromUtf8(text));
            ADD_FAILURE() << text << " was taken";
        } catch (const UsageError& error) {
            EXPECT_EQ(sentence, error.sentence().toStdString());
        }
    }
}

TEST(Csv, QuotesWhatWouldBreakAField)
{
    EXPECT_EQ("plain 'text'; so",
              CsvWriter::field(QStringLiteral("plain 'text'; so")).toStdString());
    EXPECT_EQ("\"a,b\"", CsvWriter::field(QStringLiteral("a,b")).toStdString());
    EXPECT_EQ("\"1/2\"\" pipe\"", CsvWriter::field(QStringLiteral("1/2\" pipe")).toStdString());
    EXPECT_EQ("\"a\nb\"", CsvWriter::field(QStringLiteral("a\nb")).toStdString());
    EXPECT_EQ("\"a\rb\"", CsvWriter::field(QStringLiteral("a\rb")).toStdString());
}

TEST(Json, AnyTextComesBack)
{
    QString text = QStringLiteral("Wände \"1/2\\\" 😀\u2028\u202e");
    for (char16_t c = 0; c < 0xA0; ++c)
        text += QChar(c);
    const QByteArray json = '[' + json_text::string(text).toUtf8() + ']';
    EXPECT_EQ(text, QJsonDocument::fromJson(json).array().first().toString());
    for (const char c : json)
        EXPECT_TRUE(static_cast<unsigned char>(c) >= 0x20) << "a raw control character";
    EXPECT_TRUE(json.contains("😀\\u2028\\u202e"));
}

TEST(Properties, OperandsWithLettersBeforeAnEqualsSignAreProperties)
{
    EXPECT_TRUE(looksLikeProperty(QStringLiteral("locked=yes")));
    EXPECT_TRUE(looksLikeProperty(QStringLiteral("frob=")));
    EXPECT_FALSE(looksLikeProperty(QStringLiteral("./locked=yes")));
    EXPECT_FALSE(looksLikeProperty(QStringLiteral("plan-2=b.dxf")));
    EXPECT_FALSE(looksLikeProperty(QStringLiteral("=yes")));
    EXPECT_FALSE(looksLikeProperty(QStringLiteral("plan.dxf")));
}

TEST(Properties, TruthHasManyWords)
{
    for (const char* yes : {"locked=yes", "locked=ON", "LOCKED=True", "locked=1"})
        EXPECT_EQ(LayerValue(true), edit(yes).value) << yes;
    for (const char* no : {"locked=no", "locked=off", "locked=FALSE", "locked=0"})
        EXPECT_EQ(LayerValue(false), edit(no).value) << no;
    EXPECT_EQ(LayerValue(false), edit("on=yes").value) << "the grid's flag says off";
    EXPECT_EQ("plot is yes or no (on, off, true, false, 1, 0); \"maybe\" is neither.",
              refusal("plot=maybe"));
}

TEST(Properties, ColorsAndWidthsAreReadAsTheLayerCommandReadsThem)
{
    EXPECT_EQ(LayerValue(OdCmColor::fromIndex(1)), edit("color=Red").value);
    EXPECT_EQ(LayerValue(OdCmColor::fromIndex(255)), edit("vpcolor=255").value);
    EXPECT_EQ(LayerValue(OdCmColor::fromRgb(1, 2, 3)), edit("color=1,2,3").value);
    EXPECT_EQ(LayerValue(qint16(25)), edit("lineweight=0.25").value);
    EXPECT_EQ(LayerValue(qint16(25)), edit("lineweight=0.010\"").value);
    EXPECT_EQ(LayerValue(qint16(-3)), edit("vplineweight=default").value);
    EXPECT_EQ("A color is an index from 1 to 255, a name from red to white, or \"r,g,b\"; \"999\" "
              "is none.",
              refusal("color=999"));
    EXPECT_EQ("A lineweight is Default or a width from 0.00 mm to 2.11 mm; \"3\" is none.",
              refusal("lineweight=3"));
}

TEST(Properties, WhatIsWrongWhateverTheDrawingIsRefusedAtOnce)
{
    EXPECT_EQ("There is no property \"colour\"; the nearest is color. A file of that name is "
              "written ./colour=1.",
              refusal("colour=1"));
    EXPECT_EQ("locked is given twice.",
              refusal({QStringLiteral("locked=1"), QStringLiteral("LOCKED=0")}));
    EXPECT_EQ("A name is needed.", refusal("name="));
    EXPECT_EQ("The following characters are not valid in Layer Names: <>/\":;?*|,=`\\",
              refusal("name=A*"));
    EXPECT_EQ("A layer's name holds no control characters.", refusal("name=a\x1b"));
    EXPECT_EQ("The name cannot be longer than 255 characters",
              refusal({QStringLiteral("name=") + QString(255, QLatin1Char('a'))}));
    EXPECT_EQ("nothing was refused",
              refusal({QStringLiteral("name=") + QString(254, QLatin1Char('a'))}));
    EXPECT_EQ("linetype needs a value.", refusal("linetype="));
    EXPECT_EQ("current can be yes only: another layer that becomes current takes its place.",
              refusal("current=no"));
}

TEST(Properties, AnEqualsSignOfTheValueStays)
{
    EXPECT_EQ("a=b", edit("description=a=b").text.toStdString());
    EXPECT_EQ("", edit("description=").text.toStdString());
}

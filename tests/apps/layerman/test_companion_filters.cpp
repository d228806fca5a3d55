#include "CompanionFixture.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "database/tables/OdDbLayerTable.h"
#include "io/DrawingFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

class CompanionFilters : public CompanionFixture
{
protected:
    /// "plan.dxf" with a property filter "Red", current, a group "Shell" of one layer, nested in
    /// it a group "Core" of two and in that a property filter; and a filter of another program.
    void writePlan()
    {
        const auto drawing =
            readDrawing(DrawingText::withLayers({{"Walls", 0, 1}, {"Doors", 0, 1}, {"Roof", 4}}),
                        QStringLiteral("plan"));
        const auto manager = odlyGetLayerFilterManager(drawing.get());
        OdLyLayerFilterPtr root;
        OdLyLayerFilterPtr current;
        manager->getFilters(root, current);
        const auto red = property("Red", "COLOR==\"1\" ");
        const auto shell = group(*drawing, "Shell", {"Walls"});
        const auto core = group(*drawing, "Core", {"Walls", "Roof"});
        root->addNested(red);
        root->addNested(shell);
        shell->addNested(core);
        core->addNested(property("Locked", "LOCKED==\"True\" "));
        root->addNested(property("Foreign", "NAME==\"W*\" AND FROB==\"x\""));
        manager->setFilters(root, red);
        write("plan.dxf", drawingBytes(*drawing));
    }

    static OdLyLayerFilterPtr property(const char* name, const char* expression)
    {
        const auto filter = odrxCreate<OdLyLayerFilter>(QString::fromLatin1(name));
        filter->setFilterExpression(QString::fromLatin1(expression));
        return filter;
    }
    static OdLyLayerGroupPtr group(const OdDbDatabase& drawing, const char* name,
                                   std::initializer_list<const char*> layers)
    {
        const auto made = odrxCreate<OdLyLayerGroup>(QString::fromLatin1(name));
        for (const char* layer : layers)
            made->addLayerId(drawing.layerTable().getAt(QString::fromLatin1(layer)));
        return made;
    }
    std::string listed(const char* filter, const char* option = "--inches")
    {
        return layerman({QStringLiteral("list"), QStringLiteral("plan.dxf"),
                         QStringLiteral("--columns=name"), QStringLiteral("--format=csv"),
                         QStringLiteral("--filter"), QString::fromLatin1(filter),
                         QString::fromLatin1(option)})
            .output;
    }
};

TEST_F(CompanionFilters, AreATreeWithTheirCounts)
{
    writePlan();
    const Finished done = layerman("filters plan.dxf");
    EXPECT_EQ("Cur  Filter             Kind      Layers  Definition\n"
              "---  -----------------  --------  ------  ------------------------\n"
              "     All                built-in  4\n"
              "       All used layers  built-in  3\n"
              "*      Red              property  2       COLOR==\"1\"\n"
              "       Shell            group     1       holds 1 layer\n"
              "         Core           group     2       holds 2 layers\n"
              "           Locked       property  1       LOCKED==\"True\"\n"
              "       Foreign          property  1       NAME==\"W*\" AND FROB==\"x\"\n",
              done.output);
    EXPECT_EQ("1 drawing, 7 filters listed.\n", done.errors);
    EXPECT_EQ(0, done.exitCode);
}

TEST_F(CompanionFilters, AreNestedObjectsInJson)
{
    writePlan();
    write("broken.dxf", "none");
    const Finished done = layerman("filters --format=json broken.dxf plan.dxf");
    EXPECT_EQ(6, done.exitCode);
    const QJsonArray json = QJsonDocument::fromJson(QByteArray::fromStdString(done.output)).array();
    ASSERT_EQ(2, json.size());
    EXPECT_TRUE(json[0][QStringLiteral("error")].toString().contains(QStringLiteral("broken.dxf")));
    const QJsonValue root = json[1][QStringLiteral("filters")][0];
    EXPECT_EQ(QStringLiteral("All"), root[QStringLiteral("name")].toString());
    EXPECT_EQ(4, root[QStringLiteral("layers")].toInt());
    const QJsonArray nested = root[QStringLiteral("filters")].toArray();
    ASSERT_EQ(4, nested.size());
    EXPECT_EQ((QJsonObject{{QStringLiteral("name"), QStringLiteral("Red")},
                           {QStringLiteral("kind"), QStringLiteral("property")},
                           {QStringLiteral("current"), true},
                           {QStringLiteral("expression"), QStringLiteral("COLOR==\"1\" ")},
                           {QStringLiteral("editable"), true},
                           {QStringLiteral("layers"), 2},
                           {QStringLiteral("filters"), QJsonArray()}}),
              nested[1].toObject());
    EXPECT_EQ(1, nested[2][QStringLiteral("held")].toInt());
    const QJsonValue locked = nested[2][QStringLiteral("filters")][0][QStringLiteral("filters")][0];
    EXPECT_EQ(QStringLiteral("Locked"), locked[QStringLiteral("name")].toString());
    EXPECT_FALSE(nested[3][QStringLiteral("editable")].toBool(true));
}

TEST_F(CompanionFilters, ChooseTheLayersToList)
{
    writePlan();
    EXPECT_EQ("name\nDoors\nWalls\n", listed("RED"));
    EXPECT_EQ("name\n0\nRoof\n", listed("red", "--invert"));
    EXPECT_EQ("name\nRoof\nWalls\n", listed("Core"));
    EXPECT_EQ("name\nRoof\n", listed("Core", "--search=R*"));
    EXPECT_EQ("name\nRoof\n", listed("Locked"));
    EXPECT_EQ("name\n0\nDoors\nWalls\n", listed("all used layers"));
    EXPECT_EQ("name\n", listed("All", "--invert"));
}

TEST_F(CompanionFilters, OfAnotherProgramShowWhatIsKnownOfThemAndChangeNothing)
{
    writePlan();
    const QByteArray before = bytesOf(QStringLiteral("plan.dxf"));
    const std::string sentence = "plan.dxf: The filter \"Foreign\" holds an expression of another "
                                 "program that rows of criteria cannot say: NAME==\"W*\" AND "
                                 "FROB==\"x\"\n";
    const Finished list = layerman("list plan.dxf --filter foreign --columns name --format csv");
    EXPECT_EQ(0, list.exitCode);
    EXPECT_EQ("name\nWalls\n", list.output);
    EXPECT_EQ(sentence + "1 drawing, 1 of 4 layers listed.\n", list.errors);
    const Finished set = layerman("set plan.dxf --filter foreign locked=yes --in-place");
    EXPECT_EQ(3, set.exitCode);
    EXPECT_EQ("layerman: " + sentence + "1 drawing: 0 layers changed, 1 drawing failed.\n",
              set.errors);
    EXPECT_EQ(before, bytesOf(QStringLiteral("plan.dxf")));
}

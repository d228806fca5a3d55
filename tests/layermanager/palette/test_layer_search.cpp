#include "layermanager/LayerDrawing.h"
#include "layermanager/palette/pane/LayerSearch.h"

#include <gtest/gtest.h>

namespace {

using layer_drawing::id;
using layer_drawing::write;

/// A search over all layers of a drawing, the filter showing all of them.
class Searched
{
public:
    explicit Searched(const QList<QByteArray>& names)
    {
        QList<DrawingText::Layer> layers;
        for (const QByteArray& name : names)
            layers.append({name});
        m_drawing = layer_drawing::make(layers);
        read();
        m_search.setFilter(m_drawing->layerTable().records(), {});
    }

    void read(LayerSortOrder order = {})
    {
        m_search.read(*m_drawing, order, LayerCellContext::of(*m_drawing));
    }
    std::string found(const char* pattern, bool inverted = false) const
    {
        const LayerSearch::Ids ids = m_search.matching(QString::fromUtf8(pattern), inverted);
        return layer_drawing::names(ids).join(QLatin1Char(' ')).toStdString();
    }
    OdDbDatabase& drawing() { return *m_drawing; }
    LayerSearch& search() { return m_search; }

private:
    std::unique_ptr<OdDbDatabase> m_drawing;
    LayerSearch m_search;
};

} // namespace

TEST(LayerSearch, FindsNamesThatMatchThePattern)
{
    const Searched layers({"Walls", "Doors", "Wall-2", "Roof"});
    EXPECT_EQ(layers.found("wal*"), "Wall-2 Walls");
    EXPECT_EQ(layers.found("*oo*"), "Doors Roof");
    EXPECT_EQ(layers.found("Roof"), "Roof");
    EXPECT_EQ(layers.found("Roo"), "");
    EXPECT_EQ(layers.found("????"), "Roof");
    EXPECT_EQ(layers.found("*#,r*"), "0 Roof Wall-2");
    EXPECT_EQ(layers.found("~*oo*"), "0 Wall-2 Walls");
}

TEST(LayerSearch, AnEmptyPatternTildeAndAsteriskFindEverything)
{
    const Searched layers({"Walls", "Doors"});
    for (const char* pattern : {"", "~", "*"})
        EXPECT_EQ(layers.found(pattern), "0 Doors Walls") << pattern;
}

TEST(LayerSearch, UpperAndLowerCaseAreAlikeInEachAlphabet)
{
    Searched layers({});
    for (const char* name : {"TÜREN", "Ёлка", "ΣΟΦΟΣ", "straße"})
        layers.drawing().layerTable().add(QString::fromUtf8(name));
    layers.search().forget();
    layers.read();
    layers.search().setFilter(layers.drawing().layerTable().records(), {});
    EXPECT_EQ(layers.found("tür*"), "TÜREN");
    EXPECT_EQ(layers.found("ёЛ*"), "Ёлка");
    EXPECT_EQ(layers.found("σοφ*"), "ΣΟΦΟΣ");
    EXPECT_EQ(layers.found("STRAß?"), "straße");
}

TEST(LayerSearch, ALetterThatFoldsIntoSeveralIsOneCharacter)
{
    Searched layers({});
    layers.drawing().layerTable().add(QStringLiteral("Ma\u00DF"));
    layers.drawing().layerTable().add(QStringLiteral("o\uFB01ce"));
    layers.search().forget();
    layers.read();
    layers.search().setFilter(layers.drawing().layerTable().records(), {});
    EXPECT_EQ(layers.found("ma?"), "Ma\u00DF");
    EXPECT_EQ(layers.found("mass"), "");
    EXPECT_EQ(layers.found("O?CE"), "o\uFB01ce");
}

TEST(LayerSearch, InvertedItSearchesTheLayersThatTheFilterDoesNotShow)
{
    Searched layers({"Walls", "Doors", "Wall-2"});
    OdDbDatabase& d = layers.drawing();
    layers.search().setFilter({id(d, "Walls")}, {id(d, "0"), id(d, "Doors"), id(d, "Wall-2")});
    EXPECT_EQ(layers.found("*"), "Walls");
    EXPECT_EQ(layers.found("*", true), "0 Doors Wall-2");
    EXPECT_EQ(layers.found("w*", true), "Wall-2");
}

TEST(LayerSearch, LayersThatBelongToProgramsAreNeverFound)
{
    const Searched layers({"*ADSK", "Walls"});
    EXPECT_EQ(layers.found("*"), "0 Walls");
    EXPECT_EQ(layers.found("`**"), "");
}

TEST(LayerSearch, ANameIsFoundOnceUnlessEverythingIsWanted)
{
    Searched layers({"Walls", "WALLS", "Doors"});
    EXPECT_EQ(layers.found("*").substr(0, 8), "0 Doors ");
    EXPECT_EQ(layers.search().matching(QStringLiteral("*"), false).size(), 4u);
    EXPECT_EQ(layers.found("w*"), "Walls");
    // One of the two alone: it is not a second one.
    const auto all = layers.drawing().layerTable().records();
    layers.search().setFilter({all[2]}, {all[0], all[1], all[3]});
    EXPECT_EQ(layers.found("w*"), "WALLS");
    EXPECT_EQ(layers.found("w*", true), "Walls");
}

TEST(LayerSearch, FindsInTheOrderOfTheGrid)
{
    Searched layers({"A1", "A2", "A3"});
    layers.read({LayerColumn::Name, false});
    EXPECT_EQ(layers.found("a*"), "A3 A2 A1");
    write(layers.drawing(), "A1")->setIsLocked(true);
    layers.search().forgetFilter();
    layers.read({LayerColumn::Locked, true});
    layers.search().setFilter(layers.drawing().layerTable().records(), {});
    EXPECT_EQ(layers.found("a*"), "A2 A3 A1");
}

TEST(LayerSearch, KnowsWhatItReadUntilToldToForget)
{
    Searched layers({"Walls"});
    write(layers.drawing(), "Walls")->setName(QStringLiteral("Roof"));
    layers.read();
    EXPECT_EQ(layers.search().matching(QStringLiteral("walls"), false).size(), 1u);
    layers.search().forget();
    EXPECT_FALSE(layers.search().hasFilter());
    layers.read();
    layers.search().setFilter(layers.drawing().layerTable().records(), {});
    EXPECT_EQ(layers.found("walls"), "");
    EXPECT_EQ(layers.found("roof"), "Roof");
}

TEST(LayerSearch, AFilterWithoutAnyLayerOnEitherSideIsEmpty)
{
    Searched layers({"Walls"});
    EXPECT_FALSE(layers.search().isFilterEmpty());
    layers.search().setFilter({}, {});
    EXPECT_TRUE(layers.search().isFilterEmpty());
    EXPECT_EQ(layers.found("*"), "");
}

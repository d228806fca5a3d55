#include "layermanager/filters/FilterNames.h"
#include "layermanager/filters/FilterTexts.h"
#include "sdk/texts/ModulePath.h"
#include "support/CatalogueBytes.h"

#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
using Verdict = FilterNameVerdict;

/// A tree "All" with "Doors", "Walls" below it, "Outer Walls" below that, and a group "Mine".
class FilterNames : public testing::Test
{
protected:
    FilterNames()
    {
        add(m_root, "Doors");
        const auto walls = add(m_root, "Walls");
        add(walls, "Outer Walls");
        m_root->addNested(odrxCreate<OdLyLayerGroup>(QStringLiteral("Mine")));
    }

    static OdLyLayerFilterPtr add(const OdLyLayerFilterPtr& parent, const char* name)
    {
        const auto filter = odrxCreate<OdLyLayerFilter>(QString::fromUtf8(name));
        parent->addNested(filter);
        return filter;
    }
    Verdict rename(const char* oldName, const QString& newText) const
    {
        return checkFilterRename(m_root, QString::fromUtf8(oldName), newText);
    }
    Verdict rename(const char* oldName, const char* newText) const
    {
        return rename(oldName, QString::fromUtf8(newText));
    }
    std::string nextProperty() const
    {
        return MakeDefaultFilterName(m_root, FilterKind::Property).toStdString();
    }
    std::string nextGroup() const
    {
        return MakeDefaultFilterName(m_root, FilterKind::Group).toStdString();
    }

    OdLyLayerFilterPtr m_root = odrxCreate<OdLyLayerFilter>(QStringLiteral("All"));
};
} // namespace

TEST_F(FilterNames, TheTreeIsWalkedFromTheRootEachFilterBeforeThoseBelowIt)
{
    QStringList names;
    for (const OdLyLayerFilterPtr& filter : filtersOfTree(m_root))
        names << filter->name();
    EXPECT_EQ(names.join(QLatin1Char('/')).toStdString(), "All/Doors/Walls/Outer Walls/Mine");
    EXPECT_TRUE(filtersOfTree({}).empty());
}

TEST_F(FilterNames, ATreeAsDeepAsAnyIsWalked)
{
    constexpr int kDepth = 20'000;
    OdLyLayerFilterPtr parent = m_root;
    for (int i = 0; i < kDepth; ++i)
        parent = add(parent, "Properties Filter1");
    EXPECT_EQ(filtersOfTree(m_root).size(), kDepth + 5u);
    EXPECT_EQ(nextProperty(), "Properties Filter2");
    // Taken apart from below, since each filter holds the one below it.
    while (parent != m_root) {
        const OdLyLayerFilterPtr child = std::exchange(parent, parent->parent());
        parent->removeNested(child);
    }
}

TEST_F(FilterNames, AFilterIsFoundAnywhereWithoutRegardToCase)
{
    EXPECT_EQ(findFilter(m_root, QStringLiteral("OUTER walls"))->name(),
              QStringLiteral("Outer Walls"));
    EXPECT_EQ(findFilter(m_root, QStringLiteral("all")), m_root);
    EXPECT_FALSE(findFilter(m_root, QStringLiteral("Outer")));
    EXPECT_FALSE(findFilter({}, QStringLiteral("All")));
    add(m_root, "DOORS");
    EXPECT_EQ(findFilter(m_root, QStringLiteral("DOORS"))->name(), QStringLiteral("Doors"));
}

TEST_F(FilterNames, TheFirstNewFilterTakesNumberOne)
{
    EXPECT_EQ(nextProperty(), "Properties Filter1");
    EXPECT_EQ(nextGroup(), "Group Filter1");
}

TEST_F(FilterNames, WithThePropertyFilterNamesFor1And3InUseTheNextPropertyFilterTakesNumber2)
{
    add(m_root, "Properties Filter1");
    add(findFilter(m_root, QStringLiteral("Outer Walls")), "Properties Filter3");
    EXPECT_EQ(nextProperty(), "Properties Filter2");
    EXPECT_EQ(nextGroup(), "Group Filter1");
    add(m_root, "Properties Filter2");
    EXPECT_EQ(nextProperty(), "Properties Filter4");
}

TEST_F(FilterNames, GroupsCountOnTheirOwn)
{
    add(m_root, "Group Filter1"); // what kind of filter has the name does not matter
    EXPECT_EQ(nextGroup(), "Group Filter2");
    EXPECT_EQ(nextProperty(), "Properties Filter1");
}

TEST_F(FilterNames, ANameThatDiffersInCaseOnlyDoesNotBlockTheDefaultName)
{
    add(m_root, "properties filter1");
    EXPECT_EQ(nextProperty(), "Properties Filter1");
}

TEST_F(FilterNames, DefaultNamesAreMadeQuicklyHoweverManyAreTaken)
{
    constexpr int kFilters = 50'000;
    for (int i = 1; i <= kFilters; ++i)
        add(m_root, QByteArray("Properties Filter" + QByteArray::number(i)).constData());
    EXPECT_EQ(nextProperty(), "Properties Filter50001");
}

TEST_F(FilterNames, ANewNameIsAccepted)
{
    EXPECT_EQ(rename("Doors", "Windows"), Verdict::Accepted);
    EXPECT_EQ(rename("Doors", "Walls outer"), Verdict::Accepted);
    EXPECT_EQ(rename("Doors", "Türen [2] {a}~#@.!$%&()+-_^"), Verdict::Accepted);
}

TEST_F(FilterNames, BlanksAroundANameAreNotPartOfIt)
{
    EXPECT_EQ(typedFilterName(QStringLiteral("  A  b ")).toStdString(), "A  b");
    EXPECT_EQ(rename("Doors", "  Walls "), Verdict::NotUnique);
}

TEST_F(FilterNames, ItsOwnNameWithBlanksAroundItAndInAnotherCaseChangesNothing)
{
    EXPECT_EQ(rename("Doors", "Doors"), Verdict::Unchanged);
    EXPECT_EQ(rename("Doors", "  dOORS  "), Verdict::Unchanged);
    EXPECT_TRUE(filterNameRefusal(Verdict::Unchanged).isEmpty());
}

TEST_F(FilterNames, NoNameAtAllChangesNothing)
{
    for (const char* blank : {"", " ", "   ", "\t"})
        EXPECT_EQ(rename("Doors", blank), Verdict::Unchanged);
}

TEST_F(FilterNames, ANameThatDiffersInCaseOnlyFromThatOfAnotherFilterIsRefused)
{
    EXPECT_EQ(rename("Doors", "WALLS"), Verdict::NotUnique);
    EXPECT_EQ(rename("Doors", "outer walls"), Verdict::NotUnique);
    EXPECT_EQ(rename("Doors", "MINE"), Verdict::NotUnique);
    EXPECT_EQ(rename("Doors", "all"), Verdict::NotUnique);
}

TEST_F(FilterNames, EachOfTheThirteenCharactersIsRefused)
{
    const QString thirteen = QStringLiteral("<>/\\\":;?*|,=`");
    ASSERT_EQ(thirteen.size(), 13);
    for (const QChar character : thirteen) {
        for (const QString& name :
             {QString(character), QStringLiteral("A") + character, character + QStringLiteral("A"),
              QStringLiteral("A") + character + QStringLiteral("B")})
        {
            EXPECT_EQ(rename("Doors", name), Verdict::InvalidCharacters) << name.toStdString();
        }
    }
}

TEST_F(FilterNames, EveryOtherPrintableCharacterIsAccepted)
{
    const QString thirteen = QStringLiteral("<>/\\\":;?*|,=`");
    for (char16_t unit = u'!'; unit < 0x7F; ++unit) {
        const Verdict expected =
            thirteen.contains(QChar(unit)) ? Verdict::InvalidCharacters : Verdict::Accepted;
        EXPECT_EQ(rename("Doors", QString(QChar(unit))), expected) << char(unit);
    }
}

TEST_F(FilterNames, ABackslashIsRefusedAndAnApostropheAccepted)
{
    EXPECT_EQ(rename("Doors", "A\\B"), Verdict::InvalidCharacters);
    EXPECT_EQ(rename("Doors", "Tom's"), Verdict::Accepted);
}

TEST_F(FilterNames, CharactersAreLookedAtBeforeOtherFilters)
{
    add(m_root, "A/B"); // another program may have made it
    EXPECT_EQ(rename("Doors", "a/b"), Verdict::InvalidCharacters);
    EXPECT_EQ(rename("A/B", " a/b "), Verdict::Unchanged);
}

TEST_F(FilterNames, ARefusalIsToldInTheseWords)
{
    EXPECT_EQ(filterNameRefusal(Verdict::InvalidCharacters).toStdString(),
              "Invalid Characters in filter name.\n"
              "\n"
              "Followinf characters are not valid in Filter names:\n"
              "    <>/\\\":;?*|,=`");
    EXPECT_EQ(filterNameRefusal(Verdict::NotUnique).toStdString(),
              "Invalid Filter name.\n"
              "\n"
              " Filter name must be unique.");
    EXPECT_TRUE(filterNameRefusal(Verdict::Accepted).isEmpty());
}

TEST_F(FilterNames, TheWordsOfARefusalCanBeThoseOfAnotherLanguage)
{
    QTemporaryDir folder;
    QFile catalogue(folder.filePath(QStringLiteral("signs.qm")));
    ASSERT_TRUE(catalogue.open(QIODevice::WriteOnly));
    QList<CatalogueText> texts;
    for (const KsResText& text : filterTexts()) {
        const QString translation = text.id == 84539 ? QStringLiteral("Signoj: %1")
            : text.id == 84540                       ? QStringLiteral("Nomo")
                                                     : QStringLiteral("-");
        texts.append({"KsResString", text.source.text, text.source.comment, translation});
    }
    catalogue.write(catalogueBytes(texts));
    catalogue.close();
    const QString program = modulePathOf(nullptr);
    const auto restore = qScopeGuard([&] { KsLoadLanguageCatalogue(program, QString()); });
    const KsResourceScope scope(KsLoadLanguageCatalogue(program, catalogue.fileName()));
    EXPECT_EQ(filterNameRefusal(Verdict::InvalidCharacters).toStdString(),
              "Signoj: <>/\\\":;?*|,=`");
    EXPECT_EQ(filterNameRefusal(Verdict::NotUnique).toStdString(), "Nomo");
}

TEST_F(FilterNames, TheNodeOfNewLayersLendsItsNameToNoFilter)
{
    EXPECT_EQ(rename("Mine", "unreconciled new layers"), Verdict::NotUnique);
    EXPECT_EQ(rename("UnReconciled New Layers", "UNRECONCILED NEW LAYERS"), Verdict::Unchanged);
}

#include "database/filters/OdLyLayerFilterManager.h"
#include "database/objects/OdDbDictionary.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"
#include "support/drawings/SharedDrawings.h"

#include <gtest/gtest.h>

namespace {

QString shown(const OdLyLayerFilter& filter)
{
    QString text = filter.name();
    if (filter.isIdFilter()) {
        for (const OdDbObjectId layer : static_cast<const OdLyLayerGroup&>(filter).layerIds())
            text += QLatin1Char('+') + layer.openObject<OdDbLayerTableRecord>()->getName();
    } else if (!filter.filterExpression().isEmpty()) {
        text += QLatin1Char('{') + filter.filterExpression() + QLatin1Char('}');
    }
    QStringList nested;
    for (const OdLyLayerFilterPtr& child : filter.getNestedFilters()) {
        if (child->allowDelete())
            nested.append(shown(*child));
    }
    return nested.isEmpty() ? text
                            : QStringLiteral("%1(%2)").arg(text, nested.join(QLatin1Char(' ')));
}

class FilterWriting : public testing::Test
{
protected:
    void read(const QByteArray& bytes)
    {
        m_bytes = bytes;
        m_database = readDrawing(bytes, QStringLiteral("filters.dxf"));
        load(*m_database);
    }
    void load(OdDbDatabase& database)
    {
        odlyGetLayerFilterManager(&database)->getFilters(m_root, m_current);
    }
    void store() { odlyGetLayerFilterManager(m_database.get())->setFilters(m_root, m_current); }
    /// The tree that a saved and reopened drawing has.
    QString reopened()
    {
        m_saved = drawingBytes(*m_database);
        const auto again = readDrawing(m_saved, QStringLiteral("again.dxf"));
        EXPECT_EQ(again->audit(), QStringList());
        OdLyLayerFilterPtr root;
        OdLyLayerFilterPtr current;
        odlyGetLayerFilterManager(again.get())->getFilters(root, current);
        m_currentName = current->name();
        return shown(*root);
    }
    OdLyLayerGroupPtr group(const char* name, std::initializer_list<const char*> layers) const
    {
        const auto made = odrxCreate<OdLyLayerGroup>(QString::fromLatin1(name));
        for (const char* layer : layers)
            made->addLayerId(m_database->layerTable().getAt(QString::fromLatin1(layer)));
        return made;
    }
    OdLyLayerFilterPtr find(const char* name) const
    {
        for (const OdLyLayerFilterPtr& child : m_root->getNestedFilters()) {
            if (child->name() == QLatin1String(name))
                return child;
        }
        return nullptr;
    }
    /// A drawing with a group, a nested group, an expression in another program's spelling.
    QByteArray withFilters()
    {
        read(DrawingText::withLayers({{"Walls"}, {"Doors"}}));
        const auto shell = group("Shell", {"Walls", "Doors"});
        m_root->addNested(shell);
        shell->addNested(group("Inner", {"Walls"}));
        const auto red = odrxCreate<OdLyLayerFilter>(QStringLiteral("Red"));
        red->setFilterExpression(QStringLiteral("( COLOR== \"1\" )"));
        m_root->addNested(red);
        store();
        return drawingBytes(*m_database);
    }

    QByteArray m_bytes;
    QByteArray m_saved;
    std::unique_ptr<OdDbDatabase> m_database;
    OdLyLayerFilterPtr m_root;
    OdLyLayerFilterPtr m_current;
    QString m_currentName;
};

TEST_F(FilterWriting, WritingTheSameTreeChangesNothing)
{
    read(withFilters());
    store();
    EXPECT_FALSE(m_database->hasUndo());
    EXPECT_EQ(drawingBytes(*m_database), m_bytes);
}

TEST_F(FilterWriting, NewFiltersAreFoundAgainWithNestingMembersAndExpressions)
{
    read(DrawingText::withLayers({{"Walls"}, {"Doors"}}));
    const auto shell = group("Shell", {"Walls", "Doors"});
    m_root->addNested(shell);
    shell->addNested(group("Inner", {"Walls"}));
    const auto red = odrxCreate<OdLyLayerFilter>(QStringLiteral("Red"));
    red->setFilterExpression(QStringLiteral("COLOR==\"1\" "));
    m_root->addNested(red);
    m_current = red;
    store();
    EXPECT_EQ(reopened(), QStringLiteral("All(Shell+Walls+Doors(Inner+Walls) Red{COLOR==\"1\" })"));
    EXPECT_EQ(m_currentName, QStringLiteral("Red"));
    EXPECT_TRUE(
        m_saved.contains("\n1\nAcLyLayerGroup\n90\n        1\n300\nShell\n330\n31\n330\n32\n"));
    while (m_database->undo()) {
    }
    EXPECT_EQ(drawingBytes(*m_database), m_bytes);
}

TEST_F(FilterWriting, RedoBringsTheTreeBack)
{
    read(DrawingText::withLayers({{"Walls"}, {"Doors"}}));
    m_database->startUndoRecord();
    m_root->addNested(group("Shell", {"Doors"}));
    store();
    const QByteArray edited = drawingBytes(*m_database);
    m_database->undo();
    EXPECT_EQ(reopened(), QStringLiteral("All"));
    m_database->redo();
    EXPECT_EQ(drawingBytes(*m_database), edited);
}

TEST_F(FilterWriting, AForeignExpressionKeepsItsSpellingUntilItIsEdited)
{
    read(withFilters());
    EXPECT_EQ(find("Red")->filterExpression(), QStringLiteral("COLOR==\"1\" "));
    find("Red")->setName(QStringLiteral("Rot"));
    store();
    EXPECT_EQ(reopened(), QStringLiteral("All(Shell+Walls+Doors(Inner+Walls) Rot{COLOR==\"1\" })"));
    EXPECT_TRUE(m_saved.contains("( COLOR== \"1\" )"));
    load(*m_database);
    find("Rot")->setFilterExpression(QStringLiteral("COLOR==\"2\" "));
    store();
    reopened();
    EXPECT_FALSE(m_saved.contains("COLOR== \"1\""));
    EXPECT_TRUE(m_saved.contains("COLOR==\"2\" "));
}

TEST_F(FilterWriting, RemovedFiltersGoWithTheirNestedOnes)
{
    read(withFilters());
    EXPECT_TRUE(m_root->removeNested(find("Shell")));
    store();
    EXPECT_EQ(reopened(), QStringLiteral("All(Red{COLOR==\"1\" })"));
    EXPECT_FALSE(m_saved.contains("Inner"));
    m_database->undo();
    EXPECT_EQ(drawingBytes(*m_database), m_bytes);
}

TEST_F(FilterWriting, RecordsOfUnknownClassesStay)
{
    QByteArray bytes = withFilters();
    bytes.replace("AcLyLayerFilter", "SomeLayerFilter");
    read(bytes);
    EXPECT_FALSE(find("Red"));
    m_root->removeNested(find("Shell"));
    m_root->addNested(group("New", {"Walls"}));
    store();
    EXPECT_EQ(reopened(), QStringLiteral("All(New+Walls)"));
    EXPECT_TRUE(m_saved.contains("SomeLayerFilter"));
}

TEST_F(FilterWriting, ErasedLayersLeaveTheirGroupsInTheFile)
{
    read(withFilters());
    m_database->layerTable()
        .getAt(QStringLiteral("Doors"))
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
        ->erase();
    EXPECT_EQ(reopened(), QStringLiteral("All(Shell+Walls(Inner+Walls) Red{COLOR==\"1\" })"));
    EXPECT_FALSE(m_saved.contains("\n330\n32\n"));
    m_database->undo();
    EXPECT_EQ(drawingBytes(*m_database), m_bytes);
}

TEST_F(FilterWriting, TheCurrentFilterIsMarkedWhereOtherProgramsLook)
{
    read(withFilters());
    m_current = find("Shell");
    store();
    reopened();
    EXPECT_EQ(m_currentName, QStringLiteral("Shell"));
    load(*m_database);
    m_current = find("All used layers");
    store();
    reopened();
    EXPECT_EQ(m_currentName, QStringLiteral("All used layers"));
    EXPECT_TRUE(m_saved.contains("<AllUsed"));
    load(*m_database);
    m_current = m_root;
    store();
    reopened();
    EXPECT_EQ(m_currentName, QStringLiteral("All"));
    EXPECT_TRUE(m_saved.contains("\n<All\n"));
}

TEST_F(FilterWriting, FiltersOfTheSessionAreNotKept)
{
    read(withFilters());
    const auto fresh = group("UnReconciled New Layers", {"Doors"});
    fresh->setDynamicallyGenerated(true);
    m_root->addNested(fresh);
    store();
    EXPECT_FALSE(m_database->hasUndo());
    load(*m_database);
    ASSERT_TRUE(find("UnReconciled New Layers"));
    m_root->removeNested(find("UnReconciled New Layers"));
    store();
    load(*m_database);
    EXPECT_FALSE(find("UnReconciled New Layers"));
}

TEST_F(FilterWriting, GroupsStandBelowGroupsOnly)
{
    read(withFilters());
    EXPECT_THROW(find("Red")->addNested(group("Below", {})), OdError);
    EXPECT_THROW(find("All used layers")->addNested(group("Below", {})), OdError);
    EXPECT_FALSE(m_root->allowDelete() || m_root->allowRename());
    EXPECT_FALSE(find("All used layers")->allowDelete());
    EXPECT_TRUE(find("Shell")->allowDelete() && find("Shell")->allowNested());
    EXPECT_EQ(find("Shell")->getNestedFilters().front()->parent(), find("Shell"));
}

TEST_F(FilterWriting, FiltersOfTheOldFormAreReadWhereThereAreNoOthers)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const auto database =
        readDrawing(SharedDrawings::file(QStringLiteral("dotoritos-kim+dxf-json__A_000217.dxf")));
    load(*database);
    EXPECT_GT(m_root->getNestedFilters().size(), 1u);
    for (const OdLyLayerFilterPtr& child : m_root->getNestedFilters())
        EXPECT_FALSE(child->name().isEmpty());
}

} // namespace

#include "FilterDrawing.h"
#include "database/objects/OdDbEntity.h"
#include "layermanager/filters/tree/FilterCommands.h"
#include "layermanager/filters/tree/FilterLayerCommands.h"

#include <gtest/gtest.h>

using layer_drawing::id;
using layer_drawing::read;
using layer_drawing::write;
using enum FilterNodeKind;

namespace {

FilterNode node(FilterNodeKind kind, bool isEditable = true)
{
    FilterNode made;
    made.key.name = QStringLiteral("F");
    made.kind = kind;
    made.isEditable = isEditable && kind == Property;
    return made;
}

using Ids = std::vector<int>;

Ids withState(FilterNodeKind kind, FilterCommandState state, bool modelSpace = false)
{
    Ids found;
    for (const FilterCommand& command : filterCommands()) {
        if (filterCommandState(command.id, node(kind), modelSpace) == state)
            found.push_back(command.id);
    }
    std::sort(found.begin(), found.end());
    return found;
}

/// What every node offers in a layout.
constexpr int kLayerCommands[] = {40072, 40074, 40076, 40077, 40079,
                                  40080, 40082, 40084, 40086, 40089};

Ids and_(std::initializer_list<int> more)
{
    Ids ids(std::begin(kLayerCommands), std::end(kLayerCommands));
    ids.insert(ids.end(), more);
    return ids;
}

FilterLayers layersOf(const OdDbDatabase& database, std::initializer_list<const char*> in,
                      std::initializer_list<const char*> other)
{
    FilterLayers layers;
    for (const char* name : in)
        layers.in.push_back(id(database, name));
    for (const char* name : other)
        layers.other.push_back(id(database, name));
    return layers;
}

} // namespace

TEST(FilterMenu, OnAllOffersNewFiltersButNoConvertRenameDeleteEditOrSelect)
{
    EXPECT_EQ(withState(All, FilterCommandState::Enabled), and_({40091, 40093}));
    EXPECT_EQ(withState(All, FilterCommandState::Disabled), (Ids{40095, 40096, 40097}));
    EXPECT_EQ(withState(All, FilterCommandState::Removed), (Ids{40098, 40099, 40100}));
}

TEST(FilterMenu, OnAllUsedLayersOffersNoFilterCommandAtAll)
{
    EXPECT_EQ(withState(UsedLayers, FilterCommandState::Enabled), and_({}));
    EXPECT_EQ(withState(UsedLayers, FilterCommandState::Disabled),
              (Ids{40091, 40093, 40095, 40096, 40097}));
    EXPECT_EQ(withState(UsedLayers, FilterCommandState::Removed), (Ids{40098, 40099, 40100}));
}

TEST(FilterMenu, OnAPropertyFilterOffersEditAndConvertButNoSelectAndNoNewGroup)
{
    EXPECT_EQ(withState(Property, FilterCommandState::Enabled),
              and_({40091, 40095, 40096, 40097, 40098}));
    EXPECT_EQ(withState(Property, FilterCommandState::Disabled), (Ids{40093}));
    EXPECT_EQ(withState(Property, FilterCommandState::Removed), (Ids{40099, 40100}));
}

TEST(FilterMenu, OnAPropertyFilterThatRowsCannotSayGraysEdit)
{
    EXPECT_EQ(filterCommandState(40098, node(Property, false), false),
              FilterCommandState::Disabled);
}

TEST(FilterMenu, OnAGroupOffersSelectAndNewGroupButNoEdit)
{
    EXPECT_EQ(withState(Group, FilterCommandState::Enabled),
              and_({40091, 40093, 40096, 40097, 40099, 40100}));
    EXPECT_EQ(withState(Group, FilterCommandState::Disabled), (Ids{40095}));
    EXPECT_EQ(withState(Group, FilterCommandState::Removed), (Ids{40098}));
}

TEST(FilterMenu, OnUnreconciledLayersOffersNeitherNewFiltersRenameNorDelete)
{
    EXPECT_EQ(withState(Unreconciled, FilterCommandState::Enabled), and_({}));
    EXPECT_EQ(withState(Unreconciled, FilterCommandState::Disabled),
              (Ids{40091, 40093, 40095, 40096, 40097}));
    EXPECT_EQ(withState(Unreconciled, FilterCommandState::Removed), (Ids{40098, 40099, 40100}));
}

TEST(FilterMenu, OnAnExternalReferenceChangesLayersOnly)
{
    EXPECT_EQ(withState(ExternalReference, FilterCommandState::Enabled), and_({}));
}

TEST(FilterMenu, GraysTheViewportCommandsInModelSpace)
{
    for (const FilterNodeKind kind :
         {All, UsedLayers, Property, Group, ExternalReference, Unreconciled})
    {
        const Ids grayed = withState(kind, FilterCommandState::Disabled, true);
        for (const int command : {40082, 40084, 40089})
            EXPECT_TRUE(std::find(grayed.begin(), grayed.end(), command) != grayed.end())
                << command;
    }
}

TEST(FilterMenu, LabelsItsSubmenusFromTheResources)
{
    EXPECT_EQ(filterMenuText(FilterMenu::Viewport).remove(QLatin1Char('&')),
              QStringLiteral("Viewport"));
    EXPECT_EQ(filterMenuText(FilterMenu::SelectLayers).remove(QLatin1Char('&')),
              QStringLiteral("Select Layers"));
}

TEST(FilterLayerCommand, ChangesEveryLayerOfTheFilterAndNoOther)
{
    using Record = OdDbLayerTableRecord;
    const struct
    {
        int id;
        bool (Record::*get)() const;
        void (Record::*set)(bool);
        bool wanted;
        bool onOthers;
    } kCases[] = {
        {40072, &Record::isOff, &Record::setIsOff, true, false},
        {40074, &Record::isOff, &Record::setIsOff, false, false},
        {40076, &Record::isFrozen, &Record::setIsFrozen, false, false},
        {40077, &Record::isFrozen, &Record::setIsFrozen, true, false},
        {40079, &Record::isLocked, &Record::setIsLocked, true, false},
        {40080, &Record::isLocked, &Record::setIsLocked, false, false},
        {40086, &Record::isFrozen, &Record::setIsFrozen, true, true},
    };
    for (const auto& wanted : kCases) {
        const FilterDrawing drawing;
        for (const char* name : {"A", "B", "C"})
            (*write(*drawing, name).*wanted.set)(!wanted.wanted);
        ASSERT_TRUE(
            changeLayersOfFilter(*drawing, wanted.id, layersOf(*drawing, {"A", "B"}, {"C"})));
        for (const char* name : {"A", "B", "C"}) {
            const bool changes = (QByteArray(name) == "C") == wanted.onOthers;
            EXPECT_EQ((*read(*drawing, name).*wanted.get)(), changes == wanted.wanted)
                << wanted.id << " on " << name;
        }
    }
}

TEST(FilterLayerCommand, IsOneUndoRecord)
{
    const FilterDrawing drawing;
    ASSERT_TRUE(changeLayersOfFilter(*drawing, 40079, layersOf(*drawing, {"A", "B", "C"}, {})));
    EXPECT_EQ(drawing.host.historyNames, texts({"_LAYER"}));
    EXPECT_TRUE(drawing->undo());
    EXPECT_FALSE(drawing->hasUndo());
    for (const char* name : {"A", "B", "C"})
        EXPECT_FALSE(read(*drawing, name)->isLocked()) << name;
    EXPECT_TRUE(drawing->redo());
    EXPECT_TRUE(read(*drawing, "B")->isLocked());
}

TEST(FilterLayerCommand, DoesNotFreezeTheCurrentLayer)
{
    const FilterDrawing drawing;
    drawing->setCLAYER(id(*drawing, "B"));
    changeLayersOfFilter(*drawing, 40077, layersOf(*drawing, {"A", "B"}, {"C"}));
    EXPECT_TRUE(read(*drawing, "A")->isFrozen());
    EXPECT_FALSE(read(*drawing, "B")->isFrozen());
    drawing->setCLAYER(id(*drawing, "C"));
    changeLayersOfFilter(*drawing, 40086, layersOf(*drawing, {"A"}, {"B", "C"}));
    EXPECT_TRUE(read(*drawing, "B")->isFrozen());
    EXPECT_FALSE(read(*drawing, "C")->isFrozen());
    changeLayersOfFilter(*drawing, 40072, layersOf(*drawing, {"C"}, {}));
    EXPECT_TRUE(read(*drawing, "C")->isOff()) << "off it may be";
}

TEST(FilterLayerCommand, PassesOverErasedLayers)
{
    const FilterDrawing drawing;
    const FilterLayers layers = layersOf(*drawing, {"A", "B"}, {});
    write(*drawing, "A")->erase(true);
    EXPECT_TRUE(changeLayersOfFilter(*drawing, 40079, layers));
    EXPECT_TRUE(read(*drawing, "B")->isLocked());
}

TEST(FilterViewportCommand, FreezesAndThawsInTheViewportWorkedIn)
{
    const FilterDrawing drawing;
    drawing->setTILEMODE(false);
    const OdDbObjectId active = drawing->activeViewportId();
    const auto frozen = [&](const char* layer) {
        return active.safeOpenObject<OdDbViewport>()->isLayerFrozenInViewport(id(*drawing, layer));
    };
    EXPECT_TRUE(changeLayersOfFilter(*drawing, 40084, layersOf(*drawing, {"A", "B"}, {"C"})));
    EXPECT_TRUE(frozen("A"));
    EXPECT_TRUE(frozen("B"));
    EXPECT_FALSE(frozen("C"));
    EXPECT_TRUE(changeLayersOfFilter(*drawing, 40082, layersOf(*drawing, {"A"}, {"B", "C"})));
    EXPECT_FALSE(frozen("A"));
    EXPECT_TRUE(frozen("B"));
    EXPECT_TRUE(changeLayersOfFilter(*drawing, 40089, layersOf(*drawing, {"A"}, {"B", "C"})))
        << "the layers that are not in the filter";
    EXPECT_FALSE(frozen("B"));
}

TEST(FilterViewportCommand, DoesNothingInModelSpaceOrWithoutLayers)
{
    const FilterDrawing drawing;
    const auto editStamp = drawing->editStamp();
    for (const int command : {40082, 40084, 40089})
        EXPECT_FALSE(changeLayersOfFilter(*drawing, command, layersOf(*drawing, {"A"}, {"B"})));
    drawing->setTILEMODE(false);
    const auto inLayout = drawing->editStamp();
    EXPECT_FALSE(changeLayersOfFilter(*drawing, 40084, layersOf(*drawing, {}, {"B"})));
    EXPECT_FALSE(changeLayersOfFilter(*drawing, 40089, layersOf(*drawing, {"A"}, {})));
    EXPECT_EQ(drawing->editStamp(), inLayout);
    EXPECT_NE(editStamp, inLayout);
    EXPECT_TRUE(drawing.host.historyNames.isEmpty()) << "no undo record either";
}

#include "database/drawing/OdDbDatabaseReactor.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "support/drawings/DrawingText.h"
#include "support/drawings/EditedDrawing.h"

#include <gtest/gtest.h>

namespace {

QString name(const char* text)
{
    return QString::fromUtf8(text);
}

/// Notes what happened to which handle; handles from FFFFF on are new ones.
class Listener : public OdDbDatabaseReactor
{
public:
    void objectAppended(const OdDbDatabase*, const OdDbObject* object) override
    {
        note("appended", object);
    }
    void objectUnAppended(const OdDbDatabase*, const OdDbObject* object) override
    {
        note("unappended", object);
    }
    void objectReAppended(const OdDbDatabase*, const OdDbObject* object) override
    {
        note("reappended", object);
    }
    void objectModified(const OdDbDatabase*, const OdDbObject* object) override
    {
        note("modified", object);
    }
    void objectErased(const OdDbDatabase*, const OdDbObject* object, bool erased) override
    {
        note(erased ? "erased" : "unerased", object);
    }
    std::string take() { return std::exchange(m_heard, QStringList()).join(u' ').toStdString(); }
    void call(OdDbObjectId id, const char* text) { m_names.insert(id.getHandle().value(), text); }

private:
    void note(const char* what, const OdDbObject* object)
    {
        const quint64 handle = object->objectId().getHandle().value();
        const auto known = m_names.constFind(handle);
        const QString text = known != m_names.constEnd() ? QString::fromLatin1(*known)
            : m_new.contains(handle)
            ? m_new.value(handle)
            : m_new.insert(handle, name("new%1").arg(m_new.size() + 1)).value();
        m_heard.append(QLatin1String(what) + u':' + text);
    }

    QHash<quint64, const char*> m_names;
    QHash<quint64, QString> m_new;
    QStringList m_heard;
};

class ObjectMaking : public testing::Test
{
protected:
    ObjectMaking()
    {
        m_listener.call(m_drawing->getNamedObjectsDictionaryId(), "root");
        m_listener.call(m_drawing.layer("Walls")->objectId(), "Walls");
        m_drawing->addReactor(&m_listener);
        m_drawing->startUndoRecord();
    }
    ~ObjectMaking() override { m_drawing->removeReactor(&m_listener); }

    std::string undone()
    {
        m_listener.take();
        m_drawing->undo();
        return m_listener.take();
    }
    std::string redone()
    {
        m_listener.take();
        m_drawing->redo();
        return m_listener.take();
    }

    Listener m_listener;
    EditedDrawing m_drawing{DrawingText::withLayers({{"Walls"}, {"Doors"}})};
};

TEST_F(ObjectMaking, TellsOfALayerThatIsAddedTakenBackAndBroughtAgain)
{
    const OdDbObjectId pipes = m_drawing->layerTable().add(name("Pipes"));
    EXPECT_EQ(m_listener.take(), "appended:new1");
    EXPECT_EQ(undone(), "unappended:new1");
    EXPECT_TRUE(pipes.isErased());
    EXPECT_FALSE(m_drawing->layerTable().has(name("pipes")));
    EXPECT_EQ(redone(), "reappended:new1");
    EXPECT_EQ(m_drawing->layerTable().getAt(name("pipes")), pipes);
    EXPECT_EQ(m_drawing->audit(), QStringList());
}

TEST_F(ObjectMaking, TellsOfADictionaryAndOfTheOneThatTakesItIn)
{
    const OdDbObjectId made =
        m_drawing->createDictionary(m_drawing->getNamedObjectsDictionaryId(), name("OURS"));
    EXPECT_EQ(m_listener.take(), "appended:new1 modified:root");
    EXPECT_EQ(m_drawing->namedObject({name("ours")}), made);
    EXPECT_EQ(undone(), "modified:root unappended:new1");
    EXPECT_TRUE(m_drawing->namedObject({name("ours")}).isNull());
    EXPECT_EQ(redone(), "reappended:new1 modified:root");
    EXPECT_EQ(m_drawing->namedObject({name("ours")}), made);
}

TEST_F(ObjectMaking, TellsOfAnErasedObjectOnce)
{
    m_drawing.layer("Walls")->erase();
    EXPECT_EQ(m_listener.take(), "erased:Walls");
    EXPECT_EQ(undone(), "reappended:Walls");
    EXPECT_EQ(redone(), "erased:Walls");
    EXPECT_EQ(undone(), "reappended:Walls");
    EXPECT_EQ(m_drawing.saved(), m_drawing.original());
}

TEST_F(ObjectMaking, GivesTheExtensionDictionaryThatAnObjectHas)
{
    const OdDbObjectId walls = m_drawing.layer("Walls")->objectId();
    const OdDbObjectId made = m_drawing->createExtensionDictionary(walls);
    EXPECT_EQ(m_drawing->createExtensionDictionary(walls), made);
    EXPECT_EQ(m_drawing->extensionDictionary(walls), made);
    EXPECT_EQ(made.safeOpenObject<OdDbDictionary>()->ownerId(), walls);
    EXPECT_TRUE(made.safeOpenObject<OdDbDictionary>()->state().treatElementsAsHard);
    m_drawing->undo();
    EXPECT_TRUE(m_drawing->extensionDictionary(walls).isNull());
    m_drawing->redo();
    EXPECT_EQ(m_drawing->extensionDictionary(walls), made);
}

TEST_F(ObjectMaking, GivesTheRecordThatADictionaryHas)
{
    const OdDbObjectId root = m_drawing->getNamedObjectsDictionaryId();
    const OdDbObjectId made = m_drawing->createXrecord(root, name("Ours"));
    GroupList groups;
    groups.append(90, qint64(5));
    made.safeOpenObject<OdDbXrecord>(OdDb::kForWrite)->setGroups(groups);
    EXPECT_EQ(m_drawing->createXrecord(root, name("OURS")), made);
    EXPECT_EQ(made.safeOpenObject<OdDbXrecord>()->groups(), groups);
    EXPECT_EQ(root.safeOpenObject<OdDbDictionary>()->entries().size(), 2u);
}

TEST_F(ObjectMaking, FindsKeysWithoutCaseAndKeepsTheirSpelling)
{
    const auto root =
        m_drawing->getNamedObjectsDictionaryId().safeOpenObject<OdDbDictionary>(OdDb::kForWrite);
    const OdDbObjectId made = m_drawing->createXrecord(root->objectId(), name("Größe"));
    EXPECT_EQ(root->getAt(name("GRÖßE")), made);
    EXPECT_EQ(root->nameAt(made), name("Größe"));
    EXPECT_FALSE(root->rename(name("größe"), name("acad_layout"))) << "another entry's key";
    EXPECT_TRUE(root->rename(name("größe"), name("GRÖSSE")));
    EXPECT_EQ(root->nameAt(made), name("GRÖSSE"));
    EXPECT_FALSE(root->remove(name("none")));
    EXPECT_TRUE(root->remove(name("größe")) || root->remove(name("grösse")));
    EXPECT_TRUE(root->getAt(name("GRÖSSE")).isNull());
}

TEST_F(ObjectMaking, ErasesATreeWithAllThatItOwns)
{
    const OdDbObjectId root = m_drawing->getNamedObjectsDictionaryId();
    const OdDbObjectId tree = m_drawing->createDictionary(root, name("TREE"));
    const OdDbObjectId branch = m_drawing->createDictionary(tree, name("BRANCH"));
    const OdDbObjectId leaf = m_drawing->createXrecord(branch, name("LEAF"));
    const OdDbObjectId hung = m_drawing->createExtensionDictionary(leaf);
    const OdDbObjectId guest = m_drawing->createXrecord(root, name("GUEST"));
    tree.safeOpenObject<OdDbDictionary>(OdDb::kForWrite)->setAt(name("guest"), guest);
    m_drawing->startUndoRecord();
    m_listener.take();
    root.safeOpenObject<OdDbDictionary>(OdDb::kForWrite)->remove(name("tree"));
    m_drawing->eraseTree(tree);
    for (const OdDbObjectId id : {tree, branch, leaf, hung})
        EXPECT_TRUE(id.isErased());
    EXPECT_FALSE(guest.isErased()) << "the root owns it";
    EXPECT_EQ(QString::fromStdString(m_listener.take()).count(name("erased:")), 4);
    m_drawing->undo();
    for (const OdDbObjectId id : {tree, branch, leaf, hung})
        EXPECT_FALSE(id.isErased());
    EXPECT_EQ(m_drawing->namedObject({name("TREE"), name("BRANCH"), name("LEAF")}), leaf);
    EXPECT_EQ(m_drawing->audit(), QStringList());
}

// Reviewed layers

class Reviewed : public testing::Test
{
protected:
    Reviewed() { m_drawing->setDictionaryVariable(name("LAYEREVAL"), name("2")); }

    EditedDrawing m_drawing{
        DrawingText::withLayers({{"Walls"}, {"Doors"}, {"defpoints"}, {"*ADSK_HIDDEN"}, {"Roof"}})};
};

TEST_F(Reviewed, LayersAreAllWhereNoneHasAFlag)
{
    for (const char* layer : {"0", "Walls", "Doors", "Defpoints", "*ADSK_HIDDEN"})
        EXPECT_TRUE(m_drawing.layer(layer)->isReconciled()) << layer;
}

TEST_F(Reviewed, LayersAreThoseWithTheFlagOnceThereIsABaseline)
{
    m_drawing->startUndoRecord();
    m_drawing.layer("Walls")->setIsReconciled(true);
    EXPECT_TRUE(m_drawing.layer("Walls")->isReconciled());
    EXPECT_FALSE(m_drawing.layer("Doors")->isReconciled());
    EXPECT_TRUE(m_drawing.layer("Defpoints")->isReconciled()) << "never new";
    EXPECT_TRUE(m_drawing.layer("*ADSK_HIDDEN")->isReconciled()) << "never new";
    m_drawing.layer("Doors")->setIsReconciled(false);
    EXPECT_FALSE(m_drawing.layer("Doors")->isReconciled());
    m_drawing->undo();
    EXPECT_TRUE(m_drawing.layer("Doors")->isReconciled()) << "no flag, no baseline";
}

TEST_F(Reviewed, LayersGoByTheirFlagOnlyWhereEvaluationIsOff)
{
    m_drawing.layer("Walls")->setIsReconciled(true);
    m_drawing.layer("Roof")->setIsReconciled(false);
    m_drawing->setDictionaryVariable(name("LAYEREVAL"), name("0"));
    EXPECT_TRUE(m_drawing.layer("Doors")->isReconciled());
    EXPECT_FALSE(m_drawing.layer("Roof")->isReconciled());
}

TEST_F(Reviewed, LayersHaveNoBaselineLeftWhenTheOnlyFlagGoesWithItsLayer)
{
    EXPECT_TRUE(m_drawing.layer("Doors")->isReconciled());
    m_drawing->startUndoRecord();
    m_drawing.layer("Roof")->setIsReconciled(true);
    EXPECT_FALSE(m_drawing.layer("Doors")->isReconciled());
    m_drawing->startUndoRecord();
    m_drawing.layer("Roof")->erase();
    EXPECT_TRUE(m_drawing.layer("Doors")->isReconciled());
    m_drawing->undo();
    EXPECT_FALSE(m_drawing.layer("Doors")->isReconciled());
    m_drawing->undo();
    EXPECT_TRUE(m_drawing.layer("Doors")->isReconciled());
    m_drawing->redo();
    m_drawing->redo();
    EXPECT_TRUE(m_drawing.layer("Doors")->isReconciled());
}

// Audit

class Audit : public testing::Test
{
protected:
    /// The findings after a fault was planted; there were none before.
    std::string found(const std::function<void(ObjectStore&)>& plant)
    {
        EXPECT_EQ(m_drawing->audit(), QStringList());
        plant(m_drawing->store());
        return m_drawing->audit().join(u'|').toStdString();
    }
    bool finds(const char* sentence, const std::function<void(ObjectStore&)>& plant)
    {
        const std::string all = found(plant);
        EXPECT_NE(all.find(sentence), std::string::npos) << all;
        return all.find(sentence) != std::string::npos;
    }
    quint32 slot(quint64 handle) const { return m_drawing.object(handle).slot(); }

    EditedDrawing m_drawing{DrawingText::withLayers({{"Walls"}, {"Doors"}})};
};

TEST_F(Audit, FindsAnUnknownHandle)
{
    EXPECT_TRUE(finds("is not found by its handle.",
                      [&](ObjectStore& store) { store.setHandle(slot(0x1000), 0xABCDEF); }));
}

TEST_F(Audit, FindsAnOwnerOutsideTheDrawing)
{
    EXPECT_TRUE(finds("has an owner outside the drawing.",
                      [&](ObjectStore& store) { store.setOwner(slot(0x1000), store.size() + 5); }));
}

TEST_F(Audit, FindsARecordThatOwnsItself)
{
    EXPECT_TRUE(
        finds("owns itself.", [&](ObjectStore& store) { store.setOwner(slot(0x60), slot(0x60)); }));
}

TEST_F(Audit, FindsAnEntityOnNoLayer)
{
    EXPECT_TRUE(finds("lies on no layer.", [&](ObjectStore& store) {
        store.setLayer(slot(0x1000), ObjectStore::kNone);
    }));
}

TEST_F(Audit, FindsAnEntityOnAnErasedLayer)
{
    EXPECT_TRUE(finds("lies on an erased layer.",
                      [&](ObjectStore&) { m_drawing.layer("Walls")->erase(); }));
}

TEST_F(Audit, FindsAnEntityOfNoBlock)
{
    EXPECT_TRUE(finds("belongs to no block.", [&](ObjectStore& store) {
        store.setOwner(slot(0x1000), ObjectStore::kNone);
    }));
}

TEST_F(Audit, FindsANameThatItsRecordHasNot)
{
    EXPECT_TRUE(finds("is indexed under another name than \"Other\".", [&](ObjectStore&) {
        m_drawing.layer("Walls")->stateForLoading().name = name("Other");
    }));
}

TEST_F(Audit, FindsAnErasedRecordThatIsStillNamed)
{
    EXPECT_TRUE(finds("is erased and still named.", [&](ObjectStore& store) {
        store.setFlag(slot(0x32), ObjectStore::kErased, true);
    }));
}

TEST_F(Audit, FindsOverridesInWhatIsNoViewport)
{
    EXPECT_TRUE(finds("has overrides in what is no viewport.", [&](ObjectStore&) {
        m_drawing.layer("Walls")->stateForLoading().overrides[slot(0x1000)].lineWeight = 35;
    }));
}

TEST_F(Audit, FindsFrozenWhatIsNoLayer)
{
    EXPECT_TRUE(finds("freezes what is no layer.", [&](ObjectStore&) {
        m_drawing.object(DrawingText::kFirstViewport)
            .safeOpenObject<OdDbViewport>()
            ->stateForLoading()
            .frozenLayers.push_back(m_drawing.object(0x60));
    }));
}

TEST_F(Audit, FindsErasedAndForeignMembersOfFilters)
{
    const OdDbObjectId filters = m_drawing->createDictionary(
        m_drawing->createExtensionDictionary(m_drawing->getLayerTableId()), name("ACLYDICTIONARY"));
    const OdDbObjectId filter = m_drawing->createXrecord(filters, name("*A1"));
    GroupList groups;
    groups.append(330, "60");
    EXPECT_TRUE(finds("names a DICTIONARY as a layer.", [&](ObjectStore&) {
        filter.safeOpenObject<OdDbXrecord>(OdDb::kForWrite)->setGroups(groups);
    }));
    filter.safeOpenObject<OdDbXrecord>(OdDb::kForWrite)->setGroups({});
    EXPECT_TRUE(finds("\"*A1\" of ACLYDICTIONARY is erased.", [&](ObjectStore&) {
        filter.safeOpenObject<OdDbXrecord>(OdDb::kForWrite)->erase();
    }));
}

TEST_F(Audit, FindsThatTheCurrentLayerIsGone)
{
    m_drawing->setCLAYER(m_drawing.layer("Doors")->objectId());
    EXPECT_TRUE(finds("The current layer is no layer of the drawing.",
                      [&](ObjectStore&) { m_drawing.layer("Doors")->erase(); }));
}

TEST_F(Audit, FindsThatLayerZeroIsGone)
{
    EXPECT_TRUE(
        finds("There is no layer 0.", [&](ObjectStore&) { m_drawing.layer("0")->erase(); }));
}

} // namespace

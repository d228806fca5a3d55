#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"

#include <gtest/gtest.h>

namespace {

class Listener : public OdDbDatabaseReactor
{
public:
    void objectModified(const OdDbDatabase*, const OdDbObject* object) override
    {
        note("modified", object);
    }
    void objectErased(const OdDbDatabase*, const OdDbObject* object, bool erased) override
    {
        note(erased ? "erased" : "unerased", object);
    }
    void objectReAppended(const OdDbDatabase*, const OdDbObject* object) override
    {
        note("back", object);
    }
    void headerSysVarChanged(const OdDbDatabase*, const QString& name) override
    {
        heard.append(name);
    }
    void goodbye(const OdDbDatabase*) override { heard.append(QStringLiteral("goodbye")); }

    QStringList take() { return std::exchange(heard, {}); }

private:
    void note(const char* what, const OdDbObject* object)
    {
        heard.append(QLatin1String(what) + QLatin1Char(' ')
                     + static_cast<const OdDbLayerTableRecord*>(object)->getName());
    }
    QStringList heard;
};

class Reactors : public testing::Test
{
protected:
    Reactors() { m_database->addReactor(&m_listener); }
    ~Reactors() override
    {
        if (m_database)
            m_database->removeReactor(&m_listener);
    }
    OdDbLayerTableRecordPtr write(const char* name) const
    {
        return m_database->layerTable()
            .getAt(QString::fromLatin1(name))
            .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    }

    Listener m_listener;
    std::unique_ptr<OdDbDatabase> m_database = readDrawing(
        DrawingText::withLayers({{"Walls"}, {"Doors"}}), QStringLiteral("reactors.dxf"));
};

TEST_F(Reactors, HearAChangeOnceWhenTheRecordCloses)
{
    {
        const auto walls = write("Walls");
        walls->setIsOff(true);
        walls->setIsLocked(true);
        EXPECT_TRUE(m_listener.take().isEmpty());
    }
    EXPECT_EQ(m_listener.take(), QStringList{QStringLiteral("modified Walls")});
}

TEST_F(Reactors, HearNothingOfAWriteWithoutChange)
{
    write("Walls")->setIsOff(false);
    EXPECT_TRUE(m_listener.take().isEmpty());
}

TEST_F(Reactors, HearUndoAndRedoLikeAnyChange)
{
    m_database->startUndoRecord();
    write("Walls")->setIsOff(true);
    write("Doors")->erase();
    m_listener.take();
    m_database->undo();
    EXPECT_EQ(m_listener.take(),
              (QStringList{QStringLiteral("back Doors"), QStringLiteral("modified Walls")}));
    m_database->redo();
    EXPECT_EQ(m_listener.take(),
              (QStringList{QStringLiteral("modified Walls"), QStringLiteral("erased Doors")}));
}

TEST_F(Reactors, HearHeaderVariablesByName)
{
    m_database->setCLAYER(write("Doors")->objectId());
    m_database->setCTAB(QStringLiteral("Sheet A"));
    EXPECT_EQ(m_listener.take(),
              (QStringList{QStringLiteral("CLAYER"), QStringLiteral("TILEMODE"),
                           QStringLiteral("CTAB")}));
    m_database->undo();
    EXPECT_EQ(m_listener.take().size(), 3);
}

TEST_F(Reactors, HearTheEndOfTheDatabase)
{
    m_database.reset();
    EXPECT_EQ(m_listener.take(), QStringList{QStringLiteral("goodbye")});
}

TEST_F(Reactors, MayLeaveAndEditWhileTheyAreTold)
{
    class Meddler : public OdDbDatabaseReactor
    {
    public:
        explicit Meddler(OdDbDatabase& database)
            : m_database(database)
        { }
        void objectModified(const OdDbDatabase*, const OdDbObject* object) override
        {
            m_database.removeReactor(this);
            const OdDbObjectId other = m_database.layerTable().getAt(QStringLiteral("Doors"));
            if (object->objectId() != other)
                other.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsLocked(true);
        }
        OdDbDatabase& m_database;
    } meddler(*m_database);
    m_database->startUndoRecord();
    write("Walls")->setIsOff(true);
    m_database->addReactor(&meddler);
    m_database->undo();
    EXPECT_TRUE(write("Doors")->isLocked());
    EXPECT_FALSE(m_database->hasRedo()) << "the edit of the listener ended redo";
    EXPECT_TRUE(m_database->undo());
    EXPECT_FALSE(write("Doors")->isLocked());
}

} // namespace

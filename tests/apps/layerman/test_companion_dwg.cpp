#include "CompanionFixture.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "support/drawings/DwgCopy.h"
#include "support/drawings/SharedDrawings.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

/// DWG drawings of several versions, listed and changed as others are.
class CompanionDwg : public CompanionFixture
{
protected:
    void SetUp() override
    {
        KEST_GTEST_NEEDS_DRAWINGS();
        DwgCopy::make(DwgCopy::kVersion2000, path(QStringLiteral("a.dwg")));
        DwgCopy::make(DwgCopy::kVersion2004, path(QStringLiteral("b.dwt")));
        DwgCopy::make(DwgCopy::kVersion2018, path(QStringLiteral("c.DWS")));
    }

    /// Runs the program over all three; it has to succeed. The last line of what it says.
    std::string over(const char* command, const char* words)
    {
        const Finished done =
            layerman((std::string(command) + " a.dwg b.dwt c.DWS " + words).c_str());
        EXPECT_EQ(0, done.exitCode) << words << '\n' << done.errors;
        return done.errors;
    }
    OdDbLayerTableRecordPtr probe(const OdDbDatabase& drawing) const
    {
        return drawing.layerTable()
            .getAt(QStringLiteral("Probe"))
            .safeOpenObject<OdDbLayerTableRecord>();
    }
    /// Gives each drawing a layer to try things on.
    void addProbe()
    {
        for (const QString& name : m_names) {
            const auto drawing = read(name);
            drawing->layerTable().add(QStringLiteral("Probe"));
            writeDrawing(*drawing, path(name));
        }
    }

    const QStringList m_names{QStringLiteral("a.dwg"), QStringLiteral("b.dwt"),
                              QStringLiteral("c.DWS")};
};

TEST_F(CompanionDwg, ListsTheLayersOfSeveralVersions)
{
    const Finished done = layerman("list a.dwg b.dwt c.DWS --format json --columns name");
    EXPECT_EQ(0, done.exitCode) << done.errors;
    const QJsonArray drawings =
        QJsonDocument::fromJson(QByteArray::fromStdString(done.output)).array();
    ASSERT_EQ(m_names.size(), drawings.size());
    for (int i = 0; i < m_names.size(); ++i) {
        const QJsonObject drawing = drawings[i].toObject();
        EXPECT_EQ(m_names[i], drawing[QLatin1String("file")].toString());
        const auto table = read(m_names[i]);
        const QJsonArray layers = drawing[QLatin1String("layers")].toArray();
        EXPECT_FALSE(layers.isEmpty());
        for (const auto& layer : layers)
            EXPECT_TRUE(
                table->layerTable().has(layer.toObject()[QLatin1String("name")].toString()));
    }
}

TEST_F(CompanionDwg, ChangesLayersInTheVersionOfEachDrawing)
{
    addProbe();
    std::vector<QByteArray> before;
    for (const QString& name : m_names)
        before.push_back(bytesOf(name));
    EXPECT_EQ("3 drawings: 3 layers would change.\n",
              over("set", "--search Probe freeze=yes color=30 --dry-run"));
    for (int i = 0; i < m_names.size(); ++i)
        EXPECT_EQ(before[static_cast<std::size_t>(i)], bytesOf(m_names[i]));
    EXPECT_EQ("3 drawings: 3 layers changed.\n",
              over("set", "--search Probe freeze=yes color=30 name=Renamed --in-place"));
    for (int i = 0; i < m_names.size(); ++i) {
        EXPECT_EQ(before[static_cast<std::size_t>(i)].left(6), bytesOf(m_names[i]).left(6));
        const auto drawing = read(m_names[i]);
        EXPECT_EQ(QString(), writingRefusal(*drawing));
        const auto layer = drawing->layerTable()
                               .getAt(QStringLiteral("Renamed"))
                               .safeOpenObject<OdDbLayerTableRecord>();
        EXPECT_TRUE(layer->isFrozen());
        EXPECT_EQ(30, layer->color().colorIndex());
    }
}

TEST_F(CompanionDwg, LayerStatesAreKeptAndGoFromVersionToVersion)
{
    addProbe();
    EXPECT_EQ("3 drawings: 3 layer states saved.\n", over("states", "save Before --in-place"));
    over("set", "--search Probe locked=yes --in-place");
    EXPECT_TRUE(probe(*read(m_names[0]))->isLocked());
    EXPECT_EQ("3 drawings: 3 layer states restored.\n",
              over("states", "restore Before --in-place"));
    EXPECT_FALSE(probe(*read(m_names[0]))->isLocked());
    EXPECT_EQ(0, layerman("states c.DWS export Before before.las").exitCode);
    over("states", "delete Before --in-place");
    // The state brings layers along whose true colors version 2000 has no place for.
    const std::string imported = over("states", "import before.las --in-place");
    EXPECT_EQ(0u,
              imported.find("a.dwg: The drawing's version cannot hold the true color of layer"));
    EXPECT_NE(std::string::npos, imported.find("\n3 drawings: 3 layer states imported.\n"));
    const Finished list = layerman("states a.dwg list");
    EXPECT_EQ(0u, list.output.find("Name")) << list.output;
    EXPECT_NE(std::string::npos, list.output.find("\nBefore "));
}

TEST_F(CompanionDwg, TheEndingOfTheOtherFormatIsRefused)
{
    addProbe();
    const Finished done = layerman("set a.dwg --search Probe locked=yes -o out.dxf");
    EXPECT_EQ(4, done.exitCode);
    EXPECT_EQ(0u,
              done.errors.find(
                  "layerman: a.dwg: out.dxf was not written: the drawing was read from a DWG "
                  "file and is saved as one; expected a name that ends in .dwg.\n"))
        << done.errors;
    drawing("d.dxf", {{"Walls"}});
    const Finished other = layerman("set d.dxf --search Walls locked=yes -o out.dwg");
    EXPECT_EQ(4, other.exitCode);
    EXPECT_EQ(
        0u,
        other.errors.find("layerman: d.dxf: out.dwg was not written: the drawing was read from "
                          "a DXF file"))
        << other.errors;
    EXPECT_FALSE(files().contains(QStringLiteral("out.dxf")));
    EXPECT_FALSE(files().contains(QStringLiteral("out.dwg")));
}

TEST_F(CompanionDwg, WhatCannotBeWrittenIsListedAndNotChanged)
{
    DwgCopy::make(DwgCopy::kVersionR14, path(QStringLiteral("r14.dwg")));
    DwgCopy::make(DwgCopy::kVersion2007, path(QStringLiteral("r2007.dwg")));
    DwgCopy::makeDamaged(path(QStringLiteral("bad.dwg")));
    const std::pair<const char*, const char*> drawings[] = {
        {"r14.dwg",
         "Drawings of the versions R13 and R14 can be opened, but edits of them cannot "
         "be saved."},
        {"r2007.dwg", "Drawings of version 2007 can be read but not written."},
        {"bad.dwg", "is damaged."},
    };
    for (const auto& [name, why] : drawings) {
        const QByteArray before = bytesOf(QString::fromLatin1(name));
        EXPECT_EQ(0, layerman((std::string("list ") + name).c_str()).exitCode);
        const std::string set = std::string("set ") + name + " --search 0 locked=yes ";
        for (const char* where : {"--in-place", "-o out.dwg", "--dry-run"}) {
            const Finished done = layerman((set + where).c_str());
            EXPECT_EQ(4, done.exitCode) << name << ' ' << where;
            EXPECT_NE(std::string::npos, done.errors.find(why)) << done.errors;
        }
        EXPECT_EQ(before, bytesOf(QString::fromLatin1(name)));
        EXPECT_EQ(0, layerman((std::string("states ") + name + " list").c_str()).exitCode);
    }
    EXPECT_FALSE(files().contains(QStringLiteral("out.dwg")));
}

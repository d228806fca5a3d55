#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/HeaderVariables.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"
#include "support/drawings/EditedDrawing.h"

#include <gtest/gtest.h>

namespace {

QString name(const char* text)
{
    return QString::fromUtf8(text);
}

/// A drawing with all tables: the next free handle is FFFFF, the largest one 55E.
QByteArray ofVersion(const char* version)
{
    QByteArray tables;
    int handle = 0;
    for (const char* table : {"VPORT", "STYLE", "VIEW", "UCS", "APPID", "DIMSTYLE"})
        tables +=
            DrawingText::groups({"0", "TABLE", "2", table, "5", "B" + QByteArray::number(++handle),
                                 "100", "AcDbSymbolTable", "70", "0", "0", "ENDTAB"});
    return DrawingText::withLayers({{"Walls"}})
        .replace("AC1018", version)
        .replace("0\nTABLE\n2\nLAYER\n", tables + "0\nTABLE\n2\nLAYER\n");
}

bool has(const std::string& record, const char* group)
{
    return (' ' + record + ' ').find(' ' + std::string(group) + ' ') != std::string::npos;
}

/// Layer 0 as other programs write it: plot style, material, visual style.
QByteArray withPointers(const char* version)
{
    return ofVersion(version).replace(
        "2\n0\n 70\n     0\n 62\n     7\n  6\nContinuous\n370\n    -3\n",
        "2\n0\n 70\n     0\n 62\n     7\n  6\nContinuous\n370\n    -3\n"
        "390\n60\n347\n61\n348\n0\n");
}

void addPipes(OdDbDatabase& database)
{
    const auto pipes = database.layerTable()
                           .add(name("Pipes"))
                           .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    pipes->setColor(OdCmColor::fromRgb(255, 127, 0));
    pipes->setIsOff(true);
    pipes->setIsLocked(true);
}

TEST(NewLayer, OfTheOldestVersionsHasFourGroupsOnly)
{
    const EditedDrawing drawing(DrawingText::old({{"WALLS"}}));
    addPipes(*drawing);
    EXPECT_EQ(drawing.record("LAYER", "2=Pipes"), "2=Pipes 70=4 62=-30 6=Continuous");
    EXPECT_EQ(drawing.record("TABLE", "2=LAYER"), "2=LAYER 70=2");
    EXPECT_EQ(
        drawing.notKept(),
        QStringList{name("The drawing's version cannot hold the true color of layer \"Pipes\".")});
    EXPECT_EQ(EditedDrawing::variable(drawing.saved(), "$HANDSEED"), "")
        << "a file without handles";
}

TEST(NewLayer, OfTheOldestVersionsHasAHandleWhereTheOthersHave)
{
    const EditedDrawing drawing(ofVersion("AC1009"));
    addPipes(*drawing);
    EXPECT_EQ(drawing.record("LAYER", "2=Pipes"), "5=FFFFF 2=Pipes 70=4 62=-30 6=Continuous");
}

TEST(NewLayer, HasTheGroupsOfTheDrawingsVersionInTheirOrder)
{
    const struct
    {
        const char* version;
        const char* groups;
    } kVersions[] = {
        {"AC1014",
         "5=FFFFF 100=AcDbSymbolTableRecord 100=AcDbLayerTableRecord 2=Pipes 70=4 62=-30 "
         "6=Continuous"},
        {"AC1015",
         "5=FFFFF 330=2 100=AcDbSymbolTableRecord 100=AcDbLayerTableRecord 2=Pipes 70=4 62=-30 "
         "6=Continuous 370=-3 390=60"},
        {"AC1018",
         "5=FFFFF 330=2 100=AcDbSymbolTableRecord 100=AcDbLayerTableRecord 2=Pipes 70=4 62=-30 "
         "420=16744192 6=Continuous 370=-3 390=60"},
        {"AC1021",
         "5=FFFFF 330=2 100=AcDbSymbolTableRecord 100=AcDbLayerTableRecord 2=Pipes 70=4 62=-30 "
         "420=16744192 6=Continuous 370=-3 390=60 347=61"},
        {"AC1032",
         "5=FFFFF 330=2 100=AcDbSymbolTableRecord 100=AcDbLayerTableRecord 2=Pipes 70=4 62=-30 "
         "420=16744192 6=Continuous 370=-3 390=60 347=61 348=0"},
    };
    for (const auto& [version, groups] : kVersions) {
        // A version has the groups of its time in layer 0.
        QByteArray text = withPointers(version);
        if (QByteArrayView(version) < QByteArrayView("AC1027"))
            text.replace("348\n0\n", "");
        if (QByteArrayView(version) < QByteArrayView("AC1021"))
            text.replace("347\n61\n", "");
        const EditedDrawing drawing(text);
        addPipes(*drawing);
        EXPECT_EQ(drawing.record("LAYER", "2=Pipes"), groups) << version;
        EXPECT_EQ(EditedDrawing::variable(drawing.saved(), "$HANDSEED"), "100000") << version;
        for (const int codeBytes : {1, 2})
            EXPECT_TRUE(EditedDrawing::isSameInBinary(text, codeBytes, addPipes)) << version;
    }
}

TEST(NewLayer, NotPlottedIsWrittenAndPlottedIsNot)
{
    const EditedDrawing drawing(ofVersion("AC1032"));
    addPipes(*drawing);
    EXPECT_FALSE(has(drawing.record("LAYER", "2=Pipes"), "290=1"));
    drawing.layer("Pipes")->setIsPlottable(false);
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Pipes"), "290=0"));
}

TEST(NewLayer, OfADrawingWithoutLayerTableComesWithLayerZero)
{
    QByteArray text = ofVersion("AC1018");
    const qsizetype begin = text.indexOf("0\nTABLE\n2\nLAYER\n");
    text.remove(begin, text.indexOf("0\nTABLE\n2\nBLOCK_RECORD\n") - begin);
    const EditedDrawing drawing(text);
    EXPECT_EQ(drawing.saved(), text);
    addPipes(*drawing);
    // Walls is in use and stays made up: nobody edited it.
    EXPECT_TRUE(has(drawing.record("TABLE", "2=LAYER"), "70=2"));
    EXPECT_FALSE(drawing.record("LAYER", "2=0").empty());
    EXPECT_TRUE(drawing.record("LAYER", "2=Walls").empty());
    const auto again = drawing.reread();
    EXPECT_EQ(again->layerTable().count(), 2);
}

TEST(NewLayer, OfADrawingWithoutTablesBringsTheSectionBehindTheClasses)
{
    const QByteArray text = DrawingText::groups(
        {"0", "SECTION", "2", "HEADER",   "9", "$ACADVER", "1", "AC1015",  "9", "$HANDSEED",
         "5", "20",      "0", "ENDSEC",   "0", "SECTION",  "2", "CLASSES", "0", "ENDSEC",
         "0", "SECTION", "2", "ENTITIES", "0", "LINE",     "5", "1F",      "8", "0",
         "0", "ENDSEC",  "0", "EOF"});
    const EditedDrawing drawing(text);
    addPipes(*drawing);
    const QByteArray saved = drawing.saved();
    const qsizetype classes = saved.indexOf("CLASSES");
    const qsizetype tables = saved.indexOf("TABLES");
    EXPECT_TRUE(saved.indexOf("HEADER") < classes && classes < tables
                && tables < saved.indexOf("ENTITIES"));
    EXPECT_FALSE(drawing.reread()->layerTable().getAt(name("pipes")).isNull());
}

TEST(NewVariables, OfADrawingWithoutHeaderStandInOneSection)
{
    QByteArray text = ofVersion("AC1018");
    text.remove(0, text.indexOf("0\nSECTION\n2\nCLASSES"));
    const EditedDrawing drawing(text);
    addPipes(*drawing);
    drawing->setCLAYER(drawing.layer("Walls")->objectId());
    drawing->setTILEMODE(false);
    const QByteArray saved = drawing.saved();
    EXPECT_EQ(saved.count("2\nHEADER\n"), 1);
    EXPECT_TRUE(saved.startsWith("0\nSECTION\n2\nHEADER\n") || saved.startsWith("  0\nSECTION\n"))
        << saved.left(60).constData();
    EXPECT_EQ(EditedDrawing::variable(saved, "$CLAYER"), "Walls");
    EXPECT_EQ(EditedDrawing::variable(saved, "$TILEMODE"), "0");
    // The largest handle of the file is 55E.
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Pipes"), "5=55F"));
    EXPECT_EQ(EditedDrawing::variable(saved, "$HANDSEED"), "560");
    EXPECT_EQ(drawing.reread()->getCLAYER().getHandle(), drawing->getCLAYER().getHandle());
}

TEST(NewSections, AreTheSameInBinary)
{
    QByteArray headless = ofVersion("AC1018");
    headless.remove(0, headless.indexOf("0\nSECTION\n2\nCLASSES"));
    QByteArray bare = ofVersion("AC1018").replace("0\nSECTION\n2\nCLASSES\n0\nENDSEC\n", "");
    const qsizetype objects = bare.indexOf("0\nSECTION\n2\nOBJECTS");
    bare.remove(objects, bare.indexOf("0\nEOF") - objects);
    QByteArray tableless = ofVersion("AC1018");
    const qsizetype tables = tableless.indexOf("0\nSECTION\n2\nTABLES");
    tableless.remove(tables, tableless.indexOf("0\nSECTION\n2\nBLOCKS") - tables);
    const auto edit = [](OdDbDatabase& database) {
        addPipes(database);
        database.setTILEMODE(false);
        if (database.header().contains(name("$ACADVER")))
            database.setDictionaryVariable(name("LAYEREVAL"), name("1"));
    };
    for (const QByteArray& text : {headless, bare, tableless}) {
        for (const int codeBytes : {1, 2})
            EXPECT_TRUE(EditedDrawing::isSameInBinary(text, codeBytes, edit));
    }
}

TEST(NewHandles, GoIntoAHeaderThatHasNoSeed)
{
    QByteArray text = ofVersion("AC1018");
    text.replace("9\n$HANDSEED\n5\nFFFFF\n", "");
    const EditedDrawing drawing(text);
    EXPECT_EQ(drawing.saved(), text);
    addPipes(*drawing);
    EXPECT_EQ(EditedDrawing::variable(drawing.saved(), "$HANDSEED"), "560");
}

TEST(NewHandles, LeaveTheSeedAloneWhereNothingNewIsWritten)
{
    const EditedDrawing drawing(ofVersion("AC1018"));
    const auto pipes = drawing->layerTable().add(name("Pipes"));
    drawing->undo();
    EXPECT_TRUE(pipes.isErased());
    drawing.layer("Walls")->setIsFrozen(true);
    EXPECT_EQ(EditedDrawing::variable(drawing.saved(), "$HANDSEED"), "FFFFF");
}

TEST(NewHandles, AreNeverGivenOutTwiceAlsoAfterUndo)
{
    const EditedDrawing drawing(ofVersion("AC1018"));
    const OdDbHandle first = drawing->layerTable().add(name("First")).getHandle();
    drawing->undo();
    const OdDbHandle second = drawing->layerTable().add(name("Second")).getHandle();
    EXPECT_EQ(first.value() + 1, second.value());
    EXPECT_EQ(EditedDrawing::variable(drawing.saved(), "$HANDSEED"), "100001");
}

TEST(NewHandles, StartBehindTheLargestWhereTheSeedIsTooSmall)
{
    const EditedDrawing drawing(ofVersion("AC1018").replace("FFFFF", "10"));
    addPipes(*drawing);
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Pipes"), "5=55F"));
    EXPECT_EQ(EditedDrawing::variable(drawing.saved(), "$HANDSEED"), "560");
}

TEST(NewRecords, AreTheSameAtEverySaveAndGoneAfterUndo)
{
    const EditedDrawing drawing(ofVersion("AC1018"));
    drawing->startUndoRecord();
    addPipes(*drawing);
    drawing.layer("Walls")->setDescription(name("load bearing"));
    drawing.layer("Walls")->setIsReconciled();
    drawing->setDictionaryVariable(name("LAYEREVAL"), name("1"));
    const QByteArray once = drawing.saved();
    EXPECT_EQ(drawing.saved(), once);
    drawing->undo();
    EXPECT_EQ(drawing.saved(), drawing.original());
    drawing->redo();
    EXPECT_EQ(drawing.saved(), once);
}

TEST(NewLinetype, HasItsDashesAndIsCounted)
{
    const EditedDrawing drawing(ofVersion("AC1018"));
    auto made = std::make_unique<OdDbLinetypeTableRecord>();
    made->stateForLoading() = {name("DOTTED"), name("dots"), {0.25, -0.5}, false};
    drawing->table(OdDbTableKind::Linetype).addRecord(std::move(made));
    EXPECT_EQ(drawing.record("LTYPE", "2=DOTTED"),
              "5=FFFFF 330=20 100=AcDbSymbolTableRecord 100=AcDbLinetypeTableRecord 2=DOTTED "
              "70=0 3=dots 72=65 73=2 40=0.75 49=0.25 74=0 49=-0.5 74=0");
    EXPECT_TRUE(has(drawing.record("TABLE", "2=LTYPE"), "70=2"));
    EXPECT_FALSE(drawing.reread()->table(OdDbTableKind::Linetype).getAt(name("dotted")).isNull());
}

TEST(NewApplications, AreRegisteredOnceAndCounted)
{
    QByteArray text = ofVersion("AC1018");
    text.replace("APPID\n5\nB5\n100\nAcDbSymbolTable\n70\n0\n",
                 "APPID\n5\nB5\n100\nAcDbSymbolTable\n70\n1\n"
                     + DrawingText::groups({"0", "APPID", "5", "12", "330", "B5", "100",
                                            "AcDbSymbolTableRecord", "100", "AcDbRegAppTableRecord",
                                            "2", "ACAECLAYERSTANDARD", "70", "0"}));
    const EditedDrawing drawing(text);
    for (const char* layer : {"Walls", "0"}) {
        drawing.layer(layer)->setDescription(name("described"));
        drawing.layer(layer)->setTransparency(OdDbLayerTableRecord::transparencyFromPercent(50));
    }
    EXPECT_EQ(EditedDrawing::count(drawing.saved(), "APPID"), 2) << "one was there, in capitals";
    EXPECT_EQ(drawing.record("APPID", "2=AcCmTransparency"),
              "5=FFFFF 330=B5 100=AcDbSymbolTableRecord 100=AcDbRegAppTableRecord "
              "2=AcCmTransparency 70=0");
    EXPECT_TRUE(has(drawing.record("TABLE", "2=APPID"), "70=2"));
}

TEST(NewApplications, BringTheirTableWhereThereIsNone)
{
    const EditedDrawing drawing(DrawingText::withLayers({{"Walls"}}));
    drawing.layer("Walls")->setDescription(name("described"));
    EXPECT_TRUE(has(drawing.record("TABLE", "2=APPID"), "70=1"));
    EXPECT_TRUE(drawing.reread()->table(OdDbTableKind::RegApp).has(name("AcAecLayerStandard")));
}

TEST(NewVariable, BringsItsDictionaryAndItsClass)
{
    const EditedDrawing drawing(ofVersion("AC1018"));
    drawing->setDictionaryVariable(name("LAYEREVAL"), name("1"));
    EXPECT_EQ(drawing.record("CLASS", "1=DICTIONARYVAR"),
              "1=DICTIONARYVAR 2=AcDbDictionaryVar 3=ObjectDBX Classes 90=0 91=1 280=0 281=0");
    const std::string dictionary = drawing.record("DICTIONARY", "3=LAYEREVAL");
    EXPECT_EQ(dictionary,
              "5=FFFFF 102={ACAD_REACTORS 330=60 102=} 330=60 100=AcDbDictionary 281=1 "
              "3=LAYEREVAL 350=100000");
    EXPECT_EQ(drawing.record("DICTIONARYVAR", "1=1"),
              "5=100000 102={ACAD_REACTORS 330=FFFFF 102=} 330=FFFFF 100=DictionaryVariables "
              "280=0 1=1");
    EXPECT_TRUE(has(drawing.record("DICTIONARY", "5=60"), "350=FFFFF"));
    EXPECT_EQ(drawing.reread()->dictionaryVariable(name("layereval")), name("1"));
}

TEST(NewVariable, AddsNoSecondClassAndTakesThePresentDictionary)
{
    QByteArray text = ofVersion("AC1018");
    text.replace("2\nCLASSES\n", "2\nCLASSES\n0\nCLASS\n1\nDICTIONARYVAR\n2\nAcDbDictionaryVar\n");
    text.replace("3\nACAD_LAYOUT\n350\n61\n",
                 "3\nACAD_LAYOUT\n350\n61\n3\nAcDbVariableDictionary\n350\n65\n");
    text.replace("0\nENDSEC\n0\nEOF",
                 "0\nDICTIONARY\n5\n65\n330\n60\n100\nAcDbDictionary\n281\n1\n0\nENDSEC\n0\nEOF");
    const EditedDrawing drawing(text);
    drawing->setDictionaryVariable(name("LAYEREVAL"), name("2"));
    EXPECT_EQ(EditedDrawing::count(drawing.saved(), "CLASS"), 1);
    EXPECT_TRUE(has(drawing.record("DICTIONARY", "5=65"), "3=LAYEREVAL 350=FFFFF"));
}

TEST(NewVariable, BringsTheClassesSectionAndTheRootWhereTheFileHasNeither)
{
    QByteArray text = ofVersion("AC1018");
    text.replace("0\nSECTION\n2\nCLASSES\n0\nENDSEC\n", "");
    const qsizetype objects = text.indexOf("0\nSECTION\n2\nOBJECTS");
    text.remove(objects, text.indexOf("0\nEOF") - objects);
    const EditedDrawing drawing(text);
    drawing.layer("Walls")->setIsReconciled();
    drawing->setDictionaryVariable(name("LAYEREVAL"), name("1"));
    const QByteArray saved = drawing.saved();
    EXPECT_FALSE(drawing.record("CLASS", "1=DICTIONARYVAR").empty());
    EXPECT_LT(saved.indexOf("CLASSES"), saved.indexOf("TABLES"));
    const auto again = drawing.reread();
    EXPECT_EQ(again->dictionaryVariable(name("LAYEREVAL")), name("1"));
    EXPECT_TRUE(again->layerTable()
                    .getAt(name("Walls"))
                    .safeOpenObject<OdDbLayerTableRecord>()
                    ->state()
                    .reconciled.value_or(false));
}

TEST(NewObjects, OfADrawingWithoutObjectsStandBehindARoot)
{
    for (const bool hasSection : {true, false}) {
        QByteArray text = ofVersion("AC1018");
        const qsizetype objects = text.indexOf("0\nSECTION\n2\nOBJECTS");
        text.remove(objects, text.indexOf("0\nEOF") - objects);
        if (hasSection)
            text.replace("0\nEOF", "0\nSECTION\n2\nOBJECTS\n0\nENDSEC\n0\nEOF");
        const EditedDrawing drawing(text);
        drawing.layer("Walls")->setIsReconciled();
        const auto again = drawing.reread();
        const auto root = again->getNamedObjectsDictionaryId().safeOpenObject<OdDbDictionary>();
        EXPECT_TRUE(root->entries().empty());
        EXPECT_TRUE(again->layerTable()
                        .getAt(name("Walls"))
                        .safeOpenObject<OdDbLayerTableRecord>()
                        ->state()
                        .reconciled.value_or(false));
    }
}

TEST(NewExtensionDictionary, OfALayerOwnsItsRecordsHard)
{
    const EditedDrawing drawing(ofVersion("AC1018"));
    drawing.layer("Walls")->setIsReconciled();
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Walls"),
                    "5=31 102={ACAD_XDICTIONARY 360=FFFFF 102=} 330=2"));
    EXPECT_EQ(drawing.record("DICTIONARY", "5=FFFFF"),
              "5=FFFFF 330=31 100=AcDbDictionary 280=1 281=1 3=ADSK_XREC_LAYER_RECONCILED "
              "360=100000");
    EXPECT_EQ(drawing.record("XRECORD", "5=100000"),
              "5=100000 102={ACAD_REACTORS 330=FFFFF 102=} 330=FFFFF 100=AcDbXrecord 280=1 "
              "290=1");
}

TEST(NewExtensionDictionary, OfANewLayerStandsInItsRecord)
{
    const EditedDrawing drawing(ofVersion("AC1018"));
    addPipes(*drawing);
    drawing.layer("Pipes")->setIsReconciled();
    EXPECT_TRUE(has(drawing.record("LAYER", "2=Pipes"),
                    "5=FFFFF 102={ACAD_XDICTIONARY 360=100000 102=} 330=2"));
    EXPECT_TRUE(has(drawing.record("DICTIONARY", "5=100000"), "330=FFFFF"));
}

TEST(NewExtensionDictionary, IsNotMadeWhereALayerHasOne)
{
    QByteArray text = ofVersion("AC1018");
    text.replace("0\nLAYER\n5\n31\n", "0\nLAYER\n5\n31\n102\n{ACAD_XDICTIONARY\n360\n70\n102\n}\n");
    text.replace(
        "0\nENDSEC\n0\nEOF",
        "0\nDICTIONARY\n5\n70\n330\n31\n100\nAcDbDictionary\n280\n1\n281\n1\n3\nOTHER\n360\n71\n"
        "0\nXRECORD\n5\n71\n330\n70\n100\nAcDbXrecord\n280\n1\n1\nkept\n0\nENDSEC\n0\nEOF");
    const EditedDrawing drawing(text);
    drawing.layer("Walls")->setIsReconciled();
    EXPECT_TRUE(has(drawing.record("DICTIONARY", "5=70"),
                    "100=AcDbDictionary 280=1 281=1 3=OTHER 360=71 3=ADSK_XREC_LAYER_RECONCILED "
                    "360=FFFFF"));
    EXPECT_EQ(drawing.record("LAYER", "2=Walls"), EditedDrawing::record(text, "LAYER", "2=Walls"));
}

TEST(NewExtensionDictionary, OfTheLayerTableStandsBehindItsHandle)
{
    const EditedDrawing drawing(ofVersion("AC1018"));
    const OdDbObjectId made = drawing->createExtensionDictionary(drawing->getLayerTableId());
    drawing->createDictionary(made, name("ACAD_LAYERSTATES"));
    EXPECT_EQ(drawing.record("TABLE", "2=LAYER"),
              "2=LAYER 5=2 102={ACAD_XDICTIONARY 360=FFFFF 102=} 330=0 100=AcDbSymbolTable "
              "70=1");
    EXPECT_EQ(drawing.record("DICTIONARY", "5=FFFFF"),
              "5=FFFFF 330=2 100=AcDbDictionary 280=1 281=1 3=ACAD_LAYERSTATES 360=100000");
    EXPECT_EQ(drawing.record("DICTIONARY", "5=100000"),
              "5=100000 102={ACAD_REACTORS 330=FFFFF 102=} 330=FFFFF 100=AcDbDictionary "
              "281=1");
}

TEST(NewExtensionDictionary, IsNowhereInADrawingThatCannotHoldOne)
{
    for (const char* version : {"AC1009", "none"}) {
        const bool isOld = QByteArrayView(version) == QByteArrayView("AC1009");
        const EditedDrawing drawing(isOld ? ofVersion(version) : DrawingText::old({{"WALLS"}}));
        const OdDbObjectId made = drawing->createExtensionDictionary(drawing->getLayerTableId());
        drawing->createDictionary(made, name("ACAD_LAYERSTATES"));
        drawing.layer("walls")->setIsReconciled();
        EXPECT_EQ(drawing.saved(), drawing.original());
        EXPECT_EQ(drawing.notKept().size(), 1);
    }
}

TEST(NewObjects, OfVersion14HaveNoCloningFlagsAndDeclareTheirClass)
{
    const EditedDrawing drawing(ofVersion("AC1014"));
    drawing.layer("Walls")->setIsReconciled();
    EXPECT_EQ(drawing.record("XRECORD", "290=1"),
              "5=100000 102={ACAD_REACTORS 330=FFFFF 102=} 330=FFFFF 100=AcDbXrecord 290=1");
    EXPECT_FALSE(has(drawing.record("DICTIONARY", "5=FFFFF"), "281=1"));
    EXPECT_EQ(drawing.record("CLASS", "1=XRECORD"),
              "1=XRECORD 2=AcDbXrecord 3=ObjectDBX Classes 90=0 280=0 281=0");
    EXPECT_TRUE(drawing.reread()
                    ->layerTable()
                    .getAt(name("Walls"))
                    .safeOpenObject<OdDbLayerTableRecord>()
                    ->state()
                    .reconciled.value_or(false));
}

TEST(NewObjects, NeedHandles)
{
    // Of a version that has objects, but nothing in it has a handle.
    const QByteArray text = DrawingText::groups({"0", "SECTION", "2", "HEADER", "9", "$ACADVER",
                                                 "1", "AC1018", "0", "ENDSEC"})
        + DrawingText::old({{"WALLS"}});
    const EditedDrawing drawing(text);
    drawing.layer("WALLS")->setIsReconciled();
    EXPECT_EQ(drawing.saved(), text);
    EXPECT_EQ(drawing.notKept(),
              QStringList{name("A drawing without handles cannot hold layer filters, layer states, "
                               "viewport overrides and reviewed layers.")});
}

} // namespace

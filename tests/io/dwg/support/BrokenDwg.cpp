#include "io/dwg/support/BrokenDwg.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/values/GroupCursor.h"
#include "io/DrawingFile.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/DwgMaker.h"
#include "support/drawings/SharedDrawings.h"

#include <gtest/gtest.h>

namespace {

void walk(const OdDbDatabase& drawing)
{
    const std::unique_ptr<GroupCursor> groups = drawing.makeCursor();
    for (quint32 slot = 0; slot < drawing.store().fileRecords(); ++slot) {
        for (groups->open(slot); groups->next();)
            (void)groups->bytes();
        (void)drawing.idOfSlot(slot).openObject();
    }
    (void)drawing.layouts();
    drawing.layerTable().generateUsageData();
}

} // namespace

BrokenDwg::Outcome BrokenDwg::outcome(const QByteArray& bytes)
{
    std::unique_ptr<OdDbDatabase> drawing;
    try {
        drawing = readDrawing(bytes, QStringLiteral("broken.dwg"));
    } catch (const OdError& error) {
        EXPECT_TRUE(error.description().startsWith(QStringLiteral("broken.dwg"))) << error.what();
        EXPECT_TRUE(error.description().endsWith(QLatin1Char('.'))) << error.what();
        return Outcome::Refused;
    }
    walk(*drawing);
    (void)drawing->audit();
    if (DwgFiles::faults(*drawing).isEmpty())
        return Outcome::Sound;
    EXPECT_FALSE(drawing->loadNotes().isEmpty());
    try {
        (void)drawingBytes(*drawing);
        ADD_FAILURE() << "a drawing with faults was written";
    } catch (const OdError& error) {
        EXPECT_TRUE(error.description().contains(QStringLiteral("reading only"))) << error.what();
    }
    return Outcome::ReadOnly;
}

QList<QByteArray> BrokenDwg::smallFiles()
{
    QList<QByteArray> files;
    for (const DrawingVersion version : MadeDrawing::kVersions)
        files << DwgMaker::sample(version);
    if (!SharedDrawings::available())
        return files;
    for (const char* name :
         {"LibreDWG+libredwg__example_r14.dwg", "LibreDWG+libredwg__example_2000.dwg",
          "AFMD+laoyouts__Screen_print_layout.dwg",
          "lendres+CAD-Support-Files__Named_PS_Plotting_Templates.dwt"})
        files << DwgFiles::bytes(QString::fromLatin1(name));
    return files;
}

qsizetype BrokenDwg::place(const QByteArray& bytes, std::mt19937& random)
{
    return static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()));
}

#include "database/drawing/OdDbDatabase.h"
#include "io/DrawingFile.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/LayerEdits.h"
#include "support/drawings/DrawingDigest.h"
#include "support/drawings/SharedDrawings.h"

#include <gtest/gtest.h>

namespace {

/// The same drawing, saved in both formats at the same time.
constexpr std::pair<const char*, const char*> kTwins[] = {
    {"LibreDWG+libredwg__example_2000.dwg", "LibreDWG+libredwg__example_2000.dxf"},
    {"DomCR+ACadSharp__sample_AC1018.dwg", "DomCR+ACadSharp__sample_AC1018_ascii.dxf"},
    {"DomCR+ACadSharp__sample_AC1032.dwg", "DomCR+ACadSharp__sample_AC1032_ascii.dxf"},
    {"AndreaMond+VV-D_2_CUCINA__INGOLF_701-032-50.dwg",
     "DERIVED__AndreaMond+VV-D_2_CUCINA__INGOLF_701-032-50.dwg.dxf"},
};

QStringList layers(const OdDbDatabase& drawing)
{
    return drawingDigest(drawing).filter(QStringLiteral("layer ")).filter(QStringLiteral(" off"));
}

/// The layers of a drawing that was edited, saved and read again.
QStringList layersAfter(const char* file, const std::vector<LayerEdit>& edits, bool trueColours)
{
    const auto drawing = readDrawing(SharedDrawings::file(QString::fromLatin1(file)));
    for (const LayerEdit& edit : edits) {
        if (trueColours || !edit.needsTrueColours)
            edit.edit(*drawing);
    }
    addProofs(*drawing);
    const auto again = readDrawing(drawingBytes(*drawing), QStringLiteral("again"));
    EXPECT_EQ(again->audit(), QStringList());
    return layers(*again);
}

TEST(DwgTwins, EditedTheSameWayHaveTheSameLayers)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    std::vector<LayerEdit> edits = layerEdits();
    // Which entity is the first one depends on the order of the file; the others give names that
    // the layer renamed or the proofs have.
    std::erase_if(edits, [](const LayerEdit& edit) {
        return QByteArrayView(edit.name) == "entity on another layer"
            || QByteArrayView(edit.name) == "new state" || QByteArrayView(edit.name) == "new layer"
            || QByteArrayView(edit.name) == "new filters";
    });
    for (const auto& [dwg, dxf] : kTwins) {
        SCOPED_TRACE(dwg);
        const bool trueColours = !QByteArrayView(dwg).contains("2000");
        const QStringList before =
            layers(*readDrawing(SharedDrawings::file(QString::fromLatin1(dwg))));
        const QStringList found = layersAfter(dwg, edits, trueColours);
        EXPECT_GE(found.size(), before.size() + 1);
        EXPECT_EQ(digestDifference(found, layersAfter(dxf, edits, trueColours)), "");
    }
}

} // namespace

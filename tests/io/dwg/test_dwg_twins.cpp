#include "database/drawing/OdDbDatabase.h"
#include "io/DrawingFile.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/LayerEdits.h"
#include "support/drawings/DrawingDigest.h"
#include "support/drawings/SharedDrawings.h"

#include <QSet>

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

/// The program that made this twin leaves a lineweight of 0 out; these layers have it.
constexpr std::pair<const char*, const char*> kTwinsOfAnotherProgram = {
    "AsiaPoli+QM-D_3__roberta.dwg", "DERIVED__AsiaPoli+QM-D_3__roberta.dwg.dxf"};
constexpr const char* kWithoutLineWeight[] = {"A-FURN- ", "A-ELEV-PATT ", "IKE120036-t1 "};

std::unique_ptr<OdDbDatabase> opened(const char* file)
{
    return readDrawing(SharedDrawings::file(QString::fromLatin1(file)));
}

bool hasTrueColours(const char* dwg)
{
    return !QByteArrayView(dwg).contains("2000");
}

/// What a saved drawing says after edits that it did not say before. Twins may differ in all else.
QStringList news(const char* file, const std::vector<LayerEdit>& edits)
{
    const auto drawing = opened(file);
    const QStringList before = drawingDigest(*drawing);
    for (const LayerEdit& edit : edits)
        edit.edit(*drawing);
    const auto again = readDrawing(drawingBytes(*drawing), QStringLiteral("again"));
    EXPECT_EQ(again->audit(), QStringList());
    QStringList after = drawingDigest(*again);
    const QSet<QString> known(before.begin(), before.end());
    after.removeIf([&](const QString& line) {
        return known.contains(line)
            || std::any_of(std::begin(kWithoutLineWeight), std::end(kWithoutLineWeight),
                           [&](const char* layer) { return line.contains(QLatin1String(layer)); });
    });
    return after;
}

TEST(DwgTwins, EditedTheSameWayHaveTheSameLayers)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    for (const auto& [dwg, dxf] : kTwins) {
        SCOPED_TRACE(dwg);
        std::vector<LayerEdit> edits = layerEdits();
        // These give names that the layer renamed or the proofs have.
        std::erase_if(edits, [dwg = dwg](const LayerEdit& edit) {
            const QByteArrayView name(edit.name);
            return name == "new state" || name == "new layer" || name == "new filters"
                || (edit.needsTrueColours && !hasTrueColours(dwg));
        });
        edits.push_back({"proofs", addProofs});
        const QStringList found = news(dwg, edits);
        EXPECT_GE(found.filter(QStringLiteral("layer ")).size(), 2);
        EXPECT_EQ(digestDifference(found, news(dxf, edits)), "");
    }
}

TEST(DwgTwins, EachEditHasTheSameOutcome)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    std::vector<std::pair<const char*, const char*>> twins(std::begin(kTwins), std::end(kTwins));
    twins.push_back(kTwinsOfAnotherProgram);
    for (const auto& [dwg, dxf] : twins) {
        int said = 0;
        for (const LayerEdit& edit : layerEdits()) {
            SCOPED_TRACE(std::string(dwg) + ' ' + edit.name);
            if (edit.needsTrueColours && !hasTrueColours(dwg))
                continue;
            const QStringList found = news(dwg, {edit});
            said += found.isEmpty() ? 0 : 1;
            EXPECT_EQ(digestDifference(found, news(dxf, {edit})), "");
        }
        EXPECT_GT(said, 10) << dwg;
    }
}

} // namespace

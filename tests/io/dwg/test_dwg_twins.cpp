#include "database/drawing/OdDbDatabase.h"
#include "io/DrawingFile.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/LayerEdits.h"
#include "support/drawings/DrawingDigest.h"
#include "support/drawings/SharedDrawings.h"

#include <QSet>

#include <algorithm>
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

/// What differs in what a saved drawing says after edits: lines that are new, and those that are
/// gone. Twins may differ in all else.
QStringList news(const char* file, const std::vector<LayerEdit>& edits, bool withProofs = false)
{
    const auto drawing = opened(file);
    if (withProofs)
        addProofs(*drawing);
    const QStringList before = drawingDigest(*drawing);
    for (const LayerEdit& edit : edits)
        edit.edit(*drawing);
    const auto again = readDrawing(drawingBytes(*drawing), QStringLiteral("again"));
    EXPECT_EQ(again->audit(), QStringList());
    const QStringList after = drawingDigest(*again);
    QStringList found;
    const auto add = [&found](const QString& mark, const QStringList& lines,
                              const QStringList& others) {
        const QSet<QString> known(others.begin(), others.end());
        for (const QString& line : lines) {
            const bool isLeftOut =
                std::any_of(std::begin(kWithoutLineWeight), std::end(kWithoutLineWeight),
                            [&](const char* layer) { return line.contains(QLatin1String(layer)); });
            if (!known.contains(line) && !isLeftOut)
                found << mark + line;
        }
    };
    add(QStringLiteral("now "), after, before);
    add(QStringLiteral("gone "), before, after);
    // Old settings are spelled in other ways.
    found.removeIf([](const QString& line) { return line.startsWith(QLatin1String("gone $")); });
    return found;
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

class DwgTwinsOneByOne : public testing::TestWithParam<bool>
{ };

TEST_P(DwgTwinsOneByOne, EachEditHasTheSameOutcome)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const bool withProofs = GetParam();
    const std::vector<LayerEdit> edits = withProofs ? undoingEdits() : layerEdits();
    std::vector<std::pair<const char*, const char*>> twins(std::begin(kTwins), std::end(kTwins));
    twins.push_back(kTwinsOfAnotherProgram);
    for (const auto& [dwg, dxf] : twins) {
        std::size_t said = 0;
        for (const LayerEdit& edit : edits) {
            SCOPED_TRACE(std::string(dwg) + ' ' + edit.name);
            if (edit.needsTrueColours && !hasTrueColours(dwg))
                continue;
            const QStringList found = news(dwg, {edit}, withProofs);
            said += found.isEmpty() ? 0 : 1;
            EXPECT_EQ(digestDifference(found, news(dxf, {edit}, withProofs)), "");
        }
        EXPECT_GT(said, edits.size() / 2) << dwg;
    }
}

INSTANTIATE_TEST_SUITE_P(Edits, DwgTwinsOneByOne, testing::Bool(), [](const auto& edits) {
    return edits.param ? std::string("Undoing") : std::string("Plain");
});

} // namespace

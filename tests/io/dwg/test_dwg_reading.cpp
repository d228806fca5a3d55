#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "io/DrawingFile.h"
#include "io/dwg/support/DwgFiles.h"
#include "support/drawings/DrawingDigest.h"
#include "support/drawings/SharedDrawings.h"

#include <QRegularExpression>

#include <cmath>
#include <gtest/gtest.h>

namespace {

/// The same drawing in both formats.
struct Twins
{
    const char* dwg;
    const char* dxf;
    /// Whether both were saved by one program at one time.
    bool sameTime = true;
    /// How lines of either twin begin in which they differ for a reason, and header variables.
    QStringList different = {};
};

// Programs that wrote the twins from DWG drawings of others.
const QStringList kDerived = {
    // By layer is written as 0 there, and names as their first letter.
    QStringLiteral("$CECOLOR"), QStringLiteral("$CMLSTYLE"), QStringLiteral("$DIMCLRD"),
    QStringLiteral("$DIMCLRT")};

std::vector<Twins> allTwins()
{
    // Variables that the program wrote while it saved the second twin.
    const QStringList index = {QStringLiteral("INDEXCTL="), QStringLiteral("SORTENTS="),
                               QStringLiteral("LIGHTINGUNITS="), QStringLiteral("MSLTSCALE="),
                               QStringLiteral("XCLIPFRAME=")};
    // DXF of that version has one bit for it, DWG two.
    const QStringList frames = {QStringLiteral("$XCLIPFRAME")};
    // The twin is older: two more entities came later, a nameless block, and other styles of views.
    const QStringList later = {
        QStringLiteral("block *U flags 1 "), QStringLiteral("CVIEWDETAILSTYLE="),
        QStringLiteral("CVIEWSECTIONSTYLE="), QStringLiteral("$EXTMIN"), QStringLiteral("$EXTMAX")};
    // The program that made the twin takes index 255 for pure blue, which is 5, and leaves a
    // lineweight of 0 out.
    const QStringList blue = kDerived
        + QStringList{QStringLiteral("layer QM-D_3|IKE120036-t1 "),
                      QStringLiteral("layer IKE120036-t1 "),
                      QStringLiteral("layer QM-D_3|A-ELEV-PATT "),
                      QStringLiteral("layer QM-D_3|A-FURN- "),
                      QStringLiteral("layer sezioni e prospetti|A-ELEV-PATT "),
                      QStringLiteral("layer sezioni e prospetti|A-FURN- ")};
    // Another program made an older version of the twin, with names of its own and viewports and
    // entities of its own.
    const QStringList older = {QStringLiteral("viewport "), QStringLiteral("block "),
                               QStringLiteral("layout "), QStringLiteral("$ATTDIA")};
    return {
        {"LibreDWG+libredwg__example_r14.dwg", "LibreDWG+libredwg__example_r14.dxf", false, older},
        {"LibreDWG+libredwg__example_2000.dwg", "LibreDWG+libredwg__example_2000.dxf"},
        {"DomCR+ACadSharp__sample_AC1018.dwg", "DomCR+ACadSharp__sample_AC1018_ascii.dxf", true,
         frames},
        {"DomCR+ACadSharp__sample_AC1018.dwg", "DomCR+ACadSharp__sample_AC1018_binary.dxf", true,
         index + frames},
        {"DomCR+ACadSharp__sample_AC1032.dwg", "DomCR+ACadSharp__sample_AC1032_ascii.dxf"},
        {"DomCR+ACadSharp__sample_AC1032.dwg", "DomCR+ACadSharp__sample_AC1032_binary.dxf", true,
         index},
        {"AFMD+laoyouts__Screen_print_layout.dwg", "AFMD+laoyouts__Screen_print_layout.dxf", false,
         later},
        {"AsiaPoli+QM-D_3__roberta.dwg", "DERIVED__AsiaPoli+QM-D_3__roberta.dwg.dxf", true, blue},
        {"AndreaMond+VV-D_2_CUCINA__INGOLF_701-032-50.dwg",
         "DERIVED__AndreaMond+VV-D_2_CUCINA__INGOLF_701-032-50.dwg.dxf", true, kDerived},
    };
}

void PrintTo(const Twins& twins, std::ostream* out)
{
    *out << twins.dxf;
}

bool isVariable(const QString& line)
{
    return line.startsWith(QLatin1Char('$'));
}

void addLinetypes(const OdDbDatabase& drawing, QStringList& lines)
{
    for (const OdDbObjectId id : drawing.table(OdDbTableKind::Linetype).records()) {
        const auto linetype = id.safeOpenObject<OdDbLinetypeTableRecord>();
        QString line =
            QStringLiteral("linetype %1 \"%2\"").arg(linetype->getName(), linetype->comments());
        for (const double dash : linetype->dashes())
            line += QStringLiteral(" %1").arg(dash, 0, 'g', 9);
        lines << line;
    }
}

void addBlocks(const OdDbDatabase& drawing, QStringList& lines)
{
    constexpr int kResolved = 32;
    for (const OdDbObjectId id : drawing.table(OdDbTableKind::Block).records()) {
        const auto block = id.safeOpenObject<OdDbBlockTableRecord>();
        lines << QStringLiteral("block %1 flags %2 \"%3\" unloaded %4 base %5 %6 %7")
                     .arg(block->getName())
                     .arg(block->state().flags & ~kResolved)
                     .arg(block->pathName())
                     .arg(block->isUnloaded())
                     .arg(block->origin()[0], 0, 'g', 9)
                     .arg(block->origin()[1], 0, 'g', 9)
                     .arg(block->origin()[2], 0, 'g', 9);
    }
}

void addLayouts(const OdDbDatabase& drawing, QStringList& lines)
{
    for (const OdDbObjectId id : drawing.layouts()) {
        const auto layout = id.safeOpenObject<OdDbLayout>();
        const auto block = layout->getBlockTableRecordId().openObject<OdDbBlockTableRecord>();
        lines << QStringLiteral("layout %1 tab %2 of %3 \"%4\" viewports %5")
                     .arg(layout->getLayoutName())
                     .arg(layout->getTabOrder())
                     .arg(block ? block->getName() : QString())
                     .arg(layout->getCurrentStyleSheet())
                     .arg(layout->getViewportArray().size());
    }
}

/// What a drawing holds, but for its header variables.
QStringList contents(const OdDbDatabase& drawing)
{
    QStringList lines = drawingDigest(drawing);
    lines.removeIf(isVariable);
    addLinetypes(drawing, lines);
    addBlocks(drawing, lines);
    addLayouts(drawing, lines);
    // Names of nameless blocks get their numbers from the program that writes a DXF file.
    static const QRegularExpression number(QStringLiteral("(\\*[A-Za-z_]+)[0-9]+"));
    lines.replaceInStrings(number, QStringLiteral("\\1"));
    return lines;
}

/// Without what changes when somebody goes on to work on a drawing, or another version is written:
/// uses of layers, reviewed layers, the case of names.
QStringList withoutLaterWork(QStringList lines)
{
    static const QRegularExpression later(QStringLiteral(" (uses|reconciled)=[0-9]+"));
    lines.replaceInStrings(later, QString());
    for (QString& line : lines)
        line = line.toCaseFolded();
    return lines;
}

/// Both lists without what is the same in both, in their order, and without the exceptions.
std::pair<QStringList, QStringList> differences(QStringList dwg, QStringList dxf,
                                                const QStringList& exceptions)
{
    const auto isException = [&](const QString& line) {
        return std::any_of(exceptions.begin(), exceptions.end(),
                           [&](const QString& begin) { return line.startsWith(begin); });
    };
    dwg.removeIf(isException);
    dxf.removeIf(isException);
    qsizetype same = 0;
    while (same < std::min(dwg.size(), dxf.size()) && dwg[same] == dxf[same])
        ++same;
    dwg.remove(0, same);
    dxf.remove(0, same);
    while (!dwg.isEmpty() && !dxf.isEmpty() && dwg.back() == dxf.back()) {
        dwg.removeLast();
        dxf.removeLast();
    }
    return {dwg, dxf};
}

bool sameValue(const QString& a, const QString& b)
{
    bool isNumber = false;
    bool isOtherNumber = false;
    const double left = a.toDouble(&isNumber);
    const double right = b.toDouble(&isOtherNumber);
    constexpr double kDigits = 1e-8; // DXF texts of some programs have no more
    if (isNumber && isOtherNumber)
        return std::abs(left - right) <= kDigits * std::max(1.0, std::abs(left));
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

class DwgReading : public testing::TestWithParam<Twins>
{ };

TEST_P(DwgReading, AgreesWithTheTwin)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const auto dwg = readDrawing(SharedDrawings::file(QString::fromLatin1(GetParam().dwg)));
    const auto dxf = readDrawing(SharedDrawings::file(QString::fromLatin1(GetParam().dxf)));
    EXPECT_EQ(dwg->audit(), QStringList());
    EXPECT_EQ(DwgFiles::faults(*dwg), QStringList());
    const QStringList found = contents(*dwg);
    EXPECT_GT(found.filter(QStringLiteral("layer ")).size(), 0);
    const auto compared = [](const QStringList& lines) {
        return GetParam().sameTime ? lines : withoutLaterWork(lines);
    };
    const auto [onlyDwg, onlyDxf] =
        differences(compared(found), compared(contents(*dxf)), compared(GetParam().different));
    EXPECT_EQ(onlyDwg.join(QLatin1Char('\n')).toStdString(),
              onlyDxf.join(QLatin1Char('\n')).toStdString());
}

TEST_P(DwgReading, AgreesWithTheHeaderVariablesOfTheTwin)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const auto dwg = readDrawing(SharedDrawings::file(QString::fromLatin1(GetParam().dwg)));
    const auto dxf = readDrawing(SharedDrawings::file(QString::fromLatin1(GetParam().dxf)));
    // Of the moment, and of the program: times go on while both are saved, local ones in DXF.
    const QStringList moment = {QStringLiteral("$TDCREATE"), QStringLiteral("$TDUPDATE"),
                                QStringLiteral("$TDINDWG"),  QStringLiteral("$TDUSRTIMER"),
                                QStringLiteral("$HANDSEED"), QStringLiteral("$VERSIONGUID"),
                                QStringLiteral("$DIMBLK")}; // without its underscore in DXF
    int compared = 0;
    QStringList different;
    for (const HeaderVariables::Variable& variable : dwg->header().all()) {
        const HeaderVariables::Variable* twin = dxf->header().find(variable.name);
        if (!twin || moment.contains(variable.name) || GetParam().different.contains(variable.name))
            continue;
        ++compared;
        if (!sameValue(variable.value, twin->value))
            different
                << QStringLiteral("%1: %2, but %3").arg(variable.name, variable.value, twin->value);
    }
    EXPECT_EQ(different.join(QLatin1Char('\n')).toStdString(), "");
    EXPECT_GT(compared, 130);
}

INSTANTIATE_TEST_SUITE_P(All, DwgReading, testing::ValuesIn(allTwins()), [](const auto& twins) {
    return DwgFiles::testName(QString::fromLatin1(twins.param.dxf));
});

TEST(DwgReadingAll, EveryFileIsSoundAndSavesUneditedAsItIs)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    for (const QString& path : DwgFiles::readable()) {
        SCOPED_TRACE(path.toStdString());
        const auto drawing = readDrawing(path);
        EXPECT_EQ(drawing->audit(), QStringList());
        EXPECT_EQ(DwgFiles::faults(*drawing), QStringList());
        EXPECT_TRUE(drawingBytes(*drawing) == DwgFiles::bytes(path));
    }
}

} // namespace

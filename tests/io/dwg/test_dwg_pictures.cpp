#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbLayout.h"
#include "host/canvas/CanvasContents.h"
#include "host/canvas/render/FrameRenderer.h"
#include "host/canvas/render/ViewTransform.h"
#include "io/DrawingFile.h"
#include "support/LogGuard.h"
#include "support/drawings/SharedDrawings.h"

#include <QDir>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace {

constexpr QSize kPixels(1000, 700);
constexpr QRgb kBackground = 0xFF000000;

/// The current space of a drawing, all of it.
QImage pictureOf(CanvasContents& contents)
{
    contents.finish();
    ViewTransform view;
    view.setSize(kPixels);
    view.fit(contents.extents());
    FrameRequest request;
    request.scene = contents.scene();
    request.shaper = contents.shaper();
    request.erased = contents.erased();
    request.parts = contents.parts();
    request.view = view.toWindow();
    request.pixels = kPixels;
    request.background = kBackground;
    request.isDark = true;
    FrameRenderer renderer(request);
    while (!renderer.isDone())
        renderer.run(QDeadlineTimer::Forever);
    return renderer.image().convertToFormat(QImage::Format_RGB32);
}

/// Pixels that are lit in `a` and have no lit one near in `b`.
int litAlone(const QImage& a, const QImage& b, int& lit)
{
    const auto isLit = [](const QImage& image, int x, int y) {
        return (image.pixel(x, y) & 0xFFFFFF) != 0;
    };
    int alone = 0;
    for (int y = 1; y + 1 < a.height(); ++y) {
        for (int x = 1; x + 1 < a.width(); ++x) {
            if (!isLit(a, x, y))
                continue;
            ++lit;
            bool near = false;
            for (int i = 0; i < 9 && !near; ++i)
                near = isLit(b, x + i % 3 - 1, y + i / 3 - 1);
            alone += near ? 0 : 1;
        }
    }
    return alone;
}

void keep(const QImage& image, const QString& name)
{
    const QString folder = qEnvironmentVariable("KEST_PICTURES");
    if (!folder.isEmpty())
        image.save(QDir(folder).filePath(name + QStringLiteral(".png")));
}

struct Twins
{
    const char* dwg;
    const char* dxf;
};
constexpr Twins kTwins[] = {
    {"LibreDWG+libredwg__example_2000.dwg", "LibreDWG+libredwg__example_2000.dxf"},
    {"LibreDWG+libredwg__example_2007.dwg", "LibreDWG+libredwg__example_2007.dxf"},
    {"DomCR+ACadSharp__sample_AC1018.dwg", "DomCR+ACadSharp__sample_AC1018_ascii.dxf"},
    {"DomCR+ACadSharp__sample_AC1032.dwg", "DomCR+ACadSharp__sample_AC1032_ascii.dxf"},
    {"AFMD+laoyouts__Screen_print_layout.dwg", "AFMD+laoyouts__Screen_print_layout.dxf"},
};

class DwgPictures : public ::testing::TestWithParam<Twins>
{ };

TEST_P(DwgPictures, EachSpaceLooksAsThatOfItsTwin)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const auto dwg = readDrawing(SharedDrawings::file(QLatin1String(GetParam().dwg)));
    const auto dxf = readDrawing(SharedDrawings::file(QLatin1String(GetParam().dxf)));
    CanvasContents ours;
    CanvasContents theirs;
    ours.setDatabase(dwg.get());
    theirs.setDatabase(dxf.get());
    int pictures = 0;
    for (const OdDbObjectId id : dxf->layouts()) {
        const QString layout = id.openObject<OdDbLayout>()->getLayoutName();
        SCOPED_TRACE(layout.toStdString());
        dwg->setCTAB(layout);
        dxf->setCTAB(layout);
        const QImage seen = pictureOf(ours);
        const QImage expected = pictureOf(theirs);
        const QString name = QLatin1String(GetParam().dwg) + u'-' + layout;
        keep(seen, name + QStringLiteral("-dwg"));
        keep(expected, name + QStringLiteral("-dxf"));
        int lit = 0;
        int litThere = 0;
        const int more = litAlone(seen, expected, lit);
        const int fewer = litAlone(expected, seen, litThere);
        EXPECT_LE(more, lit / 200) << "of " << lit << " pixels lit";
        EXPECT_LE(fewer, litThere / 200) << "of " << litThere << " pixels lit there";
        EXPECT_EQ(ours.undrawnSummary(), theirs.undrawnSummary());
        pictures += lit > 500 ? 1 : 0;
    }
    EXPECT_GE(pictures, 1);
}

INSTANTIATE_TEST_SUITE_P(Drawings, DwgPictures, ::testing::ValuesIn(kTwins));

} // namespace

/// Texts need fonts, and those an application with a screen.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    const LogGuard guard;
    return RUN_ALL_TESTS();
}

#include "GridFixture.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/resources/LayerIcons.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"

#include <QMenu>
#include <QPainter>

using layer_drawing::write;

class TestLayerGridLook : public GridFixture
{
    Q_OBJECT

private slots:
    void theGridLooksLikeItsGoldenImages_data();
    void theGridLooksLikeItsGoldenImages();
    void overridesLookLikeTheirGoldenImages_data();
    void overridesLookLikeTheirGoldenImages();
    void theEditorLooksLikeItsGoldenImages_data();
    void theEditorLooksLikeItsGoldenImages();
    void theMenusLookLikeTheirGoldenImages_data();
    void theMenusLookLikeTheirGoldenImages();
    void theIconsLookLikeTheirGoldenImages_data();
    void theIconsLookLikeTheirGoldenImages();
    void everyIconHasADrawingThatSuitsEachBackground();

private:
    std::unique_ptr<OdDbDatabase> variedDrawing();
    static void addThemes();
};

std::unique_ptr<OdDbDatabase> TestLayerGridLook::variedDrawing()
{
    auto drawing = layer_drawing::make({{"A-Walls"},
                                        {"A-Doors"},
                                        {"A-Furniture and fittings, second floor"},
                                        {"E-Lighting"},
                                        {"M-Ducts"},
                                        {"S-Beams"},
                                        {"S-Columns"},
                                        {"Unused"}});
    OdDbDatabase& d = *drawing;
    write(d, "A-Walls")->setColor(OdCmColor::fromIndex(1));
    write(d, "A-Walls")->setLineWeight(70);
    write(d, "A-Walls")->setDescription(QStringLiteral("Load-bearing and light walls"));
    write(d, "A-Doors")->setColor(OdCmColor::fromIndex(30));
    write(d, "A-Doors")->setIsLocked(true);
    write(d, "A-Doors")->setLineWeight(211);
    write(d, "E-Lighting")->setIsOff(true);
    write(d, "E-Lighting")->setColor(OdCmColor::fromIndex(2));
    write(d, "M-Ducts")->setIsFrozen(true);
    write(d, "M-Ducts")->setColor(OdCmColor::fromRgb(38, 122, 184));
    write(d, "M-Ducts")
        ->setLinetypeObjectId(d.table(OdDbTableKind::Linetype).getAt(QStringLiteral("DASHED")));
    write(d, "S-Beams")->setIsPlottable(false);
    write(d, "S-Beams")->setVPDFLT(true);
    write(d, "S-Beams")->setLineWeight(35);
    d.setCLAYER(layer_drawing::id(d, "S-Columns"));
    return drawing;
}

void TestLayerGridLook::addThemes()
{
    QTest::addColumn<int>("theme");
    for (const auto theme : {GoldenLook::Theme::Light, GoldenLook::Theme::Dark})
        QTest::newRow(qPrintable(GoldenLook::suffix(theme))) << static_cast<int>(theme);
}

void TestLayerGridLook::theGridLooksLikeItsGoldenImages_data()
{
    addThemes();
}

void TestLayerGridLook::theGridLooksLikeItsGoldenImages()
{
    QFETCH(int, theme);
    const GoldenLook look(static_cast<GoldenLook::Theme>(theme));
    QCoreApplication::processEvents(); // brings the look to the grid that is shown already
    const QString suffix = GoldenLook::suffix(static_cast<GoldenLook::Theme>(theme));
    host().ints[QStringLiteral("SHOWLAYERUSAGE")] = 1;
    grid().resize(900, 260);
    OdDbDatabase& drawing = openDrawing(variedDrawing());
    QVERIFY(goldenImage(&grid(), QStringLiteral("layer_grid_narrow_%1").arg(suffix)));

    grid().setColumnWidth(static_cast<int>(LayerColumn::Name), 230);
    for (const LayerColumn column :
         {LayerColumn::Color, LayerColumn::Linetype, LayerColumn::Lineweight,
          LayerColumn::PlotStyle, LayerColumn::NewVpFreeze})
        grid().setColumnWidth(static_cast<int>(column), 100);
    grid().resize(1250, 260);
    grid().chooseRows({2, 3, 5});
    grid().focusCell(5, static_cast<int>(LayerColumn::Lineweight));
    QVERIFY(goldenImage(&grid(), QStringLiteral("layer_grid_%1").arg(suffix)));

    drawing.setCTAB(QStringLiteral("Sheet A"));
    drawing.setActiveViewport(drawing.getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport)));
    grid().resize(1500, 260);
    QVERIFY(goldenImage(&grid(), QStringLiteral("layer_grid_layout_%1").arg(suffix)));
}

void TestLayerGridLook::overridesLookLikeTheirGoldenImages_data()
{
    addThemes();
}

void TestLayerGridLook::overridesLookLikeTheirGoldenImages()
{
    QFETCH(int, theme);
    const GoldenLook look(static_cast<GoldenLook::Theme>(theme));
    QCoreApplication::processEvents(); // brings the look to the grid that is shown already
    const QString suffix = GoldenLook::suffix(static_cast<GoldenLook::Theme>(theme));
    OdDbDatabase& drawing = openDrawing(variedDrawing());
    const OdDbObjectId viewport = enterViewport();
    write(drawing, "A-Walls")->setColor(OdCmColor::fromIndex(5), viewport);
    write(drawing, "A-Doors")->setLineWeight(13, viewport);
    write(drawing, "E-Lighting")->setColor(OdCmColor::fromRgb(230, 120, 20), viewport);
    write(drawing, "S-Columns")
        ->setLinetypeObjectId(
            drawing.table(OdDbTableKind::Linetype).getAt(QStringLiteral("DASHED")), viewport);
    for (const LayerColumn column :
         {LayerColumn::VpColor, LayerColumn::VpLinetype, LayerColumn::VpLineweight,
          LayerColumn::VpPlotStyle, LayerColumn::Color, LayerColumn::Lineweight})
        grid().setColumnWidth(static_cast<int>(column), 95);
    grid().resize(1450, 260);
    choose({"A-Doors"});
    QVERIFY(goldenImage(&grid(), QStringLiteral("layer_grid_overrides_%1").arg(suffix)));
}

void TestLayerGridLook::theEditorLooksLikeItsGoldenImages_data()
{
    addThemes();
}

void TestLayerGridLook::theEditorLooksLikeItsGoldenImages()
{
    QFETCH(int, theme);
    const GoldenLook look(static_cast<GoldenLook::Theme>(theme));
    QCoreApplication::processEvents(); // brings the look to the grid that is shown already
    const QString suffix = GoldenLook::suffix(static_cast<GoldenLook::Theme>(theme));
    grid().resize(700, 260);
    openDrawing(variedDrawing());
    choose({"E-Lighting"});
    press(Qt::Key_F2);
    QVERIFY(editor());
    QVERIFY(goldenImage(&grid(), QStringLiteral("layer_grid_editing_%1").arg(suffix)));
    QTest::keyClicks(editor(), QStringLiteral("Lighting, emergency lighting and signs"));
    QVERIFY(goldenImage(&grid(), QStringLiteral("layer_grid_editing_long_%1").arg(suffix)));
}

void TestLayerGridLook::theMenusLookLikeTheirGoldenImages_data()
{
    addThemes();
}

void TestLayerGridLook::theMenusLookLikeTheirGoldenImages()
{
    QFETCH(int, theme);
    const GoldenLook look(static_cast<GoldenLook::Theme>(theme));
    QCoreApplication::processEvents(); // brings the look to the grid that is shown already
    const QString suffix = GoldenLook::suffix(static_cast<GoldenLook::Theme>(theme));
    OdDbDatabase& drawing = openDrawing(variedDrawing());
    const auto compare = [&](QMenu& menu, const QString& name) {
        const bool equal = goldenImage(&menu, QStringLiteral("layer_menu_%1_%2").arg(name, suffix));
        menu.close();
        return equal;
    };
    grid().clearSelection();
    QVERIFY(compare(*grid().contextMenu(), QStringLiteral("nothing_selected")));
    const OdDbObjectId viewport = enterViewport();
    write(drawing, "A-Walls")->setColor(OdCmColor::fromIndex(5), viewport);
    choose({"A-Walls", "A-Doors"});
    const std::unique_ptr<QMenu> menu = grid().contextMenu();
    QVERIFY(compare(*menu, QStringLiteral("selected")));
    int number = 0;
    for (QMenu* submenu : menu->findChildren<QMenu*>())
        QVERIFY2(compare(*submenu, QStringLiteral("sub%1").arg(++number)),
                 qPrintable(submenu->title()));
    QCOMPARE(number, 4);
}

void TestLayerGridLook::theIconsLookLikeTheirGoldenImages_data()
{
    addThemes();
}

void TestLayerGridLook::theIconsLookLikeTheirGoldenImages()
{
    QFETCH(int, theme);
    const bool dark = static_cast<GoldenLook::Theme>(theme) == GoldenLook::Theme::Dark;
    const QPalette palette = GoldenLook::palette(static_cast<GoldenLook::Theme>(theme));
    const LayerIcons icons;
    QImage sheet(LayerIcons::count() * 40, 132, QImage::Format_RGB32);
    QPainter painter(&sheet);
    const auto strip = [&](int top, QPalette::ColorRole role, LayerIconGround ground) {
        painter.fillRect(0, top, sheet.width(), 66, palette.color(role));
        for (int i = 0; i < LayerIcons::count(); ++i) {
            const auto icon = static_cast<LayerIcon>(i);
            painter.drawPixmap(i * 40 + 12, top + 6, icons.pixmap(icon, 16, 1.0, ground));
            painter.drawPixmap(QRect(i * 40 + 4, top + 28, 32, 32),
                               icons.pixmap(icon, 16, 2.0, ground));
        }
    };
    strip(0, QPalette::Base, dark ? LayerIconGround::Dark : LayerIconGround::Light);
    strip(66, QPalette::Highlight, LayerIconGround::Selection);
    painter.end();
    const QString suffix = GoldenLook::suffix(static_cast<GoldenLook::Theme>(theme));
    QVERIFY(goldenImage(sheet, QStringLiteral("layer_icons_%1").arg(suffix)));
}

void TestLayerGridLook::everyIconHasADrawingThatSuitsEachBackground()
{
    const LayerIcons icons;
    for (int i = 0; i < LayerIcons::count(); ++i) {
        const auto icon = static_cast<LayerIcon>(i);
        const QImage light = icons.pixmap(icon, 16, 1.0, LayerIconGround::Light).toImage();
        const QImage dark = icons.pixmap(icon, 16, 1.0, LayerIconGround::Dark).toImage();
        QVERIFY2(light != dark, qPrintable(LayerIcons::name(icon)));
        const QPixmap fine = icons.pixmap(icon, 16, 2.0, LayerIconGround::Light);
        QCOMPARE(fine.size(), QSize(32, 32));
        QCOMPARE(fine.deviceIndependentSize(), QSizeF(16, 16));
        int inked = 0;
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x)
                inked += qAlpha(light.pixel(x, y)) > 128 ? 1 : 0;
        }
        QVERIFY2(inked >= 15, qPrintable(LayerIcons::name(icon)));
    }
}

QTEST_MAIN(TestLayerGridLook)
#include "test_layer_grid_look.moc"

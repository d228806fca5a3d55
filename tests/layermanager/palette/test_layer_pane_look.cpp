#include "PaneFixture.h"
#include "io/DrawingFile.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"

#include <QTest>
#include <QToolButton>

using Theme = GoldenLook::Theme;

namespace {

const QString kSample = QStringLiteral(KEST_SAMPLES "/office.dxf");

} // namespace

/// The palette over the sample drawing.
class TestLayerPaneLook : public PaneFixture
{
    Q_OBJECT

private slots:
    void looksLikeItsGoldenImages_data();
    void looksLikeItsGoldenImages();
    void isSharpOnFineScreens_data();
    void isSharpOnFineScreens();

protected:
    void prepare() override;
    void finish() override;

private:
    void showSample(int width);
    QImage picture(qreal scale) const;
    bool compare(const char* name) const;

    std::unique_ptr<GoldenLook> m_look;
    Theme m_theme = Theme::Light;
};

void TestLayerPaneLook::prepare()
{
    // The palette measures itself as it is made, so the look comes first.
    m_theme = QByteArray(QTest::currentDataTag()) == "dark" ? Theme::Dark : Theme::Light;
    m_look = std::make_unique<GoldenLook>(m_theme);
    PaneFixture::prepare();
}

void TestLayerPaneLook::finish()
{
    PaneFixture::finish();
    m_look.reset();
}

void TestLayerPaneLook::showSample(int width)
{
    host().open(readDrawing(kSample));
    elsewhere().hide();
    window().resize(width, 420);
    settle();
    grid().setColumnWidth(static_cast<int>(LayerColumn::Name), 190);
    view()->showCurrentLayer();
}

QImage TestLayerPaneLook::picture(qreal scale) const
{
    QImage picture((QSizeF(view()->size()) * scale).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    view()->render(&picture);
    return picture;
}

bool TestLayerPaneLook::compare(const char* name) const
{
    return goldenImage(
        view(),
        QStringLiteral("layer_pane_%1_%2").arg(QLatin1String(name), GoldenLook::suffix(m_theme)));
}

void TestLayerPaneLook::looksLikeItsGoldenImages_data()
{
    QTest::addColumn<int>("theme");
    for (const Theme theme : {Theme::Light, Theme::Dark})
        QTest::newRow(qPrintable(GoldenLook::suffix(theme))) << int(theme);
}

void TestLayerPaneLook::looksLikeItsGoldenImages()
{
    showSample(1100);
    QVERIFY(compare("office"));
    view()->ShowFilterTree(false);
    QVERIFY(compare("without_tree"));
    view()->ShowFilterTree(true);
    search("a-*w");
    auto* clear = box().findChild<QToolButton*>();
    QTRY_COMPARE(clear->property("opacity").toReal(), 1.0); // it fades in
    QVERIFY(compare("searching"));
    box().selectAll();
    QTest::keyClicks(&box(), QStringLiteral("*"));
    grid().setFocus();
    QTRY_COMPARE(clear->property("opacity").toReal(), 0.0);
    OdDbDatabase& d = *view()->database();
    d.setTILEMODE(false);
    settle();
    QVERIFY(compare("layout"));
    d.setTILEMODE(true);
    settle();
    view()->setParent(nullptr);
    view()->resize(355, 420);
    const bool isSame = compare("narrow");
    view()->hide();
    view()->setParent(&window());
    QVERIFY(isSame);
}

void TestLayerPaneLook::isSharpOnFineScreens_data()
{
    looksLikeItsGoldenImages_data();
}

void TestLayerPaneLook::isSharpOnFineScreens()
{
    showSample(1100);
    QVERIFY(goldenImage(picture(2),
                        QStringLiteral("layer_pane_fine_%1").arg(GoldenLook::suffix(m_theme))));
    QVERIFY(goldenImage(
        picture(1.5),
        QStringLiteral("layer_pane_one_and_a_half_%1").arg(GoldenLook::suffix(m_theme))));
}

QTEST_MAIN(TestLayerPaneLook)
#include "test_layer_pane_look.moc"

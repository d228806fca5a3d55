#include "PaneFixture.h"
#include "io/DrawingFile.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"

#include <QApplication>
#include <QTest>

/// The palette as it comes up for somebody who reads large letters. It measures its search box once
/// in a process, so this stands in a program of its own.
class TestLayerPaneLarge : public PaneFixture
{
    Q_OBJECT

private slots:
    void looksLikeItsGoldenImage();

protected:
    void prepare() override;
    void finish() override;

private:
    std::unique_ptr<GoldenLook> m_look;
};

void TestLayerPaneLarge::prepare()
{
    m_look = std::make_unique<GoldenLook>(GoldenLook::Theme::Light);
    QFont large = GoldenLook::font();
    large.setPointSize(18);
    QApplication::setFont(large);
    PaneFixture::prepare();
}

void TestLayerPaneLarge::finish()
{
    PaneFixture::finish();
    m_look.reset();
}

void TestLayerPaneLarge::looksLikeItsGoldenImage()
{
    host().open(readDrawing(QStringLiteral(KEST_SAMPLES "/office.dxf")));
    elsewhere().hide();
    window().resize(1400, 460);
    settle();
    grid().setColumnWidth(static_cast<int>(LayerColumn::Name), 190);
    view()->showCurrentLayer();
    QVERIFY(goldenImage(view(), QStringLiteral("layer_pane_large_light")));
}

QTEST_MAIN(TestLayerPaneLarge)
#include "test_layer_pane_large.moc"

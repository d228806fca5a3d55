#include "host/window/look/CElidedLabel.h"
#include "host/window/look/ThemedIcon.h"
#include "support/GuardedTest.h"
#include "support/pictures/GoldenLook.h"

#include <QImage>
#include <QTest>

class TestLook : public GuardedTest
{
    Q_OBJECT

private:
    static const QStringList& names()
    {
        static const QStringList all{
            QStringLiteral("new"),   QStringLiteral("open"),   QStringLiteral("save"),
            QStringLiteral("close"), QStringLiteral("quit"),   QStringLiteral("undo"),
            QStringLiteral("redo"),  QStringLiteral("regen"),  QStringLiteral("zoom-extents"),
            QStringLiteral("about"), QStringLiteral("layers"),
        };
        return all;
    }
    /// The largest difference of lightness between the picture and its background.
    static int contrast(const QImage& image, const QColor& background)
    {
        int most = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (pixel.alpha() > 200)
                    most = qMax(most, qAbs(pixel.lightness() - background.lightness()));
            }
        }
        return most;
    }

private slots:
    void iconsStandOutFromLightAndDarkButtons();
    void aDisabledIconStandsBack();
    void aLongTextEndsInAnEllipsis();
    void aTextThatHasTheRoomItAsksForIsWhole();
};

void TestLook::iconsStandOutFromLightAndDarkButtons()
{
    for (const auto theme : {GoldenLook::Theme::Light, GoldenLook::Theme::Dark}) {
        const GoldenLook look(theme);
        const QColor button = GoldenLook::palette(theme).color(QPalette::Button);
        for (const QString& name : names()) {
            const QImage image = themedIcon(name).pixmap(24, 24).toImage();
            QCOMPARE(image.size(), QSize(24, 24));
            QVERIFY2(contrast(image, button) > 100, qPrintable(name));
        }
    }
}

void TestLook::aDisabledIconStandsBack()
{
    const GoldenLook look(GoldenLook::Theme::Light);
    const QColor button = GoldenLook::palette(GoldenLook::Theme::Light).color(QPalette::Button);
    const QIcon icon = themedIcon(QStringLiteral("undo"));
    QVERIFY(contrast(icon.pixmap(QSize(24, 24), QIcon::Disabled).toImage(), button)
            < contrast(icon.pixmap(QSize(24, 24), QIcon::Normal).toImage(), button));
}

void TestLook::aLongTextEndsInAnEllipsis()
{
    CElidedLabel label;
    label.setText(QStringLiteral("15 MULTILEADER, 3 TOLERANCE, 2 MESH not drawn"));
    QCOMPARE(label.toolTip(), label.text());
    QVERIFY(label.minimumSizeHint().width() < label.sizeHint().width());
    label.resize(label.sizeHint() / 2);
    const QImage narrow = label.grab().toImage();
    label.setText(label.fontMetrics().elidedText(label.text(), Qt::ElideRight, label.width()));
    QCOMPARE(label.grab().toImage(), narrow);
}

void TestLook::aTextThatHasTheRoomItAsksForIsWhole()
{
    CElidedLabel label;
    label.setText(QStringLiteral("Command:"));
    for (int tenths = 80; tenths <= 160; ++tenths) {
        QFont font = label.font();
        font.setPointSizeF(tenths / 10.0);
        font.setHintingPreference(QFont::PreferNoHinting);
        label.setFont(font);
        QCOMPARE(
            label.fontMetrics().elidedText(label.text(), Qt::ElideRight, label.sizeHint().width()),
            label.text());
    }
}

QTEST_MAIN(TestLook)
#include "test_look.moc"

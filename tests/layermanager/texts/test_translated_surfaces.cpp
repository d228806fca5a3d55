#include "SurfaceFixture.h"
#include "WidgetTexts.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/CLayerSettingsDlg.h"
#include "sdk/texts/KsResString.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QPushButton>
#include <QTest>

#include <algorithm>

extern "C" class OdRxModule* odrxCreateModuleObject(void* instance);

namespace {

const QString kPseudo = QStringLiteral(KEST_PSEUDO_CATALOGUE);
const QString kGerman = QStringLiteral(KEST_GERMAN_CATALOGUE);

/// A text of the made-up language stands in brackets; one without letters needs no translation, nor
/// does a filter expression, which is read by programs.
bool isTranslated(const QString& text)
{
    if (text.contains(QLatin1Char('[')) && text.contains(QLatin1Char(']')))
        return true;
    if (text.contains(QLatin1String("==")))
        return true;
    return std::none_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
}

} // namespace

class TestTranslatedSurfaces : public SurfaceFixture
{
    Q_OBJECT

private slots:
    void leaveNoTextUntranslated_data() { addSurfaces(); }
    void leaveNoTextUntranslated();
    void cutNoTextOff_data();
    void cutNoTextOff();
    void haveNoKeyTwice_data();
    void haveNoKeyTwice();
    void theSearchFindsWhatIsWrong();
    void tooltipsKeepTheirParts();
    void qtsButtonsFollowTheLanguage();
    void thePaletteSpeaksTheLanguageOfTheDesktop();
    void theSettingsLookLikeTheirGoldenImages_data();
    void theSettingsLookLikeTheirGoldenImages();
};

void TestTranslatedSurfaces::leaveNoTextUntranslated()
{
    QFETCH(const int, surface);
    openPalette(kPseudo);
    QStringList untranslated;
    const QList<WidgetText> texts = widgetTexts(show(surface));
    for (const WidgetText& text : texts) {
        if (!isTranslated(text.text))
            untranslated.append(text.place + QLatin1String(" \"") + text.text + QLatin1Char('"'));
    }
    QVERIFY(!texts.isEmpty());
    QVERIFY2(untranslated.isEmpty(), qPrintable(untranslated.join(QLatin1Char('\n'))));
}

void TestTranslatedSurfaces::cutNoTextOff_data()
{
    QTest::addColumn<int>("surface");
    QTest::addColumn<QString>("catalogue");
    QTest::addColumn<int>("points");
    const std::pair<const char*, QString> languages[] = {
        {"English", QString()}, {"German", kGerman}, {"made-up", kPseudo}};
    for (const auto& [language, catalogue] : languages) {
        for (const int points : {9, 18}) {
            int index = 0;
            for (const Surface& surface : surfaces())
                QTest::addRow("%s, %s, %d points", surface.name, language, points)
                    << index++ << catalogue << points;
        }
    }
}

void TestTranslatedSurfaces::cutNoTextOff()
{
    QFETCH(const int, surface);
    QFETCH(const QString, catalogue);
    QFETCH(const int, points);
    const GoldenLook look(GoldenLook::Theme::Light);
    QFont font = QApplication::font();
    font.setPointSize(points);
    QApplication::setFont(font);
    openPalette(catalogue);
    const QStringList found = cutOffTexts(show(surface));
    QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
}

void TestTranslatedSurfaces::haveNoKeyTwice_data()
{
    QTest::addColumn<int>("surface");
    QTest::addColumn<QString>("catalogue");
    int index = 0;
    for (const Surface& surface : surfaces()) {
        QTest::addRow("%s, English", surface.name) << index << QString();
        QTest::addRow("%s, German", surface.name) << index++ << kGerman;
    }
}

void TestTranslatedSurfaces::haveNoKeyTwice()
{
    QFETCH(const int, surface);
    QFETCH(const QString, catalogue);
    openPalette(catalogue);
    const QStringList clashes = clashingKeys(show(surface));
    QVERIFY2(clashes.isEmpty(), qPrintable(clashes.join(QLatin1Char('\n'))));
}

void TestTranslatedSurfaces::theSearchFindsWhatIsWrong()
{
    openPalette(kPseudo);
    QWidget window;
    window.resize(60, 60);
    auto* button = new QPushButton(QStringLiteral("&Not translated and too long"), &window);
    auto* other = new QPushButton(QStringLiteral("&Nor this"), &window);
    button->resize(40, 30);
    other->move(0, 40);
    window.show();
    const QList<WidgetText> texts = widgetTexts(window);
    QCOMPARE(texts.size(), 2);
    QVERIFY(!isTranslated(texts[0].text));
    QVERIFY(!cutOffTexts(window).isEmpty());
    QCOMPARE(clashingKeys(window).size(), 1);
}

void TestTranslatedSurfaces::tooltipsKeepTheirParts()
{
    openPalette(kPseudo);
    const CLayerSettingsDlg dialog;
    const QString spoken =
        dialog.findChild<QWidget*>(QStringLiteral("control_1021"))->accessibleDescription();
    QCOMPARE(spoken.count(QLatin1Char('[')), 3); // title, description, third part
}

void TestTranslatedSurfaces::qtsButtonsFollowTheLanguage()
{
    const QDir folder(QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (!folder.exists(QStringLiteral("qtbase_de.qm")))
        QSKIP("The Debian package qt6-translations-l10n is not installed.");
    const auto cancel = [] {
        const CLayerSettingsDlg dialog;
        const auto* buttons = dialog.findChild<QDialogButtonBox*>();
        return buttons->button(QDialogButtonBox::Cancel)->text().remove(QLatin1Char('&'));
    };
    openPalette(kGerman);
    QCOMPARE(cancel(), QStringLiteral("Abbrechen"));
    openPalette(QString());
    QCOMPARE(cancel(), QStringLiteral("Cancel"));
}

void TestTranslatedSurfaces::thePaletteSpeaksTheLanguageOfTheDesktop()
{
    openPalette(QString());
    const auto header = [this](LayerColumn column) {
        return grid().model()->headerData(int(column), Qt::Horizontal).toString();
    };
    QCOMPARE(header(LayerColumn::Name), QStringLiteral("Layer Name"));
    QLocale::setDefault(QLocale(QStringLiteral("de_AT")));
    KsLoadAppLangResourceDLL(reinterpret_cast<void*>(&odrxCreateModuleObject));
    QLocale::setDefault(QLocale::c());
    QCOMPARE(header(LayerColumn::Name), QStringLiteral("Layername"));
    QCOMPARE(grid().model()->index(0, int(LayerColumn::Freeze)).data(Qt::AccessibleTextRole),
             QVariant(QStringLiteral("Gefroren: nein")));
    const auto colour = [this](int row) {
        return grid().model()->index(row, int(LayerColumn::Color)).data().toString();
    };
    layer_drawing::write(db(), "0")->setColor(OdCmColor::fromIndex(1));
    layer_drawing::write(db(), "Doors")->setColor(OdCmColor::fromIndex(8));
    QCOMPARE(colour(0), QStringLiteral("rot"));
    QCOMPARE(colour(1), QStringLiteral("8"));
    QCOMPARE(colour(2), QStringLiteral("weiß"));
    layer_drawing::write(db(), "0")->setColor(OdCmColor::fromRgb(255, 0, 1));
    QCOMPARE(colour(0), QStringLiteral("255,0,1"));
    QCOMPARE(tree().model()->index(0, 0).data(), QVariant(QStringLiteral("Alle")));
    for (const QModelIndex& selected : {tree().currentIndex(), QModelIndex()}) {
        tree().setCurrentIndex(selected);
        view()->UpdateStatusLine();
        QCOMPARE(statusText(), QStringLiteral(" Alle : 3 von insgesamt 3 Layern angezeigt"));
    }
}

void TestTranslatedSurfaces::theSettingsLookLikeTheirGoldenImages_data()
{
    QTest::addColumn<QString>("catalogue");
    QTest::newRow("german") << kGerman;
    QTest::newRow("made_up") << kPseudo;
}

void TestTranslatedSurfaces::theSettingsLookLikeTheirGoldenImages()
{
    QFETCH(const QString, catalogue);
    const GoldenLook look(GoldenLook::Theme::Light);
    openPalette(catalogue);
    CLayerSettingsDlg dialog;
    QVERIFY(goldenImage(
        &dialog, QStringLiteral("layer_settings_%1").arg(QLatin1String(QTest::currentDataTag()))));
}

QTEST_MAIN(TestTranslatedSurfaces)
#include "test_translated_surfaces.moc"

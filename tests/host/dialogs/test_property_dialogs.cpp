#include "host/dialogs/CLineweightDialog.h"
#include "host/dialogs/CPlotStyleDialog.h"
#include "host/dialogs/LineweightSampleDelegate.h"
#include "host/dialogs/linetype/CLinetypeDialog.h"
#include "host/dialogs/linetype/CLinetypeList.h"
#include "host/dialogs/linetype/CLinetypeLoadDialog.h"
#include "host/text/LineweightText.h"
#include "support/GuardedTest.h"
#include "support/RecordingPrompts.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"
#include "toolkit/ControlRegistry.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {
constexpr int kOk = 1;

LinetypeQuestion someLinetypes()
{
    LinetypeQuestion question;
    question.linetypes = {
        {QStringLiteral("Continuous"), QStringLiteral("Solid line"), {}},
        {QStringLiteral("CHAIN"), QStringLiteral("Long dash, dot ____ . ____"), {24, -3, 0, -3}},
        {QStringLiteral("HIDDEN"), QStringLiteral("Hidden edges __ __ __"), {5, -2.5}},
        {QStringLiteral("DOTTED"), QStringLiteral("Dotted . . . ."), {0, -3}},
        {QStringLiteral("Grid|CENTER"), QStringLiteral("Of a reference"), {24, -3, 6, -3}},
    };
    question.current = QStringLiteral("HIDDEN");
    return question;
}

LineweightQuestion someLineweights(bool millimetres = true)
{
    LineweightQuestion question;
    question.current = 50;
    question.inMillimetres = millimetres;
    return question;
}

PlotStyleQuestion somePlotStyles()
{
    PlotStyleQuestion question;
    question.names = {QStringLiteral("Normal"), QStringLiteral("Grey"), QStringLiteral("Thin")};
    question.current = QStringLiteral("grey");
    return question;
}
} // namespace

class TestPropertyDialogs : public GuardedTest
{
    Q_OBJECT

private:
    template <class Widget>
    static Widget* control(const QWidget& dialog, int id)
    {
        return qobject_cast<Widget*>(controlById(&dialog, id));
    }
    static void show(QDialog& dialog)
    {
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
    }
    static QStringList shownNames(const CLinetypeList& list)
    {
        QStringList names;
        for (int row = 0; row < list.topLevelItemCount(); ++row) {
            if (!list.topLevelItem(row)->isHidden())
                names << list.topLevelItem(row)->text(0);
        }
        return names;
    }
    static QStringList texts(const QListWidget& list)
    {
        QStringList all;
        for (int row = 0; row < list.count(); ++row)
            all << list.item(row)->text();
        return all;
    }
    /// Runs what the load dialog is to do as soon as it is there.
    template <class Work>
    static void inLoadDialog(CLinetypeDialog& dialog, Work work)
    {
        QTimer::singleShot(0, &dialog, [&dialog, work] {
            auto* load = dialog.findChild<CLinetypeLoadDialog*>();
            QVERIFY(load);
            work(*load);
        });
    }

private slots:
    void startAtTheCurrentLinetype();
    void pickLinetypesByKeysAndSearch();
    void pickNoLinetypeThatASearchHides();
    void offerByLayerAndByBlockOnlyWhereAsked();
    void loadLinetypesOfTheFileThatComesAlong();
    void loadLinetypesOfAnotherFile();
    void tellWhatOfAFileCannotBeLoaded();
    void tellWhyALinetypeWasNotAdded();
    void loadNothingThatIsThereAlready();
    void listEveryLineweightInBothUnits();
    void startAtTheCurrentLineweight();
    void pickLineweightsByKeys();
    void drawLineweightsAsThickAsOnPaper();
    void pickPlotStyles();
    void tellWhyNoPlotStyleCanBeChosen();
    void bearListsThatAreEmpty();
    void answerNothingOnEscape();
    void lookLikeTheirGoldenImages_data();
    void lookLikeTheirGoldenImages();
};

void TestPropertyDialogs::startAtTheCurrentLinetype()
{
    CLinetypeDialog dialog(someLinetypes(), nullptr);
    QCOMPARE(dialog.value(), QStringLiteral("HIDDEN"));
    show(dialog);
    QVERIFY(controlById(&dialog, CLinetypeDialog::List)->hasFocus());
    LinetypeQuestion question = someLinetypes();
    question.current = QStringLiteral("gone");
    const CLinetypeDialog other(question, nullptr);
    QCOMPARE(other.value(), QString());
    QVERIFY(!controlById(&other, kOk)->isEnabled());
}

void TestPropertyDialogs::pickLinetypesByKeysAndSearch()
{
    CLinetypeDialog dialog(someLinetypes(), nullptr);
    show(dialog);
    QTest::keyClick(controlById(&dialog, CLinetypeDialog::List), Qt::Key_Down);
    QCOMPARE(dialog.value(), QStringLiteral("DOTTED"));
    auto* search = control<QLineEdit>(dialog, CLinetypeDialog::Search);
    search->setFocus();
    QTest::keyClicks(search, QStringLiteral("dash"));
    QCOMPARE(shownNames(*control<CLinetypeList>(dialog, CLinetypeDialog::List)),
             QStringList{QStringLiteral("CHAIN")});
    QCOMPARE(dialog.value(), QStringLiteral("CHAIN"));
    search->clear();
    QTest::keyClick(search, Qt::Key_Down);
    QCOMPARE(dialog.value(), QStringLiteral("HIDDEN"));
    QTest::keyClick(search, Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void TestPropertyDialogs::pickNoLinetypeThatASearchHides()
{
    CLinetypeDialog dialog(someLinetypes(), nullptr);
    show(dialog);
    control<QLineEdit>(dialog, CLinetypeDialog::Search)->setText(QStringLiteral("nowhere"));
    QCOMPARE(dialog.value(), QString());
    QVERIFY(!controlById(&dialog, kOk)->isEnabled());
    dialog.accept();
    QVERIFY(dialog.isVisible());
}

void TestPropertyDialogs::offerByLayerAndByBlockOnlyWhereAsked()
{
    LinetypeQuestion question = someLinetypes();
    const auto names = [&question] {
        const CLinetypeDialog dialog(question, nullptr);
        return shownNames(*control<CLinetypeList>(dialog, CLinetypeDialog::List)).mid(0, 2);
    };
    QCOMPARE(names().first(), QStringLiteral("Continuous"));
    question.offersByLayer = question.offersByBlock = true;
    QCOMPARE(names(), (QStringList{QStringLiteral("ByLayer"), QStringLiteral("ByBlock")}));

    LineweightQuestion weights = someLineweights();
    const auto weightNames = [&weights] {
        const CLineweightDialog dialog(weights, nullptr);
        return texts(*control<QListWidget>(dialog, CLineweightDialog::List)).mid(0, 3);
    };
    QCOMPARE(weightNames(),
             (QStringList{QStringLiteral("Default"), QStringLiteral("0.00 mm"),
                          QStringLiteral("0.05 mm")}));
    weights.offersByLayer = weights.offersByBlock = true;
    QCOMPARE(weightNames(),
             (QStringList{QStringLiteral("ByLayer"), QStringLiteral("ByBlock"),
                          QStringLiteral("Default")}));
    weights = someLineweights();
    weights.offersDefault = false;
    QCOMPARE(weightNames().first(), QStringLiteral("0.00 mm"));
}

void TestPropertyDialogs::loadLinetypesOfTheFileThatComesAlong()
{
    LinetypeQuestion question = someLinetypes();
    QStringList loaded;
    question.load = [&](const LinetypeItem& item) {
        loaded << item.name;
        return QString();
    };
    CLinetypeDialog dialog(question, nullptr);
    show(dialog);
    inLoadDialog(dialog, [](CLinetypeLoadDialog& load) {
        auto* list = control<CLinetypeList>(load, CLinetypeLoadDialog::List);
        QVERIFY(list->topLevelItemCount() >= 15);
        list->clearSelection();
        list->findItems(QStringLiteral("PHANTOM"), Qt::MatchExactly).first()->setSelected(true);
        list->findItems(QStringLiteral("BOUNDARY"), Qt::MatchExactly).first()->setSelected(true);
        load.accept();
    });
    control<QPushButton>(dialog, CLinetypeDialog::Load)->click();
    QCOMPARE(loaded, (QStringList{QStringLiteral("PHANTOM"), QStringLiteral("BOUNDARY")}));
    QCOMPARE(dialog.value(), QStringLiteral("BOUNDARY"));
    QVERIFY(shownNames(*control<CLinetypeList>(dialog, CLinetypeDialog::List))
                .contains(QStringLiteral("PHANTOM")));
}

void TestPropertyDialogs::loadLinetypesOfAnotherFile()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("own.lin")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("*FENCE,Fence\nA,8,-2,0,-2\n");
    file.close();
    RecordingPrompts prompts;
    LinetypeQuestion question = someLinetypes();
    std::vector<double> dashes;
    question.load = [&](const LinetypeItem& item) {
        dashes = item.dashes;
        return QString();
    };
    CLinetypeDialog dialog(question, nullptr);
    show(dialog);
    prompts.willOpenFile(file.fileName());
    inLoadDialog(dialog, [&](CLinetypeLoadDialog& load) {
        control<QPushButton>(load, CLinetypeLoadDialog::Browse)->click();
        QCOMPARE(control<QLineEdit>(load, CLinetypeLoadDialog::File)->text(), file.fileName());
        QCOMPARE(load.chosen().first().name, QStringLiteral("FENCE"));
        QTest::keyClick(&load, Qt::Key_Return);
    });
    control<QPushButton>(dialog, CLinetypeDialog::Load)->click();
    QCOMPARE(dashes, (std::vector<double>{8, -2, 0, -2}));
    QCOMPARE(dialog.value(), QStringLiteral("FENCE"));
}

void TestPropertyDialogs::tellWhatOfAFileCannotBeLoaded()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("none.lin"));
    CLinetypeLoadDialog dialog(nullptr);
    dialog.showFile(path);
    bool told = false;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        told = told || label->text() == path + QStringLiteral(" cannot be read.");
    QVERIFY(told);
    QVERIFY(!controlById(&dialog, kOk)->isEnabled());
    QVERIFY(dialog.chosen().isEmpty());
}

void TestPropertyDialogs::tellWhyALinetypeWasNotAdded()
{
    RecordingPrompts prompts;
    LinetypeQuestion question = someLinetypes();
    question.load = [](const LinetypeItem& item) { return item.name + QStringLiteral(" no."); };
    CLinetypeDialog dialog(question, nullptr);
    show(dialog);
    inLoadDialog(dialog, [](CLinetypeLoadDialog& load) { load.accept(); });
    prompts.willCloseMessage();
    control<QPushButton>(dialog, CLinetypeDialog::Load)->click();
    QCOMPARE(prompts.texts(), QStringList{QStringLiteral("DASHED no.")});
    QVERIFY(!shownNames(*control<CLinetypeList>(dialog, CLinetypeDialog::List))
                 .contains(QStringLiteral("DASHED")));
}

void TestPropertyDialogs::loadNothingThatIsThereAlready()
{
    LinetypeQuestion question = someLinetypes();
    int loads = 0;
    question.load = [&](const LinetypeItem&) {
        ++loads;
        return QString();
    };
    CLinetypeDialog dialog(question, nullptr);
    show(dialog);
    inLoadDialog(dialog, [](CLinetypeLoadDialog& load) {
        control<CLinetypeList>(load, CLinetypeLoadDialog::List)->select(QStringLiteral("CHAIN"));
        load.accept();
    });
    control<QPushButton>(dialog, CLinetypeDialog::Load)->click();
    QCOMPARE(loads, 0);
    QCOMPARE(dialog.value(), QStringLiteral("CHAIN"));
}

void TestPropertyDialogs::listEveryLineweightInBothUnits()
{
    for (const bool millimetres : {true, false}) {
        const CLineweightDialog dialog(someLineweights(millimetres), nullptr);
        QStringList wanted{QStringLiteral("Default")};
        for (const int weight : validLineweights())
            wanted << lineweightText(weight, millimetres);
        QCOMPARE(texts(*control<QListWidget>(dialog, CLineweightDialog::List)), wanted);
    }
}

void TestPropertyDialogs::startAtTheCurrentLineweight()
{
    LineweightQuestion question = someLineweights();
    QCOMPARE(CLineweightDialog(question, nullptr).value(), 50);
    question.current = -3;
    QCOMPARE(CLineweightDialog(question, nullptr).value(), -3);
    question.current = 26; // no standard one
    QCOMPARE(CLineweightDialog(question, nullptr).value(), 25);
}

void TestPropertyDialogs::pickLineweightsByKeys()
{
    CLineweightDialog dialog(someLineweights(), nullptr);
    show(dialog);
    QWidget* list = controlById(&dialog, CLineweightDialog::List);
    QVERIFY(list->hasFocus());
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(dialog.value(), 53);
    QTest::keyClick(list, Qt::Key_Home);
    QCOMPARE(dialog.value(), -3);
    QTest::keyClicks(list, QStringLiteral("2.1"));
    QCOMPARE(dialog.value(), 211);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void TestPropertyDialogs::drawLineweightsAsThickAsOnPaper()
{
    QCOMPARE(LineweightSampleDelegate::thickness(254, 100), 10);
    QCOMPARE(LineweightSampleDelegate::thickness(211, 96), 8);
    QCOMPARE(LineweightSampleDelegate::thickness(5, 96), 1);
    QCOMPARE(LineweightSampleDelegate::thickness(0, 96), 1);
}

void TestPropertyDialogs::pickPlotStyles()
{
    CPlotStyleDialog dialog(somePlotStyles(), nullptr);
    show(dialog);
    QCOMPARE(dialog.value(), QStringLiteral("Grey"));
    QWidget* list = controlById(&dialog, CPlotStyleDialog::List);
    QVERIFY(list->hasFocus());
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.value(), QStringLiteral("Thin"));
}

void TestPropertyDialogs::tellWhyNoPlotStyleCanBeChosen()
{
    PlotStyleQuestion question = somePlotStyles();
    question.whyFixed = QStringLiteral("Colors decide.");
    CPlotStyleDialog dialog(question, nullptr);
    show(dialog);
    const auto* why = dialog.findChild<QLabel*>(QStringLiteral("whyFixed"));
    QVERIFY(why->isVisible());
    QCOMPARE(why->text(), question.whyFixed);
    QVERIFY(!controlById(&dialog, CPlotStyleDialog::List)->isEnabled());
    QVERIFY(!controlById(&dialog, kOk)->isEnabled());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void TestPropertyDialogs::bearListsThatAreEmpty()
{
    const CLinetypeDialog linetypes(LinetypeQuestion(), nullptr);
    QCOMPARE(linetypes.value(), QString());
    QVERIFY(controlById(&linetypes, CLinetypeDialog::Load)->isHidden());
    const CPlotStyleDialog styles(PlotStyleQuestion(), nullptr);
    QCOMPARE(styles.value(), QString());
    QVERIFY(!controlById(&styles, kOk)->isEnabled());
}

void TestPropertyDialogs::answerNothingOnEscape()
{
    CLinetypeDialog linetypes(someLinetypes(), nullptr);
    QTimer::singleShot(0, &linetypes, [&] { QTest::keyClick(&linetypes, Qt::Key_Escape); });
    QVERIFY(!linetypes.run());
    CLineweightDialog weights(someLineweights(), nullptr);
    QTimer::singleShot(0, &weights, [&] { QTest::keyClick(&weights, Qt::Key_Escape); });
    QVERIFY(!weights.run());
    QTimer::singleShot(0, &weights, [&] { QTest::keyClick(&weights, Qt::Key_Return); });
    QCOMPARE(weights.run(), std::optional(50));
    CPlotStyleDialog styles(somePlotStyles(), nullptr);
    QTimer::singleShot(0, &styles, [&] { QTest::keyClick(&styles, Qt::Key_Escape); });
    QVERIFY(!styles.run());
}

void TestPropertyDialogs::lookLikeTheirGoldenImages_data()
{
    QTest::addColumn<GoldenLook::Theme>("theme");
    QTest::addColumn<QString>("dialog");
    for (const auto theme : {GoldenLook::Theme::Light, GoldenLook::Theme::Dark}) {
        for (const char* name :
             {"linetype", "linetype_load", "lineweight", "plot_style", "plot_style_fixed"})
            QTest::addRow("%s %s", name, qPrintable(GoldenLook::suffix(theme)))
                << theme << QString::fromLatin1(name);
    }
}

void TestPropertyDialogs::lookLikeTheirGoldenImages()
{
    QFETCH(const GoldenLook::Theme, theme);
    QFETCH(const QString, dialog);
    const GoldenLook look(theme);
    const QString name = QStringLiteral("%1_dialog_%2").arg(dialog, GoldenLook::suffix(theme));
    if (dialog == QLatin1String("linetype")) {
        LinetypeQuestion question = someLinetypes();
        question.load = [](const LinetypeItem&) { return QString(); };
        CLinetypeDialog shown(question, nullptr);
        QVERIFY(goldenImage(&shown, name));
    } else if (dialog == QLatin1String("linetype_load")) {
        CLinetypeLoadDialog shown(nullptr);
        // Where the file lies is no part of the picture.
        control<QLineEdit>(shown, CLinetypeLoadDialog::File)->setText(QStringLiteral("metric.lin"));
        QVERIFY(goldenImage(&shown, name));
    } else if (dialog == QLatin1String("lineweight")) {
        CLineweightDialog shown(someLineweights(), nullptr);
        QVERIFY(goldenImage(&shown, name));
    } else {
        PlotStyleQuestion question = somePlotStyles();
        if (dialog == QLatin1String("plot_style_fixed"))
            question.whyFixed = QStringLiteral(
                "In this drawing plot styles follow the colors of the layers, so none can be "
                "chosen. Drawings with named plot styles offer a choice.");
        CPlotStyleDialog shown(question, nullptr);
        QVERIFY(goldenImage(&shown, name));
    }
}

QTEST_MAIN(TestPropertyDialogs)
#include "test_property_dialogs.moc"

#include "database/values/OdCmColor.h"
#include "host/dialogs/color/CColourDialog.h"
#include "host/dialogs/color/CColourGrid.h"
#include "host/dialogs/color/CColourPlane.h"
#include "host/dialogs/color/CTrueColourPage.h"
#include "host/dialogs/color/ColourValues.h"
#include "support/GuardedTest.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"
#include "toolkit/ControlRegistry.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

using Kind = ColourValue::Kind;
using Control = CColourDialog::Control;

namespace {
int field(CTrueColourPage::Field id)
{
    return static_cast<int>(Control::FirstField) + static_cast<int>(id);
}

ColourValue index(int number)
{
    return {Kind::Index, number, 0, {}};
}

ColourValue rgb(quint32 value)
{
    return {Kind::TrueColour, 0, value, {}};
}

ColourQuestion question(const ColourValue& start, bool withNames = false)
{
    ColourQuestion asked;
    asked.start = start;
    asked.offersByLayer = withNames;
    asked.offersByBlock = withNames;
    return asked;
}
} // namespace

class TestColourDialog : public GuardedTest
{
    Q_OBJECT

private:
    template <class Widget>
    static Widget* control(const CColourDialog& dialog, int id)
    {
        return qobject_cast<Widget*>(controlById(&dialog, id));
    }
    static void type(CColourDialog& dialog, const QString& text)
    {
        auto* edit = control<QLineEdit>(dialog, Control::TextEdit);
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
    static void show(CColourDialog& dialog)
    {
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
    }

private slots:
    void readsColoursAsUsersTypeThem_data();
    void readsColoursAsUsersTypeThem();
    void refusesWhatIsNoColour();
    void readsByLayerAndByBlockOnlyWhereTheyAreOffered();
    void keepsColoursThroughTheDrawing();
    void offersEveryIndexOnce();
    void arrangesTheLargeBlockByHueAndShade();
    void picksByClickAndAcceptsByDoubleClick();
    void movesTheChoiceByKeys();
    void followsTypedColoursEverywhere();
    void followsTheFieldsOfATrueColour();
    void keepsTheHueOfAGrey();
    void picksOnThePlaneByMouseAndKeys();
    void offersByLayerAndByBlockOnlyWhereAsked();
    void doesNotEndWithATextThatIsNoColour();
    void keepsABookColourThatNobodyTouches();
    void answersNothingOnEscape();
    void givesEveryControlANameForAssistivePrograms();
    void hasNoAccessKeyTwice();
    void looksLikeItsGoldenImage_data();
    void looksLikeItsGoldenImage();
};

void TestColourDialog::readsColoursAsUsersTypeThem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("number");
    const auto row = [](const char* text, Kind kind, int number) {
        QTest::newRow(text) << QString::fromUtf8(text) << static_cast<int>(kind) << number;
    };
    row("1", Kind::Index, 1);
    row(" 255 ", Kind::Index, 255);
    row("red", Kind::Index, 1);
    row("WHITE", Kind::Index, 7);
    row("255,127,0", Kind::TrueColour, 0xFF7F00);
    row(" 0 , 0 , 1 ", Kind::TrueColour, 1);
    row("#12abEF", Kind::TrueColour, 0x12ABEF);
}

void TestColourDialog::readsColoursAsUsersTypeThem()
{
    QFETCH(const QString, text);
    QFETCH(const int, kind);
    QFETCH(const int, number);
    const auto value = colour_values::fromText(text, question(index(7)));
    QVERIFY(value);
    QCOMPARE(static_cast<int>(value->kind), kind);
    QCOMPARE(value->kind == Kind::Index ? value->index : static_cast<int>(value->rgb), number);
}

void TestColourDialog::refusesWhatIsNoColour()
{
    for (const char* text : {"", "0", "256", "-1", "mauve", "1,2", "1,2,256", "1,2,x", "#12345",
                             "#1234567", "99999999999", "1,2,3,4"})
        QVERIFY2(!colour_values::fromText(QString::fromUtf8(text), question(index(7))), text);
}

void TestColourDialog::readsByLayerAndByBlockOnlyWhereTheyAreOffered()
{
    const QString byLayer = QStringLiteral("bylayer");
    QVERIFY(!colour_values::fromText(byLayer, question(index(7))));
    QCOMPARE(colour_values::fromText(byLayer, question(index(7), true))->kind, Kind::ByLayer);
    QCOMPARE(colour_values::fromText(QStringLiteral("BYBLOCK"), question(index(7), true))->kind,
             Kind::ByBlock);
}

void TestColourDialog::keepsColoursThroughTheDrawing()
{
    const QString book = QStringLiteral("BOOK$SKY");
    for (const ColourValue& value :
         {index(1), index(255), rgb(0), rgb(0xFF7F00), ColourValue{Kind::ByLayer, 0, 0, {}},
          ColourValue{Kind::ByBlock, 0, 0, {}}, ColourValue{Kind::TrueColour, 0, 0x80FF, book}})
        QCOMPARE(colour_values::fromDrawing(colour_values::toDrawing(value)), value);
}

void TestColourDialog::offersEveryIndexOnce()
{
    const CColourDialog dialog(question(index(7)), nullptr);
    for (int number = 1; number <= 255; ++number) {
        int count = 0;
        for (const int id : {Control::LargeGrid, Control::StandardGrid, Control::GreyGrid})
            count += control<CColourGrid>(dialog, id)->cell(number).isValid() ? 1 : 0;
        QCOMPARE(count, 1);
    }
}

void TestColourDialog::arrangesTheLargeBlockByHueAndShade()
{
    const CColourDialog dialog(question(index(7)), nullptr);
    const auto* grid = control<CColourGrid>(dialog, Control::LargeGrid);
    const QRect red = grid->cell(10);
    QVERIFY(grid->cell(20).left() > red.left());
    QCOMPARE(grid->cell(20).top(), red.top());
    QCOMPARE(grid->cell(240).top(), red.top());
    QCOMPARE(grid->cell(12).left(), red.left());
    QVERIFY(grid->cell(12).top() < red.top()); // darker
    QVERIFY(grid->cell(18).top() < grid->cell(12).top());
    QVERIFY(grid->cell(11).top() > red.top()); // paler
    QVERIFY(grid->cell(19).top() > grid->cell(11).top());
    QVERIFY(!grid->cell(9).isValid() && !grid->cell(250).isValid());
}

void TestColourDialog::picksByClickAndAcceptsByDoubleClick()
{
    CColourDialog dialog(question(index(7)), nullptr);
    show(dialog);
    auto* large = control<CColourGrid>(dialog, Control::LargeGrid);
    auto* standard = control<CColourGrid>(dialog, Control::StandardGrid);
    QCOMPARE(standard->chosen(), 7);
    QTest::mouseClick(large, Qt::LeftButton, {}, large->cell(142).center());
    QCOMPARE(dialog.value(), index(142));
    QCOMPARE(standard->chosen(), 0);
    QCOMPARE(control<QLineEdit>(dialog, Control::TextEdit)->text(), QStringLiteral("142"));
    QTest::mouseDClick(standard, Qt::LeftButton, {}, standard->cell(3).center());
    QTest::mouseClick(large, Qt::LeftButton, {}, QPoint(0, 0));
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void TestColourDialog::movesTheChoiceByKeys()
{
    CColourDialog dialog(question(index(10)), nullptr);
    show(dialog);
    auto* grid = control<CColourGrid>(dialog, Control::LargeGrid);
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_Left);
    QCOMPARE(dialog.value(), index(10)); // the edge
    QTest::keyClick(grid, Qt::Key_Right);
    QCOMPARE(dialog.value(), index(20));
    QTest::keyClick(grid, Qt::Key_Down);
    QCOMPARE(dialog.value(), index(21));
    QTest::keyClick(grid, Qt::Key_Up);
    QTest::keyClick(grid, Qt::Key_Up);
    QCOMPARE(dialog.value(), index(22));
    QTest::keyClick(grid, Qt::Key_End);
    QCOMPARE(dialog.value(), index(249));
    QTest::keyClick(grid, Qt::Key_Home);
    QCOMPARE(dialog.value(), index(18));
    auto* greys = control<CColourGrid>(dialog, Control::GreyGrid);
    greys->setFocus();
    QTest::keyClick(greys, Qt::Key_Space);
    QCOMPARE(dialog.value(), index(250));
    QTest::keyClick(greys, Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void TestColourDialog::followsTypedColoursEverywhere()
{
    CColourDialog dialog(question(index(7)), nullptr);
    show(dialog);
    type(dialog, QStringLiteral("14"));
    QCOMPARE(control<CColourGrid>(dialog, Control::LargeGrid)->chosen(), 14);
    type(dialog, QStringLiteral("255,127,0"));
    QCOMPARE(dialog.value(), rgb(0xFF7F00));
    QCOMPARE(control<CColourGrid>(dialog, Control::LargeGrid)->chosen(), 0);
    QCOMPARE(control<QLineEdit>(dialog, Control::HexEdit)->text(), QStringLiteral("#ff7f00"));
    QCOMPARE(control<QSpinBox>(dialog, field(CTrueColourPage::Green))->value(), 127);
    QCOMPARE(control<QSpinBox>(dialog, field(CTrueColourPage::Hue))->value(), 29);
}

void TestColourDialog::followsTheFieldsOfATrueColour()
{
    CColourDialog dialog(question(rgb(0x102030)), nullptr);
    show(dialog);
    QCOMPARE(control<QTabWidget>(dialog, Control::Tabs)->currentIndex(), 1);
    control<QSpinBox>(dialog, field(CTrueColourPage::Red))->setValue(255);
    QCOMPARE(dialog.value(), rgb(0xFF2030));
    QCOMPARE(control<QLineEdit>(dialog, Control::TextEdit)->text(), QStringLiteral("255,32,48"));
    auto* hex = control<QLineEdit>(dialog, Control::HexEdit);
    hex->selectAll();
    QTest::keyClicks(hex, QStringLiteral("00ff00"));
    QCOMPARE(dialog.value(), rgb(0x00FF00));
    QCOMPARE(control<QSpinBox>(dialog, field(CTrueColourPage::Hue))->value(), 120);
    control<QSpinBox>(dialog, field(CTrueColourPage::Hue))->setValue(240);
    QCOMPARE(dialog.value(), rgb(0x0000FF));
    control<QSpinBox>(dialog, field(CTrueColourPage::Lightness))->setValue(100);
    QCOMPARE(dialog.value(), rgb(0xFFFFFF));
}

void TestColourDialog::keepsTheHueOfAGrey()
{
    CColourDialog dialog(question(rgb(0x0000FF)), nullptr);
    auto* hue = control<QSpinBox>(dialog, field(CTrueColourPage::Hue));
    auto* saturation = control<QSpinBox>(dialog, field(CTrueColourPage::Saturation));
    saturation->setValue(0);
    QCOMPARE(dialog.value().rgb & 0xFFu, dialog.value().rgb >> 16);
    QCOMPARE(hue->value(), 240);
    saturation->setValue(100);
    QCOMPARE(dialog.value(), rgb(0x0000FF));
}

void TestColourDialog::picksOnThePlaneByMouseAndKeys()
{
    CColourDialog dialog(question(rgb(0xFF0000)), nullptr);
    show(dialog);
    auto* plane = control<CColourPlane>(dialog, Control::Plane);
    QVERIFY(plane->isVisible());
    QTest::mouseClick(plane, Qt::LeftButton, {}, QPoint(plane->width() / 3, plane->height() / 2));
    const int hue = control<QSpinBox>(dialog, field(CTrueColourPage::Hue))->value();
    QVERIFY(qAbs(hue - 120) <= 2);
    QVERIFY(dialog.value().rgb >> 8 & 0xF0); // a full green
    QCOMPARE(control<QSpinBox>(dialog, field(CTrueColourPage::Saturation))->value(), 100);
    QTest::keyClick(plane, Qt::Key_Right);
    QCOMPARE(control<QSpinBox>(dialog, field(CTrueColourPage::Hue))->value(), hue + 1);
    const int lightness = control<QSpinBox>(dialog, field(CTrueColourPage::Lightness))->value();
    QTest::keyClick(plane, Qt::Key_Up);
    QCOMPARE(control<QSpinBox>(dialog, field(CTrueColourPage::Lightness))->value(), lightness + 1);
    QTest::mouseClick(plane, Qt::LeftButton, {}, QPoint(plane->width() - 1, 0));
    QCOMPARE(dialog.value(), rgb(0xFFFFFF));
    QCOMPARE(control<QSpinBox>(dialog, field(CTrueColourPage::Hue))->value(), 359);
}

void TestColourDialog::offersByLayerAndByBlockOnlyWhereAsked()
{
    const CColourDialog plain(question(index(7)), nullptr);
    QVERIFY(!controlById(&plain, Control::ByLayer) && !controlById(&plain, Control::ByBlock));
    CColourDialog dialog(question(index(7), true), nullptr);
    control<QPushButton>(dialog, Control::ByLayer)->click();
    QCOMPARE(dialog.value().kind, Kind::ByLayer);
    QCOMPARE(control<QLineEdit>(dialog, Control::TextEdit)->text(), QStringLiteral("ByLayer"));
    control<QPushButton>(dialog, Control::ByBlock)->click();
    QCOMPARE(dialog.value().kind, Kind::ByBlock);
}

void TestColourDialog::doesNotEndWithATextThatIsNoColour()
{
    CColourDialog dialog(question(index(7)), nullptr);
    show(dialog);
    type(dialog, QStringLiteral("mauve"));
    QTest::keyClick(&dialog, Qt::Key_Return);
    QVERIFY(dialog.isVisible());
    const auto* problem = dialog.findChild<QLabel*>(QStringLiteral("problem"));
    QVERIFY(problem->isVisible());
    QVERIFY(problem->text().startsWith(QStringLiteral("\"mauve\" is no color.")));
    type(dialog, QStringLiteral("blue"));
    QVERIFY(!problem->isVisible());
    QTest::keyClick(&dialog, Qt::Key_Return);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.value(), index(5));
}

void TestColourDialog::keepsABookColourThatNobodyTouches()
{
    const ColourValue sky{Kind::TrueColour, 0, 0x80FF, QStringLiteral("BOOK$SKY")};
    CColourDialog dialog(question(sky), nullptr);
    show(dialog);
    QTest::keyClick(&dialog, Qt::Key_Return);
    QCOMPARE(dialog.value(), sky);
}

void TestColourDialog::answersNothingOnEscape()
{
    CColourDialog dialog(question(index(7)), nullptr);
    QTimer::singleShot(0, &dialog, [&] { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QVERIFY(!dialog.run());
    QTimer::singleShot(0, &dialog, [&] {
        type(dialog, QStringLiteral("3"));
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    QCOMPARE(dialog.run(), std::optional(index(3)));
}

void TestColourDialog::givesEveryControlANameForAssistivePrograms()
{
    const CColourDialog dialog(question(index(14), true), nullptr);
    for (const int id : {Control::TextEdit, Control::LargeGrid, Control::StandardGrid,
                         Control::GreyGrid, Control::Swatch, Control::HexEdit})
        QVERIFY2(!controlById(&dialog, id)->accessibleName().isEmpty(), QByteArray::number(id));
    for (int id = 0; id < CTrueColourPage::FieldCount; ++id)
        QVERIFY(!controlById(&dialog, Control::FirstField + id)->accessibleName().isEmpty());
    QCOMPARE(controlById(&dialog, Control::LargeGrid)->accessibleDescription(),
             QStringLiteral("14"));
}

void TestColourDialog::hasNoAccessKeyTwice()
{
    CColourDialog dialog(question(index(14), true), nullptr);
    show(dialog);
    auto* tabs = control<QTabWidget>(dialog, Control::Tabs);
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        QStringList texts{tabs->tabText(0), tabs->tabText(1)};
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            if (label->isVisible() && label->buddy())
                texts << label->text();
        }
        for (const QPushButton* button : dialog.findChildren<QPushButton*>()) {
            if (button->isVisible())
                texts << button->text();
        }
        QSet<QKeySequence> keys;
        for (const QString& text : texts) {
            const QKeySequence key = QKeySequence::mnemonic(text);
            QVERIFY2(key.isEmpty() || !keys.contains(key), qPrintable(text));
            keys.insert(key);
        }
        QVERIFY(keys.size() > 4);
    }
}

void TestColourDialog::looksLikeItsGoldenImage_data()
{
    QTest::addColumn<GoldenLook::Theme>("theme");
    QTest::addColumn<bool>("isTrue");
    for (const auto theme : {GoldenLook::Theme::Light, GoldenLook::Theme::Dark}) {
        for (const bool isTrue : {false, true})
            QTest::addRow("%s %s", isTrue ? "true" : "index", qPrintable(GoldenLook::suffix(theme)))
                << theme << isTrue;
    }
}

void TestColourDialog::looksLikeItsGoldenImage()
{
    QFETCH(const GoldenLook::Theme, theme);
    QFETCH(const bool, isTrue);
    const GoldenLook look(theme);
    CColourDialog dialog(question(isTrue ? rgb(0xE08A2C) : index(1), true), nullptr);
    if (!isTrue)
        control<CColourGrid>(dialog, Control::LargeGrid)->setFocus();
    dialog.show();
    if (!isTrue)
        emit control<CColourGrid>(dialog, Control::LargeGrid)->picked(142);
    QVERIFY(goldenImage(&dialog,
                        QStringLiteral("colour_dialog_%1_%2")
                            .arg(isTrue ? QStringLiteral("true") : QStringLiteral("index"),
                                 GoldenLook::suffix(theme))));
}

QTEST_MAIN(TestColourDialog)
#include "test_colour_dialog.moc"

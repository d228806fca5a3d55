#include "support/GuardedTest.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"
#include "toolkit/CXTPTaskDialog.h"
#include "toolkit/ControlRegistry.h"

#include <QCommandLinkButton>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace {

constexpr int kOff = 101;
constexpr int kOn = 102;

TaskQuestion currentLayerOff()
{
    TaskQuestion question;
    question.windowTitle = QStringLiteral("Layer - Current Layer off");
    question.mainInstruction =
        QStringLiteral("The current Layer will be turned off.What do you want to do?");
    question.links = {
        {kOff,
         QStringLiteral("Turn the current layer off \n Objects that you create on will "
                        "not be displayed in the drawing until you turn the layer "
                        "back on")},
        {kOn, QStringLiteral("Keep the current layer on")}};
    return question;
}

TaskQuestion excessFilters()
{
    TaskQuestion question;
    question.windowTitle = QStringLiteral("Layer - Excess Layer Filters");
    question.mainInstruction =
        QStringLiteral("There are more layer filters in this drawing than layers. "
                       "What do you want to do?");
    question.content =
        QStringLiteral("Extra layer filters might have been created in error. Too many "
                       "layer filters can result in slower performance.");
    question.links = {{1, QStringLiteral("Delete all layer filters (recommended)")},
                      {2, QStringLiteral("Retain all layer filters")}};
    question.defaultLink = 1;
    question.widthInDialogUnits = 150;
    return question;
}

/// Every label and link shows its text in full.
bool showsEverything(const QDialog& dialog)
{
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        if (label->height() < label->heightForWidth(label->width()))
            return false;
    }
    for (const QCommandLinkButton* link : dialog.findChildren<QCommandLinkButton*>()) {
        if (link->width() < link->sizeHint().width()
            || link->height() < link->minimumSizeHint().height())
            return false;
    }
    return true;
}

} // namespace

class TestTaskDialog : public GuardedTest
{
    Q_OBJECT

private slots:
    void showsTitleInstructionAndContent();
    void splitsALinkIntoHeadingAndExplanation();
    void showsTextsAsTheyStand();
    void givesTheFocusToTheDefaultLink();
    void answersTheClickedLink();
    void answersTheLinkThatEnterIsPressedOn();
    void reachesEveryLinkByArrowKeys();
    void cancelsWithEscWhereAllowed();
    void cancelsWithTheCloseButtonWhereAllowed();
    void staysOpenOnEscAndCloseWhereCancellingIsNotAllowed();
    void isReadByScreenReaders();
    void clipsNoText_data();
    void clipsNoText();
    void looksLikeItsGoldenImages_data();
    void looksLikeItsGoldenImages();
};

void TestTaskDialog::showsTitleInstructionAndContent()
{
    const CXTPTaskDialog dialog(excessFilters());
    QCOMPARE(dialog.windowTitle(), excessFilters().windowTitle);
    QVERIFY(dialog.isModal());
    const auto* instruction = dialog.findChild<QLabel*>(QStringLiteral("mainInstruction"));
    const auto* content = dialog.findChild<QLabel*>(QStringLiteral("content"));
    QCOMPARE(instruction->text(), excessFilters().mainInstruction);
    QCOMPARE(content->text(), excessFilters().content);
    QVERIFY(QFontInfo(instruction->font()).pointSizeF() > QFontInfo(content->font()).pointSizeF());
    const CXTPTaskDialog without(currentLayerOff());
    QCOMPARE(without.findChild<QLabel*>(QStringLiteral("content")), nullptr);
}

void TestTaskDialog::splitsALinkIntoHeadingAndExplanation()
{
    const CXTPTaskDialog dialog(currentLayerOff());
    QCOMPARE(dialog.link(kOff)->text(), QStringLiteral("Turn the current layer off"));
    QCOMPARE(
        dialog.link(kOff)->description(),
        QStringLiteral("Objects that you create on will not be displayed in the drawing until you "
                       "turn the layer back on"));
    QCOMPARE(dialog.link(kOn)->text(), QStringLiteral("Keep the current layer on"));
    QVERIFY(dialog.link(kOn)->description().isEmpty());
    QCOMPARE(dialog.link(7), nullptr);
    QCOMPARE(controlById(&dialog, kOn), dialog.link(kOn));
}

void TestTaskDialog::showsTextsAsTheyStand()
{
    TaskQuestion question;
    question.mainInstruction = QStringLiteral("<b>A&B</b>");
    question.links = {{1, QStringLiteral("Keep A&B")}};
    const CXTPTaskDialog dialog(question);
    const auto* instruction = dialog.findChild<QLabel*>(QStringLiteral("mainInstruction"));
    QCOMPARE(instruction->textFormat(), Qt::PlainText);
    QCOMPARE(dialog.link(1)->text(), QStringLiteral("Keep A&&B"));
    QCOMPARE(dialog.link(1)->accessibleName(), QStringLiteral("Keep A&B"));
}

void TestTaskDialog::givesTheFocusToTheDefaultLink()
{
    TaskQuestion question = excessFilters();
    for (const int wanted : {1, 2}) {
        question.defaultLink = wanted;
        CXTPTaskDialog dialog(question);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QVERIFY(dialog.link(wanted)->hasFocus());
    }
}

void TestTaskDialog::answersTheClickedLink()
{
    CXTPTaskDialog dialog(currentLayerOff());
    QTimer::singleShot(0, &dialog, [&] { QTest::mouseClick(dialog.link(kOn), Qt::LeftButton); });
    QCOMPARE(dialog.DoModal(), kOn);
    QTimer::singleShot(0, &dialog, [&] { QTest::mouseClick(dialog.link(kOff), Qt::LeftButton); });
    QCOMPARE(dialog.DoModal(), kOff);
}

void TestTaskDialog::answersTheLinkThatEnterIsPressedOn()
{
    CXTPTaskDialog dialog(currentLayerOff());
    QTimer::singleShot(0, &dialog, [&] { QTest::keyClick(dialog.focusWidget(), Qt::Key_Return); });
    QCOMPARE(dialog.DoModal(), kOff);
    QTimer::singleShot(0, &dialog, [&] {
        dialog.link(kOn)->setFocus();
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
    });
    QCOMPARE(dialog.DoModal(), kOn);
}

void TestTaskDialog::reachesEveryLinkByArrowKeys()
{
    CXTPTaskDialog dialog(currentLayerOff());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
    QVERIFY(dialog.link(kOn)->hasFocus());
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Up);
    QVERIFY(dialog.link(kOff)->hasFocus());
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    QVERIFY(dialog.link(kOn)->hasFocus());
}

void TestTaskDialog::cancelsWithEscWhereAllowed()
{
    CXTPTaskDialog dialog(currentLayerOff());
    QTimer::singleShot(0, &dialog, [&] { QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape); });
    QCOMPARE(dialog.DoModal(), int(Prompts::kCancelled));
}

void TestTaskDialog::cancelsWithTheCloseButtonWhereAllowed()
{
    CXTPTaskDialog dialog(currentLayerOff());
    QTimer::singleShot(0, &dialog, [&] { dialog.close(); });
    QCOMPARE(dialog.DoModal(), int(Prompts::kCancelled));
    QVERIFY(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
}

void TestTaskDialog::staysOpenOnEscAndCloseWhereCancellingIsNotAllowed()
{
    TaskQuestion question = currentLayerOff();
    question.allowCancel = false;
    CXTPTaskDialog dialog(question);
    QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    bool stayed = false;
    QTimer::singleShot(0, &dialog, [&] {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
        dialog.close();
        stayed = dialog.isVisible();
        QTest::mouseClick(dialog.link(kOn), Qt::LeftButton);
    });
    QCOMPARE(dialog.DoModal(), kOn);
    QVERIFY(stayed);
}

void TestTaskDialog::isReadByScreenReaders()
{
    const CXTPTaskDialog dialog(excessFilters());
    QCOMPARE(dialog.accessibleName(), excessFilters().mainInstruction);
    QCOMPARE(dialog.accessibleDescription(), excessFilters().content);
    const CXTPTaskDialog off(currentLayerOff());
    QCOMPARE(off.link(kOff)->accessibleName(), QStringLiteral("Turn the current layer off"));
    QVERIFY(off.link(kOff)->accessibleDescription().startsWith(
        QLatin1String("Objects that you create")));
}

void TestTaskDialog::clipsNoText_data()
{
    QTest::addColumn<int>("pointSize");
    for (const int size : {7, 9, 12, 18, 24})
        QTest::addRow("at %d points", size) << size;
}

void TestTaskDialog::clipsNoText()
{
    QFETCH(const int, pointSize);
    for (const TaskQuestion& question : {excessFilters(), currentLayerOff()}) {
        CXTPTaskDialog dialog(question);
        QFont font = GoldenLook::font();
        font.setPointSize(pointSize);
        dialog.setFont(font);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QVERIFY(showsEverything(dialog));
    }
}

void TestTaskDialog::looksLikeItsGoldenImages_data()
{
    QTest::addColumn<GoldenLook::Theme>("theme");
    QTest::newRow("light") << GoldenLook::Theme::Light;
    QTest::newRow("dark") << GoldenLook::Theme::Dark;
}

void TestTaskDialog::looksLikeItsGoldenImages()
{
    QFETCH(const GoldenLook::Theme, theme);
    const GoldenLook look(theme);
    CXTPTaskDialog links(currentLayerOff());
    QVERIFY(goldenImage(&links, QStringLiteral("task_dialog_links_") + GoldenLook::suffix(theme)));
    CXTPTaskDialog content(excessFilters());
    QVERIFY(
        goldenImage(&content, QStringLiteral("task_dialog_content_") + GoldenLook::suffix(theme)));
}

QTEST_MAIN(TestTaskDialog)
#include "test_task_dialog.moc"

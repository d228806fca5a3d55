#include "support/GuardedTest.h"
#include "toolkit/CXTPTaskDialog.h"
#include "toolkit/DialogPrompts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCommandLinkButton>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

/// What a message box showed, noted while it was open.
struct Seen
{
    QString text;
    QString title;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    Qt::TextFormat format = Qt::AutoText;
    QMessageBox::StandardButtons buttons;
    const QWidget* parent = nullptr;
};

/// Runs when the next modal loop turns: notes the message box and presses the key in it.
void whenAsked(Seen& seen, Qt::Key key)
{
    QTimer::singleShot(0, qApp, [&seen, key] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        seen = {box->text(),       box->windowTitle(),     box->icon(),
                box->textFormat(), box->standardButtons(), box->parentWidget()};
        QWidget* target = box->focusWidget() ? box->focusWidget() : box;
        QTest::keyClick(target, key);
    });
}

/// Runs in the file dialog that comes up next.
template <class Work>
void inFileDialog(Work work)
{
    QTimer::singleShot(0, qApp, [work] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog)
            work(*dialog);
        if (dialog && dialog->isVisible())
            dialog->reject();
    });
}

} // namespace

class TestDialogPrompts : public GuardedTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void areInForceUnlessOthersAreInstalled();
    void showAMessageAsItStandsWithOneButton();
    void showTheIconOfAMessage();
    void answerYesToEnterAndNoToEscape();
    void askThroughATaskDialog();
    void answerCancelledToAClosedTaskDialog();
    void saveUnderTheExtensionOfTheFilterInForce();
    void startAFileDialogWithItsFilterAndFolder();
    void answerNothingToAClosedFileDialog();
    void standTheEndOfTheirParent();
};

void TestDialogPrompts::initTestCase()
{
    QGuiApplication::setApplicationDisplayName(QStringLiteral("kest"));
}

void TestDialogPrompts::areInForceUnlessOthersAreInstalled()
{
    QVERIFY(dynamic_cast<DialogPrompts*>(&Prompts::current()));
    DialogPrompts others;
    QCOMPARE(Prompts::install(&others), nullptr);
    QCOMPARE(&Prompts::current(), &others);
    QCOMPARE(Prompts::install(nullptr), &others);
    QVERIFY(&Prompts::current() != &others);
}

void TestDialogPrompts::showAMessageAsItStandsWithOneButton()
{
    QWidget window;
    window.show();
    const QString text =
        QStringLiteral("The selected layer cannot be renamed.\n\n <b>1. Layer 0</b>");
    Seen seen;
    whenAsked(seen, Qt::Key_Return);
    Prompts::current().message(&window, text);
    QCOMPARE(seen.text, text);
    QCOMPARE(seen.format, Qt::PlainText);
    QCOMPARE(seen.title, QStringLiteral("kest"));
    QCOMPARE(seen.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(seen.parent, &window);
}

void TestDialogPrompts::showTheIconOfAMessage()
{
    using Icon = Prompts::Icon;
    const QList<std::pair<Icon, QMessageBox::Icon>> icons = {
        {Icon::Information, QMessageBox::Information},
        {Icon::Warning, QMessageBox::Warning},
        {Icon::Error, QMessageBox::Critical}};
    for (const auto& [icon, expected] : icons) {
        Seen seen;
        whenAsked(seen, Qt::Key_Escape);
        Prompts::current().message(nullptr, QStringLiteral("Stop."), icon);
        QCOMPARE(seen.icon, expected);
    }
}

void TestDialogPrompts::answerYesToEnterAndNoToEscape()
{
    Seen seen;
    whenAsked(seen, Qt::Key_Return);
    QVERIFY(Prompts::current().confirm(nullptr, QStringLiteral("Sure?")));
    QCOMPARE(seen.text, QStringLiteral("Sure?"));
    QCOMPARE(seen.icon, QMessageBox::Question);
    QCOMPARE(seen.buttons, QMessageBox::StandardButtons(QMessageBox::Yes | QMessageBox::No));
    whenAsked(seen, Qt::Key_Escape);
    QVERIFY(!Prompts::current().confirm(nullptr, QStringLiteral("Sure?")));
}

void TestDialogPrompts::askThroughATaskDialog()
{
    TaskQuestion question;
    question.mainInstruction = QStringLiteral("Off?");
    question.links = {{101, QStringLiteral("Off")}, {102, QStringLiteral("On")}};
    QTimer::singleShot(0, qApp, [] {
        auto* dialog = qobject_cast<CXTPTaskDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        QTest::mouseClick(dialog->link(102), Qt::LeftButton);
    });
    QCOMPARE(Prompts::current().ask(nullptr, question), 102);
}

void TestDialogPrompts::answerCancelledToAClosedTaskDialog()
{
    TaskQuestion question;
    question.links = {{101, QStringLiteral("Off")}};
    QTimer::singleShot(0, qApp, [] { QApplication::activeModalWidget()->close(); });
    QCOMPARE(Prompts::current().ask(nullptr, question), int(Prompts::kCancelled));
}

void TestDialogPrompts::saveUnderTheExtensionOfTheFilterInForce()
{
    const QTemporaryDir folder;
    int chosen = -1;
    FileQuestion question;
    question.title = QStringLiteral("Export");
    question.path = folder.path();
    question.filter = QStringLiteral("Layer states (*.las *.LAS);;Texts (*.txt);;All (*)");
    question.filterIndex = 0;
    question.chosenFilter = &chosen;
    inFileDialog([](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Export"));
        QCOMPARE(dialog.selectedNameFilter(), QStringLiteral("Layer states (*.las *.LAS)"));
        dialog.selectNameFilter(QStringLiteral("Texts (*.txt)"));
        emit dialog.filterSelected(QStringLiteral("Texts (*.txt)"));
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        QTest::keyClicks(name, QStringLiteral("all"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    QCOMPARE(Prompts::current().saveFile(nullptr, question),
             folder.filePath(QStringLiteral("all.txt")));
    QCOMPARE(chosen, 1);
    inFileDialog([](QFileDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        QTest::keyClicks(name, QStringLiteral("all"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    QCOMPARE(Prompts::current().saveFile(nullptr, question),
             folder.filePath(QStringLiteral("all.las")));
    QCOMPARE(chosen, 0);
    // Among all files a name gets the extension that was in force before.
    inFileDialog([](QFileDialog& dialog) {
        dialog.selectNameFilter(QStringLiteral("All (*)"));
        emit dialog.filterSelected(QStringLiteral("All (*)"));
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        QTest::keyClicks(name, QStringLiteral("all"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    QCOMPARE(Prompts::current().saveFile(nullptr, question),
             folder.filePath(QStringLiteral("all.las")));
}

void TestDialogPrompts::startAFileDialogWithItsFilterAndFolder()
{
    const QTemporaryDir folder;
    QFile state(folder.filePath(QStringLiteral("all.las")));
    QVERIFY(state.open(QIODevice::WriteOnly));
    state.close();
    int chosen = -1;
    FileQuestion question;
    question.path = state.fileName();
    question.filter = QStringLiteral("Drawings (*.dxf);;Layer states (*.las)");
    question.filterIndex = 1;
    question.chosenFilter = &chosen;
    inFileDialog([&](QFileDialog& dialog) {
        QCOMPARE(dialog.selectedNameFilter(), QStringLiteral("Layer states (*.las)"));
        QCOMPARE(dialog.directory().absolutePath(), folder.path());
        QCOMPARE(dialog.selectedFiles(), QStringList{state.fileName()});
        static_cast<QDialog&>(dialog).accept();
    });
    QCOMPARE(Prompts::current().openFile(nullptr, question), state.fileName());
    QCOMPARE(chosen, 1);
    // Filters out of range, and none at all.
    question.filterIndex = 9;
    inFileDialog([](QFileDialog& dialog) { dialog.reject(); });
    QVERIFY(Prompts::current().openFile(nullptr, question).isEmpty());
    question.filter.clear();
    inFileDialog([](QFileDialog& dialog) { dialog.reject(); });
    QVERIFY(Prompts::current().openFile(nullptr, question).isEmpty());
}

void TestDialogPrompts::answerNothingToAClosedFileDialog()
{
    int chosen = 5;
    FileQuestion question;
    question.chosenFilter = &chosen;
    inFileDialog([](QFileDialog& dialog) { dialog.reject(); });
    QVERIFY(Prompts::current().saveFile(nullptr, question).isEmpty());
    QCOMPARE(chosen, 5);
}

void TestDialogPrompts::standTheEndOfTheirParent()
{
    DialogPrompts prompts;
    int ended = 0;
    // The widget that asks is a child of what goes, as a list is of its palette.
    const auto whileItGoes = [&](const auto& ask) {
        auto* palette = new QWidget;
        auto* list = new QWidget(palette);
        palette->show();
        QTimer::singleShot(0, qApp, [&ended, palette] {
            ended += QApplication::activeModalWidget() ? 1 : 0;
            delete palette;
        });
        ask(list);
        QVERIFY(!QApplication::activeModalWidget());
    };
    whileItGoes([&](QWidget* list) { prompts.message(list, QStringLiteral("Text")); });
    whileItGoes([&](QWidget* list) { QVERIFY(!prompts.confirm(list, QStringLiteral("Text"))); });
    whileItGoes([&](QWidget* list) {
        TaskQuestion question;
        question.mainInstruction = QStringLiteral("Text");
        question.links = {{101, QStringLiteral("One")}};
        QCOMPARE(prompts.ask(list, question), Prompts::kCancelled);
    });
    whileItGoes([&](QWidget* list) { QCOMPARE(prompts.openFile(list, {}), QString()); });
    QCOMPARE(ended, 4);
}

QTEST_MAIN(TestDialogPrompts)
#include "test_dialog_prompts.moc"

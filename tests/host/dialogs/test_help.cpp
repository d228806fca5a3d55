#include "host/help/CHelpPage.h"
#include "host/help/CHelpViewer.h"
#include "host/help/HelpKey.h"
#include "host/help/HelpTopics.h"
#include "host/resources/DataFiles.h"
#include "sdk/KestHost.h"
#include "support/FakeHost.h"
#include "support/GuardedTest.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"
#include "toolkit/CXTPDockingPaneManager.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TestHelp : public GuardedTest
{
    Q_OBJECT

private:
    static QString folder() { return QStringLiteral(KEST_HELP); }
    static QStringList files()
    {
        return QDir(folder()).entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
    }
    static QString contents(const QString& file)
    {
        QFile page(QDir(folder()).filePath(file));
        return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
    }
    /// Targets of links and pictures.
    static QStringList targets(const QString& markdown)
    {
        static const QRegularExpression link(QStringLiteral("\\]\\(([^)]+)\\)"));
        QStringList found;
        QRegularExpressionMatchIterator it = link.globalMatch(markdown);
        while (it.hasNext())
            found << it.next().captured(1);
        return found;
    }
    static void write(const QString& path, const char* text)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    static QString shown(const CHelpViewer& viewer) { return viewer.page().source().fileName(); }
    static QStringList listed(const CHelpViewer& viewer)
    {
        QStringList titles;
        for (int row = 0; row < viewer.contents().count(); ++row)
            titles << viewer.contents().item(row)->text();
        return titles;
    }
    static void show(QWidget& widget)
    {
        widget.show();
        widget.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&widget));
    }

private slots:
    void hasAPageForEveryTopic();
    void leadsFromItsContentsToEveryPage();
    void hasNoLinkThatLeadsNowhere();
    void hasATitleOnEveryPage();
    void isFoundBesideTheProgram();
    void showsTheContentsForUnknownTopics();
    void goesBackAndForward();
    void findsPagesByTheirWords();
    void marksThePageOnTheScreenInTheContents();
    void keepsPicturesWithinTheView();
    void canBeUsedOverAModalDialog();
    void closesOnEscape();
    void opensByF1OnTheNearestTopic();
    void opensOnTheIdOfADockingPane();
    void leavesOtherKeysAlone();
    void looksLikeItsGoldenImage_data();
    void looksLikeItsGoldenImage();
};

void TestHelp::hasAPageForEveryTopic()
{
    for (const int topic : help_topics::all())
        QVERIFY2(QFileInfo::exists(QDir(folder()).filePath(help_topics::page(topic))),
                 QByteArray::number(topic));
    QCOMPARE(help_topics::page(704), QStringLiteral("property-filters.md"));
    QCOMPARE(help_topics::page(706), QStringLiteral("layer-states.md"));
    QCOMPARE(help_topics::page(0), QStringLiteral("index.md"));
}

void TestHelp::leadsFromItsContentsToEveryPage()
{
    const HelpPages pages(folder());
    QSet<QString> known;
    for (const HelpPages::Page& page : pages.pages())
        known.insert(page.file);
    const QStringList all = files();
    QVERIFY(all.size() > 5);
    QCOMPARE(known, QSet<QString>(all.begin(), all.end()));
}

void TestHelp::hasNoLinkThatLeadsNowhere()
{
    int checked = 0;
    for (const QString& file : files()) {
        for (const QString& target : targets(contents(file))) {
            QVERIFY2(QFileInfo::exists(QDir(folder()).filePath(target)),
                     qPrintable(file + QStringLiteral(" links to ") + target));
            ++checked;
        }
    }
    QVERIFY(checked > 15);
}

void TestHelp::hasATitleOnEveryPage()
{
    QSet<QString> titles;
    const HelpPages pages(folder());
    for (const HelpPages::Page& page : pages.pages()) {
        QVERIFY2(!page.title.isEmpty(), qPrintable(page.file));
        titles.insert(page.title);
    }
    QCOMPARE(titles.size(), files().size());
}

void TestHelp::isFoundBesideTheProgram()
{
    QCOMPARE(QFileInfo(dataFile(QStringLiteral("help/index.md"))).canonicalFilePath(),
             QFileInfo(folder() + QStringLiteral("/index.md")).canonicalFilePath());
    QVERIFY(dataFile(QStringLiteral("help/none.md")).isEmpty());
}

void TestHelp::showsTheContentsForUnknownTopics()
{
    CHelpViewer viewer(folder());
    viewer.showTopic(123456);
    QCOMPARE(shown(viewer), QStringLiteral("index.md"));
    QVERIFY(viewer.page().toPlainText().contains(QStringLiteral("The layer palette")));
}

void TestHelp::goesBackAndForward()
{
    CHelpViewer viewer(folder());
    auto* back = viewer.findChild<QAction*>(QStringLiteral("helpBack"));
    auto* forward = viewer.findChild<QAction*>(QStringLiteral("helpForward"));
    viewer.showTopic(help_topics::kPalette);
    QVERIFY(!back->isEnabled() && !forward->isEnabled());
    viewer.page().setSource(QUrl(QStringLiteral("colors.md"))); // a click on the link
    QCOMPARE(shown(viewer), QStringLiteral("colors.md"));
    back->trigger();
    QCOMPARE(shown(viewer), QStringLiteral("palette.md"));
    forward->trigger();
    QCOMPARE(shown(viewer), QStringLiteral("colors.md"));
    viewer.findChild<QAction*>(QStringLiteral("helpContents"))->trigger();
    QCOMPARE(shown(viewer), QStringLiteral("index.md"));
}

void TestHelp::findsPagesByTheirWords()
{
    CHelpViewer viewer(folder());
    show(viewer);
    QCOMPARE(listed(viewer).size(), files().size());
    viewer.search().setText(QStringLiteral("hexadecimal HUE"));
    QCOMPARE(listed(viewer), QStringList{QStringLiteral("Colors")});
    QTest::keyClick(&viewer.search(), Qt::Key_Return);
    QCOMPARE(shown(viewer), QStringLiteral("colors.md"));
    QCOMPARE(viewer.page().textCursor().selectedText().toLower(), QStringLiteral("hexadecimal"));
    viewer.search().setText(QStringLiteral("quixotic zebras"));
    QVERIFY(listed(viewer).isEmpty());
    viewer.showTopic(help_topics::kFiles);
    QCOMPARE(listed(viewer).size(), files().size());
}

void TestHelp::marksThePageOnTheScreenInTheContents()
{
    CHelpViewer viewer(folder());
    viewer.showTopic(help_topics::kPanes);
    QCOMPARE(viewer.contents().currentItem()->text(), QStringLiteral("Panes"));
    QCOMPARE(viewer.windowTitle(), QStringLiteral("Help: Panes"));
    viewer.contents().setCurrentRow(1);
    QCOMPARE(shown(viewer), QStringLiteral("palette.md"));
}

void TestHelp::keepsPicturesWithinTheView()
{
    CHelpViewer viewer(folder());
    show(viewer);
    viewer.showTopic(help_topics::kPalette);
    const QVariant picture = viewer.page().loadResource(
        QTextDocument::ImageResource,
        QUrl::fromLocalFile(folder() + QStringLiteral("/../images/guide_open.png")));
    const auto image = picture.value<QImage>();
    QVERIFY(!image.isNull());
    QVERIFY(image.width() <= viewer.page().viewport()->width());
}

void TestHelp::canBeUsedOverAModalDialog()
{
    QMainWindow window;
    show(window);
    auto* viewer = new CHelpViewer(folder(), &window);
    {
        QDialog dialog(&window);
        dialog.setModal(true);
        show(dialog);
        viewer->showTopic(help_topics::kColour);
        viewer->present();
        QVERIFY(viewer->isVisible());
        QCOMPARE(viewer->parentWidget(), &dialog);
        dialog.reject();
        QCOMPARE(viewer->parentWidget(), &window);
    }
    QVERIFY(viewer->isVisible());
    QCOMPARE(shown(*viewer), QStringLiteral("colors.md"));
}

void TestHelp::closesOnEscape()
{
    CHelpViewer viewer(folder());
    show(viewer);
    QTest::keyClick(&viewer, Qt::Key_Escape);
    QVERIFY(!viewer.isVisible());
}

void TestHelp::opensByF1OnTheNearestTopic()
{
    FakeHost host;
    QDialog dialog;
    const HelpKey key(&dialog);
    auto* group = new QWidget(&dialog);
    auto* edit = new QLineEdit(group);
    auto* plain = new QLineEdit(&dialog);
    HelpKey::setTopic(dialog, 706);
    HelpKey::setTopic(*group, 704);
    show(dialog);
    QTest::keyClick(edit, Qt::Key_F1);
    QTest::keyClick(plain, Qt::Key_F1);
    QCOMPARE(host.helpTopics, (QList<int>{704, 706}));
    dialog.setProperty("helpTopic", QVariant());
    QTest::keyClick(plain, Qt::Key_F1);
    QCOMPARE(host.helpTopics.last(), help_topics::kContents);
}

void TestHelp::opensOnTheIdOfADockingPane()
{
    QMainWindow window;
    CXTPDockingPaneManager manager(window);
    CXTPDockingPane* pane = manager.CreatePane(1000, QRect(0, 0, 100, 100), xtpPaneDockLeft);
    auto* edit = new QLineEdit;
    pane->AttachView(edit);
    QCOMPARE(HelpKey::topicOf(edit), help_topics::kPalette);
    QCOMPARE(HelpKey::topicOf(nullptr), help_topics::kContents);
}

void TestHelp::leavesOtherKeysAlone()
{
    FakeHost host;
    QLineEdit edit;
    const HelpKey key(&edit);
    show(edit);
    QTest::keyClick(&edit, Qt::Key_F1, Qt::ShiftModifier);
    QTest::keyClicks(&edit, QStringLiteral("f1"));
    QVERIFY(host.helpTopics.isEmpty());
    QCOMPARE(edit.text(), QStringLiteral("f1"));
}

void TestHelp::looksLikeItsGoldenImage_data()
{
    QTest::addColumn<GoldenLook::Theme>("theme");
    QTest::newRow("light") << GoldenLook::Theme::Light;
    QTest::newRow("dark") << GoldenLook::Theme::Dark;
}

void TestHelp::looksLikeItsGoldenImage()
{
    QFETCH(const GoldenLook::Theme, theme);
    const GoldenLook look(theme);
    // Pages of its own, so that the picture does not change with a word of the help.
    const QTemporaryDir pages;
    write(pages.filePath(QStringLiteral("index.md")),
          "# Contents\n\n- [Doors](doors.md): which are open\n- [Windows](windows.md)\n");
    write(pages.filePath(QStringLiteral("windows.md")), "# Windows\n\nText.\n");
    write(pages.filePath(QStringLiteral("doors.md")),
          "# Doors\n\nA door is **open** or *closed*. [Windows](windows.md) are another page.\n\n"
          "| Key | does |\n|---|---|\n| `O` | opens the door |\n| `C` | closes it |\n\n"
          "## More\n\n- one point\n- another point, which is long enough to go on in a second line "
          "of the page\n\n      Code stands in a block of its own.\n");
    CHelpViewer viewer(pages.path());
    viewer.resize(760, 480);
    viewer.show();
    viewer.contents().setCurrentRow(1);
    QVERIFY(goldenImage(&viewer, QStringLiteral("help_viewer_") + GoldenLook::suffix(theme)));
}

QTEST_MAIN(TestHelp)
#include "test_help.moc"

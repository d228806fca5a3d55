#include "FilterEditorFixture.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMenu>
#include <QScreen>
#include <QToolButton>

using layer_drawing::write;

class TestFilterEditorLook : public FilterEditorFixture
{
    Q_OBJECT

private slots:
    void theDialogLooksLikeItsGoldenImages_data();
    void theDialogLooksLikeItsGoldenImages();
    void listAndMenuLookLikeTheirGoldenImages_data();
    void listAndMenuLookLikeTheirGoldenImages();
    void nothingIsCutOffWithALargeFont();

private:
    static void addThemes();
    void fillDrawing();

    // Whatever screen the tests have
    static constexpr QSize kInModelSpace{780, 644};
    static constexpr QSize kInLayout{1050, 644};
};

void TestFilterEditorLook::addThemes()
{
    QTest::addColumn<int>("theme");
    for (const auto theme : {GoldenLook::Theme::Light, GoldenLook::Theme::Dark})
        QTest::newRow(qPrintable(GoldenLook::suffix(theme))) << static_cast<int>(theme);
}

void TestFilterEditorLook::fillDrawing()
{
    auto drawing = layer_drawing::make({{"A-Doors"},
                                        {"A-Furniture"},
                                        {"A-Walls"},
                                        {"E-Light"},
                                        {"E-Power"},
                                        {"S-Beams"},
                                        {"S-Columns"}});
    write(*drawing, "A-Walls")->setIsFrozen(true);
    write(*drawing, "A-Walls")->setColor(OdCmColor::fromIndex(1));
    write(*drawing, "E-Light")->setIsOff(true);
    write(*drawing, "E-Light")->setColor(OdCmColor::fromIndex(2));
    write(*drawing, "S-Beams")->setColor(OdCmColor::fromIndex(5));
    write(*drawing, "S-Beams")->setLineWeight(13);
    open(std::move(drawing));
}

void TestFilterEditorLook::theDialogLooksLikeItsGoldenImages_data()
{
    addThemes();
}

void TestFilterEditorLook::theDialogLooksLikeItsGoldenImages()
{
    QFETCH(int, theme);
    const GoldenLook look(static_cast<GoldenLook::Theme>(theme));
    const QString suffix = GoldenLook::suffix(static_cast<GoldenLook::Theme>(theme));
    fillDrawing();
    showNew();
    dialog().resize(kInModelSpace);
    QVERIFY(goldenImage(&dialog(), QStringLiteral("filter_dialog_new_%1").arg(suffix)));
    closeDialog();
    const char* rows =
        "USED==\"True\" AND VPOVERRIDES==\"False\" AND NAME==\"A-*\"  AND "
        "OFF==\"False\"  AND LOCKED==\"False\"  OR USED==\"False\" AND "
        "VPOVERRIDES==\"False\" AND NAME==\"E-*\"  AND COLOR==\"2\"  AND "
        "LINETYPE==\"Continuous\"  AND PLOTTABLE==\"True\"  OR FROZEN==\"True\"  AND "
        "COLOR==\"1\"  OR COLOR==\"5\"  AND LINEWEIGHT==\"0.13 mm\"  AND "
        "NEWVPFROZEN==\"False\" ";
    showExisting("Architecture and red layers", rows);
    QCOMPARE(lines(), 5);
    QCOMPARE(notice(), QString());
    dialog().resize(kInModelSpace);
    table().chooseRows({1});
    table().setFocus();
    table().focusCell(1, kName);
    QVERIFY(goldenImage(&dialog(), QStringLiteral("filter_dialog_%1").arg(suffix)));
    closeDialog();
    enterViewport();
    showExisting("Frozen here",
                 "USED==\"True\" AND VPOVERRIDES==\"True\" AND VPFROZEN==\"True\"  AND "
                 "VPCOLOR==\"5\"  OR USED==\"False\" AND VPOVERRIDES==\"True\" AND NAME==\"S-*\"  "
                 "AND VPLINETYPE==\"DASHED\"  OR VPFROZEN==\"False\" ");
    dialog().resize(kInLayout);
    QVERIFY(goldenImage(&dialog(), QStringLiteral("filter_dialog_layout_%1").arg(suffix)));
    closeDialog();
    showExisting("Foreign", "NAME==\"A*\" AND PLOTSTYLE==\"x\"");
    dialog().resize(kInLayout);
    QVERIFY(goldenImage(&dialog(), QStringLiteral("filter_dialog_notice_%1").arg(suffix)));
}

void TestFilterEditorLook::listAndMenuLookLikeTheirGoldenImages_data()
{
    addThemes();
}

void TestFilterEditorLook::listAndMenuLookLikeTheirGoldenImages()
{
    QFETCH(int, theme);
    const GoldenLook look(static_cast<GoldenLook::Theme>(theme));
    const QString suffix = GoldenLook::suffix(static_cast<GoldenLook::Theme>(theme));
    fillDrawing();
    showExisting("F", "NAME==\"A-*\" ");
    click(0, kStatus);
    QVERIFY(isListOpen());
    QTest::keyClick(combo().view(), Qt::Key_Down);
    QVERIFY(
        goldenImage(combo().view()->window(), QStringLiteral("filter_value_list_%1").arg(suffix)));
    combo().hidePopup();
    settle();
    menuCommand(0, kName, 0);
    const std::unique_ptr<QMenu> menu = table().contextMenu();
    QVERIFY(goldenImage(menu.get(), QStringLiteral("filter_definition_menu_%1").arg(suffix)));
    menu->close();
    QMenu* leaf = dialog().findChild<QMenu*>(QStringLiteral("filterExamples"));
    QVERIFY(leaf);
    QVERIFY(goldenImage(leaf, QStringLiteral("filter_examples_%1").arg(suffix)));
    leaf->close();
}

void TestFilterEditorLook::nothingIsCutOffWithALargeFont()
{
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSize(before.pointSize() * 2);
    QApplication::setFont(large);
    showExisting("Foreign", "NAME==\"A*\" AND PLOTSTYLE==\"x\"");
    settle();
    QVERIFY(dialog().width() <= dialog().screen()->availableSize().width());
    QVERIFY(dialog().height() <= dialog().screen()->availableSize().height());
    for (const QWidget* part :
         dialog().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!part->isVisible() || part->isWindow())
            continue;
        const QSize least = part->minimumSizeHint();
        QVERIFY2(part->width() >= least.width() && part->height() >= least.height(),
                 qPrintable(part->objectName()));
        QVERIFY(dialog().rect().contains(part->geometry()));
    }
    QVERIFY(table().rowHeight(0) >= table().fontMetrics().height());
    closeDialog();
    QApplication::setFont(before);
}

QTEST_MAIN(TestFilterEditorLook)
#include "test_filter_editor_look.moc"

#include "FilterTreeFixture.h"
#include "layermanager/filters/view/FilterTreeMenu.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"

#include <QLineEdit>
#include <QTest>

using Theme = GoldenLook::Theme;

class TestFilterTreeLook : public FilterTreeFixture
{
    Q_OBJECT

private slots:
    void theTreeLooksLikeItsGoldenImages_data();
    void theTreeLooksLikeItsGoldenImages();
    void theMenusLookLikeTheirGoldenImages_data();
    void theMenusLookLikeTheirGoldenImages();

private:
    static void addThemes();
};

void TestFilterTreeLook::addThemes()
{
    QTest::addColumn<int>("theme");
    for (const Theme theme : {Theme::Light, Theme::Dark})
        QTest::newRow(qPrintable(GoldenLook::suffix(theme))) << int(theme);
}

void TestFilterTreeLook::theTreeLooksLikeItsGoldenImages_data()
{
    addThemes();
}

void TestFilterTreeLook::theTreeLooksLikeItsGoldenImages()
{
    QFETCH(int, theme);
    const GoldenLook look(static_cast<Theme>(theme));
    OdDbDatabase& drawing = openWithReference();
    for (const OdDbObjectId id : drawing.layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsReconciled(true);
    layer_drawing::write(drawing, "Own")->setIsReconciled(false);
    host().ints[QStringLiteral("LAYEREVAL")] = 1;
    host().ints[QStringLiteral("LAYEREVALCTL")] = 1;
    run("_LAYER");
    FilterTreeEdit edit(drawing);
    const auto group = odrxCreate<OdLyLayerGroup>(QStringLiteral("Load-bearing"));
    const auto property = odrxCreate<OdLyLayerFilter>(QStringLiteral("Red and locked"));
    property->setFilterExpression(QStringLiteral("LOCKED==\"True\"  AND COLOR==\"1\" "));
    edit.root()->addNested(group);
    group->addNested(property);
    group->addNested(odrxCreate<OdLyLayerGroup>(QStringLiteral("Ground floor")));
    edit.write();
    settle();
    tree().select(key("Red and locked"));
    window().resize(1000, 420);
    tree().setFocus();
    const QString suffix = GoldenLook::suffix(static_cast<Theme>(theme));
    QVERIFY(goldenImage(&tree(), QStringLiteral("filter_tree_%1").arg(suffix)));
    tree().command(40096);
    QVERIFY(labelEditor());
    QVERIFY(goldenImage(&tree(), QStringLiteral("filter_tree_renaming_%1").arg(suffix)));
}

void TestFilterTreeLook::theMenusLookLikeTheirGoldenImages_data()
{
    addThemes();
}

void TestFilterTreeLook::theMenusLookLikeTheirGoldenImages()
{
    QFETCH(int, theme);
    const GoldenLook look(static_cast<Theme>(theme));
    const struct
    {
        const char* name;
        FilterNodeKind kind;
        bool modelSpace;
    } kMenus[] = {
        {"all", FilterNodeKind::All, false},
        {"used", FilterNodeKind::UsedLayers, false},
        {"property", FilterNodeKind::Property, true},
        {"group", FilterNodeKind::Group, false},
        {"reference", FilterNodeKind::ExternalReference, false},
        {"unreconciled", FilterNodeKind::Unreconciled, true},
    };
    for (const auto& shown : kMenus) {
        FilterNode node;
        node.key.name = QStringLiteral("Any");
        node.kind = shown.kind;
        node.isEditable = shown.kind == FilterNodeKind::Property;
        const auto menu = makeFilterMenu(node, shown.modelSpace, [](int) {});
        const QString name =
            QStringLiteral("filter_menu_%1_%2")
                .arg(QLatin1String(shown.name), GoldenLook::suffix(static_cast<Theme>(theme)));
        QVERIFY2(goldenImage(menu.get(), name), shown.name);
        menu->close();
    }
    FilterNode group;
    group.kind = FilterNodeKind::Group;
    const auto menu = makeFilterMenu(group, false, [](int) {});
    for (QMenu* submenu : menu->findChildren<QMenu*>()) {
        const QString name =
            QStringLiteral("filter_menu_%1_%2")
                .arg(submenu->title().remove(QLatin1Char('&')).remove(QLatin1Char(' ')).toLower(),
                     GoldenLook::suffix(static_cast<Theme>(theme)));
        QVERIFY2(goldenImage(submenu, name), qPrintable(submenu->title()));
        submenu->close();
    }
}

QTEST_MAIN(TestFilterTreeLook)
#include "test_filter_tree_look.moc"

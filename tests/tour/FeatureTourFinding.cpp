// Opening a drawing, and finding layers in it.

#include "FeatureTour.h"
#include "TourDialogs.h"
#include "database/drawing/OdDbDatabase.h"
#include "support/drawings/DrawingDigest.h"

#include <QCheckBox>
#include <QDialog>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QSplitter>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

int FeatureTour::pullPaletteEdge(int wider) const
{
    QWidget& window = m_tour->window();
    const auto edge = [&] {
        return palette().grid().mapTo(&window, palette().grid().rect().topRight());
    };
    const QPoint before = edge();
    TourWindow::pull(window, before + QPoint(4, 60), before + QPoint(4 + wider, 60));
    m_tour->settle();
    return edge().x() - before.x();
}

/// Pulls the edges of the palette, its tree and its columns, so that more can be read.
void FeatureTour::makeRoom() const
{
    QWidget& window = m_tour->window();
    pullPaletteEdge(240);
    auto* splitter = window.findChild<QSplitter*>(QStringLiteral("layerSplitter"));
    const QPoint grip = splitter->handle(1)->rect().center();
    TourWindow::pull(*splitter->handle(1), grip, grip + QPoint(36, 0));
    QHeaderView& header = *palette().grid().horizontalHeader();
    for (const auto& [column, wider] :
         {std::pair(LayerColumn::Name, 30), std::pair(LayerColumn::Color, 40),
          std::pair(LayerColumn::Linetype, 36), std::pair(LayerColumn::Lineweight, 30)})
    {
        const int section = static_cast<int>(column);
        const int right = header.sectionViewportPosition(section) + header.sectionSize(section);
        const QPoint end(right - 1, header.height() / 2);
        TourWindow::pull(*header.viewport(), end, end + QPoint(wider, 0));
    }
    m_tour->settle();
}

void FeatureTour::opensADrawingAndThePalette()
{
    TourWindow& tour = *m_tour;
    tour.press(QKeySequence::Close); // the new drawing that the program starts with
    QCOMPARE(tour.window().windowTitle(), QStringLiteral("kest"));
    tour_dialogs::inDialog(
        [&] { tour.chooseFrom("File", {QStringLiteral("Open...")}); },
        [&](QDialog& dialog) { tour_dialogs::pickFile(dialog, tour.path("office.dxf")); });
    tour.settle();
    QCOMPARE(tour.window().windowTitle(), QStringLiteral("office.dxf[*] \u2013 kest"));
    QVERIFY(!tour.window().isWindowModified());
    QCOMPARE(tour.statusLayer(), QStringLiteral("Layer: A-WALL-PRTN"));
    QFile file(tour.path("office.dxf"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_opened = file.readAll();
    tour.chooseFrom("Format", {QStringLiteral("Layer...")});
    m_palette = std::make_unique<PaletteHand>(tour.window());
    QVERIFY(palette().grid().isVisible());
    makeRoom();
    QCOMPARE(palette().rows().size(), 65);
    QCOMPARE(palette().selectedRows(), QStringList(QStringLiteral("A-WALL-PRTN")));
    QCOMPARE(palette().currentLine(),
             QStringLiteral("Current Layer: A-WALL-PRTN: Partitions, 125 and 150 mm"));
    QCOMPARE(palette().statusLine(),
             QStringLiteral(" All : 65 layers displayed of 65 total layers"));
    QCOMPARE(palette().selectedFilter(), QStringLiteral("All"));
    m_steps = {{tour.undoText(), drawingDigest(drawing())}};
    QVERIFY(tour.looksLike("open"));
}

void FeatureTour::findsLayersByTheirNames()
{
    QTest::mouseClick(&palette().search(), Qt::LeftButton);
    QTest::keyClicks(&palette().search(), QStringLiteral("e-lite"));
    m_tour->settle();
    QCOMPARE(palette().search().text(), QStringLiteral("e-lite*"));
    QCOMPARE(palette().rows(),
             (QStringList{QStringLiteral("E-LITE"), QStringLiteral("E-LITE-CIRC"),
                          QStringLiteral("E-LITE-EMER"), QStringLiteral("E-LITE-SWCH")}));
    QCOMPARE(palette().statusLine(),
             QStringLiteral(" All : 4 layers displayed of 65 total layers"));
    QVERIFY(m_tour->looksLike("search"));
    QTest::mouseClick(palette().search().findChild<QToolButton*>(), Qt::LeftButton);
    m_tour->settle();
    QCOMPARE(palette().rows().size(), 65);
    // A letter that is typed in the list leads to the next layer that begins with it.
    palette().click("A-DOOR", LayerColumn::Status);
    QTest::keyClicks(&palette().grid(), QStringLiteral("p"));
    QCOMPARE(palette().selectedRows(), QStringList(QStringLiteral("P-FIXT-SANR")));
    QVERIFY(m_tour->undoText() == QStringLiteral("Undo"));
}

void FeatureTour::listsWhatAFilterLeavesOut()
{
    selectFilter("Electrical");
    QCOMPARE(palette().rows().size(), 10);
    QCOMPARE(palette().statusLine(),
             QStringLiteral(" Electrical : 10 layers displayed of 65 total layers"));
    QTest::mouseClick(&palette().invert(), Qt::LeftButton, {}, QPoint(8, 8));
    m_tour->settle();
    QCOMPARE(palette().rows().size(), 55);
    for (const QString& name : palette().rows())
        QVERIFY2(!name.startsWith(QStringLiteral("E-")), qPrintable(name));
    QVERIFY(m_tour->looksLike("invert"));
    QTest::mouseClick(&palette().invert(), Qt::LeftButton, {}, QPoint(8, 8));
    QVERIFY(!palette().invert().isChecked());
    QCOMPARE(palette().rows().size(), 10);
}

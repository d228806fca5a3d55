#include "GridFixture.h"

#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"
#include "sdk/CKestPreferenceManager.h"
#include "support/TestFailure.h"

#include <QHeaderView>
#include <QTimer>

#include <algorithm>
#include <utility>

void GridFixture::prepare()
{
    m_combined =
        std::exchange(CKestPreferenceManager::instance().CombineLayerPropPreference, false);
    m_host = std::make_unique<FakeHost>();
    m_prompts = std::make_unique<RecordingPrompts>();
    m_grid = std::make_unique<CLayerListCtrl>();
    m_grid->resize(1100, 400);
    openLayers({"Walls", "Doors", "Roof", "Beams"});
}

void GridFixture::finish()
{
    m_grid.reset();
    m_prompts.reset();
    m_host.reset();
    CKestPreferenceManager::instance().CombineLayerPropPreference = m_combined;
}

OdDbDatabase& GridFixture::openLayers(const QList<QByteArray>& names)
{
    QList<DrawingText::Layer> layers;
    for (const QByteArray& name : names)
        layers.append({name});
    return openDrawing(layer_drawing::make(layers));
}

OdDbDatabase& GridFixture::openDrawing(std::unique_ptr<OdDbDatabase> database)
{
    m_database = &m_host->open(std::move(database));
    m_grid->fill(m_database);
    m_grid->show();
    m_grid->activateWindow();
    if (!QTest::qWaitForWindowActive(m_grid.get()))
        reportTestFailure(QStringLiteral("The grid's window does not become active."));
    m_grid->setFocus();
    return *m_database;
}

OdDbObjectId GridFixture::layer(const char* name) const
{
    return layer_drawing::id(*m_database, name);
}

int GridFixture::row(const char* name) const
{
    return m_grid->findRow(layer(name));
}

QString GridFixture::rows() const
{
    return layer_drawing::names(m_grid->layerModel().layers()).join(QLatin1Char(' '));
}

QString GridFixture::chosen() const
{
    QStringList names;
    for (const int row : m_grid->chosenRows())
        names.append(layer_drawing::name(m_grid->layerModel().layerId(row)));
    return names.join(QLatin1Char(' '));
}

QString GridFixture::cell(const char* layerName, LayerColumn column) const
{
    return m_grid->model()->index(row(layerName), static_cast<int>(column)).data().toString();
}

void GridFixture::click(const char* layerName, LayerColumn column, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex index = m_grid->model()->index(row(layerName), static_cast<int>(column));
    m_grid->scrollTo(index);
    const QRect rect = m_grid->visualRect(index);
    QVERIFY2(rect.isValid(), layerName);
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, modifiers, rect.center());
}

void GridFixture::doubleClick(const char* layerName, LayerColumn column,
                              Qt::KeyboardModifiers modifiers)
{
    const QModelIndex index = m_grid->model()->index(row(layerName), static_cast<int>(column));
    m_grid->scrollTo(index);
    const QPoint place = m_grid->visualRect(index).center();
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, modifiers, place);
    // The second press alone comes as a double click.
    QTest::mouseDClick(m_grid->viewport(), Qt::LeftButton, modifiers, place);
}

void GridFixture::choose(const QList<const char*>& layerNames)
{
    std::vector<int> chosenRows;
    for (const char* name : layerNames)
        chosenRows.push_back(row(name));
    std::sort(chosenRows.begin(), chosenRows.end());
    m_grid->chooseRows(chosenRows);
}

OdDbObjectId GridFixture::enterViewport()
{
    m_database->setCTAB(QStringLiteral("Sheet A"));
    m_database->setActiveViewport(
        m_database->getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport)));
    return m_database->activeViewportId();
}

QLineEdit* GridFixture::editor() const
{
    return m_grid->editor();
}

void GridFixture::enter(const QString& text)
{
    QVERIFY(editor());
    editor()->selectAll();
    QTest::keyClicks(editor(), text);
    QTest::keyClick(editor(), Qt::Key_Return);
}

void GridFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_grid.get(), key, modifiers);
}

void GridFixture::clickHeader(LayerColumn column)
{
    QHeaderView* header = m_grid->horizontalHeader();
    const int section = static_cast<int>(column);
    const QPoint point(header->sectionViewportPosition(section) + header->sectionSize(section) / 2,
                       header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, point);
}

bool GridFixture::flushRefresh()
{
    const QString name = QStringLiteral("timer_%1").arg(CLayerListCtrl::kRefreshTimer);
    auto* timer = m_grid->findChild<QTimer*>(name);
    if (!timer || !timer->isActive())
        return false;
    timer->stop();
    return QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
}

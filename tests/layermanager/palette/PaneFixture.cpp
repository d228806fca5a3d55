#include "PaneFixture.h"

#include "toolkit/ControlRegistry.h"

#include <QLineEdit>
#include <QTest>

void PaneFixture::prepare()
{
    FilterTreeFixture::prepare();
    open({"Walls", "Doors", "Walls-2", "Roof"});
    run("_LAYER");
    QCoreApplication::processEvents();
}

QWidget* PaneFixture::control(int id) const
{
    return controlById(view(), id);
}

QRect PaneFixture::placeOf(const QWidget* part) const
{
    return {part->mapTo(view(), QPoint()), part->size()};
}

QString PaneFixture::currentLine() const
{
    return part<QLineEdit>("currentLayer")->text();
}

void PaneFixture::search(const char* text)
{
    QTest::mouseClick(&box(), Qt::LeftButton);
    QTest::keyClicks(&box(), QString::fromUtf8(text));
}

void PaneFixture::clickInvert()
{
    QTest::mouseClick(&invert(), Qt::LeftButton);
}

QAction* PaneFixture::tool(int id) const
{
    return view()->findChild<QAction*>(QStringLiteral("command_%1").arg(id));
}

QWidget* PaneFixture::toolButton(int id) const
{
    QAction* action = tool(id);
    auto* bar = qobject_cast<CLayerPaneTBar*>(action ? action->parent() : nullptr);
    return bar ? bar->widgetForAction(action) : nullptr;
}

void PaneFixture::clickTool(int id)
{
    QWidget* button = toolButton(id);
    QVERIFY2(button && button->isVisible(), qPrintable(QString::number(id)));
    QTest::mouseClick(button, Qt::LeftButton);
}

void PaneFixture::addGroup(const char* name, std::initializer_list<const char*> layers)
{
    OdDbDatabase& d = *view()->database();
    const auto group = odrxCreate<OdLyLayerGroup>(QString::fromUtf8(name));
    for (const char* layer : layers)
        group->addLayerId(layer_drawing::id(d, layer));
    FilterTreeEdit edit(d);
    edit.root()->addNested(group);
    edit.write();
    settle();
}

void PaneFixture::addSpareLayers()
{
    for (const char* name : {"Spare-1", "Spare-2"})
        view()->database()->layerTable().add(QString::fromLatin1(name));
    view()->database()->endUndoRecord();
}

void PaneFixture::choose(std::initializer_list<const char*> layers)
{
    std::vector<int> rows;
    for (const char* name : layers)
        rows.push_back(grid().findRow(layer_drawing::id(*view()->database(), name)));
    std::sort(rows.begin(), rows.end());
    QVERIFY(rows.empty() || rows.front() >= 0);
    grid().chooseRows(rows);
    if (!rows.empty())
        grid().focusCell(rows.front(), static_cast<int>(LayerColumn::Name));
}

void PaneFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget* focus = window().focusWidget();
    QVERIFY(focus);
    QTest::keyClick(focus, key, modifiers);
}

QStringList PaneFixture::texts(std::initializer_list<const char*> names)
{
    QStringList list;
    for (const char* name : names)
        list.append(QString::fromUtf8(name));
    return list;
}

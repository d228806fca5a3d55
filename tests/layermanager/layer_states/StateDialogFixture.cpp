#include "StateDialogFixture.h"

#include "layermanager/LayerDrawing.h"
#include "layermanager/layer_states/core/StateImportStart.h"
#include "sdk/CKestPreferenceManager.h"

#include <QFile>

void StateDialogFixture::prepare()
{
    CKestPreferenceManager& preferences = CKestPreferenceManager::instance();
    preferences.CombineLayerPropPreference = false;
    preferences.m_iDontListinXref = 0;
    preferences.m_iOffNotfoundLayer = 0;
    StateImportStart::s_folder.clear();
    StateImportStart::s_filter = -1;
    m_host = std::make_unique<FakeHost>();
    m_prompts = std::make_unique<RecordingPrompts>();
    openLayers({"Walls", "Doors", "Roof"});
}

void StateDialogFixture::finish()
{
    m_manager.reset();
    m_prompts.reset();
    m_host.reset();
    CKestPreferenceManager::instance().m_iDontListinXref = 0;
    CKestPreferenceManager::instance().m_iOffNotfoundLayer = 0;
}

OdDbDatabase& StateDialogFixture::openLayers(const QList<QByteArray>& names)
{
    QList<DrawingText::Layer> layers;
    for (const QByteArray& name : names)
        layers.append({name});
    return openDrawing(layer_drawing::make(layers));
}

OdDbDatabase& StateDialogFixture::openDrawing(std::unique_ptr<OdDbDatabase> drawing)
{
    m_database = &m_host->open(std::move(drawing));
    return *m_database;
}

void StateDialogFixture::addState(const char* name, const char* description, int mask)
{
    CLayerStateUtility states = service();
    QVERIFY(states.AddNewLayStateToDB(QString::fromUtf8(name), QString::fromUtf8(description)));
    if (mask != 0x7FF)
        QVERIFY(states.SaveLayState(QString::fromUtf8(name), mask));
}

QStringList StateDialogFixture::stateNames() const
{
    std::vector<layStateEntry> entries;
    service().GetDBLayStateIDs(entries);
    QStringList names;
    for (const layStateEntry& entry : entries)
        names.append(entry.name);
    return names;
}

int StateDialogFixture::storedMask(const char* name) const
{
    int mask = -1;
    service().RestoreLayMask(QString::fromUtf8(name), mask);
    return mask;
}

void StateDialogFixture::enterSheet(bool intoViewport)
{
    m_database->setCTAB(QStringLiteral("Sheet A"));
    if (intoViewport)
        m_database->setActiveViewport(
            m_database->getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport)));
    m_host->ints[QStringLiteral("CVPORT")] = intoViewport ? 2 : 1;
}

CLayerStateManDlg& StateDialogFixture::openManager(QWidget* parent)
{
    m_manager = std::make_unique<CLayerStateManDlg>(parent);
    m_manager->show();
    m_manager->activateWindow();
    if (!QTest::qWaitForWindowActive(m_manager.get()))
        reportTestFailure(QStringLiteral("The manager's window does not become active."));
    return *m_manager;
}

QString StateDialogFixture::row(int row) const
{
    QStringList cells;
    for (int column = 0; column < states().columnCount(); ++column)
        cells.append(states().index(row, column).data().toString());
    return cells.join(QLatin1Char('|'));
}

QList<int> StateDialogFixture::chosen() const
{
    const std::vector<int> rows = manager().list().chosenRows();
    return {rows.begin(), rows.end()};
}

void StateDialogFixture::clickRow(int row, Qt::KeyboardModifiers modifiers)
{
    CLayerStateListCtrl& list = manager().list();
    list.scrollTo(states().index(row, 0));
    const QRect rect = list.visualRect(states().index(row, 0));
    QVERIFY(rect.isValid());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, rect.center());
}

void StateDialogFixture::press(QWidget& dialog, int id)
{
    QWidget* control = controlById(&dialog, id);
    QVERIFY2(control && control->isVisible(), qPrintable(QString::number(id)));
    const QPoint place = qobject_cast<QCheckBox*>(control) ? QPoint(8, control->height() / 2)
                                                           : control->rect().center();
    QTest::mouseClick(control, Qt::LeftButton, {}, place);
}

int StateDialogFixture::shownMask() const
{
    int mask = 0;
    for (const RestoreOption& option : restoreOptions())
        mask |= box(option.control)->isChecked() ? option.bit : 0;
    return mask;
}

QByteArray StateDialogFixture::writtenFile(const QString& path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void StateDialogFixture::writeFile(const QString& path, const QByteArray& bytes) const
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

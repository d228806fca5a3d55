#include "FilterEditorFixture.h"

#include "database/filters/OdLyLayerFilterManager.h"
#include "support/pictures/StillStyle.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QContextMenuEvent>
#include <QTimer>

using layer_drawing::write;

void FilterEditorFixture::prepare()
{
    QApplication::setStyle(new StillStyle);
    m_host = std::make_unique<FakeHost>();
    m_prompts = std::make_unique<RecordingPrompts>();
    auto drawing = layer_drawing::make({{"A-Doors"}, {"A-Walls"}, {"E-Light"}, {"S-Beams"}});
    write(*drawing, "A-Walls")->setIsFrozen(true);
    write(*drawing, "E-Light")->setIsOff(true);
    write(*drawing, "E-Light")->setColor(OdCmColor::fromIndex(1));
    write(*drawing, "S-Beams")->setColor(OdCmColor::fromIndex(5));
    write(*drawing, "S-Beams")->setDescription(QStringLiteral("Steel"));
    open(std::move(drawing));
}

void FilterEditorFixture::finish()
{
    m_dialog.reset();
    m_filter = {};
    m_root = {};
    m_prompts.reset();
    m_host.reset();
}

OdDbDatabase& FilterEditorFixture::open(std::unique_ptr<OdDbDatabase> drawing)
{
    m_database = &m_host->open(std::move(drawing));
    return *m_database;
}

void FilterEditorFixture::addToDrawing(const char* name, const char* expression)
{
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    const auto manager = odlyGetLayerFilterManager(m_database);
    manager->getFilters(root, current);
    const auto added = odrxCreate<OdLyLayerFilter>(QString::fromUtf8(name));
    added->setFilterExpression(QString::fromUtf8(expression));
    root->addNested(added);
    manager->setFilters(root, current);
}

OdDbObjectId FilterEditorFixture::enterViewport()
{
    m_database->setCTAB(QStringLiteral("Sheet A"));
    m_database->setActiveViewport(
        m_database->getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport)));
    return m_database->activeViewportId();
}

void FilterEditorFixture::showNew()
{
    showDialog(odrxCreate<OdLyLayerFilter>(QStringLiteral("Properties Filter1")), false);
}

void FilterEditorFixture::showExisting(const char* name, const char* expression)
{
    const auto filter = odrxCreate<OdLyLayerFilter>(QString::fromUtf8(name));
    filter->setFilterExpression(QString::fromUtf8(expression));
    showDialog(filter, true);
}

void FilterEditorFixture::showDialog(const OdLyLayerFilterPtr& filter, bool existing)
{
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(m_database)->getFilters(m_root, current);
    m_filter = filter;
    m_dialog =
        std::make_unique<CDlgLayPropFilter>(*m_database, m_root, filter, LayerIds(), existing);
    m_dialog->show();
    m_dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
}

QLineEdit& FilterEditorFixture::nameEdit() const
{
    return *control<QLineEdit>(CDlgLayPropFilter::kName);
}

CLayPropFilterEdListCtrl& FilterEditorFixture::table() const
{
    return *control<CLayPropFilterEdListCtrl>(CDlgLayPropFilter::kDefinition);
}

CLayerPreviewList& FilterEditorFixture::preview() const
{
    return *control<CLayerPreviewList>(CDlgLayPropFilter::kPreview);
}

QString FilterEditorFixture::previewed() const
{
    return layer_drawing::names(preview().layerModel().layers()).join(QLatin1Char(' '));
}

QString FilterEditorFixture::notice() const
{
    const auto* label = dialog().findChild<QLabel*>(QStringLiteral("definitionNotice"));
    return label && label->isVisible() ? label->text() : QString();
}

void FilterEditorFixture::click(int row, int column, Qt::KeyboardModifiers modifiers)
{
    table().scrollTo(index(row, column));
    const QRect rect = table().visualRect(index(row, column));
    QVERIFY(rect.isValid());
    QTest::mouseClick(table().viewport(), Qt::LeftButton, modifiers, rect.center());
    settle();
}

void FilterEditorFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget* target = QApplication::activePopupWidget();
    if (!target)
        target = QApplication::focusWidget();
    QVERIFY(target);
    if (auto* list = QApplication::activePopupWidget() ? combo().view() : nullptr)
        target = list;
    QTest::keyClick(target, key, modifiers);
    settle();
}

CLayPropFilterEdCombo& FilterEditorFixture::combo() const
{
    return *table().findChild<CLayPropFilterEdCombo*>();
}

bool FilterEditorFixture::isListOpen() const
{
    return combo().isVisible() && combo().view()->isVisible();
}

void FilterEditorFixture::choose(int row, int column, int item)
{
    click(row, column);
    QVERIFY(isListOpen());
    QTest::keyClick(combo().view(), Qt::Key_Home);
    for (int i = 0; i < item; ++i)
        QTest::keyClick(combo().view(), Qt::Key_Down);
    QTest::keyClick(combo().view(), Qt::Key_Return);
    settle();
    QVERIFY(!isListOpen());
}

void FilterEditorFixture::type(int row, int column, const QString& text)
{
    click(row, column);
    QVERIFY(editor());
    editor()->selectAll();
    if (text.isEmpty())
        QTest::keyClick(editor(), Qt::Key_Backspace);
    QTest::keyClicks(editor(), text);
    QTest::keyClick(editor(), Qt::Key_Return);
    settle();
}

bool FilterEditorFixture::menuCommand(int row, int column, int id)
{
    const QPoint place = row < 0
        ? QPoint(table().viewport()->width() / 2, table().viewport()->height() - 2)
        : table().visualRect(index(row, column)).center();
    bool came = false;
    QTimer::singleShot(0, &table(), [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        came = true;
        for (QAction* action : menu->actions()) {
            if (action->data().toInt() == id)
                menu->setActiveAction(action);
        }
        QTest::keyClick(menu, id ? Qt::Key_Return : Qt::Key_Escape);
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                            table().viewport()->mapToGlobal(place));
    QApplication::sendEvent(table().viewport(), &event);
    settle();
    return came;
}

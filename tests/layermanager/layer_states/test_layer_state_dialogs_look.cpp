#include "StateDialogFixture.h"
#include "io/DrawingFile.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layer_states/CEdLayStateDlg.h"
#include "layermanager/layer_states/CLSImportPromptDlg.h"
#include "layermanager/layer_states/CLayStateImportDlg.h"
#include "layermanager/layer_states/CLayStateMgrAddDlg.h"
#include "layermanager/layer_states/CNewLayStateDlg.h"
#include "layermanager/layer_states/parts/CEdLayStateListCtrl.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>

using namespace StateControl;
using layer_drawing::write;

class TestLayerStateDialogsLook : public StateDialogFixture
{
    Q_OBJECT

private slots:
    void theDialogsLookLikeTheirGoldenImages_data();
    void theDialogsLookLikeTheirGoldenImages();
    void largeFontsCutNothingOff();
    void endlessNamesDoNotStretchTheDialogs();

private:
    void prepareStates();
    static void checkNothingIsCut(QWidget& dialog);
};

void TestLayerStateDialogsLook::prepareStates()
{
    openLayers({"A-Walls", "A-Doors", "E-Lighting", "M-Ducts", "S-Beams"});
    write(db(), "A-Walls")->setColor(OdCmColor::fromIndex(1));
    write(db(), "A-Doors")->setColor(OdCmColor::fromRgb(38, 122, 184));
    write(db(), "A-Doors")->setIsLocked(true);
    write(db(), "M-Ducts")->setIsFrozen(true);
    write(db(), "M-Ducts")->setLineWeight(35);
    write(db(), "S-Beams")->setIsPlottable(false);
    addState("Plan, all trades", "As issued");
    addState("Furniture", "Without structure", 0x0E3);
    write(db(), "E-Lighting")->setIsOff(true);
    addState("Structure only");
    enterSheet();
    addState("Sheet A", "For the plotter");
    db().setTILEMODE(true);
}

void TestLayerStateDialogsLook::theDialogsLookLikeTheirGoldenImages_data()
{
    QTest::addColumn<int>("theme");
    for (const auto theme : {GoldenLook::Theme::Light, GoldenLook::Theme::Dark})
        QTest::newRow(qPrintable(GoldenLook::suffix(theme))) << static_cast<int>(theme);
}

void TestLayerStateDialogsLook::theDialogsLookLikeTheirGoldenImages()
{
    QFETCH(int, theme);
    const GoldenLook look(static_cast<GoldenLook::Theme>(theme));
    const QString suffix = GoldenLook::suffix(static_cast<GoldenLook::Theme>(theme));
    const auto named = [&](const char* name) {
        return QStringLiteral("layer_state_%1_%2").arg(QLatin1String(name), suffix);
    };
    prepareStates();
    openManager();
    clickRow(1);
    QVERIFY(goldenImage(&manager(), named("manager")));
    press(kLess);
    QVERIFY(goldenImage(&manager(), named("manager_small")));

    CNewLayStateDlg created({{QStringLiteral("Furniture"), QStringLiteral("Without structure")}});
    qobject_cast<QComboBox*>(controlById(&created, 1010))->setEditText(QStringLiteral("Plan B"));
    qobject_cast<QLineEdit*>(controlById(&created, 1011))
        ->setText(QStringLiteral("With the changes of May"));
    QVERIFY(goldenImage(&created, named("new")));

    CEdLayStateDlg edited(QStringLiteral("Furniture"));
    edited.list().chooseForMenu(2);
    QVERIFY(goldenImage(&edited, named("edit")));

    CLayStateMgrAddDlg added({QStringLiteral("A-Walls"), QStringLiteral("M-Ducts"),
                              QStringLiteral("M-Pipes"), QStringLiteral("S-Beams")});
    QVERIFY(goldenImage(&added, named("add")));

    CLayStateImportDlg imported(readDrawing(drawingBytes(db()), QStringLiteral("a.dxf")), {});
    QVERIFY(goldenImage(&imported, named("import")));

    CLSImportPromptDlg prompt(QStringLiteral("Plan, all trades"));
    QVERIFY(goldenImage(&prompt, named("prompt")));
}

void TestLayerStateDialogsLook::checkNothingIsCut(QWidget& dialog)
{
    dialog.show();
    QCoreApplication::processEvents();
    for (const auto* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->isVisible() && !button->text().isEmpty())
            QVERIFY2(button->width() >= button->sizeHint().width(), qPrintable(button->text()));
    }
    for (const auto* label : dialog.findChildren<QLabel*>()) {
        if (label->isVisible() && !label->wordWrap())
            QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
    }
}

void TestLayerStateDialogsLook::largeFontsCutNothingOff()
{
    const GoldenLook look(GoldenLook::Theme::Light);
    QFont font = GoldenLook::font();
    font.setPointSize(20);
    QApplication::setFont(font);
    prepareStates();
    checkNothingIsCut(openManager());
    CNewLayStateDlg created({});
    checkNothingIsCut(created);
    CEdLayStateDlg edited(QStringLiteral("Furniture"));
    checkNothingIsCut(edited);
    CLayStateMgrAddDlg added({QStringLiteral("A-Walls")});
    checkNothingIsCut(added);
    CLayStateImportDlg imported(readDrawing(drawingBytes(db()), QStringLiteral("a.dxf")), {});
    checkNothingIsCut(imported);
    CLSImportPromptDlg prompt(QStringLiteral("Plan, all trades"));
    checkNothingIsCut(prompt);
}

void TestLayerStateDialogsLook::endlessNamesDoNotStretchTheDialogs()
{
    openLayers({"Walls"});
    const QByteArray name = "a&b\n%1<b>" + QByteArray(10'000, 'W');
    addState("Plan");
    openManager();
    const QSize manager = this->manager().size();
    addState(name.constData(), name.constData());
    QCOMPARE(openManager().size(), manager);
    QCOMPARE(this->manager().list().visualRect(states().index(0, 0)).height(),
             this->manager().list().visualRect(states().index(1, 0)).height());
    const QString text = QString::fromUtf8(name);
    const auto checkSize = [&](QDialog& dialog) {
        dialog.show();
        QCoreApplication::processEvents();
        QVERIFY2(dialog.width() <= 1000 && dialog.height() <= 700,
                 qPrintable(QStringLiteral("%1: %2 x %3")
                                .arg(QLatin1String(dialog.metaObject()->className()))
                                .arg(dialog.width())
                                .arg(dialog.height())));
    };
    CNewLayStateDlg created({{text, text}});
    checkSize(created);
    CEdLayStateDlg edited(text);
    checkSize(edited);
    CLayStateMgrAddDlg added({text});
    checkSize(added);
    CLayStateImportDlg imported(readDrawing(drawingBytes(db()), QStringLiteral("a.dxf")), {});
    checkSize(imported);
    const auto* list = imported.findChild<QTableView*>();
    QVERIFY2(!list->horizontalScrollBar()->isVisible(), "descriptions have the room that is left");
    CLSImportPromptDlg prompt(text);
    checkSize(prompt);
}

QTEST_MAIN(TestLayerStateDialogsLook)
#include "test_layer_state_dialogs_look.moc"

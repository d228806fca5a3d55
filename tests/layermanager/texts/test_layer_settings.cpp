#include "layermanager/LayerDrawing.h"
#include "layermanager/palette/CLayerSettingsDlg.h"
#include "sdk/CKestPreferenceManager.h"
#include "support/FakeHost.h"
#include "support/GuardedTest.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"
#include "toolkit/ControlRegistry.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <memory>

using Id = CLayerSettingsDlg::ControlId;

namespace {
constexpr int kNotifyBoxes[] = {Id::kNotify1, Id::kNotify2,  Id::kNotify4,
                                Id::kNotify8, Id::kNotify16, Id::kNotify32};
} // namespace

class TestLayerSettings : public GuardedTest
{
    Q_OBJECT

    void prepare() override
    {
        m_host = std::make_unique<FakeHost>();
        m_host->open(layer_drawing::make({{"Walls"}}));
        set("LAYEREVALCTL", 1);
        set("LAYEREVAL", 1);
        set("LAYERNOTIFY", 0);
        CKestPreferenceManager::s_bNotifyPresentLayer = false;
        CKestPreferenceManager::s_bApplyLayerFiltertoLayerToolbar = false;
    }
    void finish() override
    {
        m_dialog.reset();
        m_host.reset();
        CKestPreferenceManager::s_bNotifyPresentLayer = false;
        CKestPreferenceManager::s_bApplyLayerFiltertoLayerToolbar = false;
    }

    void set(const char* variable, int value) { m_host->ints[QLatin1String(variable)] = value; }
    int get(const char* variable) const { return m_host->ints.value(QLatin1String(variable), -99); }
    void open()
    {
        m_dialog = std::make_unique<CLayerSettingsDlg>();
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    }
    QAbstractButton* box(int id) const
    {
        return qobject_cast<QAbstractButton*>(controlById(m_dialog.get(), id));
    }
    /// A real click on the box itself, as its label may be a long way from its middle.
    void click(int id) const
    {
        QTest::mouseClick(box(id), Qt::LeftButton, {}, QPoint(8, box(id)->height() / 2));
    }
    void press(QDialogButtonBox::StandardButton which) const
    {
        QTest::mouseClick(m_dialog->findChild<QDialogButtonBox*>()->button(which), Qt::LeftButton);
    }
    int notifyBits() const
    {
        int bits = 0;
        for (int i = 0; i < 6; ++i)
            bits |= box(kNotifyBoxes[i])->isChecked() ? 1 << i : 0;
        return bits;
    }

    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<CLayerSettingsDlg> m_dialog;

private slots:
    void openWithWhatTheHostHolds();
    void eachNotificationBitHasItsBox_data();
    void eachNotificationBitHasItsBox();
    void aNegativeNotificationIsOffAndKeepsItsBits();
    void notificationWithoutBitsIsOnByThePreference();
    void switchingTheEvaluationOffKeepsTheModeInTheDialogOnly();
    void aClickOnTheSecondModeStoresTwo();
    void switchingTheWatchOffDisablesAllBelowAndChecksNothing();
    void notificationBoxesFollowTheirSwitch();
    void okStoresEverything();
    void cancelStoresNothing();
    void settingsOfADrawingThatIsGoneAreNotStoredInAnother();
    void settingsOfADrawingThatWasClosedAreNotStored();
    void goWithTheirParent();
    void runReturnsWhatTheUserDecided();
    void openWithoutADrawingAndWithoutVariables();
    void everyControlHasItsTooltip();
    void looksLikeItsGoldenImages_data();
    void looksLikeItsGoldenImages();
};

void TestLayerSettings::openWithWhatTheHostHolds()
{
    set("LAYERNOTIFY", 5);
    set("SHOWLAYERUSAGE", 1);
    CKestPreferenceManager::s_bApplyLayerFiltertoLayerToolbar = true;
    open();
    for (const int id :
         {Id::kWatch, Id::kEvaluate, Id::kDrawingOnly, Id::kNotify, Id::kToolbar, Id::kUsage})
        QVERIFY2(box(id)->isChecked(), qPrintable(QString::number(id)));
    QVERIFY(!box(Id::kEverywhere)->isChecked());
    QCOMPARE(notifyBits(), 5);
    for (int id = 1021; id <= 1034; ++id) {
        if (id == 1025)
            QVERIFY(!controlById(m_dialog.get(), id));
        else
            QVERIFY2(box(id)->isEnabled(), qPrintable(QString::number(id)));
    }
}

void TestLayerSettings::eachNotificationBitHasItsBox_data()
{
    QTest::addColumn<int>("bit");
    QTest::addColumn<int>("id");
    const std::pair<int, int> bits[] = {{1, 1032}, {2, 1027},  {4, 1028},
                                        {8, 1029}, {16, 1030}, {32, 1031}};
    for (const auto& [bit, id] : bits)
        QTest::addRow("%d", bit) << bit << id;
}

void TestLayerSettings::eachNotificationBitHasItsBox()
{
    QFETCH(const int, bit);
    QFETCH(const int, id);
    set("LAYERNOTIFY", bit);
    open();
    QVERIFY(box(id)->isChecked());
    QCOMPARE(notifyBits(), bit);
    click(id);
    press(QDialogButtonBox::Ok);
    QCOMPARE(get("LAYERNOTIFY"), 0);
    open(); // on without bits, by the preference that OK has just stored
    click(id);
    press(QDialogButtonBox::Ok);
    QCOMPARE(get("LAYERNOTIFY"), bit);
}

void TestLayerSettings::aNegativeNotificationIsOffAndKeepsItsBits()
{
    set("LAYERNOTIFY", -12);
    open();
    QVERIFY(!box(Id::kNotify)->isChecked());
    QCOMPARE(notifyBits(), 12);
    press(QDialogButtonBox::Ok);
    QCOMPARE(get("LAYERNOTIFY"), -12);
    QVERIFY(m_host->historyNames.isEmpty()); // nothing changed, nothing to undo
    QVERIFY(!CKestPreferenceManager::s_bNotifyPresentLayer);
    open();
    click(Id::kNotify);
    press(QDialogButtonBox::Ok);
    QCOMPARE(get("LAYERNOTIFY"), 12);
}

void TestLayerSettings::notificationWithoutBitsIsOnByThePreference()
{
    CKestPreferenceManager::s_bNotifyPresentLayer = true;
    open();
    QVERIFY(box(Id::kNotify)->isChecked());
    QCOMPARE(notifyBits(), 0);
    press(QDialogButtonBox::Ok);
    QCOMPARE(get("LAYERNOTIFY"), 0);
    QVERIFY(CKestPreferenceManager::s_bNotifyPresentLayer);
    open();
    click(Id::kNotify);
    press(QDialogButtonBox::Ok);
    QCOMPARE(get("LAYERNOTIFY"), 0);
    QVERIFY(!CKestPreferenceManager::s_bNotifyPresentLayer);
}

void TestLayerSettings::switchingTheEvaluationOffKeepsTheModeInTheDialogOnly()
{
    set("LAYEREVAL", 2);
    open();
    QVERIFY(box(Id::kEverywhere)->isChecked());
    click(Id::kEvaluate);
    QVERIFY(box(Id::kEverywhere)->isChecked());
    QVERIFY(!box(Id::kEverywhere)->isEnabled());
    press(QDialogButtonBox::Ok);
    QCOMPARE(get("LAYEREVAL"), 0);
    open();
    QVERIFY(box(Id::kDrawingOnly)->isChecked());
}

void TestLayerSettings::aClickOnTheSecondModeStoresTwo()
{
    open();
    click(Id::kEverywhere);
    QVERIFY(!box(Id::kDrawingOnly)->isChecked());
    press(QDialogButtonBox::Ok);
    QCOMPARE(get("LAYEREVAL"), 2);
    open();
    click(Id::kDrawingOnly);
    press(QDialogButtonBox::Ok);
    QCOMPARE(get("LAYEREVAL"), 1);
}

void TestLayerSettings::switchingTheWatchOffDisablesAllBelowAndChecksNothing()
{
    set("LAYEREVAL", 2);
    set("LAYERNOTIFY", 63);
    open();
    click(Id::kWatch);
    for (int id = 1022; id <= 1032; ++id) {
        if (id == 1025)
            continue;
        QVERIFY2(!box(id)->isEnabled(), qPrintable(QString::number(id)));
        QCOMPARE(box(id)->isChecked(), id != Id::kDrawingOnly);
    }
    QVERIFY(box(Id::kToolbar)->isEnabled());
    QVERIFY(box(Id::kUsage)->isEnabled());
    click(Id::kEvaluate); // a disabled control takes no click
    QVERIFY(box(Id::kEvaluate)->isChecked());
    press(QDialogButtonBox::Ok);
    QCOMPARE(get("LAYEREVALCTL"), 0);
    QCOMPARE(get("LAYEREVAL"), 2);
    QCOMPARE(get("LAYERNOTIFY"), 63);
}

void TestLayerSettings::notificationBoxesFollowTheirSwitch()
{
    open();
    for (const int id : kNotifyBoxes)
        QVERIFY(!box(id)->isEnabled());
    click(Id::kNotify);
    for (const int id : kNotifyBoxes)
        QVERIFY(box(id)->isEnabled());
    click(Id::kEvaluate);
    for (const int id : kNotifyBoxes)
        QVERIFY(!box(id)->isEnabled());
    QVERIFY(!box(Id::kNotify)->isEnabled());
}

void TestLayerSettings::okStoresEverything()
{
    open();
    click(Id::kEverywhere);
    click(Id::kNotify);
    click(Id::kNotify2);
    click(Id::kNotify32);
    click(Id::kToolbar);
    click(Id::kUsage);
    press(QDialogButtonBox::Ok);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(get("LAYEREVALCTL"), 1);
    QCOMPARE(get("LAYEREVAL"), 2);
    QCOMPARE(get("LAYERNOTIFY"), 34);
    QCOMPARE(m_host->historyNames, QStringList(QStringLiteral("_LAYER"))); // one step for both
    QCOMPARE(get("SHOWLAYERUSAGE"), 1);
    QVERIFY(CKestPreferenceManager::s_bApplyLayerFiltertoLayerToolbar);
    QVERIFY(CKestPreferenceManager::s_bNotifyPresentLayer);
}

void TestLayerSettings::cancelStoresNothing()
{
    const QHash<QString, int> before = m_host->ints;
    open();
    for (const int id : {Id::kNotify, Id::kNotify2, Id::kEverywhere, Id::kToolbar, Id::kUsage})
        click(id);
    click(Id::kWatch);
    press(QDialogButtonBox::Cancel);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_host->ints, before);
    QVERIFY(!CKestPreferenceManager::s_bApplyLayerFiltertoLayerToolbar);
    QVERIFY(!CKestPreferenceManager::s_bNotifyPresentLayer);
}

void TestLayerSettings::settingsOfADrawingThatIsGoneAreNotStoredInAnother()
{
    open();
    click(Id::kEverywhere);
    click(Id::kUsage);
    m_host->open(layer_drawing::make({{"Doors"}}));
    press(QDialogButtonBox::Ok);
    QCOMPARE(get("LAYEREVAL"), 1);
    QCOMPARE(get("SHOWLAYERUSAGE"), 1);
}

void TestLayerSettings::settingsOfADrawingThatWasClosedAreNotStored()
{
    OdDbDatabase& second = m_host->open(layer_drawing::make({{"Doors"}}));
    open();
    click(Id::kEverywhere);
    m_host->close(second);
    press(QDialogButtonBox::Ok);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(get("LAYEREVAL"), 1);
    QVERIFY(m_host->historyNames.isEmpty());
}

void TestLayerSettings::goWithTheirParent()
{
    auto* owner = new QWidget;
    bool wasOpen = false;
    QTimer::singleShot(0, qApp, [&] {
        wasOpen = qobject_cast<CLayerSettingsDlg*>(QApplication::activeModalWidget()) != nullptr;
        delete owner;
    });
    QVERIFY(!CLayerSettingsDlg::run(owner));
    QVERIFY(wasOpen);
}

void TestLayerSettings::runReturnsWhatTheUserDecided()
{
    for (const auto which : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel}) {
        QWidget owner;
        QTimer::singleShot(0, qApp, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            QTest::mouseClick(dialog->findChild<QDialogButtonBox*>()->button(which),
                              Qt::LeftButton);
        });
        QCOMPARE(CLayerSettingsDlg::run(&owner), which == QDialogButtonBox::Ok);
        QVERIFY(owner.findChildren<QDialog*>().isEmpty());
    }
}

void TestLayerSettings::openWithoutADrawingAndWithoutVariables()
{
    m_host = nullptr;
    m_host = std::make_unique<FakeHost>();
    m_host->ints.clear();
    open();
    QVERIFY(!box(Id::kWatch)->isChecked());
    QVERIFY(!box(Id::kEvaluate)->isEnabled());
    QVERIFY(box(Id::kDrawingOnly)->isChecked());
    press(QDialogButtonBox::Ok);
    QVERIFY(!m_dialog->isVisible());
}

void TestLayerSettings::everyControlHasItsTooltip()
{
    open();
    QSet<QString> descriptions;
    for (int id = 1021; id <= 1034; ++id) {
        if (id == 1025)
            continue;
        QVERIFY2(!box(id)->accessibleDescription().isEmpty(), qPrintable(QString::number(id)));
        descriptions.insert(box(id)->accessibleDescription());
    }
    QCOMPARE(descriptions.size(), 13);
}

void TestLayerSettings::looksLikeItsGoldenImages_data()
{
    QTest::addColumn<GoldenLook::Theme>("theme");
    QTest::newRow("light") << GoldenLook::Theme::Light;
    QTest::newRow("dark") << GoldenLook::Theme::Dark;
}

void TestLayerSettings::looksLikeItsGoldenImages()
{
    QFETCH(const GoldenLook::Theme, theme);
    const GoldenLook look(theme);
    set("LAYERNOTIFY", 15);
    m_dialog = std::make_unique<CLayerSettingsDlg>();
    QVERIFY(goldenImage(m_dialog.get(),
                        QStringLiteral("layer_settings_%1").arg(GoldenLook::suffix(theme))));
    m_dialog.reset();
}

QTEST_MAIN(TestLayerSettings)
#include "test_layer_settings.moc"

#include "layermanager/palette/CLayer_Filter_ViolationPromptDlg.h"
#include "sdk/CKestPreferenceManager.h"
#include "support/GuardedTest.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"
#include "toolkit/ControlRegistry.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <memory>

class TestViolationPrompt : public GuardedTest
{
    Q_OBJECT

    void prepare() override { CKestPreferenceManager::s_Layer_FilterViolationPrompt = true; }
    void finish() override
    {
        m_prompt.reset();
        CKestPreferenceManager::s_Layer_FilterViolationPrompt = true;
    }
    void open()
    {
        m_prompt = std::make_unique<CLayer_Filter_ViolationPromptDlg>();
        m_prompt->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_prompt.get()));
    }
    QCheckBox* box() const { return qobject_cast<QCheckBox*>(controlById(m_prompt.get(), 1016)); }
    void click() const
    {
        QTest::mouseClick(box(), Qt::LeftButton, {}, QPoint(8, box()->height() / 2));
    }

    std::unique_ptr<CLayer_Filter_ViolationPromptDlg> m_prompt;

private slots:
    void aClickOnTheBoxCountsAtOnce();
    void closingChangesNothing();
    void opensWithThePreference();
    void isShownModallyWhileTheUserWantsIt();
    void isNotShownOnceSwitchedOff();
    void looksLikeItsGoldenImages_data();
    void looksLikeItsGoldenImages();
};

void TestViolationPrompt::aClickOnTheBoxCountsAtOnce()
{
    open();
    click();
    QVERIFY(!CKestPreferenceManager::s_Layer_FilterViolationPrompt);
    QVERIFY(m_prompt->isVisible());
    click();
    QVERIFY(CKestPreferenceManager::s_Layer_FilterViolationPrompt);
}

void TestViolationPrompt::closingChangesNothing()
{
    open();
    click();
    QTest::keyClick(m_prompt.get(), Qt::Key_Escape);
    QVERIFY(!m_prompt->isVisible());
    QVERIFY(!CKestPreferenceManager::s_Layer_FilterViolationPrompt);
    CKestPreferenceManager::s_Layer_FilterViolationPrompt = true;
    open();
    auto* ok = m_prompt->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    QTest::mouseClick(ok, Qt::LeftButton);
    QVERIFY(!m_prompt->isVisible());
    QVERIFY(CKestPreferenceManager::s_Layer_FilterViolationPrompt);
}

void TestViolationPrompt::opensWithThePreference()
{
    open();
    QVERIFY(box()->isChecked());
    QVERIFY(!m_prompt->windowIcon().isNull());
    CKestPreferenceManager::s_Layer_FilterViolationPrompt = false;
    open();
    QVERIFY(!box()->isChecked());
}

void TestViolationPrompt::isShownModallyWhileTheUserWantsIt()
{
    QWidget owner;
    bool wasShown = false;
    QTimer::singleShot(0, &owner, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        wasShown = qobject_cast<CLayer_Filter_ViolationPromptDlg*>(modal) != nullptr;
        if (modal)
            modal->close();
    });
    CLayer_Filter_ViolationPromptDlg::run(&owner);
    QVERIFY(wasShown);
    QVERIFY(owner.findChildren<QDialog*>().isEmpty());
}

void TestViolationPrompt::isNotShownOnceSwitchedOff()
{
    CKestPreferenceManager::s_Layer_FilterViolationPrompt = false;
    QWidget owner;
    // Would wait for the user for ever if it came.
    CLayer_Filter_ViolationPromptDlg::run(&owner);
    QVERIFY(owner.findChildren<QDialog*>().isEmpty());
}

void TestViolationPrompt::looksLikeItsGoldenImages_data()
{
    QTest::addColumn<GoldenLook::Theme>("theme");
    QTest::newRow("light") << GoldenLook::Theme::Light;
    QTest::newRow("dark") << GoldenLook::Theme::Dark;
}

void TestViolationPrompt::looksLikeItsGoldenImages()
{
    QFETCH(const GoldenLook::Theme, theme);
    const GoldenLook look(theme);
    m_prompt = std::make_unique<CLayer_Filter_ViolationPromptDlg>();
    QVERIFY(
        goldenImage(m_prompt.get(),
                    QStringLiteral("layer_violation_prompt_%1").arg(GoldenLook::suffix(theme))));
    m_prompt.reset();
}

QTEST_MAIN(TestViolationPrompt)
#include "test_violation_prompt.moc"

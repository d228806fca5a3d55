#include "support/GuardedTest.h"
#include "toolkit/ControlRegistry.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <memory>

class TestControlRegistry : public GuardedTest
{
    Q_OBJECT

private slots:
    void findsControlsByTheirIds();
    void knowsNoControlsOfOtherOwners();
    void forgetsDeletedControls();
    void letsALaterControlTakeTheId();
    void namesControlsThatHaveNoName();
    void tellsTheIdOfAControl();
};

void TestControlRegistry::findsControlsByTheirIds()
{
    QWidget dialog;
    auto* button = new QPushButton(&dialog);
    auto* label = new QLabel(&dialog);
    QCOMPARE(controlById(&dialog, 1010), nullptr);
    registerControl(&dialog, 1010, button);
    registerControl(&dialog, 1011, label);
    QCOMPARE(controlById(&dialog, 1010), button);
    QCOMPARE(controlById(&dialog, 1011), label);
    QCOMPARE(controlById(&dialog, 1012), nullptr);
}

void TestControlRegistry::knowsNoControlsOfOtherOwners()
{
    QWidget one;
    QWidget other;
    registerControl(&one, 1010, new QPushButton(&one));
    QCOMPARE(controlById(&other, 1010), nullptr);
}

void TestControlRegistry::forgetsDeletedControls()
{
    QWidget dialog;
    auto button = std::make_unique<QPushButton>(&dialog);
    registerControl(&dialog, 1010, button.get());
    button.reset();
    QCOMPARE(controlById(&dialog, 1010), nullptr);
}

void TestControlRegistry::letsALaterControlTakeTheId()
{
    QWidget dialog;
    auto* first = new QPushButton(&dialog);
    auto* second = new QPushButton(&dialog);
    registerControl(&dialog, 1010, first);
    registerControl(&dialog, 1010, second);
    QCOMPARE(controlById(&dialog, 1010), second);
    QCOMPARE(controlId(&dialog, first), -1);
}

void TestControlRegistry::namesControlsThatHaveNoName()
{
    QWidget dialog;
    auto* nameless = new QPushButton(&dialog);
    auto* named = new QPushButton(&dialog);
    named->setObjectName(QStringLiteral("applyButton"));
    registerControl(&dialog, 1010, nameless);
    registerControl(&dialog, 1011, named);
    QCOMPARE(nameless->objectName(), QStringLiteral("control_1010"));
    QCOMPARE(named->objectName(), QStringLiteral("applyButton"));
}

void TestControlRegistry::tellsTheIdOfAControl()
{
    QWidget dialog;
    auto* button = new QPushButton(&dialog);
    QCOMPARE(controlId(&dialog, button), -1);
    registerControl(&dialog, 1010, button);
    QCOMPARE(controlId(&dialog, button), 1010);
    QCOMPARE(controlId(&dialog, nullptr), -1);
}

QTEST_MAIN(TestControlRegistry)
#include "test_control_registry.moc"

#include "layermanager/palette/CToolTipImpl.h"
#include "support/FakeHost.h"
#include "support/GuardedTest.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"
#include "toolkit/ControlRegistry.h"
#include "toolkit/tooltips/CRichToolTip.h"

#include <QApplication>
#include <QDialog>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <memory>

namespace {

constexpr int kRestore = 1010;
constexpr int kName = 1011;
constexpr int kMissing = 1012;
constexpr quint32 kIsWindow = 0x1;
constexpr quint32 kNotAButton = 0x80000002;

const QString kPanel =
    QStringLiteral("<StackPanel Margin='1' MaxWidth='400' Background='#F1F1FA'>%1</StackPanel>");
const QString kBold =
    QStringLiteral("<TextBlock Padding='1, 2, 1, 2' FontWeight='Bold'>%1</TextBlock>");
const QString kSecond =
    QStringLiteral("<TextBlock Padding='2, 2, 10, 3' TextWrapping='Wrap'>%1</TextBlock>");
const QString kThird =
    QStringLiteral("<TextBlock Padding='3, 2, 10, 3' TextWrapping='Wrap'>%1</TextBlock>");
const QString kThirdAlone =
    QStringLiteral("<TextBlock Padding='2, 2, 10, 7' TextWrapping='Wrap'>%1</TextBlock>");
const QString kPlain =
    QStringLiteral("<TextBlock Padding='1, 2, 1, 2' TextWrapping='Wrap'>%1</TextBlock>");
const QString kHelp = QStringLiteral(
    "<Border Height='1' Background='Black' /><Border Height='1' Background='#F1F1FA' />"
    "<StackPanel Margin='1, 3, 0, 3' Orientation='Horizontal'><Image Source='res://Help.ico'/>"
    "<TextBlock Margin='5, 0, 0, 0' VerticalAlignment='Center' FontWeight='Bold'>Press F1 for more "
    "help.</TextBlock></StackPanel>");

/// A dialog with a button and a field.
class CExplainedDialog : public QDialog, public CToolTipImpl
{
public:
    CExplainedDialog()
        : m_button(new QPushButton(QStringLiteral("Restore"), this))
        , m_field(new QLineEdit(this))
    {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(m_button);
        layout->addWidget(m_field);
        registerControl(this, kRestore, m_button);
        registerControl(this, kName, m_field);
    }
    using CToolTipImpl::AddTool;
    using CToolTipImpl::OnToolHitTest;
    using CToolTipImpl::setToolTipOwner;
    using CToolTipImpl::tools;
    using CToolTipImpl::toolTips;

    QPushButton& button() const { return *m_button; }
    QLineEdit& field() const { return *m_field; }

private:
    QPushButton* m_button;
    QLineEdit* m_field;
};

QPoint middleOf(const QWidget& widget)
{
    return widget.mapToGlobal(widget.rect().center());
}

} // namespace

class TestToolTips : public GuardedTest
{
    Q_OBJECT

    void prepare() override
    {
        m_host = std::make_unique<FakeHost>();
        m_dialog = std::make_unique<CExplainedDialog>();
        m_dialog->setToolTipOwner(m_dialog.get());
        m_dialog->move(100, 100);
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    }
    void finish() override
    {
        m_dialog.reset();
        m_host.reset();
    }

    /// The mouse rests on a widget: the event goes to it, and up to the dialog.
    static void rest(QWidget& widget)
    {
        QHelpEvent event(QEvent::ToolTip, widget.rect().center(), middleOf(widget));
        QApplication::sendEvent(&widget, &event);
    }
    bool isShown() const
    {
        return m_dialog->toolTips().tip() && m_dialog->toolTips().tip()->isVisible();
    }
    int hit(const QWidget& widget, XTPToolInfo& info) const
    {
        return m_dialog->OnToolHitTest(middleOf(widget), info);
    }
    int hit(const QWidget& widget) const
    {
        XTPToolInfo info;
        return hit(widget, info);
    }

    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<CExplainedDialog> m_dialog;

private slots:
    void areLaidOutByTheirParts_data();
    void areLaidOutByTheirParts();
    void comeUpWhenTheMouseRestsOnTheirControl();
    void ofTwoForOneControlTheFirstIsShown();
    void tellAButtonFromOtherControls();
    void areNotShownWhileTheHostWantsNone();
    void areNotShownInADisabledDialog();
    void ofDisabledAndHiddenControlsAreNotShown();
    void endTheSearchAtAControlThatIsNotThere();
    void ofADeletedControlEndTheSearch();
    void leaveARecordThatIsTooSmallAlone();
    void areNotAddedByIdBeforeThereIsAnOwner();
    void areAddedByWindowUnderNoId();
    void describeTheirControlToAssistivePrograms();
    void lookLikeTheirGoldenImages_data();
    void lookLikeTheirGoldenImages();
};

void TestToolTips::areLaidOutByTheirParts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("markup");
    const auto row = [](const char* name, const char* text, const QString& blocks) {
        QTest::newRow(name) << QString::fromUtf8(text) << kPanel.arg(blocks);
    };
    const QString title = kBold.arg(QStringLiteral("Restore"));
    const QString description = kSecond.arg(QStringLiteral("Gives back."));
    row("title and description", "Restore/Gives back.", title + description + kHelp);
    row("three parts", "Restore/Gives back./All of it.",
        title + description + kThird.arg(QStringLiteral("All of it.")) + kHelp);
    row("title alone", "Restore", kPlain.arg(QStringLiteral("Restore")));
    row("third part alone", " / /All of it.",
        kThirdAlone.arg(QStringLiteral("All of it.")) + kHelp);
    row("no text at all", "", kPlain.arg(QString()));
    row("a blank description", "Restore/ ", kPlain.arg(QStringLiteral("Restore")));
    row("title and third part", "Restore/ /All of it.", kPlain.arg(QStringLiteral("Restore")));
    row("a description without a title", " /Gives back.", kPlain.arg(QString()));
    row("description and third part", "/Gives back./All of it.", kPlain.arg(QString()));
    row("a blank third part", "Restore/Gives back./ ", title + description + kHelp);
    row("more than three parts", "Restore/Gives back./All of it./more",
        title + description + kThird.arg(QStringLiteral("All of it.")) + kHelp);
    row("two blanks are a text", "  /Gives back.",
        kBold.arg(QStringLiteral("  ")) + description + kHelp);
    row("a slash in the title", "On@@Off/Gives back.",
        kBold.arg(QStringLiteral("On/Off")) + description + kHelp);
    row("the sign stays in a description", "Restore/On@@Off",
        title + kSecond.arg(QStringLiteral("On@@Off")) + kHelp);
    row("escaped", "<b> & \"c\"/&amp; > <i>/\"x\"",
        kBold.arg(QStringLiteral("&lt;b&gt; &amp; &quot;c&quot;"))
            + kSecond.arg(QStringLiteral("&amp;amp; &gt; &lt;i&gt;"))
            + kThird.arg(QStringLiteral("&quot;x&quot;")) + kHelp);
    row("a place to fill in stays", "Restore %s/%1 %d",
        kBold.arg(QStringLiteral("Restore %s")) + kSecond.arg(QStringLiteral("%1 %d")) + kHelp);
}

void TestToolTips::areLaidOutByTheirParts()
{
    QFETCH(const QString, text);
    QFETCH(const QString, markup);
    QCOMPARE(toolTipMarkup(text), markup);
    m_dialog->AddTool(kRestore, text);
    XTPToolInfo info;
    QCOMPARE(hit(m_dialog->button(), info), 0);
    QCOMPARE(info.text, markup);
}

void TestToolTips::comeUpWhenTheMouseRestsOnTheirControl()
{
    m_dialog->AddTool(kRestore, QStringLiteral("Restore <all>/Gives \"it\" back & closes."));
    rest(m_dialog->field());
    QVERIFY(!isShown());
    rest(m_dialog->button());
    QVERIFY(isShown());
    QCOMPARE(m_dialog->toolTips().tip()->accessibleName(),
             QStringLiteral("Restore <all>\nGives \"it\" back & closes.\nPress F1 for more help."));
    QTest::mouseClick(&m_dialog->button(), Qt::LeftButton);
    QVERIFY(!isShown());
}

void TestToolTips::ofTwoForOneControlTheFirstIsShown()
{
    m_dialog->AddTool(kRestore, QStringLiteral("First"));
    m_dialog->AddTool(&m_dialog->button(), QStringLiteral("Second"));
    XTPToolInfo info;
    QCOMPARE(hit(m_dialog->button(), info), 0);
    QCOMPARE(info.text, toolTipMarkup(QStringLiteral("First")));
}

void TestToolTips::tellAButtonFromOtherControls()
{
    m_dialog->AddTool(kRestore, QStringLiteral("Restore"));
    m_dialog->AddTool(kName, QStringLiteral("Name"));
    XTPToolInfo info;
    QCOMPARE(hit(m_dialog->button(), info), 0);
    QCOMPARE(info.flags, kIsWindow);
    QCOMPARE(info.control.data(), &m_dialog->button());
    QCOMPARE(info.owner.data(), m_dialog.get());
    QCOMPARE(info.rect, QRect(m_dialog->button().mapToGlobal(QPoint()), m_dialog->button().size()));
    QCOMPARE(hit(m_dialog->field(), info), 0);
    QCOMPARE(info.flags, kIsWindow | kNotAButton);
    QCOMPARE(info.control.data(), &m_dialog->field());
}

void TestToolTips::areNotShownWhileTheHostWantsNone()
{
    m_dialog->AddTool(kRestore, QStringLiteral("Restore"));
    m_host->ints[QStringLiteral("TOOLTIPS")] = 0;
    rest(m_dialog->button());
    QVERIFY(!isShown());
    m_host->ints[QStringLiteral("TOOLTIPS")] = 1;
    rest(m_dialog->button());
    QVERIFY(isShown());
}

void TestToolTips::areNotShownInADisabledDialog()
{
    m_dialog->AddTool(kRestore, QStringLiteral("Restore"));
    m_dialog->setEnabled(false);
    QCOMPARE(hit(m_dialog->button()), CXTPToolTipContext::kNoTool);
    rest(*m_dialog);
    QVERIFY(!isShown());
}

void TestToolTips::ofDisabledAndHiddenControlsAreNotShown()
{
    m_dialog->AddTool(kRestore, QStringLiteral("Restore"));
    m_dialog->AddTool(kName, QStringLiteral("Name"));
    m_dialog->button().setEnabled(false);
    rest(m_dialog->button());
    QVERIFY(!isShown());
    QCOMPARE(hit(m_dialog->field()), 0); // the search went on
    m_dialog->button().setEnabled(true);
    m_dialog->button().hide();
    QCOMPARE(hit(m_dialog->button()), CXTPToolTipContext::kNoTool);
    m_dialog->button().show();
    rest(m_dialog->button());
    QVERIFY(isShown());
}

void TestToolTips::endTheSearchAtAControlThatIsNotThere()
{
    m_dialog->AddTool(kRestore, QStringLiteral("Restore"));
    m_dialog->AddTool(kMissing, QStringLiteral("Missing"));
    m_dialog->AddTool(kName, QStringLiteral("Name"));
    QCOMPARE(m_dialog->tools()[1].id, kMissing);
    QVERIFY(!m_dialog->tools()[1].control);
    QCOMPARE(hit(m_dialog->button()), 0);
    QCOMPARE(hit(m_dialog->field()), CXTPToolTipContext::kNoTool);
    rest(m_dialog->field());
    QVERIFY(!isShown());
}

void TestToolTips::ofADeletedControlEndTheSearch()
{
    m_dialog->AddTool(kRestore, QStringLiteral("Restore"));
    m_dialog->AddTool(kName, QStringLiteral("Name"));
    delete &m_dialog->button();
    QCOMPARE(hit(m_dialog->field()), CXTPToolTipContext::kNoTool);
}

void TestToolTips::leaveARecordThatIsTooSmallAlone()
{
    m_dialog->AddTool(kRestore, QStringLiteral("Restore"));
    XTPToolInfo info;
    info.size = 55;
    QCOMPARE(hit(m_dialog->button(), info), CXTPToolTipContext::kNoTool);
    QVERIFY(!info.control);
    QVERIFY(info.text.isEmpty());
    info.size = 56;
    QCOMPARE(hit(m_dialog->button(), info), 0);
}

void TestToolTips::areNotAddedByIdBeforeThereIsAnOwner()
{
    CExplainedDialog dialog;
    dialog.AddTool(kRestore, QStringLiteral("Restore"));
    QVERIFY(dialog.tools().empty());
    dialog.setToolTipOwner(&dialog);
    dialog.AddTool(kRestore, QStringLiteral("Restore"));
    QCOMPARE(dialog.tools().size(), std::size_t(1));
    QCOMPARE(dialog.tools()[0].id, kRestore);
    QCOMPARE(dialog.tools()[0].control.data(), &dialog.button());
}

void TestToolTips::areAddedByWindowUnderNoId()
{
    m_dialog->AddTool(&m_dialog->field(), QStringLiteral("Name"));
    QCOMPARE(m_dialog->tools()[0].id, -1);
    QCOMPARE(m_dialog->tools()[0].reserved, quint32(0));
    rest(m_dialog->field());
    QVERIFY(isShown());
}

void TestToolTips::describeTheirControlToAssistivePrograms()
{
    m_dialog->AddTool(kRestore, QStringLiteral("On@@Off/Gives back./ "));
    QCOMPARE(m_dialog->button().accessibleDescription(), QStringLiteral("On/Off Gives back."));
}

void TestToolTips::lookLikeTheirGoldenImages_data()
{
    QTest::addColumn<GoldenLook::Theme>("theme");
    QTest::newRow("light") << GoldenLook::Theme::Light;
    QTest::newRow("dark") << GoldenLook::Theme::Dark;
}

void TestToolTips::lookLikeTheirGoldenImages()
{
    QFETCH(const GoldenLook::Theme, theme);
    const GoldenLook look(theme);
    m_dialog->AddTool(kRestore,
                      QStringLiteral("Restore/Gives all layers the settings that were saved, or "
                                     "those of them that are chosen below./Undo takes it back."));
    const QFont before = QToolTip::font();
    QToolTip::setFont(GoldenLook::font());
    rest(m_dialog->button());
    QToolTip::setFont(before);
    QVERIFY(isShown());
    QVERIFY(goldenImage(m_dialog->toolTips().tip()->grab().toImage(),
                        QStringLiteral("layer_tool_tip_%1").arg(GoldenLook::suffix(theme))));
    m_dialog->toolTips().hide();
}

QTEST_MAIN(TestToolTips)
#include "test_tool_tips.moc"

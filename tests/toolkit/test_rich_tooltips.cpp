#include "support/GuardedTest.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"
#include "toolkit/CXTPToolTipContext.h"
#include "toolkit/tooltips/CRichToolTip.h"
#include "toolkit/tooltips/ToolTipMarkup.h"

#include <QHelpEvent>
#include <QPushButton>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <memory>

using Kind = ToolTipElement::Kind;

namespace {
const QString kPanel =
    QStringLiteral("<StackPanel Margin='1' MaxWidth='400' Background='#F1F1FA'>%1</StackPanel>");
const QString kTitle =
    QStringLiteral("<TextBlock Padding='1, 2, 1, 2' FontWeight='Bold'>%1</TextBlock>");
const QString kDescription =
    QStringLiteral("<TextBlock Padding='2, 2, 10, 3' TextWrapping='Wrap'>%1</TextBlock>");
const QString kHelpLine = QStringLiteral(
    "<Border Height='1' Background='Black' /><Border Height='1' Background='#F1F1FA' />"
    "<StackPanel Margin='1, 3, 0, 3' Orientation='Horizontal'><Image Source='res://Help.ico'/>"
    "<TextBlock Margin='5, 0, 0, 0' VerticalAlignment='Center' FontWeight='Bold'>Press F1 for more "
    "help.</TextBlock></StackPanel>");
const QString kLongText = QStringLiteral(
    "Restores state and property settings of all layers in a drawing to their previously saved "
    "settings. Restores only those settings that are chosen with the check boxes.");

QString titleAndDescription()
{
    return kPanel.arg(kTitle.arg(QStringLiteral("Restore &amp; close"))
                      + kDescription.arg(kLongText) + kHelpLine);
}

QString threeParts()
{
    return kPanel.arg(
        kTitle.arg(QStringLiteral("New layer state"))
        + kDescription.arg(QStringLiteral("Saves the layers under a name."))
        + QStringLiteral(
            "<TextBlock Padding='3, 2, 10, 3' TextWrapping='Wrap'>The name can be changed later, "
            "and &lt;the description&gt; too.</TextBlock>")
        + kHelpLine);
}

QString thirdPartAlone()
{
    return kPanel.arg(QStringLiteral("<TextBlock Padding='2, 2, 10, 7' TextWrapping='Wrap'>%1"
                                     "</TextBlock>")
                          .arg(kLongText)
                      + kHelpLine);
}

QString titleAlone()
{
    return kPanel.arg(QStringLiteral(
        "<TextBlock Padding='1, 2, 1, 2' TextWrapping='Wrap'>Delete layer</TextBlock>"));
}
} // namespace

class TestRichTooltips : public GuardedTest
{
    Q_OBJECT

private:
    void prepare() override
    {
        m_tested = 0;
        m_window = std::make_unique<QWidget>();
        m_button = new QPushButton(QStringLiteral("Restore"), m_window.get());
        auto* layout = new QVBoxLayout(m_window.get());
        layout->addWidget(m_button);
        m_window->move(100, 100);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_context = std::make_unique<CXTPToolTipContext>();
        m_context->setHitTest([this](QPoint point, XTPToolInfo& info) {
            ++m_tested;
            const QRect rect(m_button->mapToGlobal(QPoint(0, 0)), m_button->size());
            if (!rect.contains(point))
                return CXTPToolTipContext::kNoTool;
            m_context->FillInToolInfo(info, m_button, rect, m_text);
            return 0;
        });
    }
    void finish() override
    {
        m_context.reset();
        m_window.reset();
    }

    QPoint middle() const { return m_button->mapToGlobal(m_button->rect().center()); }
    /// The mouse rests at that point of the screen.
    bool rest(QPoint global)
    {
        QHelpEvent event(QEvent::ToolTip, m_button->mapFromGlobal(global), global);
        return m_context->FilterToolTipMessage(m_button, &event);
    }
    bool restOn(const QString& text)
    {
        m_text = text;
        return rest(middle());
    }
    bool isShown() const { return m_context->tip() && m_context->tip()->isVisible(); }
    static QString shownText(const QString& markup)
    {
        const auto parsed = ToolTipMarkup::parse(markup);
        return parsed ? ToolTipLayout(*parsed, GoldenLook::font()).plainText() : QString();
    }

    std::unique_ptr<QWidget> m_window;
    QPushButton* m_button = nullptr;
    std::unique_ptr<CXTPToolTipContext> m_context;
    QString m_text;
    int m_tested = 0;

private slots:
    void readTheElementsAndAttributesOfTheirMarkup();
    void showEscapedCharactersLiterally();
    void passOverWhatAttributesCannotMean();
    void refuseWhatIsNoMarkup_data();
    void refuseWhatIsNoMarkup();
    void wrapDescriptionsWithinTheirWidth();
    void keepEveryTextInsideTheTip();
    void showWhatTheHitTestAnswers();
    void showNothingWhereThereIsNoTool();
    void showATextOfAnotherStyleAsItStands();
    void showMalformedMarkupAsPlainText();
    void leaveARecordThatIsTooSmallAlone();
    void goAwayOn_data();
    void goAwayOn();
    void goAwayWithTheirControl();
    void stayWhileTheMouseIsOnTheControl();
    void goAwayWhenTheMouseLeavesTheControl();
    void comeUpOnTheScreenWhereverTheControlIs();
    void comeUpAtTheCursorOfALargeControl();
    void tellTheirTextToAssistivePrograms();
    void lookLikeTheirGoldenImages_data();
    void lookLikeTheirGoldenImages();
};

void TestRichTooltips::readTheElementsAndAttributesOfTheirMarkup()
{
    const auto root = ToolTipMarkup::parse(titleAndDescription());
    QVERIFY(root);
    QCOMPARE(root->kind, Kind::StackPanel);
    QCOMPARE(root->margin, QMargins(1, 1, 1, 1));
    QCOMPARE(root->maxWidth, 400);
    QCOMPARE(root->background, QColor(0xF1, 0xF1, 0xFA));
    QVERIFY(!root->isHorizontal);
    QCOMPARE(root->children.size(), std::size_t(5));
    const ToolTipElement& title = root->children[0];
    QCOMPARE(title.padding, QMargins(1, 2, 1, 2));
    QVERIFY(title.isBold && !title.wraps);
    const ToolTipElement& description = root->children[1];
    QCOMPARE(description.padding, QMargins(2, 2, 10, 3));
    QVERIFY(description.wraps && !description.isBold);
    const ToolTipElement& line = root->children[2];
    QCOMPARE(line.kind, Kind::Border);
    QCOMPARE(line.height, 1);
    QCOMPARE(line.background, QColor(Qt::black));
    const ToolTipElement& help = root->children[4];
    QVERIFY(help.isHorizontal);
    QCOMPARE(help.margin, QMargins(1, 3, 0, 3));
    QCOMPARE(help.children[0].source, QStringLiteral("res://Help.ico"));
    QVERIFY(help.children[1].isCentred);
    QCOMPARE(help.children[1].text, QStringLiteral("Press F1 for more help."));
}

void TestRichTooltips::showEscapedCharactersLiterally()
{
    QCOMPARE(shownText(
                 kPanel.arg(kTitle.arg(QStringLiteral("&lt;b&gt; &quot;A&amp;B&quot; &amp;amp;")))),
             QStringLiteral("<b> \"A&B\" &amp;"));
}

void TestRichTooltips::passOverWhatAttributesCannotMean()
{
    const auto block = ToolTipMarkup::parse(QStringLiteral(
        "<TextBlock Padding='1, x, 2, 3' Margin='4, 5, 6' MaxWidth='-7' Height='99999999999' "
        "Background='#GGGGGG' FontWeight='Heavy' Colour='red'>text</TextBlock>"));
    QVERIFY(block);
    QCOMPARE(block->padding, QMargins());
    QCOMPARE(block->margin, QMargins());
    QCOMPARE(block->maxWidth, 0);
    QCOMPARE(block->height, 0);
    QVERIFY(!block->background.isValid());
    QVERIFY(!block->isBold);
    const auto wide = ToolTipMarkup::parse(QStringLiteral("<TextBlock Margin='1000000'/>"));
    QCOMPARE(wide->margin, QMargins(2000, 2000, 2000, 2000));
    const auto two = ToolTipMarkup::parse(QStringLiteral("<TextBlock Padding='3,4'/>"));
    QCOMPARE(two->padding, QMargins(3, 4, 3, 4));
}

void TestRichTooltips::refuseWhatIsNoMarkup_data()
{
    QTest::addColumn<QString>("text");
    const QString open = QStringLiteral("<StackPanel>");
    const QString close = QStringLiteral("</StackPanel>");
    QTest::newRow("empty") << QString();
    QTest::newRow("plain") << QStringLiteral("Restore");
    QTest::newRow("cut off") << titleAndDescription().chopped(3);
    QTest::newRow("crossed") << QStringLiteral("<StackPanel><TextBlock></StackPanel></TextBlock>");
    QTest::newRow("unknown element") << QStringLiteral("<StackPanel><Button/></StackPanel>");
    QTest::newRow("text in a panel") << QStringLiteral("<StackPanel>text</StackPanel>");
    QTest::newRow("element in a text") << QStringLiteral("<TextBlock>a<Image/></TextBlock>");
    QTest::newRow("two roots") << QStringLiteral("<TextBlock/><TextBlock/>");
    QTest::newRow("bare ampersand") << QStringLiteral("<TextBlock>A & B</TextBlock>");
    QTest::newRow("too deep") << open.repeated(2000) + close.repeated(2000);
    QTest::newRow("too many") << open + QStringLiteral("<Image/>").repeated(500) + close;
    QTest::newRow("too long") << kTitle.arg(QString(300000, QLatin1Char('x')));
    QTest::newRow("document type")
        << QStringLiteral("<!DOCTYPE t [<!ENTITY a 'aaaaaaaaaa'>]><TextBlock>&a;</TextBlock>");
    QTest::newRow("unknown entity") << QStringLiteral("<TextBlock>&nbsp;</TextBlock>");
}

void TestRichTooltips::refuseWhatIsNoMarkup()
{
    QFETCH(const QString, text);
    QVERIFY(!ToolTipMarkup::parse(text));
}

void TestRichTooltips::wrapDescriptionsWithinTheirWidth()
{
    const auto root = ToolTipMarkup::parse(titleAndDescription());
    const ToolTipLayout layout(*root, GoldenLook::font());
    QVERIFY(layout.size().width() <= 402);
    const QFontMetrics metrics(GoldenLook::font());
    QVERIFY(metrics.horizontalAdvance(kLongText) > 400);
    // Title, description in three lines at least, two rules, help line.
    QVERIFY(layout.size().height() > 5 * metrics.height());
    const auto word =
        ToolTipMarkup::parse(kPanel.arg(kDescription.arg(QString(200, QLatin1Char('W')))));
    QVERIFY(ToolTipLayout(*word, GoldenLook::font()).size().width() <= 402);
}

void TestRichTooltips::keepEveryTextInsideTheTip()
{
    for (const QString& markup :
         {titleAndDescription(), threeParts(), thirdPartAlone(), titleAlone()}) {
        const auto root = ToolTipMarkup::parse(markup);
        const ToolTipLayout layout(*root, GoldenLook::font());
        const QRect all(QPoint(0, 0), layout.size());
        for (const auto& placed : layout.placed())
            QVERIFY(all.contains(placed.rect));
    }
}

void TestRichTooltips::showWhatTheHitTestAnswers()
{
    QVERIFY(!isShown());
    QVERIFY(restOn(titleAndDescription()));
    QVERIFY(isShown());
    QCOMPARE(m_tested, 1);
    QVERIFY(m_context->tip()->y() > m_button->mapToGlobal(m_button->rect().bottomLeft()).y());
    // Resting longer on the same control leaves the tooltip as it is.
    const CRichToolTip* first = m_context->tip();
    QVERIFY(rest(middle() + QPoint(2, 0)));
    QCOMPARE(m_context->tip(), first);
}

void TestRichTooltips::showNothingWhereThereIsNoTool()
{
    m_text = titleAlone();
    QVERIFY(!rest(m_window->mapToGlobal(QPoint(1, 1))));
    QVERIFY(!isShown());
    QVERIFY(!restOn(QString()));
    QVERIFY(!isShown());
    QEvent other(QEvent::Enter);
    QVERIFY(!m_context->FilterToolTipMessage(m_button, &other));
    QCOMPARE(m_tested, 2);
}

void TestRichTooltips::showATextOfAnotherStyleAsItStands()
{
    m_context->SetStyle(0);
    QVERIFY(restOn(titleAlone()));
    QCOMPARE(m_context->tip()->accessibleName(), titleAlone());
}

void TestRichTooltips::showMalformedMarkupAsPlainText()
{
    const QString broken = QStringLiteral("<StackPanel>Layers < 10");
    QVERIFY(restOn(broken));
    QCOMPARE(m_context->tip()->accessibleName(), broken);
    m_context->hide();
    QVERIFY(restOn(QString(500000, QLatin1Char('<'))));
    const QRect screen = m_context->tip()->screen()->availableGeometry();
    QVERIFY(m_context->tip()->width() <= screen.width());
    QVERIFY(m_context->tip()->accessibleName().size() < 1100);
}

void TestRichTooltips::leaveARecordThatIsTooSmallAlone()
{
    XTPToolInfo info;
    info.size = XTPToolInfo::kSize - 1;
    m_context->FillInToolInfo(info, m_button, QRect(0, 0, 9, 9), titleAlone());
    QVERIFY(!info.control && info.rect.isNull() && info.text.isEmpty());
    info.size = XTPToolInfo::kSize;
    m_context->FillInToolInfo(info, m_button, QRect(0, 0, 9, 9), titleAlone());
    QCOMPARE(info.control.data(), m_button);
    QCOMPARE(info.rect, QRect(0, 0, 9, 9));
}

void TestRichTooltips::goAwayOn_data()
{
    QTest::addColumn<QString>("what");
    for (const char* what : {"key", "click", "wheel", "leave", "another window"})
        QTest::newRow(what) << QString::fromLatin1(what);
}

void TestRichTooltips::goAwayOn()
{
    QFETCH(const QString, what);
    QVERIFY(restOn(titleAlone()));
    QVERIFY(isShown());
    if (what == QLatin1String("key")) {
        QTest::keyClick(m_button, Qt::Key_Shift);
    } else if (what == QLatin1String("click")) {
        QTest::mousePress(m_button, Qt::RightButton);
    } else if (what == QLatin1String("wheel")) {
        QWheelEvent event(QPointF(5, 5), middle(), QPoint(), QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_button, &event);
    } else if (what == QLatin1String("leave")) {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(m_button, &event);
    } else {
        QEvent event(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(m_window.get(), &event);
    }
    QVERIFY(!isShown());
}

void TestRichTooltips::goAwayWithTheirControl()
{
    QVERIFY(restOn(titleAlone()));
    m_button->hide();
    QVERIFY(!isShown());
    m_button->show();
    QVERIFY(restOn(titleAlone()));
    delete m_button;
    QTRY_VERIFY(!isShown());
}

void TestRichTooltips::stayWhileTheMouseIsOnTheControl()
{
    QVERIFY(restOn(titleAlone()));
    QTest::mouseMove(m_button, m_button->rect().center() + QPoint(3, 0));
    QVERIFY(isShown());
}

void TestRichTooltips::goAwayWhenTheMouseLeavesTheControl()
{
    QVERIFY(restOn(titleAlone()));
    QMouseEvent event(QEvent::MouseMove, QPointF(1, 1), m_window->mapToGlobal(QPointF(1, 1)),
                      Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &event);
    QVERIFY(!isShown());
}

void TestRichTooltips::comeUpOnTheScreenWhereverTheControlIs()
{
    const QRect screen(1920, -100, 800, 600); // the second of two screens
    const QSize size(300, 120);
    const QSize control(80, 24);
    for (const QPoint at : {QPoint(1920, -100), QPoint(2640, -100), QPoint(1920, 476),
                            QPoint(2640, 476), QPoint(2300, 200)})
    {
        const QRect tool(at, control);
        const QRect tip(CRichToolTip::placeFor(size, tool, tool.center(), screen), size);
        QVERIFY(screen.contains(tip));
        QVERIFY(!tip.intersects(tool));
    }
    // A tooltip larger than the screen shows its beginning.
    QCOMPARE(
        CRichToolTip::placeFor(QSize(900, 700), QRect(2000, 0, 80, 24), QPoint(2010, 5), screen),
        screen.topLeft());
}

void TestRichTooltips::comeUpAtTheCursorOfALargeControl()
{
    const QRect screen(0, 0, 1000, 800);
    const QRect list(100, 100, 400, 500);
    const QPoint cursor(200, 150);
    const QRect tip(CRichToolTip::placeFor(QSize(200, 60), list, cursor, screen), QSize(200, 60));
    QCOMPARE(tip.topLeft(), QPoint(200, 170));
}

void TestRichTooltips::tellTheirTextToAssistivePrograms()
{
    QVERIFY(restOn(threeParts()));
    QCOMPARE(m_context->tip()->accessibleName(),
             QStringLiteral("New layer state\nSaves the layers under a name.\nThe name can be "
                            "changed later, and <the description> too.\nPress F1 for more help."));
}

void TestRichTooltips::lookLikeTheirGoldenImages_data()
{
    QTest::addColumn<GoldenLook::Theme>("theme");
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("markup");
    for (const auto theme : {GoldenLook::Theme::Light, GoldenLook::Theme::Dark}) {
        const auto add = [theme](const char* layout, const QString& markup) {
            QTest::addRow("%s %s", layout, qPrintable(GoldenLook::suffix(theme)))
                << theme << QString::fromLatin1(layout) << markup;
        };
        add("title_description", titleAndDescription());
        add("three_parts", threeParts());
        add("third_part", thirdPartAlone());
        add("title", titleAlone());
    }
}

void TestRichTooltips::lookLikeTheirGoldenImages()
{
    QFETCH(const GoldenLook::Theme, theme);
    QFETCH(const QString, layout);
    QFETCH(const QString, markup);
    const GoldenLook look(theme);
    const QFont before = QToolTip::font();
    QToolTip::setFont(GoldenLook::font());
    QVERIFY(restOn(markup));
    QToolTip::setFont(before);
    QVERIFY(goldenImage(m_context->tip()->grab().toImage(),
                        QStringLiteral("tooltip_%1_%2").arg(layout, GoldenLook::suffix(theme))));
}

QTEST_MAIN(TestRichTooltips)
#include "test_rich_tooltips.moc"

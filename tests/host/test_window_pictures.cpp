#include "host/window/commandline/CCommandEdit.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/work/CProgressDialog.h"
#include "support/GoldenImage.h"
#include "support/GoldenLook.h"
#include "support/GuardedTest.h"

#include <QPlainTextEdit>
#include <QTest>

class TestWindowPictures : public GuardedTest
{
    Q_OBJECT

private:
    static void eachTheme()
    {
        QTest::addColumn<GoldenLook::Theme>("theme");
        QTest::newRow("light") << GoldenLook::Theme::Light;
        QTest::newRow("dark") << GoldenLook::Theme::Dark;
    }
    static QString name(const char* picture)
    {
        QFETCH(GoldenLook::Theme, theme);
        return QStringLiteral("host_%1_%2").arg(QLatin1String(picture), GoldenLook::suffix(theme));
    }

private slots:
    void commandLine_data() { eachTheme(); }
    void commandLine();
    void progressDialog_data() { eachTheme(); }
    void progressDialog();
};

void TestWindowPictures::commandLine()
{
    QFETCH(GoldenLook::Theme, theme);
    const GoldenLook look(theme);
    CCommandLine line;
    // The desktop's own choice of a fixed font is no part of the picture.
    line.findChild<QPlainTextEdit*>()->setFont(QFont(QStringLiteral("DejaVu Sans Mono"), 9));
    line.printInput(QStringLiteral("Command: LWUNITS"));
    line.print(QStringLiteral("LWUNITS = 1"));
    line.printInput(QStringLiteral("Command: FROB"));
    line.printFailure(QStringLiteral("There is no command \"FROB\"."));
    line.edit().setText(QStringLiteral("LAYERS"));
    line.resize(520, 130);
    QVERIFY(goldenImage(&line, name("command_line")));
}

void TestWindowPictures::progressDialog()
{
    QFETCH(GoldenLook::Theme, theme);
    const GoldenLook look(theme);
    CProgressDialog dialog(QStringLiteral("Opening a drawing with a rather long name.dxf"),
                           nullptr);
    dialog.setFraction(0.4);
    QVERIFY(goldenImage(&dialog, name("progress_dialog")));
}

QTEST_MAIN(TestWindowPictures)
#include "test_window_pictures.moc"

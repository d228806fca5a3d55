#include "host/window/FileQuestions.h"
#include "host/window/commandline/CCommandEdit.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/work/CProgressDialog.h"
#include "support/GuardedTest.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"
#include "toolkit/DialogPrompts.h"

#include <QApplication>
#include <QDateTime>
#include <QLocale>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

class TestWindowPictures : public GuardedTest
{
    Q_OBJECT

private:
    void expectPicture(const QString& name);
    bool m_agreed = false;

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
    void lockQuestion_data() { eachTheme(); }
    void lockQuestion();
    void recoveryQuestion_data() { eachTheme(); }
    void recoveryQuestion();
    void messageBox_data() { eachTheme(); }
    void messageBox();
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

/// Compares the modal dialog that comes up next, and closes it.
void TestWindowPictures::expectPicture(const QString& name)
{
    m_agreed = false;
    QTimer::singleShot(0, this, [this, name] {
        QWidget* dialog = QApplication::activeModalWidget();
        QVERIFY(dialog);
        m_agreed = goldenImage(dialog, name);
        dialog->close();
    });
}

void TestWindowPictures::lockQuestion()
{
    QFETCH(GoldenLook::Theme, theme);
    const GoldenLook look(theme);
    expectPicture(name("lock_question"));
    file_questions::aboutLock(nullptr, QStringLiteral("/home/ann/house/ground floor.dxf"),
                              QStringLiteral("process 4711 on drafting-2"));
    QVERIFY(m_agreed);
}

void TestWindowPictures::recoveryQuestion()
{
    QFETCH(GoldenLook::Theme, theme);
    const GoldenLook look(theme);
    QLocale::setDefault(QLocale::c());
    expectPicture(name("recovery_question"));
    file_questions::aboutRecovery(nullptr, QStringLiteral("ground floor.dxf"),
                                  QDateTime(QDate(2024, 5, 17), QTime(14, 3)));
    QLocale::setDefault(QLocale::system());
    QVERIFY(m_agreed);
}

void TestWindowPictures::messageBox()
{
    QFETCH(GoldenLook::Theme, theme);
    const GoldenLook look(theme);
    DialogPrompts prompts;
    expectPicture(name("message_box"));
    prompts.confirm(nullptr, QStringLiteral("OverWrite Selected Layer State?"));
    QVERIFY(m_agreed);
    using Icon = Prompts::Icon;
    const std::pair<const char*, Icon> kinds[] = {{"message_box_information", Icon::Information},
                                                  {"message_box_warning", Icon::Warning},
                                                  {"message_box_error", Icon::Error}};
    for (const auto& [picture, icon] : kinds) {
        expectPicture(name(picture));
        prompts.message(nullptr,
                        QStringLiteral("Cannot freeze current layer. Specify a different "
                                       "layer"),
                        icon);
        QVERIFY(m_agreed);
    }
}

QTEST_MAIN(TestWindowPictures)
#include "test_window_pictures.moc"

#include "host/support/WindowFixture.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/commands/CommandLine.h"
#include "host/window/WindowActions.h"
#include "host/window/commandline/CCommandEdit.h"
#include "host/window/commandline/CCommandLine.h"

#include <QAction>
#include <QTest>

QString FilePrompts::openFile(QWidget*, const FileQuestion& question)
{
    questions << question;
    return file;
}

QString FilePrompts::saveFile(QWidget*, const FileQuestion& question)
{
    questions << question;
    return file;
}

void WindowFixture::prepare()
{
    folder = std::make_unique<QTemporaryDir>();
    prompts = std::make_unique<FilePrompts>();
    showWindow();
}

void WindowFixture::showWindow()
{
    frontEnd = std::make_unique<WindowFrontEnd>();
    core = std::make_unique<HostCore>(*frontEnd, folder->path());
    window = std::make_unique<CMainWindow>(*core);
    frontEnd->attach(window.get());
    core->setMainWindow(window.get());
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

void WindowFixture::restart()
{
    window->close();
    settle();
    endHost();
    showWindow();
}

void WindowFixture::finish()
{
    endHost();
    prompts.reset();
    folder.reset();
}

void WindowFixture::endHost()
{
    core->shutDown();
    frontEnd->attach(nullptr);
    window.reset();
    core.reset();
    frontEnd.reset();
}

HostDocument& WindowFixture::open(const TestDrawing& drawing, const QString& name)
{
    const QString file = drawing.writeTo(folder->path(), name);
    window->runCommand(QStringLiteral("OPEN ") + CommandLine::quoted(file));
    settle();
    return *current();
}

QAction& WindowFixture::action(WindowAction id) const
{
    return *window->actions().action(id);
}

QString WindowFixture::variable(const char* name) const
{
    return core->sysvars().text(QLatin1String(name));
}

QString WindowFixture::history() const
{
    return window->commandLine().historyText();
}

void WindowFixture::settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

void WindowFixture::typeLine(const char* line)
{
    QTest::keyClicks(&window->commandLine().edit(), QString::fromUtf8(line));
    QTest::keyClick(&window->commandLine().edit(), Qt::Key_Return);
    settle();
}

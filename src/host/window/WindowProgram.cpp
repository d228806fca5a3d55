#include "host/window/WindowProgram.h"

#include "database/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/application/HostOptions.h"
#include "host/batch/ExitCode.h"
#include "host/window/CMainWindow.h"
#include "host/window/KestApplication.h"
#include "host/window/WindowFrontEnd.h"
#include "host/window/WindowSession.h"
#include "toolkit/Prompts.h"

#include <QTimer>

#include <cstdio>

namespace {
/// Prompts for a run that nobody watches: messages go to the error stream, questions are cancelled.
class StreamPrompts : public Prompts
{
public:
    StreamPrompts()
        : m_before(install(this))
    { }
    ~StreamPrompts() override { install(m_before); }
    StreamPrompts(const StreamPrompts&) = delete;
    StreamPrompts& operator=(const StreamPrompts&) = delete;

    void message(QWidget*, const QString& text, Icon) override
    {
        m_hadMessage = true;
        std::fputs((QStringLiteral("kest: %1\n").arg(text)).toUtf8().constData(), stderr);
    }
    bool confirm(QWidget*, const QString&) override { return false; }
    int ask(QWidget*, const TaskQuestion&) override { return kCancelled; }
    bool hadMessage() const { return m_hadMessage; }

private:
    Prompts* m_before;
    bool m_hadMessage = false;
};

/// A picture needs no display, and often is taken where there is none.
void chooseOffscreenPlatform()
{
#if defined(Q_OS_LINUX)
    for (const char* variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) {
        if (!qEnvironmentVariableIsEmpty(variable))
            return;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
}

ExitCode takePicture(WindowSession& session, const HostOptions& options)
{
    const StreamPrompts prompts;
    session.start(options.files);
    // What was asked for is a picture of that drawing, not of another.
    return prompts.hadMessage() ? ExitCode::BadInput : session.takePicture(options.picture);
}
} // namespace

int runWindowProgram(int argc, char** argv, const HostOptions& options)
{
    if (options.mode == HostOptions::Mode::Screenshot)
        chooseOffscreenPlatform();
    KestApplication application(argc, argv);
    WindowFrontEnd frontEnd;
    HostCore core(frontEnd, options.configFolder);
    CMainWindow window(core);
    frontEnd.attach(&window);
    core.setMainWindow(&window);
    WindowSession session(core, window);
    window.show();
    int result = 0;
    if (options.mode == HostOptions::Mode::Screenshot) {
        result = static_cast<int>(takePicture(session, options));
    } else {
        QTimer::singleShot(0, &window, [&] { session.start(options.files); });
        result = QApplication::exec();
    }
    window.hide();
    core.shutDown();
    core.setMainWindow(nullptr);
    frontEnd.attach(nullptr);
    return result;
}

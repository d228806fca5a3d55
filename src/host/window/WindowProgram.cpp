#include "host/window/WindowProgram.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/application/HostOptions.h"
#include "host/batch/ExitCode.h"
#include "host/dialogs/HostPrompts.h"
#include "host/text/HostText.h"
#include "host/window/CMainWindow.h"
#include "host/window/KestApplication.h"
#include "host/window/WindowFrontEnd.h"
#include "host/window/WindowSession.h"
#include "host/window/recovery/JournalKeeper.h"
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

/// False where the window system would find no display and end the program without a word of ours.
bool hasDisplay()
{
#if defined(Q_OS_LINUX)
    for (const char* variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) {
        if (!qEnvironmentVariableIsEmpty(variable))
            return true;
    }
    return false;
#else
    return true;
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
    const bool isPicture = options.mode == HostOptions::Mode::Screenshot;
    if (!hasDisplay() && !isPicture) {
        const QString sentence = HostText::tr("There is no display. --batch runs scripts without "
                                              "one, --screenshot draws a picture.");
        std::fputs(QStringLiteral("kest: %1\n").arg(sentence).toUtf8().constData(), stderr);
        return static_cast<int>(ExitCode::Usage);
    }
    // A picture is often taken where there is no display.
    if (!hasDisplay())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    KestApplication application(argc, argv);
    WindowFrontEnd frontEnd;
    HostCore core(frontEnd, options.configFolder);
    const HostPrompts prompts(core.settings());
    CMainWindow window(core);
    frontEnd.attach(&window);
    core.setMainWindow(&window);
    WindowSession session(core, window);
    // A picture leaves no traces: no locks beside drawings, no journals, no files to open again.
    std::unique_ptr<JournalKeeper> keeper;
    if (!isPicture)
        keeper = std::make_unique<JournalKeeper>(core.documents(), core.recovery(), frontEnd);
    core.files().setLocking(!isPicture);
    if (isPicture)
        window.openFiles().ignore();
    window.show();
    int result = 0;
    if (isPicture) {
        result = static_cast<int>(takePicture(session, options));
    } else {
        session.setJournals(*keeper);
        QTimer::singleShot(0, &window, [&] { session.start(options.files); });
        result = QApplication::exec();
        // Drawings with unsaved changes are left only where nobody could be asked.
        keeper->flush();
        keeper.reset();
    }
    window.hide();
    core.shutDown();
    core.setMainWindow(nullptr);
    frontEnd.attach(nullptr);
    return result;
}

#include "host/window/CMainWindow.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/canvas/CCanvas.h"
#include "host/commands/CommandLine.h"
#include "host/dialogs/WindowDialogs.h"
#include "host/help/HelpKey.h"
#include "host/help/HelpTopics.h"
#include "host/sysvars/HostSysvarManager.h"
#include "host/window/DrawingInput.h"
#include "host/window/StatusFields.h"
#include "host/window/WindowActions.h"
#include "host/window/commandline/CCommandEdit.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/session/CDrawingsMenu.h"
#include "host/window/session/FileDrop.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"
#include "sdk/KestStatus.h"
#include "toolkit/CXTPDockingPaneManager.h"
#include "toolkit/Prompts.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>

namespace {
constexpr QSize kFirstSize(1280, 800);
constexpr int kCommandLineHeight = 130;

struct LayoutKeys
{
    const char* geometry = "Window/Geometry";
    const char* state = "Window/State";
    const char* panes = "Window/Panes";
    const char* history = "CommandLine/History";
};
constexpr LayoutKeys kKeys;
} // namespace

CMainWindow::CMainWindow(HostCore& core)
    : m_core(core)
    , m_recent(core.settings())
    , m_openFiles(core.documents(), core.settings())
    , m_changedFiles(core.documents(), core.files(), core.frontEnd())
    , m_panes(std::make_unique<CXTPDockingPaneManager>(*this))
    , m_dialogs(std::make_unique<WindowDialogs>(core, *this))
    , m_actions(new WindowActions(*this, m_recent))
    , m_status(new StatusFields(*statusBar()))
{
    setObjectName(QStringLiteral("mainWindow"));
    setAttribute(Qt::WA_DeleteOnClose, false);
    setDockNestingEnabled(true);
    setAcceptDrops(true);
    // The command line runs the window's whole width; palettes stand above it.
    setCorner(Qt::BottomLeftCorner, Qt::BottomDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::BottomDockWidgetArea);
    makeCentralArea();
    makeCommandLine();
    makeDrawingsMenu();
    connectParts();
    restoreLayout();
    showCurrentDrawing();
}

CMainWindow::~CMainWindow()
{
    // Panes first: their views may still look for the manager through the window.
    m_panes.reset();
    m_dialogs.reset();
}

void CMainWindow::makeCentralArea()
{
    m_center = new QStackedWidget(this);
    m_drawings = new CDrawingTabs(m_core.documents(), m_center);
    auto* hint = new QLabel(tr("No drawing is open.\nOpen one with Ctrl+O, or start a new one with "
                               "Ctrl+N."),
                            m_center);
    hint->setObjectName(QStringLiteral("emptyHint"));
    hint->setAlignment(Qt::AlignCenter);
    hint->setForegroundRole(QPalette::PlaceholderText);
    m_center->addWidget(hint);
    m_center->addWidget(m_drawings);
    setCentralWidget(m_center);
}

void CMainWindow::makeCommandLine()
{
    m_commandLine = new CCommandLine(this);
    CXTPDockingPane* pane = m_panes->CreatePane(
        kCommandLinePane, QRect(0, 0, kFirstSize.width(), kCommandLineHeight), xtpPaneDockBottom);
    pane->SetTitle(tr("Command Line"));
    pane->AttachView(m_commandLine);
    m_panes->ShowPane(pane);
}

void CMainWindow::makeDrawingsMenu()
{
    const QList<QAction*> actions = {m_actions->action(WindowAction::NextDrawing),
                                     m_actions->action(WindowAction::PreviousDrawing),
                                     m_actions->action(WindowAction::CloseAll)};
    auto* menu = new CDrawingsMenu(tr("&Window"), actions, m_core.documents(), this);
    menu->setObjectName(QStringLiteral("windowMenu"));
    menuBar()->insertMenu(menuBar()->actions().constLast(), menu);
}

void CMainWindow::connectParts()
{
    m_input = new DrawingInput(m_core, *m_commandLine, *m_drawings, this);
    connect(m_input, &DrawingInput::commandWanted, this, &CMainWindow::runCommand);
    connect(m_input, &DrawingInput::selectionChanged, this,
            [this] { m_status->showSelection(m_drawings->currentView()); });
    connect(m_actions, &WindowActions::commandWanted, this, &CMainWindow::runAction);
    connect(m_actions, &WindowActions::ownActionWanted, this, &CMainWindow::runOwnAction);
    connect(m_commandLine, &CCommandLine::lineEntered, this, [this](const QString& line) {
        // Enter alone repeats the last command.
        runCommand(line.trimmed().isEmpty() ? m_core.commands().lastLine() : line);
    });
    connect(m_drawings, &CDrawingTabs::viewAdded, this, [this](CDrawingView* v) { watchView(*v); });
    connect(m_drawings, &CDrawingTabs::currentDrawingChanged, this, [this] {
        cancelQuestion();
        showCurrentDrawing();
    });
    connect(m_drawings, &CDrawingTabs::closeWanted, this, [this](HostDocument* document) {
        m_core.documents().setCurrent(*document);
        runAction(QStringLiteral("CLOSE"));
    });
    connect(&m_core.queue(), &CommandQueue::queued, this, &CMainWindow::queuedWhileAsking);
    connect(&m_core.queue(), &CommandQueue::queued, this, &CMainWindow::drainQueue,
            Qt::QueuedConnection);
    connect(&m_core.sysvars(), &HostSysvarManager::userVariableChanged, this,
            &CMainWindow::showUserVariable);
}

void CMainWindow::showUserVariable()
{
    applyLineVariables();
    // Palettes show texts that depend on others, such as the unit of lineweights.
    for (QWidget* widget : findChildren<QWidget*>())
        widget->update();
}

void CMainWindow::watchView(CDrawingView& view)
{
    HelpKey::setTopic(view, help_topics::kCanvas);
    m_input->watch(view);
    connect(&view, &CDrawingView::drawingChanged, this, &CMainWindow::showCurrentDrawing);
    connect(&view.document(), &HostDocument::fileStateChanged, &view,
            [this] { showCurrentDrawing(); });
    connect(&view, &CDrawingView::textTyped, m_commandLine, &CCommandLine::type);
    connect(&view, &CDrawingView::layoutWanted, this, [this](const QString& name) {
        runAction(QStringLiteral("LAYOUT Set ") + CommandLine::quoted(name));
    });
    connect(&view.canvas(), &CCanvas::cursorMoved, m_status, &StatusFields::showPosition);
    connect(&view.canvas(), &CCanvas::spaceShown, this, &CMainWindow::showCurrentDrawing);
    applyLineVariables();
}

void CMainWindow::showCurrentDrawing()
{
    HostDocument* document = m_core.documents().curDocument();
    m_center->setCurrentIndex(m_drawings->count() > 0 ? 1 : 0);
    m_actions->refresh(document);
    m_input->showQuestion();
    m_status->showView(m_drawings->currentView());
    setWindowFilePath(document && document->hasFile() ? document->fileName() : QString());
    const QString title = document && document->isReadOnly() ? tr("%1[*] (read-only) \u2013 kest")
                                                             : tr("%1[*] \u2013 kest");
    setWindowTitle(document ? title.arg(document->displayName()) : tr("kest"));
    setWindowModified(document && document->isModified());
}

void CMainWindow::applyLineVariables()
{
    int fade = 0;
    int weight = 0;
    const HostSysvarManager& variables = m_core.sysvars();
    const bool isKnown = variables.getInt(QStringLiteral("LAYLOCKFADECTL"), fade) == kest::kNormal
        && variables.getInt(QStringLiteral("LWDEFAULT"), weight) == kest::kNormal;
    if (!isKnown)
        return;
    for (const CDrawingView* view : m_drawings->views()) {
        view->canvas().setLockedFade(fade);
        view->canvas().setDefaultWeight(weight);
    }
}

void CMainWindow::runCommand(const QString& line)
{
    runAndReport(line);
}

void CMainWindow::runAction(const QString& line)
{
    const CommandOutcome outcome = runAndReport(line);
    if (!outcome.isDone() && outcome.kind != CommandOutcome::Kind::Cancelled)
        Prompts::current().message(this, outcome.sentence);
}

CommandOutcome CMainWindow::runAndReport(const QString& line)
{
    if (line.trimmed().isEmpty())
        return {};
    if (m_core.commands().isRunning()) {
        m_core.documents().sendStringToExecute(QStringLiteral("^C^C") + line);
        return {};
    }
    m_commandLine->printInput(tr("Command: %1").arg(line));
    CommandOutcome outcome = m_core.commands().run(line);
    report(outcome);
    drainQueue();
    showCurrentDrawing();
    return outcome;
}

void CMainWindow::drainQueue()
{
    if (m_core.commands().isRunning() || m_core.queue().isEmpty())
        return;
    for (const CommandOutcome& outcome : m_core.commands().drainQueue())
        report(outcome);
    showCurrentDrawing();
}

void CMainWindow::queuedWhileAsking()
{
    // The question ends without an answer of its own: the command finds that in the queue.
    if (m_commandLine->isAsking())
        m_commandLine->answer(std::nullopt);
}

void CMainWindow::cancelQuestion()
{
    // What is asked is about the drawing that was shown: the answers would go to another one.
    if (m_commandLine->isAsking())
        m_core.documents().sendStringToExecute(QStringLiteral("^C^C"));
}

void CMainWindow::report(const CommandOutcome& outcome)
{
    if (outcome.kind == CommandOutcome::Kind::Cancelled)
        m_commandLine->print(outcome.sentence);
    else if (!outcome.isDone())
        m_commandLine->printFailure(outcome.sentence);
}

void CMainWindow::runOwnAction(WindowAction id)
{
    switch (id) {
    case WindowAction::About:
        return showAbout();
    case WindowAction::Help:
        return m_dialogs->showHelp(HelpKey::topicOf(focusWidget()));
    case WindowAction::HelpContents:
        return m_dialogs->showHelp(help_topics::kContents);
    case WindowAction::HelpPalette:
        return m_dialogs->showHelp(help_topics::kPalette);
    case WindowAction::HelpCommandLine:
        return m_dialogs->showHelp(help_topics::kCommandLine);
    default:
        showDrawingBeside(id == WindowAction::NextDrawing ? 1 : -1);
    }
}

void CMainWindow::showDrawingBeside(int step)
{
    const int count = m_drawings->count();
    if (count > 0)
        m_drawings->setCurrentIndex((m_drawings->currentIndex() + step + count) % count);
}

void CMainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!droppedFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void CMainWindow::dropEvent(QDropEvent* event)
{
    const QStringList files = droppedFiles(*event->mimeData());
    if (files.isEmpty())
        return;
    event->acceptProposedAction();
    // Not now: whoever drags waits for the end of the drop, and opening may ask something.
    QTimer::singleShot(0, this, [this, files] {
        for (const QString& file : files)
            runAction(QStringLiteral("OPEN ") + CommandLine::quoted(file));
    });
}

void CMainWindow::showAbout()
{
    Prompts::current().message(
        this,
        tr("kest %1\n\nOpens and draws DXF and DWG drawings, edits their layers and saves them "
           "without touching anything else.\n\nQt %2")
            .arg(QStringLiteral(KEST_VERSION), QLatin1String(qVersion())),
        Prompts::Icon::Information);
}

void CMainWindow::lookForChangedFiles()
{
    // A running command may be asking about the same file.
    if (m_core.commands().isRunning())
        return;
    try {
        m_changedFiles.check();
    } catch (const OdError& error) {
        Prompts::current().message(this, error.description());
    }
    showCurrentDrawing();
}

bool CMainWindow::event(QEvent* event)
{
    // Not at once: the window is being activated still.
    if (event->type() == QEvent::WindowActivate)
        QTimer::singleShot(0, this, &CMainWindow::lookForChangedFiles);
    return QMainWindow::event(event);
}

void CMainWindow::allowClose()
{
    m_mayClose = true;
}

void CMainWindow::closeEvent(QCloseEvent* event)
{
    if (!m_mayClose)
        runAction(QStringLiteral("QUIT"));
    event->setAccepted(m_mayClose);
    if (m_mayClose)
        storeLayout();
}

void CMainWindow::restoreLayout()
{
    const auto bytes = [this](const char* key) {
        return m_core.settings().value(QLatin1String(key)).toByteArray();
    };
    m_commandLine->edit().history().restore(
        m_core.settings().value(QLatin1String(kKeys.history)).toStringList());
    if (!restoreGeometry(bytes(kKeys.geometry)))
        resize(kFirstSize);
    if (restoreState(bytes(kKeys.state)))
        m_panes->restoreState(bytes(kKeys.panes));
}

void CMainWindow::storeLayout()
{
    m_core.settings().setValue(QLatin1String(kKeys.history),
                               m_commandLine->edit().history().lines());
    m_core.settings().setValue(QLatin1String(kKeys.geometry), saveGeometry());
    m_core.settings().setValue(QLatin1String(kKeys.state), saveState());
    m_core.settings().setValue(QLatin1String(kKeys.panes), m_panes->saveState());
}

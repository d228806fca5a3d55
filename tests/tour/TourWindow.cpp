#include "TourWindow.h"

#include "TourDialogs.h"
#include "database/drawing/OdDbDatabase.h"
#include "host/canvas/CCanvas.h"
#include "host/dialogs/HostPrompts.h"
#include "host/window/WindowActions.h"
#include "host/window/WindowSession.h"
#include "host/window/commandline/CCommandEdit.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"
#include "host/window/views/CLayoutTabs.h"
#include "support/TestFailure.h"
#include "support/pictures/GoldenImage.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTest>
#include <QTextCursor>
#include <QTimer>
#include <QToolButton>

TourWindow::TourWindow()
{
    QGuiApplication::setApplicationDisplayName(QStringLiteral("kest"));
    if (!QFile::copy(QStringLiteral(KEST_SAMPLES "/office.dxf"), path("office.dxf")))
        reportTestFailure(QStringLiteral("The sample drawing cannot be copied."));
    QFile::setPermissions(path("office.dxf"), QFile::ReadOwner | QFile::WriteOwner);
    m_core = std::make_unique<HostCore>(m_frontEnd, path("settings"));
    m_prompts = std::make_unique<HostPrompts>(m_core->settings());
    m_window = std::make_unique<CMainWindow>(*m_core);
    m_frontEnd.attach(m_window.get());
    m_core->setMainWindow(m_window.get());
    // The desktop's own choice of a fixed font is no part of the pictures.
    auto* history = m_window->findChild<QPlainTextEdit*>(QStringLiteral("commandHistory"));
    history->setFont(QFont(QStringLiteral("DejaVu Sans Mono"), 9));
    m_core->sysvars().setText(QStringLiteral("LAYERMANAGERSTATE"), QStringLiteral("0"));
    m_window->show();
    m_window->activateWindow();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        reportTestFailure(QStringLiteral("The main window does not become active."));
    WindowSession(*m_core, *m_window).start({});
    settle();
}

TourWindow::~TourWindow()
{
    m_core->shutDown();
    m_frontEnd.attach(nullptr);
    m_window.reset();
    m_prompts.reset();
    m_core.reset();
}

CCanvas& TourWindow::canvas() const
{
    return m_window->drawings().currentView()->canvas();
}

void TourWindow::inMenuOf(const char* menu, const std::function<void(QMenu&)>& steps) const
{
    QMenuBar& bar = *m_window->menuBar();
    for (QAction* action : bar.actions()) {
        if (action->text().remove(QLatin1Char('&')) != QLatin1String(menu))
            continue;
        tour_dialogs::inMenu(
            [&] {
                QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(action).center());
            },
            steps);
        settle();
        return;
    }
    reportTestFailure(QStringLiteral("There is no menu \"%1\".").arg(QLatin1String(menu)));
}

void TourWindow::chooseFrom(const char* menu, const QStringList& path) const
{
    inMenuOf(menu, [&path](QMenu& opened) { tour_dialogs::choose(opened, path); });
}

void TourWindow::press(const QKeySequence& keys) const
{
    QWidget* target = QApplication::focusWidget();
    QTest::keySequence(target ? target : m_window.get(), keys);
    settle();
}

void TourWindow::pull(QWidget& widget, QPoint from, QPoint to)
{
    QTest::mousePress(&widget, Qt::LeftButton, {}, from);
    // The first move tells that it is no click.
    for (const QPoint& place : {from + (to - from) / 2, to}) {
        QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(&widget, &move);
        QCoreApplication::processEvents(); // edges follow when there is time
    }
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, to);
}

void TourWindow::restPointer() const
{
    QTest::mouseMove(m_window->statusBar());
}

void TourWindow::clickLayout(const char* name) const
{
    CLayoutTabs& tabs = m_window->drawings().currentView()->layoutTabs();
    for (int tab = 0; tab < tabs.count(); ++tab) {
        if (tabs.tabText(tab) == QLatin1String(name))
            QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
    }
    settle();
    canvas().completeNow();
}

void TourWindow::whileAsked(const std::function<void()>& open,
                            const std::vector<std::function<void()>>& steps) const
{
    const CCommandLine& line = m_window->commandLine();
    std::size_t step = 0;
    QTimer next;
    QObject::connect(&next, &QTimer::timeout, &next, [&] {
        if (step < steps.size() && line.isAsking())
            steps[step++]();
    });
    next.start(0);
    open();
    const auto isOver = [&] { return step == steps.size() && !line.isAsking(); };
    if (!QTest::qWaitFor(isOver))
        reportTestFailure(QStringLiteral("Only %1 answers were asked for.").arg(step));
    settle();
}

void TourWindow::typeLine(const char* line) const
{
    CCommandEdit& edit = m_window->commandLine().edit();
    QTest::keyClicks(&edit, QString::fromUtf8(line));
    QTest::keyClick(&edit, Qt::Key_Return);
    settle();
}

QPoint TourWindow::placeOf(double x, double y) const
{
    return canvas().view().toWindow(canvas().userMap().map(Vec2{x, y})).toPoint();
}

void TourWindow::settle() const
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

QString TourWindow::statusText() const
{
    return m_window->statusBar()->currentMessage();
}

QString TourWindow::statusLayer() const
{
    return m_window->findChild<QLabel*>(QStringLiteral("statusLayer"))->text();
}

QString TourWindow::undoText() const
{
    return m_window->actions().action(WindowAction::Undo)->text().remove(QLatin1Char('&'));
}

QString TourWindow::redoText() const
{
    return m_window->actions().action(WindowAction::Redo)->text().remove(QLatin1Char('&'));
}

WindowPicture TourWindow::picture() const
{
    if (!QApplication::activePopupWidget())
        restPointer();
    settle();
    // The folder of this run is no part of the pictures.
    auto* history = m_window->findChild<QPlainTextEdit*>(QStringLiteral("commandHistory"));
    QTextCursor found = history->document()->find(m_folder.path());
    for (; !found.isNull(); found = history->document()->find(m_folder.path()))
        found.insertText(QStringLiteral("/plans"));
    // The button that clears the search fades in and out.
    if (const auto* box = m_window->findChild<QLineEdit*>(QStringLiteral("layerSearch"))) {
        const auto* clear = box->findChild<QToolButton*>();
        const double there = box->text().isEmpty() ? 0 : 1;
        if (!QTest::qWaitFor([&] { return clear->property("opacity").toReal() == there; }))
            reportTestFailure(QStringLiteral("The button that clears the search still fades."));
    }
    settle();
    // Last, and from the start: a picture that was begun in slices is blended a little otherwise.
    if (m_window->drawings().currentView()) {
        canvas().regen();
        canvas().completeNow(true);
    }
    return WindowPicture(*m_window);
}

bool TourWindow::looksLike(const char* name) const
{
    return looksLike(picture(), name);
}

bool TourWindow::looksLike(const WindowPicture& picture, const char* name) const
{
    return goldenImage(picture.image(), QStringLiteral("guide_") + QLatin1String(name));
}

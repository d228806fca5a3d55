#include "host/window/WindowSession.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/canvas/CCanvas.h"
#include "host/commands/CommandLine.h"
#include "host/text/HostText.h"
#include "host/text/LayerTableText.h"
#include "host/window/CMainWindow.h"
#include "host/window/recovery/RecoverySession.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"
#include "io/files/DrawingLock.h"
#include "sdk/commands/OdEdCommandStack.h"
#include "toolkit/Prompts.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPixmap>

#include <cstdio>

void WindowSession::loadModules()
{
    if (const QString problem = m_core.modules().loadLayerManager(); !problem.isEmpty())
        Prompts::current().message(&m_window, problem);
}

void WindowSession::reopenLastFiles()
{
    int wanted = 0;
    m_core.sysvars().getInt(QStringLiteral("SESSIONRESTORE"), wanted);
    if (wanted == 0)
        return;
    const OpenFiles& open = m_window.openFiles();
    for (const QString& file : open.lastFiles()) {
        if (m_core.documents().findByFile(file))
            continue; // with the edits that were recovered
        // Nobody asked for these now: what cannot be had is told and not asked about.
        if (!QFileInfo(file).isFile())
            m_core.frontEnd().print(HostText::tr("%1 is gone and not opened again.").arg(file));
        else if (DrawingLock(file).state() == DrawingLock::State::Elsewhere)
            m_core.frontEnd().print(
                HostText::tr("%1 is in use elsewhere and not opened again.").arg(file));
        else
            m_window.runCommand(QStringLiteral("OPEN ") + CommandLine::quoted(file));
    }
    if (HostDocument* document = m_core.documents().findByFile(open.lastCurrent()))
        m_core.documents().setCurrent(*document);
}

void WindowSession::start(const QStringList& files)
{
    if (const QString problem = m_core.settings().loadProblem(); !problem.isEmpty())
        Prompts::current().message(&m_window, problem);
    loadModules();
    // Before the files: one of them may be what is recovered.
    if (m_journals)
        RecoverySession(m_core.recovery(), m_core.files(), *m_journals, m_core.frontEnd()).offer();
    for (const QString& file : files)
        m_window.runAction(QStringLiteral("OPEN ") + CommandLine::quoted(file));
    if (files.isEmpty())
        reopenLastFiles();
    if (m_core.documents().documentCount() == 0)
        m_window.runAction(QStringLiteral("NEW"));
    int wantsPalette = 0;
    m_core.sysvars().getInt(QStringLiteral("LAYERMANAGERSTATE"), wantsPalette);
    if (wantsPalette != 0 && odedRegCmds()->lookup(QStringLiteral("_LAYER")))
        m_window.runCommand(QStringLiteral("_LAYER"));
}

ExitCode WindowSession::takePicture(const QString& path)
{
    if (CDrawingView* view = m_window.drawings().currentView())
        view->canvas().completeNow(true);
    QCoreApplication::processEvents();
    if (!m_window.grab().save(path)) {
        const QString sentence = HostText::tr("The picture cannot be written to %1.").arg(path);
        std::fputs((QStringLiteral("kest: ") + sentence + QLatin1Char('\n')).toUtf8().constData(),
                   stderr);
        return ExitCode::CannotWrite;
    }
    if (const HostDocument* document = m_core.documents().curDocument()) {
        int millimetres = 1;
        m_core.sysvars().getInt(QStringLiteral("LWUNITS"), millimetres);
        const QString table = layerTableText(*document->database(), millimetres != 0);
        std::fputs(table.toUtf8().constData(), stdout);
    }
    return ExitCode::Ok;
}

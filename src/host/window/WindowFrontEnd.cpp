#include "host/window/WindowFrontEnd.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/canvas/CCanvas.h"
#include "host/documents/HostDocument.h"
#include "host/text/HostText.h"
#include "host/window/CMainWindow.h"
#include "host/window/FileQuestions.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"
#include "host/window/work/BackgroundWork.h"
#include "toolkit/Prompts.h"

#include <QFileInfo>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace {
constexpr int kSave = 101;
constexpr int kDiscard = 102;
constexpr int kStatusTime = 15000; // milliseconds

QString drawingFilter()
{
    return HostText::tr("Drawings (*.dxf *.DXF *.dwg *.DWG *.dwt *.DWT *.dws *.DWS);;"
                        "DXF drawings (*.dxf *.DXF);;DWG drawings (*.dwg *.DWG *.dwt *.DWT *.dws "
                        "*.DWS);;All files (*)");
}

/// A drawing keeps its format when it is saved.
QString savingFilter(const QString& path)
{
    constexpr const char* kDwgEndings[] = {"dwg", "dwt", "dws"};
    const QString ending = QFileInfo(path).suffix().toLower();
    const bool isDwg =
        std::any_of(std::begin(kDwgEndings), std::end(kDwgEndings),
                    [&](const char* known) { return ending == QLatin1String(known); });
    return isDwg ? HostText::tr("DWG drawings (*.dwg *.DWG *.dwt *.DWT *.dws *.DWS);;All files (*)")
                 : HostText::tr("DXF drawings (*.dxf *.DXF);;All files (*)");
}

QString fileName(const QString& path)
{
    return QFileInfo(path).fileName();
}
} // namespace

void WindowFrontEnd::print(const QString& line)
{
    if (m_window)
        m_window->commandLine().print(line);
    else
        std::fputs((line.toUtf8() + '\n').constData(), stderr);
}

std::optional<QString> WindowFrontEnd::ask(const HostQuestion& question)
{
    return m_window ? m_window->commandLine().ask(question) : std::nullopt;
}

std::unique_ptr<OdDbDatabase> WindowFrontEnd::readDrawingFile(const QString& path)
{
    std::unique_ptr<OdDbDatabase> drawing;
    runInBackground(m_window, HostText::tr("Opening %1").arg(fileName(path)), false,
                    [&](const IoProgress& progress) { drawing = readDrawing(path, progress); });
    return drawing;
}

SaveReport WindowFrontEnd::writeDrawingFile(const OdDbDatabase& drawing, const QString& path,
                                            const SaveOptions& options)
{
    SaveReport report;
    runInBackground(m_window, HostText::tr("Saving %1").arg(fileName(path)), true,
                    [&](const IoProgress& progress) {
                        report = writeDrawing(drawing, path, progress, options);
                    });
    return report;
}

QString WindowFrontEnd::chooseFileToOpen()
{
    const QString last = m_window ? m_window->recentFiles().files().value(0) : QString();
    const QString folder = last.isEmpty() ? QString() : QFileInfo(last).path();
    return Prompts::current().openFile(m_window,
                                       {HostText::tr("Open Drawing"), folder, drawingFilter()});
}

QString WindowFrontEnd::chooseFileToSave(const QString& suggestion)
{
    QString path = suggestion;
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".dxf");
    return Prompts::current().saveFile(m_window,
                                       {HostText::tr("Save Drawing"), path, savingFilter(path)});
}

HostFrontEnd::CloseAnswer WindowFrontEnd::askToSave(const HostDocument& document)
{
    TaskQuestion question;
    question.windowTitle = HostText::tr("Unsaved Changes");
    question.mainInstruction = HostText::tr("Save the changes to %1?").arg(document.displayName());
    question.content = HostText::tr("The drawing was changed since it was opened or saved.");
    question.links = {
        {kSave, HostText::tr("Save\nThe changes are written to the drawing's file.")},
        {kDiscard, HostText::tr("Discard\nThe changes are lost.")},
    };
    question.defaultLink = kSave;
    switch (Prompts::current().ask(m_window, question)) {
    case kSave:
        return CloseAnswer::Save;
    case kDiscard:
        return CloseAnswer::Discard;
    default:
        return CloseAnswer::Cancel;
    }
}

HostFrontEnd::LockAnswer WindowFrontEnd::askAboutLock(const QString& path, const QString& holder)
{
    return file_questions::aboutLock(m_window, path, holder);
}

HostFrontEnd::ChangeAnswer WindowFrontEnd::askAboutChange(const HostDocument& document)
{
    return file_questions::aboutChange(m_window, document);
}

bool WindowFrontEnd::askToReload(const HostDocument& document)
{
    return file_questions::reload(m_window, document);
}

HostFrontEnd::RecoveryAnswer WindowFrontEnd::askToRecover(const QString& drawing,
                                                          const QDateTime& written)
{
    return file_questions::aboutRecovery(m_window, drawing, written);
}

void WindowFrontEnd::notify(const QString& sentence)
{
    print(sentence);
    Prompts::current().message(m_window, sentence);
}

void WindowFrontEnd::showStatus(const QString& sentence)
{
    if (m_window)
        m_window->statusBar()->showMessage(sentence, kStatusTime);
}

void WindowFrontEnd::fileUsed(const QString& path)
{
    if (!m_window)
        return;
    m_window->recentFiles().add(path);
    m_window->openFiles().note();
}

HostView* WindowFrontEnd::view()
{
    const CDrawingView* view = m_window ? m_window->drawings().currentView() : nullptr;
    return view ? &view->hostView() : nullptr;
}

void WindowFrontEnd::regen(bool allViews)
{
    if (!m_window)
        return;
    const CDrawingTabs& drawings = m_window->drawings();
    for (CDrawingView* view : drawings.views()) {
        if (allViews || view == drawings.currentView())
            view->canvas().regen();
    }
}

void WindowFrontEnd::repaint()
{
    if (!m_window)
        return;
    m_window->applyLineVariables();
    for (CDrawingView* view : m_window->drawings().views())
        view->canvas().update();
}

void WindowFrontEnd::zoomExtents()
{
    if (CDrawingView* view = m_window ? m_window->drawings().currentView() : nullptr)
        view->canvas().zoomExtents();
}

void WindowFrontEnd::quit()
{
    if (!m_window)
        return;
    m_window->allowClose();
    // Not now: the command that quits is still running.
    QTimer::singleShot(0, m_window, &QWidget::close);
}

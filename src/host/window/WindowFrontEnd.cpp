#include "host/window/WindowFrontEnd.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/canvas/CCanvas.h"
#include "host/documents/DocumentFiles.h"
#include "host/documents/HostDocument.h"
#include "host/text/HostText.h"
#include "host/window/CMainWindow.h"
#include "host/window/FileQuestions.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"
#include "host/window/work/BackgroundWork.h"
#include "io/DrawingEndings.h"
#include "toolkit/Prompts.h"

#include <QFileInfo>
#include <QStatusBar>
#include <QTimer>

#include <cstdio>

namespace {
constexpr int kSave = 101;
constexpr int kDiscard = 102;
constexpr int kKeepOpen = 103; ///< in place of saving, where that cannot be
constexpr int kStatusTime = 15000; // milliseconds

/// Patterns for the endings of a format, empty: of all, in both cases: "*.dxf *.DXF".
QString patterns(const QString& format = {})
{
    QStringList all;
    for (const DrawingEnding& known : kDrawingEndings) {
        const QString ending = QLatin1String(known.ending);
        if (format.isEmpty() || format == QLatin1String(known.format))
            all << QStringLiteral("*.") + ending << QStringLiteral("*.") + ending.toUpper();
    }
    return all.join(QLatin1Char(' '));
}

QString kindOfFiles(const QString& format)
{
    return HostText::tr("%1 drawings (%2)").arg(format.toUpper(), patterns(format));
}

QString drawingFilter()
{
    QStringList kinds{HostText::tr("Drawings (%1)").arg(patterns())};
    for (const DrawingEnding& known : kDrawingEndings) {
        if (qstrcmp(known.ending, known.format) == 0)
            kinds << kindOfFiles(QLatin1String(known.format));
    }
    kinds << HostText::tr("All files (*)");
    return kinds.join(QLatin1String(";;"));
}

/// A drawing keeps its format when it is saved.
QString savingFilter(const QString& format)
{
    return kindOfFiles(format) + QLatin1String(";;") + HostText::tr("All files (*)");
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

QString WindowFrontEnd::chooseFileToSave(const QString& suggestion, const QString& format)
{
    return Prompts::current().saveFile(
        m_window, {HostText::tr("Save Drawing"), suggestion, savingFilter(format)});
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
    const QString readOnly = DocumentFiles::readOnlySentence(document);
    if (!readOnly.isEmpty()) {
        question.mainInstruction =
            HostText::tr("Discard the changes to %1?").arg(document.displayName());
        question.content = readOnly;
        question.links.first() = {kKeepOpen,
                                  HostText::tr("Keep the drawing open\nIts layer states can still "
                                               "be exported.")};
        question.defaultLink = kKeepOpen;
    }
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

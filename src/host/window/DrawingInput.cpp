#include "host/window/DrawingInput.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/canvas/CCanvas.h"
#include "host/canvas/CanvasContents.h"
#include "host/commands/drawing/PointText.h"
#include "host/commands/selection/SelectionFinder.h"
#include "host/window/commandline/CCommandEdit.h"
#include "host/window/commandline/CCommandLine.h"
#include "host/window/views/CCanvasMenu.h"
#include "host/window/views/CDrawingTabs.h"
#include "host/window/views/CDrawingView.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

DrawingInput::DrawingInput(HostCore& core, CCommandLine& commandLine, CDrawingTabs& drawings,
                           QObject* parent)
    : QObject(parent)
    , m_core(core)
    , m_commandLine(commandLine)
    , m_drawings(drawings)
{
    connect(&commandLine, &CCommandLine::questionChanged, this, &DrawingInput::showQuestion);
    commandLine.edit().installEventFilter(this);
}

void DrawingInput::watch(CDrawingView& view)
{
    CCanvas& canvas = view.canvas();
    canvas.installEventFilter(this);
    connect(&canvas, &CCanvas::pointPicked, this, &DrawingInput::answerPoint);
    connect(&canvas, &CCanvas::entityPicked, this,
            [this, &view](Vec2 point, bool removes) { pickEntity(view, point, removes); });
    connect(&canvas, &CCanvas::boxPicked, this,
            [this, &view](const Box2& box, bool isCrossing, bool removes) {
                pickBox(view, box, isCrossing, removes);
            });
    connect(&canvas, &CCanvas::doubleClicked, this,
            [this, &view](Vec2 point) { enterViewport(view, point); });
    connect(&view, &CDrawingView::selectionShown, this, &DrawingInput::selectionChanged);
    showQuestion();
}

void DrawingInput::showQuestion()
{
    const CDrawingView* current = m_drawings.currentView();
    for (CDrawingView* view : m_drawings.views())
        view->canvas().setQuestion(view == current ? m_commandLine.question() : nullptr);
}

/// Whether entities that are picked answer a question.
bool DrawingInput::isSelecting() const
{
    const HostQuestion* question = m_commandLine.question();
    return question && question->wants == HostQuestion::Wants::Objects;
}

/// Picks outside of commands select only where PICKFIRST says so; PICKADD says what becomes of what
/// was selected before.
void DrawingInput::choose(CDrawingView& view, const std::vector<OdDbObjectId>& found, bool removes)
{
    int picksFirst = 1;
    int adds = 1;
    m_core.sysvars().getInt(QStringLiteral("PICKFIRST"), picksFirst);
    m_core.sysvars().getInt(QStringLiteral("PICKADD"), adds);
    if (picksFirst == 0)
        return;
    DrawingSelection& selection = view.document().selection();
    if (removes)
        selection.remove(found);
    else if (adds != 0)
        selection.add(found);
    else
        selection.set(found);
}

void DrawingInput::answerPoint(Vec2 point)
{
    if (const CDrawingView* view = m_drawings.currentView())
        m_commandLine.answerByPointing(point_text::pointedAt(point, view->canvas().pickReach()));
}

void DrawingInput::pickEntity(CDrawingView& view, Vec2 point, bool removes)
{
    if (isSelecting()) {
        const QString text = point_text::pointedAt(point, view.canvas().pickReach());
        // One object goes, then others may come again.
        m_commandLine.answerByPointing(removes ? QStringLiteral("Remove %1 Add").arg(text) : text);
        return;
    }
    choose(view, SelectionFinder(view.document(), &view.hostView()).at(point), removes);
}

void DrawingInput::pickBox(CDrawingView& view, const Box2& box, bool isCrossing, bool removes)
{
    if (isSelecting()) {
        const double reach = view.canvas().pickReach();
        const QString text =
            QStringLiteral("%1 %2 %3")
                .arg(isCrossing ? QStringLiteral("Crossing") : QStringLiteral("Window"),
                     point_text::pointedAt({box.minX, box.minY}, reach),
                     point_text::pointedAt({box.maxX, box.maxY}, reach));
        m_commandLine.answerByPointing(removes ? QStringLiteral("Remove %1 Add").arg(text) : text);
        return;
    }
    const SelectionFinder finder(view.document(), &view.hostView());
    choose(view, isCrossing ? finder.touched(box) : finder.inside(box), removes);
}

/// Into the viewport at that point of the sheet, or out of the one that is worked in.
void DrawingInput::enterViewport(const CDrawingView& view, Vec2 point)
{
    if (m_commandLine.isAsking() || view.document().database()->getTILEMODE())
        return;
    for (const SheetViewport& viewport : view.canvas().contents().openViewports()) {
        if (viewport.frame().contains(point)) {
            emit commandWanted(QStringLiteral("MSPACE ")
                               + point_text::pointedAt(point, view.canvas().pickReach()));
            return;
        }
    }
    if (!view.canvas().contents().activeViewportFrame().isEmpty())
        emit commandWanted(QStringLiteral("PSPACE"));
}

void DrawingInput::selectAll()
{
    CDrawingView* view = m_drawings.currentView();
    if (!view)
        return;
    const SelectionFinder finder(view->document(), &view->hostView());
    view->document().selection().set(SelectionFinder::keep(finder.all(), {}, false).entities);
}

void DrawingInput::deselect()
{
    if (CDrawingView* view = m_drawings.currentView())
        view->document().selection().clear();
}

void DrawingInput::showMenu(CDrawingView& view, QPoint at)
{
    CCanvasMenu menu(m_core, m_commandLine.question(), &m_commandLine);
    connect(&menu, &CCanvasMenu::lineWanted, this, &DrawingInput::runEntry);
    connect(&menu, &CCanvasMenu::selectAllWanted, this, &DrawingInput::selectAll);
    connect(&menu, &CCanvasMenu::deselectWanted, this, &DrawingInput::deselect);
    connect(&menu, &CCanvasMenu::enterWanted, &m_commandLine, &CCommandLine::enter);
    connect(&menu, &CCanvasMenu::cancelWanted, this, [this] { escape(); });
    menu.exec(view.canvas().mapToGlobal(at));
}

/// While something is asked, an entry of the menu is an answer.
void DrawingInput::runEntry(const QString& line)
{
    if (m_commandLine.isAsking())
        m_commandLine.answerByPointing(line);
    else
        emit commandWanted(line);
}

/// One thing at a time: the rectangle, the question, the selection.
bool DrawingInput::escape()
{
    CDrawingView* view = m_drawings.currentView();
    if (view && view->canvas().cancelRectangle())
        return true;
    if (m_commandLine.isAsking()) {
        m_commandLine.answer(std::nullopt);
        return true;
    }
    if (!view || view->document().selection().isEmpty())
        return false;
    deselect();
    return true;
}

bool DrawingInput::takesKey(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::SelectAll)) {
        if (m_commandLine.isAsking())
            return false;
        selectAll();
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Escape:
        return escape();
    case Qt::Key_Delete: {
        const CDrawingView* view = m_drawings.currentView();
        const bool erases = view && !m_commandLine.isAsking() && event.modifiers() == 0
            && !view->document().selection().isEmpty();
        if (erases)
            emit commandWanted(QStringLiteral("ERASE"));
        return erases;
    }
    default:
        return false;
    }
}

bool DrawingInput::eventFilter(QObject* watched, QEvent* event)
{
    const bool isEdit = watched == &m_commandLine.edit();
    if (event->type() == QEvent::ContextMenu && !isEdit) {
        auto* canvas = static_cast<CCanvas*>(watched);
        if (auto* view = qobject_cast<CDrawingView*>(canvas->parentWidget()))
            showMenu(*view, static_cast<QContextMenuEvent*>(event)->pos());
        return true;
    }
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    // What is being typed has the keys first.
    if (isEdit && (!m_commandLine.edit().text().isEmpty() || m_commandLine.edit().isCompleting()))
        return false;
    if (!isEdit && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)) {
        m_commandLine.enter();
        return true;
    }
    return takesKey(key);
}

#pragma once

#include "database/values/OdDbObjectId.h"
#include "host/canvas/geometry/Box2.h"

#include <QObject>

#include <vector>

class CCommandLine;
class CDrawingTabs;
class CDrawingView;
class HostCore;
class QKeyEvent;

/// What pointing at a drawing and pressing keys over it means: the answer to an open question, else
/// a selection. Commands are asked for, not run.
class DrawingInput : public QObject
{
    Q_OBJECT
public:
    DrawingInput(HostCore& core, CCommandLine& commandLine, CDrawingTabs& drawings,
                 QObject* parent);

    void watch(CDrawingView& view);
    /// Tells the canvases what is asked; to be called when another drawing becomes current.
    void showQuestion();
    void selectAll();
    void deselect();

signals:
    void commandWanted(const QString& line);
    /// Entities were selected, or are no longer.
    void selectionChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isSelecting() const;
    void choose(CDrawingView& view, const std::vector<OdDbObjectId>& found, bool removes);
    void answerPoint(Vec2 point);
    void pickEntity(CDrawingView& view, Vec2 point, bool removes);
    void pickBox(CDrawingView& view, const Box2& box, bool isCrossing, bool removes);
    void enterViewport(const CDrawingView& view, Vec2 point);
    void showMenu(CDrawingView& view, QPoint at);
    void runEntry(const QString& line);
    bool takesKey(const QKeyEvent& event);
    bool escape();

    HostCore& m_core;
    CCommandLine& m_commandLine;
    CDrawingTabs& m_drawings;
};

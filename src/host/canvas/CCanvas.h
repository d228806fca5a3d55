#pragma once

#include "host/canvas/picking/PickScene.h"
#include "host/canvas/render/ViewTransform.h"
#include "host/canvas/tools/PointerTool.h"
#include "host/canvas/tools/SelectionGlow.h"
#include "host/canvas/tools/ViewHistory.h"

#include <QHash>
#include <QWidget>

#include <memory>
#include <optional>

class CanvasContents;
class Crosshair;
class FrameScheduler;
class OdDbDatabase;
class QKeyEvent;
class QNativeGestureEvent;
struct FrameRequest;

/// The drawing on the screen: model space, or a sheet with its viewports, as the database says.
/// Follows the database by itself. Pan by dragging with the middle button, or with the left one
/// while Space is held, or by the wheel with Shift; zoom by the wheel or by pinching; double click
/// the middle button to see everything. Arrow keys, Ctrl with + or -, and Home do the same. The
/// left button points: see PointerTool.
class CCanvas : public QWidget
{
    Q_OBJECT
public:
    explicit CCanvas(QWidget* parent = nullptr);
    ~CCanvas() override;

    /// Shows that database from its extents, or nothing. It must outlive its use here or say
    /// goodbye.
    void setDatabase(OdDbDatabase* database);
    /// Reads the geometry again; the view stays.
    void regen();
    /// Shows everything that is visible, also when reading is still under way.
    void zoomExtents();
    /// "3 OLE2FRAME, 1 ACAD_TABLE not drawn", or empty when everything in the current space is
    /// drawn.
    QString undrawnSummary() const;
    /// Per cent by which what stands on locked layers fades (LAYLOCKFADECTL).
    void setLockedFade(int percent);
    /// Lineweight of what has none of its own (LWDEFAULT).
    void setDefaultWeight(int weight);

    const ViewTransform& view() const { return m_view; }
    void setView(const ViewTransform& view);
    /// As setView(), but the view that is left can be gone back to.
    void changeView(const ViewTransform& view);
    /// False when there was no view before.
    bool showPreviousView();
    /// While on, the left button moves the drawing.
    void setDragging(bool on);

    /// What the user is asked, or null: the cursor and the left button follow it.
    void setQuestion(const HostQuestion* question);
    /// Slots of the entities that are selected.
    void setSelected(const std::vector<quint32>& entities);
    /// Gives a rectangle up that was begun; false when there is none.
    bool cancelRectangle();
    /// Half the side of the box that picks, in units of userMap()'s side.
    double pickReach() const;
    /// From points as the user gives and reads them to the picture's: not the same where a viewport
    /// is worked in.
    Affine2 userMap() const;
    CanvasContents& contents() { return *m_contents; }
    /// Completes reading and painting before it returns, for pictures and tests.
    void completeNow(bool smooth = false);
    /// Whether the picture on the screen is the smooth one that follows when nothing happens.
    bool isSmooth() const;
    const CanvasContents& contents() const { return *m_contents; }

signals:
    /// The cursor is over that point of the model or the sheet.
    void cursorMoved(QPointF worldPoint);
    /// The left button pointed, in points as the user gives them.
    void pointPicked(Vec2 point);
    void entityPicked(Vec2 point, bool removes);
    void boxPicked(const Box2& box, bool isCrossing, bool removes);
    /// The left button was double-clicked at that point of the sheet or of model space.
    void doubleClicked(Vec2 point);
    /// A space was read and is shown: undrawnSummary() answers for it.
    void spaceShown();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void showSpace();
    void contentsChanged();
    void applyView(const ViewTransform& view);
    void driftTo(const ViewTransform& view);
    bool zoomByGesture(const QNativeGestureEvent& gesture);
    Vec2 userPoint(QPointF window) const;
    void pressAt(const QMouseEvent& event);
    bool isSeen(QPointF window) const;
    Box2 seenPart(const Box2& box) const;
    void refreshPicks() const;
    void paintSelection(QPainter& painter);
    void paintRubber(QPainter& painter) const;
    void moveCrosshair(QPointF to);
    void setPanning(Qt::MouseButton button, QPointF at);
    bool navigateByKey(const QKeyEvent& event);
    void updatePointer();
    bool isDark() const;
    QColor surround() const;
    std::optional<FrameRequest> frameRequest(const ViewTransform& view, bool isSmooth);
    void paintFrame(QPainter& painter) const;
    void paintActiveViewport(QPainter& painter) const;
    void paintProgress(QPainter& painter) const;

    std::unique_ptr<CanvasContents> m_contents;
    std::unique_ptr<FrameScheduler> m_frames;
    std::unique_ptr<Crosshair> m_crosshair;
    ViewTransform m_view;
    QHash<quint32, ViewTransform> m_viewsBySpace;
    quint32 m_shownSpace = 0xFFFFFFFFu;
    bool m_fitWhenReady = false;
    bool m_isFitted = false; ///< the view is that of zoomExtents()
    bool m_isSpaceHeld = false;
    bool m_isDragging = false; ///< by command
    PointerTool m_pointer;
    SelectionGlow m_glow;
    ViewHistory m_history;
    mutable std::optional<PickScene> m_picks; ///< as long as the contents stay as they are
    QPointF m_pressedAt;
    Qt::MouseButton m_panButton = Qt::NoButton;
    QPointF m_panFrom;
};

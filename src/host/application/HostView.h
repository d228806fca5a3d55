#pragma once

#include "host/canvas/geometry/Box2.h"

/// The view that a window has of the current drawing, for commands. Points and lengths are those
/// that the user gives and reads: of model space where a viewport is worked in.
class HostView
{
public:
    virtual ~HostView() = default;

    /// Half the side of the box that picks, in drawing units.
    virtual double pickReach() const = 0;
    /// Height of what is seen, in drawing units.
    virtual double height() const = 0;
    virtual Vec2 centre() const = 0;
    virtual void showBox(const Box2& box) = 0;
    /// Everything, larger by that factor.
    virtual void showAll(double factor) = 0;
    virtual void centreOn(Vec2 centre, double height) = 0;
    /// False when there was no view before.
    virtual bool showPrevious() = 0;
    /// While on, dragging with the left button moves the drawing.
    virtual void setDragging(bool on) = 0;
};

#pragma once

#include "host/application/HostView.h"

class CCanvas;

/// A canvas as commands see it.
class CanvasHostView : public HostView
{
public:
    explicit CanvasHostView(CCanvas& canvas)
        : m_canvas(canvas)
    { }

    double pickReach() const override;
    double height() const override;
    Vec2 centre() const override;
    void showBox(const Box2& box) override;
    void showAll(double factor) override;
    void centreOn(Vec2 centre, double height) override;
    bool showPrevious() override;
    void setDragging(bool on) override;

private:
    CCanvas& m_canvas;
};

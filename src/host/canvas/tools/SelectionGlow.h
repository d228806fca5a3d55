#pragma once

#include "host/canvas/picking/PickScene.h"
#include "host/canvas/render/ViewTransform.h"

#include <QImage>

#include <vector>

class QPainter;

/// Makes selected entities glow: a picture of its own over that of the drawing, which stays as it
/// is.
class SelectionGlow
{
public:
    /// Slots of the selected entities.
    void setSelected(const std::vector<quint32>& entities);
    bool isEmpty() const { return m_count == 0; }
    /// The drawing looks different: what was painted is of no use any more.
    void invalidate() { m_image = {}; }

    /// Paints over the picture of that view; `pixelRatio`: pixels of the device per window pixel.
    void paint(QPainter& painter, const PickScene& picks, const ViewTransform& view,
               double pixelRatio, bool isDark);

private:
    void render(const PickScene& picks, const ViewTransform& view, double pixelRatio, bool isDark);

    std::vector<bool> m_isSelected; ///< by slot
    std::size_t m_count = 0;
    QImage m_image;
    ViewTransform m_view;
};

#pragma once

#include "layermanager/resources/LayerIcons.h"

/// The pictures of the values of the filter table's value lists.
class FilterValueIcons
{
public:
    /// Null for values and columns without a picture. Sizes as LayerIcons takes them.
    QPixmap pixmap(int column, int value, int size, qreal ratio, LayerIconGround ground) const;

private:
    LayerIcons m_icons;
};

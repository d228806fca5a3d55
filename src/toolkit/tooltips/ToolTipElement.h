#pragma once

#include <QColor>
#include <QMargins>
#include <QString>

#include <vector>

/// An element of a rich tooltip's mark-up. Lengths are device-independent pixels.
struct ToolTipElement
{
    enum class Kind { StackPanel, TextBlock, Border, Image };

    Kind kind = Kind::TextBlock;
    QMargins margin; ///< around the element
    QMargins padding; ///< of a text block: between its edge and its text
    int maxWidth = 0; ///< 0: as wide as the contents
    int height = 0; ///< 0: as high as the contents
    QColor background; ///< not valid: none
    bool isHorizontal = false; ///< of a stack panel
    bool wraps = false;
    bool isBold = false;
    bool isCentred = false; ///< across a horizontal panel
    QString text;
    QString source; ///< of an image: "res://Help.ico"
    std::vector<ToolTipElement> children;
};

#pragma once

#include "layermanager/filter_editor/FilterValueIcons.h"

#include <QComboBox>

/// The value list over a cell of the filter table. Item 0 is blank and means "not set".
class CLayPropFilterEdCombo : public QComboBox
{
    Q_OBJECT
public:
    /// Id under which the table registers it.
    static constexpr int kControlId = 2423;

    explicit CLayPropFilterEdCombo(QWidget* parent);

    /// Fills the list with the values of a column anew and chooses one.
    void fill(int column, int value);
    /// Drops the list down, as after a press of the mouse where one led here.
    void open(bool byMouse);
    void hidePopup() override;

signals:
    /// The list went up, after a choice was told by activated(), or without one.
    void closed();

private:
    LayerIconGround ground() const;

    FilterValueIcons m_icons;
};

#pragma once

#include "layermanager/filter_editor/core/FilterColumn.h"
#include "layermanager/layers/operations/LayerOperations.h"

#include <QToolButton>

class OdDbDatabase;

/// The button in a cell of the filter table while the host's dialog for its value is open.
class CLayPropFilterEdBtn : public QToolButton
{
    Q_OBJECT
public:
    /// Id under which the table registers it.
    static constexpr int kControlId = 2424;

    explicit CLayPropFilterEdBtn(QWidget* parent);

    /// What was picked, a color by its index; the other parts mean nothing.
    struct Picked
    {
        qint32 number = 0;
        OdDbObjectId id;
    };
    /// Has a color, a linetype or a lineweight picked, starting from white, the drawing's
    /// Continuous, or `weight`. Nothing when the user gave up. The button may be gone afterwards.
    std::optional<Picked> pick(FilterCellEditor editor, const OdDbDatabase& database,
                               qint32 weight);
};

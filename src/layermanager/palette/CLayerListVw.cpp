#include "layermanager/palette/CLayerListVw.h"

#include "layermanager/layers/grid/CLayerListCtrl.h"

#include <QVBoxLayout>

CLayerListVw::CLayerListVw(QWidget* parent)
    : QWidget(parent)
    , m_grid(new CLayerListCtrl(this))
{
    setObjectName(QStringLiteral("layerList"));
    m_grid->keepWidthsAs(QStringLiteral("LayerManager/ColumnWidths"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_grid);
    setFocusProxy(m_grid);
}

// The filter tree as the place where layers are put, and asked about, one by one.

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/filters/LayerFilterTest.h"
#include "layermanager/filters/tree/FilterEdits.h"
#include "layermanager/filters/tree/GroupLayers.h"
#include "layermanager/filters/view/CLayerTreeVw.h"

#include <QPainter>
#include <QStyleOption>

std::function<bool(OdDbObjectId)> CLayerTreeVw::testOfSelected() const
{
    const FilterNode* node = selectedNode();
    if (!m_database || !node)
        return {};
    if (node->kind == FilterNodeKind::ExternalReference) {
        return [block = node->block](OdDbObjectId id) {
            const auto layer = id.openObject<OdDbLayerTableRecord>();
            return layer && layer->isDependent()
                && (block.isNull() || layer->externalReference() == block);
        };
    }
    const OdLyLayerFilterPtr filter = FilterTreeEdit(*m_database).find(node->key);
    if (!filter)
        return {};
    return
        [test = LayerFilterTest(*m_database, *filter)](OdDbObjectId id) { return test.shows(id); };
}

bool CLayerTreeVw::takesLayers(const QModelIndex& index) const
{
    const FilterNode* node = m_model.node(index);
    return m_database && node && node->kind == FilterNodeKind::Group;
}

void CLayerTreeVw::setDropNode(const QModelIndex& index)
{
    if (m_dropNode == index)
        return;
    m_dropNode = index;
    viewport()->update();
}

void CLayerTreeVw::dropLayers(const QModelIndex& index, const std::vector<OdDbObjectId>& layers,
                              bool moves)
{
    if (!takesLayers(index))
        return;
    const FilterNode* selected = selectedNode();
    const bool hasSource = moves && selected && selected->kind == FilterNodeKind::Group;
    const FilterKey source = hasSource ? selected->key : FilterKey();
    const FilterKey target = m_model.node(index)->key;
    if (moveLayersToGroup(*m_database, hasSource ? &source : nullptr, target, layers))
        refresh();
}

void CLayerTreeVw::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const
{
    QTreeView::drawRow(painter, option, index);
    if (!index.isValid() || m_dropNode != index)
        return;
    QStyleOption mark;
    mark.initFrom(this);
    mark.rect = visualRect(index);
    style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemDrop, &mark, painter, this);
}

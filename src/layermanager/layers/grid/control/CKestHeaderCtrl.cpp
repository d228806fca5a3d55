#include "layermanager/layers/grid/control/CKestHeaderCtrl.h"

#include <QStyle>
#include <QStyleOptionHeader>

CKestHeaderCtrl::CKestHeaderCtrl(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setSectionsClickable(true);
    setSectionsMovable(false);
    setHighlightSections(false);
}

void CKestHeaderCtrl::initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const
{
    QHeaderView::initStyleOptionForIndex(option, logicalIndex);
    // Styles differ in whether they shorten header texts; here all do.
    const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
    int room = sectionSize(logicalIndex) - 2 * margin;
    if (option->sortIndicator != QStyleOptionHeader::None)
        room -= style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, this);
    option->text = option->fontMetrics.elidedText(option->text, Qt::ElideRight, room);
}

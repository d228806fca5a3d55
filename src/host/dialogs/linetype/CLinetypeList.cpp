#include "host/dialogs/linetype/CLinetypeList.h"

#include "host/dialogs/linetype/LinetypePreview.h"

#include <QHeaderView>

namespace {
enum Column { Name, Appearance, Description };

constexpr int kNameCharacters = 20;
constexpr int kLookCharacters = 24;
constexpr int kRowSpace = 6;
} // namespace

CLinetypeList::CLinetypeList(QWidget* parent)
    : QTreeWidget(parent)
{
    setHeaderLabels({tr("Linetype"), tr("Appearance"), tr("Description")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setItemDelegateForColumn(Appearance, new LinetypePreview(this));
    const int character = fontMetrics().averageCharWidth();
    header()->resizeSection(Name, kNameCharacters * character);
    header()->resizeSection(Appearance, kLookCharacters * character);
    header()->setStretchLastSection(true);
    setAccessibleName(tr("Linetypes"));
}

void CLinetypeList::add(const LinetypeItem& linetype)
{
    auto* item = new QTreeWidgetItem(this, {linetype.name, {}, linetype.description});
    item->setSizeHint(Name, QSize(0, fontMetrics().height() + kRowSpace));
    item->setToolTip(Description, linetype.description);
    QVariantList dashes;
    for (const double dash : linetype.dashes)
        dashes << dash;
    item->setData(Appearance, LinetypePreview::kDashesRole, dashes);
}

LinetypeItem CLinetypeList::itemAt(int row) const
{
    const QTreeWidgetItem* item = topLevelItem(row);
    LinetypeItem linetype{item->text(Name), item->text(Description), {}};
    for (const QVariant& dash : item->data(Appearance, LinetypePreview::kDashesRole).toList())
        linetype.dashes.push_back(dash.toDouble());
    return linetype;
}

bool CLinetypeList::contains(const QString& name) const
{
    return !findItems(name, Qt::MatchFixedString, Name).isEmpty();
}

void CLinetypeList::select(const QString& name)
{
    const auto found = findItems(name, Qt::MatchFixedString, Name);
    setCurrentItem(found.isEmpty() ? nullptr : found.first());
    if (!found.isEmpty())
        scrollToItem(found.first());
}

void CLinetypeList::filter(const QString& text)
{
    QTreeWidgetItem* first = nullptr;
    for (int row = 0; row < topLevelItemCount(); ++row) {
        QTreeWidgetItem* item = topLevelItem(row);
        const bool isShown = item->text(Name).contains(text, Qt::CaseInsensitive)
            || item->text(Description).contains(text, Qt::CaseInsensitive);
        item->setHidden(!isShown);
        if (isShown && !first)
            first = item;
    }
    if (!currentItem() || currentItem()->isHidden())
        setCurrentItem(first);
}

QList<LinetypeItem> CLinetypeList::chosen() const
{
    QList<LinetypeItem> all;
    for (int row = 0; row < topLevelItemCount(); ++row) {
        const QTreeWidgetItem* item = topLevelItem(row);
        if (item->isSelected() && !item->isHidden())
            all << itemAt(row);
    }
    return all;
}
